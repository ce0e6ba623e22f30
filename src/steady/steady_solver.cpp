#include "steady/steady_solver.h"

#include "steady/three_point_bisection.h"

namespace zel {
namespace {

using enum SteadyCause;

constexpr Bisection<SteadyFailure> current_search = {0.001, 0, CurrentAllAbove, CurrentAllBelow,
                                                     CurrentNotReached};
constexpr Bisection<SteadyFailure> temperature_search = {
    0.001, 0.5, TemperatureAllAbove, TemperatureAllBelow, TemperatureNotReached};

/// Searches for the `variable` of `state`.
SteadySolution solve(const SteadyInputBlock& input, SteadyStateBlock state,
                     double SteadyStateBlock::*variable, const BisectionPoints& start,
                     const Bisection<SteadyFailure>& search) {
    const SteadyFailure failure = bisect(start, search, [&](double point, double& residual) {
        state.*variable = point;
        const SteadyFailure met = ST_F00_heat_terms_eval(state, input);
        residual = net_power(state.terms);
        return met;
    });
    return {state, failure};
}

}  // namespace

SteadySolution solve_current(const SteadyInputBlock& input, double temperature) {
    return solve(input, {0, temperature, {}}, &SteadyStateBlock::current, {0, 2000, 99999},
                 current_search);
}

SteadySolution solve_temperature(const SteadyInputBlock& input, double current) {
    return solve(input, {current, 0, {}}, &SteadyStateBlock::temperature, {-100, 200, 500},
                 temperature_search);
}

SteadySolution ST_00_CigreTB207_temp_strom_steady_state(const CalcCase& c, double delta) {
    if (c.Leitertemp_Merker_db == c.Stromstaerke_Merker_db) return {{}, {ModeUndefined}};
    const SteadyInputBlock input = steady_input(c, delta);
    return c.Leitertemp_Merker_db ? solve_current(input, c.Leitertemp_db.value)
                                  : solve_temperature(input, c.Stromstaerke_db.value);
}

}  // namespace zel
