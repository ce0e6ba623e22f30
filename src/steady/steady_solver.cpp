#include "steady/steady_solver.h"

namespace zel {
namespace {

using enum SteadyCause;

constexpr Bisection<SteadyFailure> current_search = {0.001, 0, CurrentAllAbove, CurrentAllBelow,
                                                     CurrentNotReached};
constexpr Bisection<SteadyFailure> temperature_search = {
    0.001, 0.5, TemperatureAllAbove, TemperatureAllBelow, TemperatureNotReached};

/// Searches for the `variable` of `state` by the evaluations of `balance`.
template <class Balance>
SteadySolution solve(const Balance& balance, SteadyStateBlock state,
                     double SteadyStateBlock::*variable, const BisectionPoints& start,
                     const Bisection<SteadyFailure>& search, SearchPace pace) {
    const SteadyFailure failure = bisect(pace, start, search, [&](double point, double& residual) {
        state.*variable = point;
        const SteadyFailure met = balance.evaluate(point, state.terms);
        residual = net_power(state.terms);
        return met;
    });
    return {state, failure};
}

}  // namespace

SteadySolution solve_current(const SteadyInputBlock& input, double temperature, SearchPace pace) {
    return solve(SteadyBalanceAt(input, temperature), {0, temperature, {}},
                 &SteadyStateBlock::current, {0, 2000, 99999}, current_search, pace);
}

SteadySolution solve_temperature(const SteadyInputBlock& input, double current, SearchPace pace) {
    return solve(SteadyBalance(input, current), {current, 0, {}}, &SteadyStateBlock::temperature,
                 {-100, 200, 500}, temperature_search, pace);
}

SteadySolution ST_00_CigreTB207_temp_strom_steady_state(const CalcCase& c, double delta) {
    if (c.Leitertemp_Merker_db == c.Stromstaerke_Merker_db) return {{}, {ModeUndefined}};
    const SteadyInputBlock input = steady_input(c, delta);
    return c.Leitertemp_Merker_db ? solve_current(input, c.Leitertemp_db.value)
                                  : solve_temperature(input, c.Stromstaerke_db.value);
}

}  // namespace zel
