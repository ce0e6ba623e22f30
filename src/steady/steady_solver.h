#pragma once

#include "steady/case/calc_case.h"
#include "steady/heat_balance.h"
#include "steady/steady_cause.h"
#include "steady/three_point_bisection.h"

// The steady state of a conductor by the heat balance PJ + PS = PC + PR: the current to a given
// temperature, or the temperature to a given current, by a bisection of three points. All for one
// sub-conductor.

namespace zel {

/// A solution, or why there is none.
struct SteadySolution {
    SteadyStateBlock state;
    SteadyFailure failure;
};

/// The current (0 to 99999 A) at which the conductor has `temperature` (°C). A balance within
/// 0.001 W/m ends the search; after 50 iterations a bracket below 1 A is enough.
[[nodiscard]] SteadySolution solve_current(const SteadyInputBlock& input, double temperature,
                                           SearchPace pace = SearchPace::AllPoints);

/// The temperature (-100 to 500 °C) that the conductor takes at `current` (A). A balance within
/// 0.001 W/m ends the search; after 50 iterations one below 0.5 W/m is enough.
[[nodiscard]] SteadySolution solve_temperature(const SteadyInputBlock& input, double current,
                                               SearchPace pace = SearchPace::AllPoints);

/// The steady state of the case at the folded angle `delta`: the current where only the
/// temperature is given, the temperature where only the current (of one sub-conductor) is.
[[nodiscard]] SteadySolution ST_00_CigreTB207_temp_strom_steady_state(const CalcCase& c,
                                                                      double delta);

}  // namespace zel
