#include "workflow/rules/transient_cells.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "platform/rounding.h"
#include "steady/case/state_change.h"
#include "workflow/rules/entry_rules.h"

namespace zel {
namespace {

/// Seconds count as the whole number that the run takes.
double counted(StateCell cell, double number) {
    const auto single = static_cast<double>(static_cast<float>(number));
    return cell == &StateChange::sec ? round_half_even(single) : single;
}

struct CellLimits {
    StateCell cell;
    Limits limits;  // {0} the number of the row
};

constexpr CellLimits cell_limits[] = {
    // the current of the bundle
    {&StateChange::Strom,
     Limits().at_most(999999, {"Der Maximalwert für die Stromstärke \n"
                               "der Zustandsänderung {0} beträgt 999999 Ampere !\n"
                               "Geben Sie bitte einen geringeren Wert für die Stromstärke ein",
                               "Maximum value for current \n"
                               "for the change-of-state {0} is 999999 Ampere !\n"
                               "Please correct your input. "})},
    {&StateChange::TEMP,
     Limits()
         .at_most(350, {"Der maximale Eingabewert für die Temperatur\n"
                        "der Zustandsänderung {0} beträgt 350 °C!\n"
                        "Geben Sie bitte einen geringeren Wert für die Temperatur ein",
                        "Maximum value of conductor temperature\n"
                        "for the change-of-state {0} is 350 °C !\n"
                        "Please correct your input."})
         .at_least(-50, {"Der minimale Eingabewert für die Temperatur\n"
                         "der Zustandsänderung {0} beträgt -50 °C!\n"
                         "Geben Sie bitte einen größeren Wert für die Temperatur ein",
                         "Minimum value of conductor temperature\n"
                         "for the change-of-state {0} is -50 °C !\n"
                         "Please correct your input."})},
    {&StateChange::min,
     Limits().at_most(60, {"Der Maximalwert für die Zeitdauer \n"
                           "der Zustandsänderung {0} beträgt 60 min !\n"
                           "Geben Sie bitte einen geringeren Wert für die Zeitdauer ein",
                           "Maximum value for time\n"
                           "of the change-of-state {0} is 60 min !\n"
                           "Please correct your input."})},
    {&StateChange::sec,
     Limits().at_most(59, {"Der Maximalwert für die Sekundenangabe der Zeitdauer\n"
                           "der Zustandsänderung {0} beträgt 59 Sekunden !\n"
                           "Geben Sie bitte einen geringeren Sekundenwert",
                           "Maximum input value for seconds\n"
                           "of the change-of-state {0} is 59 seconds !\n"
                           "Please correct your input."})},
};

constexpr Text beyond_title = {" Fehlerhafte Eingabe", "Incorrect input"};

/// The box for a number that the cell cannot hold.
std::optional<Box> refusal(StateCellPlace place, double number, LangId lang) {
    const Text* const told = limits_of(place.cell).broken_by(counted(place.cell, number));
    if (told == nullptr) return std::nullopt;
    return box_in(lang, {Icon::Stop, beyond_title, *told}, {std::to_string(place.row + 1)});
}

/// The number of a typed text, or the box that says that it is none.
std::optional<Box> parse(std::string_view text, Entry& number, const Locale& locale) {
    auto box = enter(number, nullptr, text, locale);
    if (box) box->icon = Icon::Stop;
    return box;
}

}  // namespace

const Limits& limits_of(StateCell cell) {
    const auto* const row =
        std::find_if(std::begin(cell_limits), std::end(cell_limits),
                     [cell](const CellLimits& other) { return other.cell == cell; });
    return row->limits;
}

std::optional<Box> enter_cell(CalcCase& c, StateCellPlace place, std::string_view text,
                              const Locale& locale) {
    Entry& cell = c.Z[place.row].*place.cell;
    cell = {};
    Entry typed;
    auto box = parse(text, typed, locale);
    if (!box) box = refusal(place, typed.value, locale.lang);
    if (box) return box;
    if (place.cell == &StateChange::Strom) typed.value /= sharing_conductors(c);
    cell = typed;
    return std::nullopt;
}

std::optional<Box> read_cell(CalcCase& c, StateCellPlace place, std::string_view text,
                             const Locale& locale) {
    Entry share;
    if (place.cell != &StateChange::Strom || parse(text, share, locale) || text.empty())
        return enter_cell(c, place, text, locale);
    StateChange& row = c.Z[place.row];
    const int n = sharing_conductors(c);
    auto box = refusal(place, share.value * n, locale.lang);
    row.Strom = box ? Entry{} : share;
    if (!box) show_bundle_current(row, n, locale.separator);
    return box;
}

}  // namespace zel
