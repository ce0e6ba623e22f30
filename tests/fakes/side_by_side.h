#pragma once

#include <thread>
#include <vector>

namespace zel {

/// Whether `solve(i)` gives the same numbers, bit for bit, on two threads at once as on one.
template <class Solve>
[[nodiscard]] bool same_side_by_side(Solve solve) {
    const auto run = [&](std::vector<double>* out) {
        for (int i = 0; i < 200; ++i) out->push_back(solve(i));
    };
    std::vector<double> alone, first, second;
    run(&alone);
    { const std::jthread a(run, &first), b(run, &second); }
    return first == alone && second == alone;
}

}  // namespace zel
