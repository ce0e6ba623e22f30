#include "program/conductor_source.h"

#include <algorithm>

#include "persistence/conductor_link.h"
#include "persistence/exchange_record.h"
#include "platform/errors.h"
#include "program/stores.h"

namespace zel {
namespace {

constexpr Text empty_record = {"die Datei ist leer, es ist kein Leiter ausgewählt",
                               "the file is empty, no conductor is selected"};

constexpr Text file_skipped = {"{0}; die eigenen Leiter fehlen",
                               "{0}; your own conductors are left out"};
constexpr Text line_skipped = {"{0}; die Zeile wird übergangen", "{0}; the line is skipped"};
constexpr Text more_skipped = {"{0} weitere Zeilen werden übergangen",
                               "{0} more lines are skipped"};
constexpr std::size_t most_told = 10;

std::string record_in(PosixFiles& files, const std::string& path) {
    std::string bytes = files.content(path);
    if (bytes.empty()) throw InputError(at(path, empty_record));
    return bytes;
}

void take(const ChosenConductor& chosen, CalcCase& c, const CommonOptions& options,
          Console& console) {
    copy_record_fields(chosen.data, c);
    if (!chosen.known) return;
    const auto told = take_offers(c, chosen.known->c, options);
    if (told && !options.silent) console.show(*told);
}

}  // namespace

ConductorLibrary open_library(Files& files, const Locale& locale) {
    ConductorLibrary library(files, library_places(ProgramStores().paths), locale.separator);
    if (const auto& refusal = library.refusal_of_own())
        Console::tell_reason(fill(file_skipped.in(locale.lang), {refusal->in(locale.lang)}));
    const auto& damaged = library.damaged();
    const std::size_t told = std::min(damaged.size(), most_told);
    for (std::size_t i = 0; i < told; ++i)
        Console::tell_reason(
            fill(line_skipped.in(locale.lang), {damaged[i].damage->reason.in(locale.lang)}));
    if (damaged.size() > told)
        Console::tell_reason(
            fill(more_skipped.in(locale.lang), {std::to_string(damaged.size() - told)}));
    return library;
}

ChosenConductor choose_conductor(const std::string& record_or_name, const Locale& locale) {
    PosixFiles files;
    const ConductorLibrary library = open_library(files, locale);
    if (!files.exists(record_or_name)) {
        const LibraryConductor& found = find_conductor(library.conductors(), record_or_name);
        return {read_record(written_record(found.c), locale.separator), found};
    }
    const std::string bytes = record_in(files, record_or_name);
    try {
        ChosenConductor chosen = {read_record(bytes, locale.separator), std::nullopt};
        if (const auto* known = find_record(library.conductors(), bytes)) chosen.known = *known;
        return chosen;
    } catch (const InputError& error) {
        throw InputError(at(record_or_name, error.reason()));
    }
}

void take_conductor(CalcCase& c, const std::string& record_or_name, const CommonOptions& options,
                    Console& console) {
    take(choose_conductor(record_or_name, options), c, options, console);
}

std::optional<Box> take_fitting_conductor(CalcCase& c, const std::string& record_or_name,
                                          const CommonOptions& options, Console& console) {
    const ChosenConductor chosen = choose_conductor(record_or_name, options);
    if (auto box = wrong_kind(c, chosen.data.conductor_type_db, options.lang)) return box;
    take(chosen, c, options, console);
    return std::nullopt;
}

}  // namespace zel
