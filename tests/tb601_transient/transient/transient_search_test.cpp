#include <gtest/gtest.h>

#include "tb601_transient/transient/transient_stepping.h"

// The rounds of the search for a current, over conductors made for it; one round stands
// in tests/data/transient_formulas.json.

namespace zel {
namespace {

/// Takes the temperature that `reached` gives for a current, at once.
struct ScriptedModel {
    using State = int;

    double (*reached)(double I) = nullptr;
    double I = 0;
    int trials = 0;
    std::uint64_t failed = 0;
    bool fails = false;  // a term fails in every trial
    int state_ = 0;

    void set_current(double current) {
        I = current;
        ++trials;
    }
    // No heat capacity: no time passes until the power changes its sign.
    double net_power(double T) {
        failed += fails ? 1 : 0;
        const double end = reached(I);
        return T < end - 0.1 ? 1 : end > 0 ? -1 : 0;
    }
    [[nodiscard]] double heat_capacity(double) const { return 0; }
    State& state() { return state_; }
    [[nodiscard]] std::uint64_t failures() const { return failed; }
};

constexpr SearchRule rule_tb207 = {{0.02, 0.2, 30000}, 0.1, false};

using ScriptedBracket = Bracket<ScriptedModel>;

SearchEnd search(ScriptedModel& model, ScriptedBracket& bracket, int& rounds, double target) {
    const ArithmeticScope arithmetic;
    return search_current(
        model, bracket, rounds, 0, 60, rule_tb207, arithmetic,
        [target](ScriptedBracket& b, double) { return narrow_tb207(b, target); },
        [](double, double, double) {});
}

TEST(TransientSearch, gives_up_after_100_rounds) {
    ScriptedModel jump{[](double I) { return I > 50 ? 100.0 : 0.0; }};
    ScriptedBracket bracket(0, 100, 200);
    int rounds = 0;
    EXPECT_EQ(search(jump, bracket, rounds, 50), SearchEnd::TooManyRounds);
    EXPECT_EQ(rounds, 100);
}

TEST(TransientSearch, tries_each_current_once_unless_a_term_failed) {
    for (const bool fails : {false, true}) {
        ScriptedModel jump{[](double I) { return I > 50 ? 100.0 : 0.0; }};
        jump.fails = fails;
        ScriptedBracket bracket(0, 100, 200);
        int rounds = 0;
        search(jump, bracket, rounds, 50);
        EXPECT_EQ(jump.trials, fails ? 300 : 102);
    }
}

TEST(TransientSearch, limit_of_steps_ends_it) {
    ScriptedModel hot{[](double I) { return I > 100 ? 7000.0 : 40.0; }};
    ScriptedBracket bracket(0, 50, 200);
    int rounds = 0;
    EXPECT_EQ(search(hot, bracket, rounds, 20), SearchEnd::TooManySteps);
    EXPECT_EQ(rounds, 0);
}

// A difference found in round 100 counts by TB 601 but not by TB 207.
TEST(TransientSearch, the_last_round_counts_by_one_method_only) {
    for (const bool counts : {false, true}) {
        const ArithmeticScope arithmetic;
        ScriptedModel model{[](double) { return 0.0; }};
        ScriptedBracket bracket(0, 1, 2);
        SearchRule rule = rule_tb207;
        rule.last_round_counts = counts;
        int rounds = 0;
        const SearchEnd end = search_current(
            model, bracket, rounds, 0, 60, rule, arithmetic,
            [&](ScriptedBracket&, double) {
                return Round{true, rounds == 99 ? 0.05 : 9};
            },
            [](double, double, double) {});
        EXPECT_EQ(end, counts ? SearchEnd::Found : SearchEnd::TooManyRounds);
    }
}

}  // namespace
}  // namespace zel
