#pragma once

#include <cstdint>

#include "steady/calc_case.h"
#include "steady/steady_cause.h"

// The steady state of a conductor by the heat balance PJ + PS = PC + PR: the current to a given
// temperature, or the temperature to a given current, by a bisection of three points. All for one
// sub-conductor.

namespace zel {

/// Which heat terms make the balance.
enum class HeatTermMethod : std::uint8_t { None, TB207, TBB };

/// What one evaluation reads, taken once from the case.
struct SteadyInputBlock {
    std::int16_t busbar_shape = 1;  // always 1
    double Ta = 0;                  // °C, ambient temperature
    double V = 0;                   // m/s, wind speed
    double delta = 0;               // degrees, folded angle between wind and conductor
    double altitude = 0;            // m
    double global_radiation = 0;    // W/m²
    double g = 0;                   // m/s²
    double frequency = 0;           // Hz
    double emissivity = 0;
    double absorptivity = 0;
    std::int16_t layers = 0;
    double conductor_section = 0;     // mm²
    double outer_diameter = 0;        // mm
    double outer_diameter_again = 0;  // mm
    double inner_diameter = 0;        // mm
    double wire_diameter = 0;         // mm, or wall thickness of a tube
    double DCR20 = 0;                 // ohm/km
    std::int16_t conductor_type = 0;  // ConductorType
    double resistivity = 0;           // ohm·mm²/km
    double a20 = 0;                   // 1/K
    HeatTermMethod method = HeatTermMethod::None;
};

/// A state and its heat terms; after a search, the solution.
struct SteadyStateBlock {
    double current = 0;      // A
    double temperature = 0;  // °C
    HeatTerms terms;         // W/m
};

/// A solution, or why there is none.
struct SteadySolution {
    SteadyStateBlock state;
    SteadyFailure failure;
};

/// The input of the evaluations for `c` at the folded angle `delta` (degrees). The linear
/// temperature coefficient passes through single precision. TB 207 goes before the busbar method
/// where both are selected.
[[nodiscard]] SteadyInputBlock steady_input(const CalcCase& c, double delta);

/// Evaluates the four heat terms at the current and temperature of `state`, in the order PJ, PS,
/// PC, PR, and stops at the first failure. A term that no method gives is left as it was.
SteadyFailure ST_F00_heat_terms_eval(SteadyStateBlock& state, const SteadyInputBlock& input);

/// The current (0 to 99999 A) at which the conductor has `temperature` (°C). A balance within
/// 0.001 W/m ends the search; after 50 iterations a bracket below 1 A is enough.
[[nodiscard]] SteadySolution solve_current(const SteadyInputBlock& input, double temperature);

/// The temperature (-100 to 500 °C) that the conductor takes at `current` (A). A balance within
/// 0.001 W/m ends the search; after 50 iterations one below 0.5 W/m is enough.
[[nodiscard]] SteadySolution solve_temperature(const SteadyInputBlock& input, double current);

/// The steady state of the case at the folded angle `delta`: the current where only the
/// temperature is given, the temperature where only the current (of one sub-conductor) is.
[[nodiscard]] SteadySolution ST_00_CigreTB207_temp_strom_steady_state(const CalcCase& c,
                                                                      double delta);

}  // namespace zel
