#pragma once

#include <initializer_list>

#include "fakes/transient_cases.h"
#include "steady/case/state_change.h"

namespace zel {

// Changes of state as they are typed for a twin bundle, whose current is given.

inline Entry twin_current(double bundle) {
    return {plain_number(bundle, DecimalSeparator::Point), bundle / 2};
}

inline StateChange typed_current_row(double temperature, int minutes, int seconds) {
    return {seeks_current, {}, typed(temperature), typed(minutes), typed(seconds)};
}

inline StateChange typed_temperature_row(double bundle_current, int minutes, int seconds) {
    return {seeks_temperature, twin_current(bundle_current), {}, typed(minutes), typed(seconds)};
}

inline StateChange typed_time_row(double bundle_current, double temperature) {
    return {seeks_time, twin_current(bundle_current), typed(temperature), {}, {}};
}

/// A complete case for the transients of TB 207 with these changes of state.
inline CalcCase bundle_with_rows(std::initializer_list<StateChange> rows) {
    CalcCase c = with_masses(twin_264_34());
    std::size_t index = 0;
    for (const StateChange& row : rows) c.Z[index++] = row;
    return c;
}

}  // namespace zel
