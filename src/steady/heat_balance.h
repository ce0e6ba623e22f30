#pragma once

#include <cstdint>
#include <optional>
#include <variant>

#include "steady/case/calc_case.h"
#include "steady/steady_cause.h"
#include "steady/tb207_terms.h"
#include "steady/tbb_terms.h"

// One evaluation of the heat balance PJ + PS = PC + PR of one sub-conductor, by Cigre TB 207 or by
// the busbar method.

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

/// The input of the evaluations for `c` at the folded angle `delta` (degrees). The linear
/// temperature coefficient passes through single precision. TB 207 goes before the busbar method
/// where both are selected.
[[nodiscard]] SteadyInputBlock steady_input(const CalcCase& c, double delta);

/// Evaluates the four heat terms at the current and temperature of `state`, in the order PJ, PS,
/// PC, PR, and stops at the first failure. A term that fails or that no method gives, and those
/// after it, keep their last values.
SteadyFailure ST_F00_heat_terms_eval(SteadyStateBlock& state, const SteadyInputBlock& input);

/// B = (PJ + PS) - (PC + PR) in W/m: above 0 the conductor gets hotter.
[[nodiscard]] inline double net_power(const HeatTerms& terms) {
    const double heating = terms.PJ + terms.PS;
    const double cooling = terms.PC + terms.PR;
    return heating - cooling;
}

/// The heat balance at one current, for many temperatures: what neither changes is worked out once.
/// Gives bit for bit what `ST_F00_heat_terms_eval` gives, failures included.
class SteadyBalance {
public:
    /// `input` must outlive the balance.
    SteadyBalance(const SteadyInputBlock& input, double current);

    /// The heat terms at `temperature` (°C).
    SteadyFailure evaluate(double temperature, HeatTerms& terms) const;

private:
    struct Tb207Parts {
        Tb207Joule joule;
        double solar;
        Tb207Convection convection;
        Tb207Radiation radiation;
    };
    struct BusbarParts {
        BusbarJoule joule;
        double solar;
        BusbarConvection convection;
        Tb207Radiation radiation;
    };
    const SteadyInputBlock& input_;
    double current_;
    /// Empty where working them out met a fault: each evaluation is then to meet it anew.
    std::variant<std::monostate, Tb207Parts, BusbarParts> parts_;
};

/// The heat balance at one temperature, for many currents: of these the Joule heating alone
/// depends. Gives bit for bit what `ST_F00_heat_terms_eval` gives, failures included.
class SteadyBalanceAt {
public:
    /// At `temperature` (°C). `input` must outlive the balance.
    SteadyBalanceAt(const SteadyInputBlock& input, double temperature);

    /// The heat terms at `current` (A).
    SteadyFailure evaluate(double current, HeatTerms& terms) const;

private:
    struct Parts {
        double solar;
        Term convection;
        double radiation;
    };
    const SteadyInputBlock& input_;
    double temperature_;
    /// Empty where working them out met a fault: each evaluation is then to meet it anew.
    std::optional<Parts> parts_;
};

}  // namespace zel
