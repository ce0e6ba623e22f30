#pragma once

#include <initializer_list>

#include "fakes/steady_cases.h"
#include "steady/state_change.h"

namespace zel {

// Rows of a twin bundle; the current is given as that of the bundle.

inline Entry twin_current(double bundle) {
    return {plain_number(bundle, DecimalSeparator::Point), bundle / 2};
}

inline StateChange current_row(double temperature, int minutes, int seconds) {
    return {seeks_current, {}, typed(temperature), typed(minutes), typed(seconds)};
}

inline StateChange temperature_row(double bundle_current, int minutes, int seconds) {
    return {seeks_temperature, twin_current(bundle_current), {}, typed(minutes), typed(seconds)};
}

inline StateChange time_row(double bundle_current, double temperature) {
    return {seeks_time, twin_current(bundle_current), typed(temperature), {}, {}};
}

/// A complete case for TB 207 and TB 601 with what the heat capacity reads: `twin_264_34` with the
/// materials of 264-AL1/34-ST1A, aluminium and steel.
inline CalcCase bundle_with_rows(std::initializer_list<StateChange> rows) {
    CalcCase c = twin_264_34();
    c.DrahtzahlTraeger_db = 7;
    c.DrahtdurchmesserTraeger_db = typed(2.49);
    c.Dichte_Leiterwerkstoff1_db = typed(2703);
    c.c_leiter20_db = typed(897);
    c.beta_leiter20_db = typed(0.38);
    c.Dichte_traegerwerkstoff1_db = typed(7780);
    c.c_traeger20_db = typed(481);
    c.beta_traeger20_db = typed(0.1);
    std::size_t index = 0;
    for (const StateChange& row : rows) c.Z[index++] = row;
    return c;
}

}  // namespace zel
