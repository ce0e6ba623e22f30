#include "steady/case/state_change.h"

#include <algorithm>

namespace zel {
namespace {

constexpr int largest_bundle = 8;

bool is_duration(StateCell cell) { return cell == &StateChange::min || cell == &StateChange::sec; }

}  // namespace

bool is_in_use(const StateChange& row) {
    return std::find(transient_kinds.begin(), transient_kinds.end(), row.merker) !=
           transient_kinds.end();
}

bool takes_input(std::int16_t kind, StateCell cell) {
    switch (kind) {
        case seeks_current: return cell != &StateChange::Strom;
        case seeks_temperature: return cell != &StateChange::TEMP;
        case seeks_time: return !is_duration(cell);
        default: return false;
    }
}

int sharing_conductors(const LineData& c) {
    const int n = c.Anzahl_Teilleiter_db;
    return n >= 1 && n <= largest_bundle ? n : 1;
}

void show_bundle_current(StateChange& row, int n, DecimalSeparator separator) {
    row.Strom.text = plain_number(row.Strom.value * n, separator);
}

void share_bundle_currents(CalcCase& c, DecimalSeparator separator) {
    for (StateChange& row : c.Z)
        if (const auto current = parse_number(row.Strom.text, separator))
            row.Strom.value = *current / sharing_conductors(c);
}

CalcCase without_found_values(CalcCase c) {
    for (StateChange& row : c.Z)
        for (const StateCell cell : state_cells)
            if (is_in_use(row) && !takes_input(row.merker, cell)) row.*cell = {};
    return c;
}

}  // namespace zel
