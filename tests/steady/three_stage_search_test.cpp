#include "steady/three_stage_search.h"

#include <gtest/gtest.h>

namespace zel {
namespace {

struct Found {
    TemperatureResult result;
    int evaluations = 0;
};

template <class Function>
Found search(double Iz, Function current) {
    Found found;
    found.result = three_stage_search(Iz, [&](double T) {
        ++found.evaluations;
        const double I = current(T);
        return CurrentResult{I, {}};
    });
    return found;
}

double ampere_per_degree(double T) { return T; }

TEST(ThreeStageSearch, finds_a_current_within_a_tenth_of_an_ampere) {
    for (const double Iz : {-49.0, 0.0, 80.0, 224.0, 226.0, 499.0}) {
        const auto [result, evaluations] = search(Iz, ampere_per_degree);
        EXPECT_NEAR(result.temperature, Iz, 0.1);
        EXPECT_EQ(result.current, result.temperature);
    }
}

TEST(ThreeStageSearch, takes_the_low_point_before_the_middle_and_that_before_the_high_one) {
    EXPECT_EQ(search(7, [](double) { return 7.05; }).result.temperature, -50);
    EXPECT_EQ(search(7, [](double T) { return T < 0 ? 0 : 6.95; }).result.temperature, 225);
    EXPECT_EQ(search(7, [](double T) { return T < 400 ? 0 : 7; }).result.temperature, 500);
}

TEST(ThreeStageSearch, runs_once_for_a_target_of_zero) {
    EXPECT_EQ(search(0, [](double) { return 0; }).evaluations, 3);
}

TEST(ThreeStageSearch, leaves_the_high_point_for_a_current_out_of_reach) {
    for (const double Iz : {-60.1, 510.1}) {
        const auto [result, evaluations] = search(Iz, ampere_per_degree);
        EXPECT_EQ(result.temperature, 500);
        EXPECT_EQ(result.current, 500);
        EXPECT_EQ(evaluations, 9);  // three points a stage; more of them would be the same
    }
}

// Out of reach by less than a tolerance is found by the stage that allows it.
TEST(ThreeStageSearch, allows_one_ampere_and_then_ten) {
    EXPECT_EQ(search(-50.1, ampere_per_degree).result.temperature, -50);
    EXPECT_EQ(search(-50.9, ampere_per_degree).result.temperature, -50);
    EXPECT_EQ(search(-59.9, ampere_per_degree).result.temperature, -50);
}

// A jump at 100 °C leaves no point within 0.1 A. The counter goes on from stage to stage: 100
// iterations of three points, then up to 200, then up to 400. No stage begins where the last
// current, that of the high point, is already good enough for it.
TEST(ThreeStageSearch, ends_after_the_stage_before_the_one_that_the_last_current_satisfies) {
    struct Row {
        double half_gap;
        int evaluations;
    };
    for (const auto& [half_gap, evaluations] : {Row{0.5, 300}, Row{5, 600}, Row{20, 1200}}) {
        const auto found =
            search(100, [gap = half_gap](double T) { return T < 100 ? 100 - gap : 100 + gap; });
        EXPECT_EQ(found.evaluations, evaluations);
        EXPECT_NEAR(found.result.temperature, 100, 1e-9);
        EXPECT_EQ(found.result.current, 100 + half_gap);
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
