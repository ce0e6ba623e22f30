#include "workflow/rules/transient_check.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>

#include "platform/rounding.h"
#include "shell/error_table.h"
#include "workflow/rules/steady_check.h"

namespace zel {
namespace {

using steady_check::incomplete_title;

constexpr BoxText row_1_unused = {
    Icon::Stop,
    incomplete_title,
    {"Es wurden keine Angaben zur Zustandsänderung 1 gemacht. \n"
     "Zur Berechnung des transienten Zustandes muß mindestens eine Zustandsänderung eingegeben "
     "werden!\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     "There is not input for the change-of-state 1. \n"
     "For running the calculation at least one change-of-state must be added!\n"
     "Please complete your input !"}};

/// A quantity of a row that must be given: one of its cells must hold a number.
struct Quantity {
    std::array<StateCell, 2> cells;  // the second may be null
    Text told;
};

constexpr Quantity temperature = {
    {&StateChange::TEMP}, {"Es wurden keine Angaben zur Temperatur neu", "Temperature (new)  "}};
constexpr Quantity current = {{&StateChange::Strom},
                              {"Es wurden keine Angaben zur Stromstärke neu", "Current (new)  "}};
constexpr Quantity period = {{&StateChange::min, &StateChange::sec},
                             {"Es wurden keine Angaben zur Zeitdauer", "Period ( min/ sec) "}};

constexpr const Quantity* needed_for_current[] = {&temperature, &period};
constexpr const Quantity* needed_for_temperature[] = {&current, &period};
constexpr const Quantity* needed_for_time[] = {&current, &temperature};

std::span<const Quantity* const> needed_for(std::int16_t kind) {
    switch (kind) {
        case seeks_current: return needed_for_current;
        case seeks_temperature: return needed_for_temperature;
        case seeks_time: return needed_for_time;
        default: return {};
    }
}

// {0} the quantity, {1} the number of the row
constexpr BoxText missing_in_row_1 = {Icon::Stop,
                                      incomplete_title,
                                      {"{0}\n"
                                       "der Zustandsänderung {1} gemacht.\n"
                                       "Bitte vervollständigen Sie ihre Eingabe !",
                                       "There is not input for:  \n"
                                       "{0}\n"
                                       "of the change-of-state {1}. \n"
                                       "Please complete your input !"}};
constexpr BoxText missing_in_later_row = {Icon::Stop,
                                          incomplete_title,
                                          {"{0}\n"
                                           "der Zustandsänderung {1} gemacht.\n"
                                           "Bitte vervollständigen Sie ihre Eingabe\n"
                                           "oder setzen Sie die Zustandsänderung\n"
                                           "mit der ' - ' Schaltfläche inaktiv !",
                                           "There is not input for:  \n"
                                           "{0}\n"
                                           "of the change-of-state {1}. \n"
                                           "Please complete your input\n"
                                           "or deactivate this change-of-state\n"
                                           "with the ' - ' Button !"}};

/// What is told of a row in use after one that is not.
struct Gap {
    Text first;              // the rows of which one is missing
    std::string_view where;  // the same rows, in German alone
};

/// For the rows 3 to 6.
constexpr Gap gaps[] = {
    {{"Es wurden keine Angaben zur Zustandsänderung 2  ",
      "change-of-state 2 but for change-of-state 3. "},
     "in Zustandsänderung 2"},
    {{"Es wurden keine Angaben zur Zustandsänderung 2 oder 3 ",
      "change-of-state 2 or 3, but for change-of-state 4. "},
     "in Zustandsänderung 2 oder 3"},
    {{"Es wurden keine Angaben zur Zustandsänderung 2,3 oder 4 ",
      "change-of-state 2,3 or 4 but for change-of-state 5. "},
     "in Zustandsänderung 2,3 oder 4"},
    {{"Es wurden keine Angaben zur Zustandsänderung 2,3,4 oder 5",
      "change-of-state 2,3,4 or 5 but for change-of-state 6. "},
     "in Zustandsänderung 2,3,4 oder 5"},
};

// {0} and {1} of the gap, {2} the number of the row in use
constexpr BoxText gap_told = {
    Icon::Stop,
    incomplete_title,
    {"{0}\n"
     "jedoch Angaben zur Zustandsänderung {2} gemacht. \n"
     "Zur Berechnung der transienten Zustände müssen\n"
     "die Zustandsänderungen lückenlos hintereinander eingegeben werden!\n"
     "Bitte vervollständigen Sie ihre Eingaben\n"
     "{1}\n"
     "oder setzen Sie die Zustandsänderung {2}\n"
     "mit der ' - ' Schaltfläche inaktiv !",
     "There is not input for:  \n"
     "{0}\n"
     "Please correct your input\n"
     "or deactivate the last change-of-state\n"
     "with the ' - ' Button !"}};

std::string number_of(std::size_t row) { return std::to_string(row + 1); }

/// A row in use must not follow an empty one.
std::optional<TransientRefusal> gap_before(const CalcCase& c, std::size_t row, LangId lang) {
    for (std::size_t before = 1; before < row; ++before) {
        if (is_in_use(c.Z[before])) continue;
        const auto& [first, where] = gaps[row - 2];
        return TransientRefusal{box_in(lang, gap_told, {first.in(lang), where, number_of(row)}),
                                before};
    }
    return std::nullopt;
}

bool is_given(const StateChange& row, const Quantity& quantity) {
    for (const StateCell cell : quantity.cells)
        if (cell != nullptr && (row.*cell).given()) return true;
    return false;
}

/// The cells that the kind of the row needs must hold a number.
std::optional<TransientRefusal> missing_in(const CalcCase& c, std::size_t row, LangId lang) {
    for (const Quantity* quantity : needed_for(c.Z[row].merker)) {
        if (is_given(c.Z[row], *quantity)) continue;
        const BoxText& told = row == 0 ? missing_in_row_1 : missing_in_later_row;
        return TransientRefusal{box_in(lang, told, {quantity->told.in(lang), number_of(row)}), row,
                                quantity->cells.front()};
    }
    return std::nullopt;
}

double number_in(const Entry& cell) { return cell.given() ? cell.value : 0; }

/// Rounds a cell to the whole number that a run takes. A given one beyond 16 bits is refused.
std::optional<TransientRefusal> round_cell(const CalcCase& c, std::size_t row, StateCell cell,
                                           std::int16_t& whole, LangId lang) {
    const auto rounded = round_to_int16(number_in(c.Z[row].*cell));
    whole = rounded.value_or(0);
    if (rounded || !takes_input(c.Z[row].merker, cell)) return std::nullopt;
    return TransientRefusal{
        arithmetic_error(ArithmeticFault::Overflow, "Form1", "S_Eingabepruefung_transient", lang),
        row, cell};
}

std::optional<TransientRefusal> copy(const CalcCase& c, std::size_t row, TransientRow& to,
                                     LangId lang) {
    TransientRow copied;
    copied.Merker = c.Z[row].merker;
    copied.Strom = number_in(c.Z[row].Strom);
    copied.Temp = number_in(c.Z[row].TEMP);
    auto refusal = round_cell(c, row, &StateChange::min, copied.Min, lang);
    if (!refusal) refusal = round_cell(c, row, &StateChange::sec, copied.Sec, lang);
    if (!refusal) to = copied;
    return refusal;
}

}  // namespace

bool is_missing(const CalcCase& c, StateCellPlace place) {
    const StateChange& row = c.Z[place.row];
    if (!is_in_use(row)) return false;
    const auto needed = needed_for(row.merker);
    return std::any_of(needed.begin(), needed.end(), [&](const Quantity* quantity) {
        return quantity->cells.front() == place.cell && !is_given(row, *quantity);
    });
}

std::optional<TransientRefusal> S_Eingabepruefung_transient(const CalcCase& c, Zustand16& rows,
                                                            LangId lang) {
    rows = {};
    if (!is_in_use(c.Z[0])) return TransientRefusal{box_in(lang, row_1_unused), 0};
    for (std::size_t row = 0; row < c.Z.size(); ++row) {
        if (!is_in_use(c.Z[row])) continue;
        auto refusal = gap_before(c, row, lang);
        if (!refusal) refusal = missing_in(c, row, lang);
        if (!refusal) refusal = copy(c, row, rows[row], lang);
        if (refusal) return refusal;
    }
    return std::nullopt;
}

}  // namespace zel
