#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

// The search of the steady state by Cigre TB 207, TB 601 and the busbar method: a bisection of
// three points over the residual of the heat balance.

namespace zel {

/// Three points on the way from low to high, of currents (A) or temperatures (°C), or the residuals
/// (W/m) at them.
struct BisectionPoints {
    double low, middle, high;
};

/// What tells one search from the other. `Failure` has a `cause` and can be made of one.
template <class Failure>
struct Bisection {
    using Cause = decltype(Failure::cause);

    double tolerance;  // W/m; a balance within it ends the search
    /// W/m; what is enough after 50 rounds. 0: three points within 1 of each other are, and the
    /// solution is the one that lies between the others.
    double enough;
    Cause all_above;  // the residual is above 0 at all three points
    Cause all_below;
    Cause not_reached;
};

namespace bisection {

inline constexpr int round_limit = 50;

struct Best {
    double point = 0;
    double residual = 9999;
};

/// One step over the residuals `F` of the points. The best point becomes the new middle, while the
/// best residual is one taken at a point of the old bracket.
template <class Failure>
[[nodiscard]] Failure step(BisectionPoints& p, const BisectionPoints& F, Best& best,
                           const Bisection<Failure>& search) {
    const auto balanced = [&](double f) { return std::abs(f) <= search.tolerance; };
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
        return {search.all_above};
    else if (F.low < 0 && F.middle < 0 && F.high < 0)
        return {search.all_below};
    return {};
}

/// Whether the search may end without balance after its last round.
[[nodiscard]] inline bool accepted(const BisectionPoints& points, double enough, Best& best) {
    if (enough > 0) return std::abs(best.residual) < enough;
    const auto& [low, middle, high] = points;
    if (std::abs(low - middle) >= 1 || std::abs(low - high) >= 1 || std::abs(middle - high) >= 1)
        return false;
    best.point = std::max(std::min(low, middle), std::min(std::max(low, middle), high));
    return true;
}

}  // namespace bisection

/// How a search goes about its points.
enum class SearchPace : std::uint8_t {
    AllPoints,  // evaluates all three anew in each round
    NewPoints,  // remembers the residuals of the points that stay; the result is the same to the
                // bit
};

/// Searches from the points `p` on. `evaluate(point, residual)` sets the residual and gives the
/// failure of an evaluation, which ends the search; the last point that it gets is the solution.
template <class Failure, class Evaluate>
[[nodiscard]] Failure bisect(BisectionPoints p, const Bisection<Failure>& search,
                             Evaluate evaluate) {
    bisection::Best best;
    const auto balanced = [&] { return std::abs(best.residual) <= search.tolerance; };
    BisectionPoints F{};
    for (int round = 0; round < bisection::round_limit && !balanced(); ++round) {
        // All three anew: what a failure leaves in the state is that of the last one evaluated.
        if (const Failure failure = evaluate(p.low, F.low)) return failure;
        if (const Failure failure = evaluate(p.middle, F.middle)) return failure;
        if (const Failure failure = evaluate(p.high, F.high)) return failure;
        if (const Failure failure = bisection::step(p, F, best, search)) return failure;
    }
    if (!balanced() && !bisection::accepted(p, search.enough, best)) return {search.not_reached};
    return evaluate(best.point, best.residual);
}

/// The same with about a third of the evaluations, from points that are numbers, and for an
/// `evaluate` whose residual hangs on the point alone. What stays behind in the state is that of
/// `bisect`: where the search ends without a solution, or at its low point, the points that
/// `bisect` would have evaluated last are evaluated again.
template <class Failure, class Evaluate>
[[nodiscard]] Failure bisect_remembering(BisectionPoints p, const Bisection<Failure>& search,
                                         Evaluate evaluate) {
    bisection::Best best;
    const auto balanced = [&] { return std::abs(best.residual) <= search.tolerance; };
    BisectionPoints F{};
    BisectionPoints seen = p;  // of the last round
    const auto leave_behind = [&](const auto&... points) {
        double residual = 0;
        (static_cast<void>(evaluate(points, residual)), ...);
    };
    if (const Failure failure = evaluate(p.low, F.low)) return failure;
    if (const Failure failure = evaluate(p.middle, F.middle)) return failure;
    if (const Failure failure = evaluate(p.high, F.high)) return failure;
    for (int round = 0; round < bisection::round_limit && !balanced(); ++round) {
        const bool narrowed = p.low != seen.low || p.high != seen.high;
        if (narrowed) (p.high != seen.high ? F.high : F.low) = F.middle;
        const bool has_new_middle = p.middle != seen.middle;
        seen = p;
        if (has_new_middle) {
            if (const Failure failure = evaluate(p.middle, F.middle)) {
                leave_behind(p.low, p.middle);
                return failure;
            }
        }
        if (const Failure failure = bisection::step(p, F, best, search)) {
            leave_behind(seen.low, seen.middle, seen.high);
            return failure;
        }
    }
    if (!balanced() && !bisection::accepted(p, search.enough, best)) {
        leave_behind(seen.low, seen.middle, seen.high);
        return {search.not_reached};
    }
    if (best.point == seen.low) leave_behind(seen.middle, seen.high);
    return evaluate(best.point, best.residual);
}

/// The search at a pace.
template <class Failure, class Evaluate>
[[nodiscard]] Failure bisect(SearchPace pace, const BisectionPoints& p,
                             const Bisection<Failure>& search, const Evaluate& evaluate) {
    return pace == SearchPace::AllPoints ? bisect(p, search, evaluate)
                                         : bisect_remembering(p, search, evaluate);
}

}  // namespace zel
