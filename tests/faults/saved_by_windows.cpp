// saved_by_windows case FILE FROM.json | conductor NAME: saves what only the windows save, as they
// do.

#include <algorithm>

#include "platform/errors.h"
#include "program/command_line.h"
#include "program/conductor_source.h"
#include "program/stores.h"

namespace zel {
namespace {

void keep_conductor(const std::string& name) {
    ProgramStores stores;
    make_folder(stores.paths.data_folder);
    ConductorLibrary library(stores.disk, library_places(stores.paths), DecimalSeparator::Point);
    if (const auto& refusal = library.refusal_of_own()) throw InputError(*refusal);
    const auto& all = library.conductors();
    LibraryConductor conductor = all.back();
    conductor.c.Bezeichnung1_db = name;
    const auto own = std::find_if(all.begin(), all.end(),
                                  [](const LibraryConductor& present) { return present.own; });
    library.keep(conductor, own == all.end() ? nullptr : &*own);
}

int run(const std::vector<std::string>& words) {
    if (words.at(0) == "case")
        JsonCaseStore().save(words.at(1), JsonCaseStore().load(words.at(2)));
    else
        keep_conductor(words.at(1));
    return exit_done;
}

}  // namespace
}  // namespace zel

int main(int argc, char** argv) {
    return zel::guarded([&] { return zel::run({argv + 1, argv + argc}); });
}
