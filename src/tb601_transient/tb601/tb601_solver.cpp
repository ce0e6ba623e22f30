#include "tb601_transient/tb601/tb601_solver.h"

#include "steady/heat_balance.h"
#include "steady/three_point_bisection.h"

namespace zel {
namespace {

using enum Tb601Cause;

constexpr Bisection<Tb601Failure> current_search = {0.01, 0, CurrentAllAbove, CurrentAllBelow,
                                                    CurrentNotReached};
constexpr Bisection<Tb601Failure> temperature_search = {0.01, 0.1, TemperatureAllAbove,
                                                        TemperatureAllBelow, TemperatureNotReached};

/// Searches for the `variable` of `state`.
Tb601Failure solve(const TB601Params& params, TB601State& state, double TB601State::*variable,
                   const BisectionPoints& start, const Bisection<Tb601Failure>& search,
                   SearchPace pace) {
    const ArithmeticScope arithmetic;
    const Tb601Balance balance(params);
    return bisect(pace, start, search, [&](double point, double& residual) -> Tb601Failure {
        state.*variable = point;
        if (const auto failure = balance.evaluate(state)) return failure;
        residual = computed(net_power(state.terms));
        return fault_in(Tb601Procedure::SteadyState, arithmetic);
    });
}

}  // namespace

Tb601Failure solve_current(const TB601Params& params, TB601State& state, double T,
                           SearchPace pace) {
    state.T = T;
    return solve(params, state, &TB601State::I, {0, 2000, 99999}, current_search, pace);
}

Tb601Failure solve_temperature(const TB601Params& params, TB601State& state, double I,
                               SearchPace pace) {
    state.I = I;
    return solve(params, state, &TB601State::T, {params.Ta, 200, 500}, temperature_search, pace);
}

Tb601Failure ST_00_CigreTB601_temp_strom_steady_state(const CalcCase& c, double delta,
                                                      TB601Records& records) {
    if (c.Leitertemp_Merker_db == c.Stromstaerke_Merker_db) return {ModeUndefined};
    const ArithmeticScope arithmetic;
    fill(records, c, delta);
    if (const auto failure = fault_in(Tb601Procedure::SteadyState, arithmetic)) return failure;
    auto& [params, state] = records;
    return c.Leitertemp_Merker_db ? solve_current(params, state, c.Leitertemp_db.value)
                                  : solve_temperature(params, state, c.Stromstaerke_db.value);
}

}  // namespace zel
