#include "steady/three_stage_search.h"

#include <gtest/gtest.h>

#include <functional>

namespace zel {
namespace {

using Function = std::function<double(double T)>;

Function same() {
    return [](double T) { return T; };
}
Function step(double at, double below, double above) {
    return [=](double T) { return T < at ? below : above; };
}

TEST(ThreeStageSearch, tries_its_points_in_their_order_within_its_tolerances) {
    const struct {
        const char* what;
        double Iz;
        Function current;
        double temperature;
        int evaluations;  // three points an iteration
    } rows[] = {
        {"the low point before the middle", 7, step(0, 7.05, 7.05), -50, 3},
        {"the middle before the high point", 7, step(0, 0, 6.95), 225, 3},
        {"the high point", 7, step(400, 0, 7), 500, 3},
        {"a target of zero", 0, step(0, 0, 0), -50, 3},
        {"out of reach, where more points would be the same", -60.1, same(), 500, 9},
        {"out of reach, where more points would be the same", 510.1, same(), 500, 9},
        {"allowed by the second stage", -50.1001, same(), -50, 6},
        {"allowed by the second stage", -50.9, same(), -50, 6},
        {"allowed by the third stage", -59.9, same(), -50, 9},
        // A jump at 100 °C leaves no point within 0.1 A. The counter goes on from stage to stage:
        // 100 iterations, up to 200, up to 400. No stage begins where the last current, that of
        // the high point, is good enough for it.
        {"a gap of 1 A", 100, step(100, 99.5, 100.5), 100, 300},
        {"a gap of 10 A", 100, step(100, 95, 105), 100, 600},
        {"a gap of 40 A", 100, step(100, 80, 120), 100, 1200},
    };
    for (const auto& [what, Iz, current, temperature, evaluations] : rows) {
        int evaluated = 0;
        const auto result = three_stage_search(Iz, [&, &f = current](double T) {
            ++evaluated;
            return CurrentResult{f(T), {}};
        });
        EXPECT_NEAR(result.temperature, temperature, 1e-9) << what;
        EXPECT_EQ(result.current, current(result.temperature)) << what;
        EXPECT_EQ(evaluated, evaluations) << what;
    }
}

TEST(ThreeStageSearch, finds_a_current_within_a_tenth_of_an_ampere) {
    for (const double Iz : {-49.0, 0.0, 80.0, 224.0, 226.0, 499.0}) {
        const auto result = three_stage_search(Iz, [](double T) { return CurrentResult{T, {}}; });
        EXPECT_NEAR(result.temperature, Iz, 0.1);
        EXPECT_EQ(result.current, result.temperature);
    }
}

TEST(ThreeStageSearch, ends_at_a_numeric_fault) {
    int evaluations = 0;
    const TemperatureResult result = three_stage_search(80, [&](double T) {
        const bool bad = ++evaluations == 5;
        return CurrentResult{
            T, {"module", "procedure", bad ? ArithmeticFault::Overflow : ArithmeticFault::None}};
    });
    EXPECT_EQ(evaluations, 5);
    EXPECT_EQ(result.fault.fault, ArithmeticFault::Overflow);
    EXPECT_EQ(result.temperature, 87.5);
}

}  // namespace
}  // namespace zel
