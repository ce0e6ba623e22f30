#include "program/case_source.h"

#include "persistence/case_file.h"
#include "platform/errors.h"
#include "program/conductor_source.h"
#include "program/stores.h"

namespace zel {
namespace {

LoadedCase case_in(const std::string& path, const CommonOptions& options, Console& console) {
    const FlatObject values = JsonCaseStore().load(path);
    try {
        CaseFile file = read_case(values, options);
        for (const RefusedText& refused : file.refused) {
            if (options.silent)
                Console::tell_reason(path + ": " + refused.field + ": " +
                                     refused.box.lines.front());
            else
                console.show(refused.box, refused.field);
        }
        return {std::move(file.c), !file.refused.empty()};
    } catch (const InputError& error) {
        throw InputError(at(path, error.reason()));
    }
}

}  // namespace

LoadedCase load_case(const std::string& path, const CommonOptions& options, Console& console) {
    LoadedCase loaded = case_in(path, options, console);
    if (options.conductor.empty()) return loaded;
    loaded.refusal = take_fitting_conductor(loaded.c, options.conductor, options, console);
    if (loaded.refusal && !options.silent) console.show(*loaded.refusal);
    return loaded;
}

}  // namespace zel
