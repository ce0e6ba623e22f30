#include "program/conductor_source.h"

#include <algorithm>

#include "persistence/conductor_link.h"
#include "platform/errors.h"
#include "program/stores.h"

namespace zel {
namespace {

constexpr Text file_skipped = {"{0}; die eigenen Leiter fehlen",
                               "{0}; your own conductors are left out"};
constexpr Text line_skipped = {"{0}; die Zeile wird übergangen", "{0}; the line is skipped"};
constexpr Text more_skipped = {"{0} weitere Zeilen werden übergangen",
                               "{0} more lines are skipped"};
constexpr std::size_t most_told = 10;

void take_and_tell(const ChosenConductor& chosen, CalcCase& c, const CommonOptions& options,
                   Console& console) {
    const auto told = take(chosen, c, options);
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
    return choose_conductor(open_library(files, locale), files, record_or_name, locale.separator);
}

void take_conductor(CalcCase& c, const std::string& record_or_name, const CommonOptions& options,
                    Console& console) {
    take_and_tell(choose_conductor(record_or_name, options), c, options, console);
}

std::optional<Box> take_fitting_conductor(CalcCase& c, const std::string& record_or_name,
                                          const CommonOptions& options, Console& console) {
    const ChosenConductor chosen = choose_conductor(record_or_name, options);
    if (auto box = wrong_kind(c, chosen.data.conductor_type_db, options.lang)) return box;
    take_and_tell(chosen, c, options, console);
    return std::nullopt;
}

}  // namespace zel
