#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

#include "platform/arithmetic_fault.h"
#include "steady/case/transient_row.h"

// The stepping of the heat balance in time, for any model of transient_models.h. `each_step` is
// called after every step; what it throws ends the stepping.

namespace zel {

// --- fixed steps of temperature: the temperature after a time -----------------------------------

struct WalkRule {
    double threshold = 0;  // W/m; below it the conductor is at rest
    double step = 0;       // K
    std::int64_t step_limit = std::numeric_limits<std::int64_t>::max();
};

struct Walk {
    double T = 0;  // °C in the end
    TransientDirection direction = row_at_rest;
    bool within_limit = true;  // of steps
};

/// Follows the conductor from `T0` over `te` seconds at the current set in `model`. Where a step
/// leads beyond the equilibrium, so that the net power has the other sign, the walk ends there: the
/// time that this last step takes has no bound.
template <class Model, class EachStep>
Walk walk(Model& model, double T0, double te, const WalkRule& rule, EachStep each_step) {
    Walk w{T0};
    const double F0 = model.net_power(T0);
    if (F0 > rule.threshold)
        w.direction = row_heats;
    else if (F0 < -rule.threshold)
        w.direction = row_cools;
    else
        return w;
    const double dT = w.direction == row_heats ? rule.step : -rule.step;
    double t = 0;
    for (std::int64_t n = 0; t < te; ++n) {
        if (n == rule.step_limit) {
            w.within_limit = false;
            return w;
        }
        w.T = w.T + dT;
        const double MC = model.heat_capacity(w.T);
        const double F = model.net_power(w.T);
        const bool beyond_equilibrium = dT > 0 ? F < 0 : F > 0;
        const double dt = beyond_equilibrium ? te - t : std::abs(MC * dT / F);
        t = beyond_equilibrium ? te : t + dt;
        each_step(t, w.T, dt);
    }
    w.T = computed(w.T);
    return w;
}

// --- fixed steps of time: the time to a temperature ---------------------------------------------

struct Approach {
    double t = 0;  // s
    double T = 0;  // °C in the end
    TransientDirection direction = row_at_rest;
    bool reached = true;
};

/// Explicit Euler steps of 0.2 s from `T0` to `target`, 36 500 (7300 s) at most. A target on the
/// side from which the conductor moves away is not reached.
template <class Model, class EachStep>
Approach approach(Model& model, double T0, double target, EachStep each_step) {
    constexpr double dt = 0.2;  // s
    constexpr int step_limit = 36500;
    Approach a{0, T0};
    const double F0 = model.net_power(T0);
    if (F0 == 0) return a;
    a.direction = F0 < 0 ? row_cools : row_heats;
    const bool wrong_side = F0 < 0 ? !(target < T0) : target < T0;
    if (wrong_side) {
        a.reached = false;
        return a;
    }
    int n = 0;
    while (n < step_limit && (F0 < 0 ? a.T > target : a.T < target)) {
        const double MC = model.heat_capacity(a.T);
        const double F = model.net_power(a.T);
        const double dT = F * dt / MC;
        a.t = a.t + dt;
        a.T = computed(a.T + dT);
        ++n;
        each_step(n, a.T, step_limit);
    }
    // The last step may have reached the target: at the limit the row fails all the same.
    a.reached = n < step_limit;
    return a;
}

// --- the current that reaches a temperature in a time -------------------------------------------

/// A current and the temperature that it reaches.
template <class Model>
struct Trial {
    double I = 0;                  // A
    double T = 0;                  // °C
    bool known = false;            // T is that of I, whatever was evaluated before
    typename Model::State left{};  // what the trial left in the model
};

/// `I_it` and `Temp_it`, low, middle and high.
template <class Model>
struct Bracket {
    std::array<Trial<Model>, 3> it;

    Bracket(double low, double middle, double high) {
        it[0].I = low;
        it[1].I = middle;
        it[2].I = high;
    }
    void to_lower_half() {
        it[2] = it[1];
        set_middle((it[0].I + it[1].I) / 2);
    }
    void to_upper_half() {
        it[0] = it[1];
        set_middle((it[1].I + it[2].I) / 2);
    }

private:
    // The temperature stays that of the former middle until the new one is tried.
    void set_middle(double I) {
        it[1].I = I;
        it[1].known = false;
    }
};

/// What one round of a search came to: the distance (K) to the target that decides on a further
/// round, or that no part of the bracket holds the target.
struct Round {
    bool in_bracket = true;
    double difference = 0;
};

/// A round by TB 207: the part of the bracket that holds the target is the next one.
template <class Model>
Round narrow_tb207(Bracket<Model>& bracket, double target) {
    const double T1 = bracket.it[0].T;
    const double T2 = bracket.it[1].T;
    const double T3 = bracket.it[2].T;
    if (T1 <= target && target <= T2)
        bracket.to_lower_half();
    else if (T2 <= target && target <= T3)
        bracket.to_upper_half();
    else if (!(T1 <= target && target <= T3))
        return {false};
    return {true, std::abs(target - T2)};
}

/// A round by TB 601: a point within 0.2 K ends the search with its current. `Number` is the
/// precision of the comparisons; `margin` is how far beyond the bracket the target may lie.
template <class Number, class Model>
Round narrow_tb601(Bracket<Model>& bracket, Number target, Number margin, double former) {
    constexpr auto near = static_cast<Number>(0.2);
    const auto T1 = static_cast<Number>(bracket.it[0].T);
    const auto T2 = static_cast<Number>(bracket.it[1].T);
    const auto T3 = static_cast<Number>(bracket.it[2].T);
    const auto distance = [target](Number T) { return std::abs(target - T); };
    for (const auto& [k, T] : {std::pair{0U, T1}, std::pair{1U, T2}, std::pair{2U, T3}}) {
        if (!(distance(T) < near)) continue;
        bracket.it[1].I = bracket.it[k].I;
        return {true, static_cast<double>(distance(T))};
    }
    const Round to_middle = {true, static_cast<double>(distance(T2))};
    if (T1 <= target && target <= T2) {
        bracket.to_lower_half();
        return to_middle;
    }
    if (T2 <= target && target <= T3) {
        bracket.to_upper_half();
        return to_middle;
    }
    if (T1 - margin <= target && T3 + margin >= target) return {true, former};
    return {false};
}

enum class SearchEnd : std::uint8_t { Found, TooManySteps, OutOfBracket, TooManyRounds, Fault };

inline constexpr int round_limit = 100;

struct SearchRule {
    WalkRule walk;
    double tolerance = 0;           // K; a difference above it asks for a further round
    bool last_round_counts = true;  // whether a difference within it counts in round 100
};

/// Closes the bracket in on the current that leads from `T0` to the target in `te` seconds: the
/// middle one in the end. `narrow(bracket, former difference)` judges a round. A trial whose result
/// cannot change is not stepped again.
template <class Model, class Narrow, class EachStep>
SearchEnd search_current(Model& model, Bracket<Model>& bracket, int& rounds, double T0, double te,
                         const SearchRule& rule, const ArithmeticScope& arithmetic, Narrow narrow,
                         EachStep each_step) {
    double difference = std::numeric_limits<double>::infinity();
    const auto try_current = [&](Trial<Model>& trial) {
        if (trial.known) {
            model.state() = trial.left;
            return true;
        }
        model.set_current(trial.I);
        const std::uint64_t failures = model.failures();
        const Walk w = walk(model, T0, te, rule.walk, each_step);
        if (!w.within_limit) return false;
        trial.T = w.T;
        // After a failed term the outcome can depend on what was evaluated before.
        trial.known = model.failures() == failures;
        trial.left = model.state();
        return true;
    };
    for (rounds = 0; difference > rule.tolerance && rounds < round_limit;) {
        for (Trial<Model>& trial : bracket.it) {
            if (!try_current(trial)) return SearchEnd::TooManySteps;
            if (arithmetic.fault() != ArithmeticFault::None) return SearchEnd::Fault;
        }
        const Round round = narrow(bracket, difference);
        if (!round.in_bracket) return SearchEnd::OutOfBracket;
        difference = round.difference;
        ++rounds;
    }
    const bool near = !(difference > rule.tolerance);
    const bool in_time = rounds < round_limit || rule.last_round_counts;
    return near && in_time ? SearchEnd::Found : SearchEnd::TooManyRounds;
}

}  // namespace zel
