#include "program/conductor_source.h"

#include "persistence/exchange_record.h"
#include "platform/errors.h"
#include "program/stores.h"

namespace zel {
namespace {

std::string record_in(PosixFiles& files, const std::string& path) {
    std::string bytes = files.content(path);
    if (bytes.empty()) throw InputError(path + ": the file is empty, no conductor is selected");
    return bytes;
}

}  // namespace

ConductorLibrary open_library(Files& files, DecimalSeparator separator) {
    ConductorLibrary library(files, library_places(ProgramStores().paths), separator);
    if (!library.refusal_of_own().empty()) throw InputError(library.refusal_of_own());
    return library;
}

ChosenConductor choose_conductor(const std::string& record_or_name, DecimalSeparator separator) {
    PosixFiles files;
    const ConductorLibrary library = open_library(files, separator);
    if (!files.exists(record_or_name)) {
        const LibraryConductor& found = find_conductor(library.conductors(), record_or_name);
        return {read_record(written_record(found.c), separator), found};
    }
    const std::string bytes = record_in(files, record_or_name);
    try {
        ChosenConductor chosen = {read_record(bytes, separator), std::nullopt};
        if (const auto* known = find_record(library.conductors(), bytes)) chosen.known = *known;
        return chosen;
    } catch (const InputError& error) {
        throw InputError(record_or_name + ": " + error.what());
    }
}

void take_conductor(CalcCase& c, const std::string& record_or_name, const CommonOptions& options,
                    Console& console) {
    const ChosenConductor chosen = choose_conductor(record_or_name, options.separator);
    copy_record_fields(chosen.data, c);
    if (!chosen.known) return;
    const auto told = take_offers(c, chosen.known->c, options);
    if (told && !options.silent) console.show(*told);
}

}  // namespace zel
