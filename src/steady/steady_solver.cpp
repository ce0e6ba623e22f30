#include "steady/steady_solver.h"

#include <algorithm>
#include <cmath>

namespace zel {
namespace {

constexpr double residual_tolerance = 0.001;  // W/m
constexpr int iteration_limit = 50;

/// Three points on the way from low to high, of currents (A) or temperatures (°C).
struct Points {
    double low, middle, high;
};

/// What tells one search from the other.
struct Search {
    double SteadyStateBlock::*variable;
    Points start;
    SteadyCause all_above;
    SteadyCause all_below;
    SteadyCause not_reached;
    /// The solution after 50 iterations without balance, where it is good enough.
    bool (*accept)(const Points& points, double best_residual, double& best_point);
};

bool below_half_a_watt(const Points&, double best_residual, double&) {
    return std::abs(best_residual) < 0.5;
}

bool within_one_ampere(const Points& points, double, double& best_point) {
    const auto& [low, middle, high] = points;
    if (std::abs(low - middle) >= 1 || std::abs(low - high) >= 1 || std::abs(middle - high) >= 1)
        return false;
    best_point = std::max(std::min(low, middle), std::min(std::max(low, middle), high));
    return true;
}

constexpr Search current_search = {&SteadyStateBlock::current,     {0, 2000, 99999},
                                   SteadyCause::CurrentAllAbove,   SteadyCause::CurrentAllBelow,
                                   SteadyCause::CurrentNotReached, within_one_ampere};

constexpr Search temperature_search = {
    &SteadyStateBlock::temperature,     {-100, 200, 500},
    SteadyCause::TemperatureAllAbove,   SteadyCause::TemperatureAllBelow,
    SteadyCause::TemperatureNotReached, below_half_a_watt};

struct Best {
    double point = 0;
    double residual = 9999;
};

/// One step of the bisection over the residuals of the three points. The best point becomes the
/// new middle, while the best residual is one taken at a point of the old bracket.
SteadyCause step(Points& p, const Points& B, Best& best, const Search& search) {
    const auto balanced = [](double b) { return std::abs(b) <= residual_tolerance; };
    const auto to_lower_half = [&](double taken) {
        p.high = p.middle;
        p.middle = (p.middle + p.low) / 2;
        best = {p.middle, taken};
    };
    const auto to_upper_half = [&](double taken) {
        p.low = p.middle;
        p.middle = (p.high + p.middle) / 2;
        best = {p.middle, taken};
    };
    if (balanced(B.low))
        best = {p.low, B.low};
    else if (balanced(B.middle))
        best = {p.middle, B.middle};
    else if (balanced(B.high))
        best = {p.high, B.high};
    else if (B.low < 0 && B.middle > 0)
        to_lower_half(B.low);
    else if (B.middle < 0 && B.high > 0)
        to_upper_half(B.middle);
    else if (B.middle < 0 && B.low > 0)
        to_lower_half(B.middle);
    else if (B.high < 0 && B.middle > 0)
        to_upper_half(B.high);
    else if (B.low > 0 && B.middle > 0 && B.high > 0)
        return search.all_above;
    else if (B.low < 0 && B.middle < 0 && B.high < 0)
        return search.all_below;
    return SteadyCause::None;
}

SteadySolution solve(const SteadyInputBlock& input, SteadyStateBlock state, const Search& search) {
    const auto evaluate = [&](double point, double& B) {
        state.*search.variable = point;
        const SteadyFailure failure = ST_F00_heat_terms_eval(state, input);
        B = net_power(state.terms);
        return failure;
    };
    Points p = search.start;
    Points B{};
    Best best;
    int iterations = 0;
    do {
        if (const auto failure = evaluate(p.low, B.low)) return {state, failure};
        if (const auto failure = evaluate(p.middle, B.middle)) return {state, failure};
        if (const auto failure = evaluate(p.high, B.high)) return {state, failure};
        if (const auto cause = step(p, B, best, search); cause != SteadyCause::None)
            return {state, {cause}};
        ++iterations;
    } while (std::abs(best.residual) > residual_tolerance && iterations < iteration_limit);

    const bool balanced = std::abs(best.residual) <= residual_tolerance;
    if (!balanced && !search.accept(p, best.residual, best.point))
        return {state, {search.not_reached}};
    const SteadyFailure failure = evaluate(best.point, best.residual);
    return {state, failure};
}

}  // namespace

SteadySolution solve_current(const SteadyInputBlock& input, double temperature) {
    return solve(input, {0, temperature, {}}, current_search);
}

SteadySolution solve_temperature(const SteadyInputBlock& input, double current) {
    return solve(input, {current, 0, {}}, temperature_search);
}

SteadySolution ST_00_CigreTB207_temp_strom_steady_state(const CalcCase& c, double delta) {
    if (c.Leitertemp_Merker_db == c.Stromstaerke_Merker_db)
        return {{}, {SteadyCause::ModeUndefined}};
    const SteadyInputBlock input = steady_input(c, delta);
    return c.Leitertemp_Merker_db ? solve_current(input, c.Leitertemp_db.value)
                                  : solve_temperature(input, c.Stromstaerke_db.value);
}

}  // namespace zel
