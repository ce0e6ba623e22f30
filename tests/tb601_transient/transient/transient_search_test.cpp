#include <gtest/gtest.h>

#include <optional>

#include "tb601_transient/transient/transient_stepping.h"

// The rounds of the search for a current, over conductors made for it.

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

// --- one round ----------------------------------------------------------------------------------

ScriptedBracket bracket_at(double T1, double T2, double T3) {
    ScriptedBracket bracket(100, 200, 400);
    bracket.it[0].T = T1;
    bracket.it[1].T = T2;
    bracket.it[2].T = T3;
    return bracket;
}

struct RoundRow {
    double T1, T2, T3, target;
    std::optional<double> difference;  // none: outside the bracket
    double I1, I2, I3;
};

void expect_round(const RoundRow& row, const ScriptedBracket& bracket, const Round& round,
                  double tolerance) {
    SCOPED_TRACE(testing::Message() << row.T1 << " " << row.T2 << " " << row.T3);
    EXPECT_EQ(round.in_bracket, row.difference.has_value());
    EXPECT_NEAR(round.difference, row.difference.value_or(0), tolerance);
    EXPECT_EQ(bracket.it[0].I, row.I1);
    EXPECT_EQ(bracket.it[1].I, row.I2);
    EXPECT_EQ(bracket.it[2].I, row.I3);
}

// The middle moves on even where it was near enough: the current told is one that was not tried.
TEST(TransientRound, by_TB_207_takes_the_half_that_holds_the_target) {
    const RoundRow rows[] = {
        {50, 70, 90, 60, 10, 100, 150, 200},
        {50, 70, 90, 50, 20, 100, 150, 200},
        {50, 70, 90, 70, 0, 100, 150, 200},
        {50, 70, 90, 70.05, 0.05, 200, 300, 400},
        {50, 70, 90, 90, 20, 200, 300, 400},
        {50, 70, 90, 49.9, std::nullopt, 100, 200, 400},
        {50, 70, 90, 90.1, std::nullopt, 100, 200, 400},
    };
    for (const RoundRow& row : rows) {
        ScriptedBracket bracket = bracket_at(row.T1, row.T2, row.T3);
        const Round round = narrow_tb207(bracket, row.target);
        expect_round(row, bracket, round, 1e-9);
    }
}

TEST(TransientRound, by_TB_601_a_near_point_ends_the_search_with_its_current) {
    const RoundRow rows[] = {
        {50, 70, 90, 49.9, 0.1, 100, 100, 400},
        {50, 70, 90, 70.1, 0.1, 100, 200, 400},
        {50, 70, 90, 90.1, 0.1, 100, 400, 400},
        {50, 70, 90, 60, 10, 100, 150, 200},
        {50, 70, 90, 80, 10, 200, 300, 400},
        {50, 70, 90, 70.3, 0.3, 200, 300, 400},
        {50, 70, 90, 49.7, std::nullopt, 100, 200, 400},
        {50, 70, 90, 90.3, std::nullopt, 100, 200, 400},
    };
    for (const RoundRow& row : rows) {
        ScriptedBracket bracket = bracket_at(row.T1, row.T2, row.T3);
        const Round round = narrow_tb601(bracket, row.target, 0.1, 7);
        expect_round(row, bracket, round, 1e-9);
        ScriptedBracket narrow = bracket_at(row.T1, row.T2, row.T3);
        const auto target = static_cast<float>(row.target);
        expect_round(row, narrow, narrow_tb601(narrow, target, 0.2F, 7), 1e-5);
    }
}

// In 32 bits a target of 0.2 K below the bracket is neither near nor outside: nothing moves.
TEST(TransientRound, of_the_batch_compares_in_32_bits) {
    ScriptedBracket bracket = bracket_at(30, 70, 90);
    const Round round = narrow_tb601(bracket, 30 - 0.2F, 0.2F, 7);
    EXPECT_TRUE(round.in_bracket);
    EXPECT_EQ(bracket.it[1].I, 200);
    EXPECT_EQ(round.difference, 7);

    ScriptedBracket wide = bracket_at(30, 70, 90);
    EXPECT_FALSE(narrow_tb601(wide, 29.79, 0.1, 7).in_bracket);
}

}  // namespace
}  // namespace zel
