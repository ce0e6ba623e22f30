#include "persistence/conductor_choice.h"

#include "persistence/exchange_record.h"
#include "platform/errors.h"

namespace zel {
namespace {

constexpr Text empty_record = {"die Datei ist leer, es ist kein Leiter ausgewählt",
                               "the file is empty, no conductor is selected"};

std::string record_in(Files& files, const std::string& path) {
    std::string bytes = files.content(path);
    if (bytes.empty()) throw InputError(at(path, empty_record));
    return bytes;
}

}  // namespace

ChosenConductor choose_conductor(const ConductorLibrary& library, Files& files,
                                 const std::string& record_or_name, DecimalSeparator separator) {
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
        throw InputError(at(record_or_name, error.reason()));
    }
}

std::optional<Box> take(const ChosenConductor& chosen, CalcCase& c, const Locale& locale) {
    copy_record_fields(chosen.data, c);
    if (!chosen.known) return std::nullopt;
    return take_offers(c, chosen.known->c, locale);
}

}  // namespace zel
