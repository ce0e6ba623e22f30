#pragma once

#include <algorithm>
#include <array>
#include <cmath>

#include "steady/method_fault.h"

// From a current to its temperature by Webs and Kirn, which know only the current at a temperature.

namespace zel {

/// A stage runs until the counter of iterations, which goes on from stage to stage, is at `limit`.
struct SearchStage {
    int limit;
    double tolerance;  // A
};

inline constexpr std::array search_stages = {SearchStage{100, 0.1}, SearchStage{200, 1},
                                             SearchStage{400, 10}};

/// Low, middle and high point of the search, or what belongs to them.
template <class Value>
using SearchPoints = std::array<Value, 3>;

/// Halves the bracket around `Iz`; false where it lies in none of the two halves.
[[nodiscard]] inline bool halve(SearchPoints<double>& T, const SearchPoints<TemperatureResult>& at,
                                double Iz) {
    auto& [low, middle, high] = T;
    if (Iz > at[0].current && Iz < at[1].current) {
        high = middle;
        middle = (high - low) / 2 + low;
        return true;
    }
    if (Iz > at[1].current && Iz < at[2].current) {
        low = middle;
        middle = (high - middle) / 2 + middle;
        return true;
    }
    return false;
}

/// The temperature from -50 to 500 °C at which `current_at(temperature)` gives `Iz` (A) within
/// 0.1 A, or after 100 iterations within 1 A, or after 200 within 10 A. There is no failure: where
/// no point fits, the last one tried stands, which is the high one (500 °C for a current out of
/// reach). A numeric fault ends the search at once.
template <class CurrentAt>
[[nodiscard]] TemperatureResult three_stage_search(double Iz, CurrentAt current_at) {
    SearchPoints<double> T = {-50, 225, 500};
    SearchPoints<TemperatureResult> at;
    TemperatureResult last;
    if (std::abs(Iz - last.current) <= 0.1) last.current = Iz + 5;
    int iterations = 0;
    for (const auto& [limit, tolerance] : search_stages) {
        const auto fits = [Iz, within = tolerance](const TemperatureResult& point) {
            return std::abs(Iz - point.current) <= within;
        };
        for (; !fits(last) && iterations < limit; ++iterations) {
            for (std::size_t i = 0; i < T.size(); ++i) {
                const CurrentResult I = current_at(T[i]);
                last = at[i] = {T[i], I.current, I.fault};
                if (I.fault) return last;
            }
            const auto solution = std::find_if(at.begin(), at.end(), fits);
            if (solution != at.end())
                last = *solution;
            else if (!halve(T, at, Iz))
                iterations = limit - 1;  // the rest of the stage would only repeat this one
        }
    }
    return last;
}

}  // namespace zel
