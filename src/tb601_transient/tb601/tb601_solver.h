#pragma once

#include "steady/three_point_bisection.h"
#include "tb601_transient/tb601/tb601_balance.h"
#include "tb601_transient/tb601/tb601_cause.h"
#include "tb601_transient/tb601/tb601_params.h"

// The steady state of a conductor by Cigre TB 601 (2014): the current to a given mean temperature,
// or the mean temperature to a given current, by a bisection of three points. All for one
// sub-conductor. Nothing is kept but in the state handed in, so that calculations run side by side.

namespace zel {

/// The current (0 to 99999 A) at which the conductor has the mean temperature `T` (°C), as `I` of
/// the state. A balance within 0.01 W/m ends the search; after 50 rounds a bracket below 1 A is
/// enough.
[[nodiscard]] Tb601Failure solve_current(const TB601Params& params, TB601State& state, double T,
                                         SearchPace pace = SearchPace::AllPoints);

/// The mean temperature (ambient to 500 °C) that the conductor takes at `I` (A), as `T` of the
/// state. A balance within 0.01 W/m ends the search; after 50 rounds one below 0.1 W/m is enough.
[[nodiscard]] Tb601Failure solve_temperature(const TB601Params& params, TB601State& state, double I,
                                             SearchPace pace = SearchPace::AllPoints);

/// The steady state of the case at the folded angle `delta` (degrees): the current where only the
/// temperature is given, the temperature where only the current (of one sub-conductor) is. Fills
/// the records from the case and leaves the result in their state.
[[nodiscard]] Tb601Failure ST_00_CigreTB601_temp_strom_steady_state(const CalcCase& c, double delta,
                                                                    TB601Records& records);

}  // namespace zel
