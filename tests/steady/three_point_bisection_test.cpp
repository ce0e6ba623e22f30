#include "steady/three_point_bisection.h"

#include <gtest/gtest.h>

#include <functional>

namespace zel {
namespace {

struct Failure {
    int cause = 0;
    explicit operator bool() const { return cause != 0; }
};

enum { none, all_above, all_below, not_reached, of_evaluation };

using Function = std::function<double(double x)>;

Function jump(double at, double below, double above) {
    return [=](double x) { return x < at ? below : above; };
}

TEST(ThreePointBisection, ends_where_its_rows_expect) {
    const double wide = 562949953421312;  // 2^49: the high point is at 1 after 50 rounds
    const struct {
        const char* what;
        BisectionPoints start;
        double enough;
        Function residual;
        int cause;
        double solution;
        int evaluations;  // three a round, and one at the solution
    } rows[] = {
        {"balance at the low point", {0, 1, 2}, 0, jump(0.5, 0.01, 5), none, 0, 4},
        {"balance at the middle", {0, 1, 2}, 0, jump(0.5, 5, -0.01), none, 1, 4},
        {"balance at the high point", {0, 1, 2}, 0, jump(1.5, 5, 0.01), none, 2, 4},
        {"no balance yet", {0, 1, 2}, 0, jump(0.5, 5, 0.0101), all_above, 0, 3},
        {"all below", {0, 1, 2}, 0, jump(0.5, -5, -0.0101), all_below, 0, 3},
        {"the lower of two roots",
         {-100, 200, 500},
         0.1,
         [](double x) { return (x - 50) * (350 - x); },
         none,
         50,
         3 * 2 + 1},
        {"the upper of two roots",
         {-100, 200, 500},
         0.1,
         [](double x) { return (x - 50) * (x - 350); },
         none,
         350,
         3 * 2 + 1},
        {"nearly balanced after the last round",
         {0, 1, 2},
         0.1,
         jump(1.3, 1, -0.0999),
         none,
         1.3,
         151},
        {"not balanced after the last round",
         {0, 1, 2},
         0.1,
         jump(1.3, 1, -0.1),
         not_reached,
         0,
         150},
        {"points within 1 of each other",
         {0, wide * 0.999, wide * 2},
         0,
         jump(0.1, -1, 1),
         none,
         0.4995,
         151},
        {"points 1 apart", {0, wide, wide * 2}, 0, jump(0.1, -1, 1), not_reached, 0, 150},
    };
    for (const auto& [what, start, enough, residual, cause, solution, evaluations] : rows) {
        int evaluated = 0;
        double last = 0;
        const Bisection<Failure> search = {0.01, enough, all_above, all_below, not_reached};
        const Failure failure = bisect(start, search, [&, &f = residual](double x, double& F) {
            ++evaluated;
            last = x;
            F = f(x);
            return Failure{};
        });
        EXPECT_EQ(failure.cause, cause) << what;
        EXPECT_EQ(evaluated, evaluations) << what;
        if (cause == none) {
            EXPECT_NEAR(last, solution, 1e-9) << what;
        }
    }
}

TEST(ThreePointBisection, ends_at_the_failure_of_an_evaluation) {
    for (const int bad : {1, 2, 3, 5}) {
        int evaluated = 0;
        const Failure failure =
            bisect({0, 1, 2}, Bisection<Failure>{0.01, 0, all_above, all_below, not_reached},
                   [&](double x, double& F) {
                       F = x - 0.3;
                       return Failure{++evaluated == bad ? of_evaluation : none};
                   });
        EXPECT_EQ(failure.cause, of_evaluation);
        EXPECT_EQ(evaluated, bad);
    }
}

}  // namespace
}  // namespace zel
