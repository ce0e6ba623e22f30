#include "tb601_transient/tb601_solver.h"

#include <algorithm>
#include <cmath>

#include "steady/heat_balance.h"

namespace zel {
namespace {

constexpr double residual_tolerance = 0.01;  // W/m
constexpr int round_limit = 50;

/// Three points on the way from low to high, of currents (A) or temperatures (°C).
struct Points {
    double low, middle, high;
};

/// What tells one search from the other.
struct Search {
    double TB601State::*variable;
    Tb601Cause all_above;
    Tb601Cause all_below;
    Tb601Cause not_reached;
    /// The solution after 50 rounds without balance, where it is good enough.
    bool (*accept)(const Points& points, double best_residual, double& best_point);
};

bool within_one_ampere(const Points& points, double, double& best_point) {
    const auto& [low, middle, high] = points;
    if (std::abs(low - middle) >= 1 || std::abs(low - high) >= 1 || std::abs(middle - high) >= 1)
        return false;
    best_point = std::max(std::min(low, middle), std::min(std::max(low, middle), high));
    return true;
}

bool below_a_tenth_of_a_watt(const Points&, double best_residual, double&) {
    return std::abs(best_residual) < 0.1;
}

constexpr Search current_search = {&TB601State::I, Tb601Cause::CurrentAllAbove,
                                   Tb601Cause::CurrentAllBelow, Tb601Cause::CurrentNotReached,
                                   within_one_ampere};

constexpr Search temperature_search = {&TB601State::T, Tb601Cause::TemperatureAllAbove,
                                       Tb601Cause::TemperatureAllBelow,
                                       Tb601Cause::TemperatureNotReached, below_a_tenth_of_a_watt};

struct Best {
    double point = 0;
    double residual = 10000;
};

bool balanced(double F) { return std::abs(F) <= residual_tolerance; }

/// One step of the bisection over the residuals `F` of the points. The best point becomes the new
/// middle, while the best residual is one taken at a point of the old bracket.
Tb601Cause step(Points& p, Points& F, Best& best, const Search& search) {
    const auto to_lower_half = [&](double taken) {
        p.high = p.middle;
        F.high = F.middle;
        p.middle = (p.middle + p.low) / 2;
        best = {p.middle, taken};
    };
    const auto to_upper_half = [&](double taken) {
        p.low = p.middle;
        F.low = F.middle;
        p.middle = (p.high + p.middle) / 2;
        best = {p.middle, taken};
    };
    if (balanced(F.low))
        best = {p.low, F.low};
    else if (balanced(F.middle))
        best = {p.middle, F.middle};
    else if (balanced(F.high))
        best = {p.high, F.high};
    else if (F.low < 0 && F.middle > 0)
        to_lower_half(F.low);
    else if (F.middle < 0 && F.high > 0)
        to_upper_half(F.middle);
    else if (F.middle < 0 && F.low > 0)
        to_lower_half(F.middle);
    else if (F.high < 0 && F.middle > 0)
        to_upper_half(F.high);
    else if (F.low > 0 && F.middle > 0 && F.high > 0)
        return search.all_above;
    else if (F.low < 0 && F.middle < 0 && F.high < 0)
        return search.all_below;
    return Tb601Cause::None;
}

Tb601Failure solve(const TB601Params& params, TB601State& state, Points p, const Search& search) {
    const ArithmeticScope arithmetic;
    const Tb601Balance balance(params);
    const auto evaluate = [&](double point, double& F) -> Tb601Failure {
        state.*search.variable = point;
        if (const auto failure = balance.evaluate(state)) return failure;
        F = computed(net_power(state.terms));
        return fault_in(Tb601Procedure::SteadyState, arithmetic);
    };
    Points F{};
    Best best;
    for (int rounds = 0; rounds < round_limit && !balanced(best.residual); ++rounds) {
        // All three anew: what a failure leaves in the state is that of the last one evaluated.
        if (const auto failure = evaluate(p.low, F.low)) return failure;
        if (const auto failure = evaluate(p.middle, F.middle)) return failure;
        if (const auto failure = evaluate(p.high, F.high)) return failure;
        if (const auto cause = step(p, F, best, search); cause != Tb601Cause::None) return {cause};
    }
    if (!balanced(best.residual) && !search.accept(p, best.residual, best.point))
        return {search.not_reached};
    return evaluate(best.point, best.residual);
}

}  // namespace

Tb601Failure solve_current(const TB601Params& params, TB601State& state, double T) {
    state.T = T;
    return solve(params, state, {0, 2000, 99999}, current_search);
}

Tb601Failure solve_temperature(const TB601Params& params, TB601State& state, double I) {
    state.I = I;
    return solve(params, state, {params.Ta, 200, 500}, temperature_search);
}

Tb601Failure ST_00_CigreTB601_temp_strom_steady_state(const CalcCase& c, double delta,
                                                      TB601Records& records) {
    if (c.Leitertemp_Merker_db == c.Stromstaerke_Merker_db) return {Tb601Cause::ModeUndefined};
    const ArithmeticScope arithmetic;
    fill(records, c, delta);
    if (const auto failure = fault_in(Tb601Procedure::SteadyState, arithmetic)) return failure;
    auto& [params, state] = records;
    return c.Leitertemp_Merker_db ? solve_current(params, state, c.Leitertemp_db.value)
                                  : solve_temperature(params, state, c.Stromstaerke_db.value);
}

}  // namespace zel
