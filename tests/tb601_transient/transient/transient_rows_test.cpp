#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "fakes/transient_cases.h"
#include "platform/errors.h"

// The rules of the chain: which row may be reached, what a failure leaves, when a run ends.

namespace zel {
namespace {

using testing::ElementsAre;

CalcCase line_by_tb207() { return with_masses(twin_264_34()); }
CalcCase line_by_tb601() { return with_masses(line_264_34()); }

template <class Transient>
Transient make();
template <>
Tb207Transient make() {
    return Tb207Transient(line_by_tb207());
}
template <>
Tb601Transient make() {
    return Tb601Transient(line_by_tb601());
}

template <class Transient>
struct TransientRows : testing::Test {
    Transient t = make<Transient>();

    double T0() const { return t.input.start.temperature; }
    TransientEnd run(std::vector<TransientRow> rows) {
        std::copy(rows.begin(), rows.end(), t.rows.begin());
        return t.run();
    }
};

using Methods = testing::Types<Tb207Transient, Tb601Transient>;
TYPED_TEST_SUITE(TransientRows, Methods);

TYPED_TEST(TransientRows, of_mixed_kinds_follow_one_another) {
    EXPECT_EQ(this->run({temperature_row(900, 5, 0), time_row(900, 90), current_row(100, 10, 0),
                         temperature_row(0, 2, 30), time_row(0, 60), current_row(56, 10, 0)}),
              TransientEnd::Completed);
    const Zustand16& rows = this->t.rows;
    std::vector<int> directions;
    for (const TransientRow& row : rows) directions.push_back(row.Direction);
    EXPECT_THAT(directions, ElementsAre(1, 1, 1, 2, 2, 2));
    EXPECT_GT(rows[0].Temp, this->T0());
    EXPECT_LT(rows[0].Temp, 90);
    EXPECT_GT(duration_s(rows[1]), 0);
    EXPECT_GT(rows[2].Strom, 800);
    EXPECT_LT(rows[3].Temp, 100);
    EXPECT_GT(rows[3].Temp, 60);
    EXPECT_LT(rows[5].Strom, 400);
}

TYPED_TEST(TransientRows, each_start_at_the_end_of_the_one_before) {
    this->run({temperature_row(900, 5, 0), temperature_row(900, 5, 0)});
    const double in_two = this->t.rows[1].Temp;
    this->run({temperature_row(900, 10, 0), TransientRow{}});
    EXPECT_NEAR(in_two, this->t.rows[0].Temp, 0.1);
}

TYPED_TEST(TransientRows, failure_leaves_the_rows_before_it_and_those_after_untouched) {
    const TransientRow unreached = temperature_row(500, 1, 0);
    EXPECT_EQ(this->run({temperature_row(900, 10, 0), time_row(0, 70), time_row(0, 90), unreached}),
              TransientEnd::Failed);
    EXPECT_EQ(this->t.rows[0].Failed, 0);
    EXPECT_EQ(this->t.rows[1].Failed, 0);
    EXPECT_GT(this->t.rows[1].Min, 0);
    EXPECT_EQ(this->t.rows[2].Failed, 1);
    EXPECT_EQ(this->t.rows[3], unreached);
    EXPECT_EQ(this->t.dialogs.shown.size(), 1U);
    EXPECT_EQ(this->t.dialogs.shown.at(0).lines.at(0), "At change-of-state 3");
}

TYPED_TEST(TransientRows, skip_those_that_are_not_in_use) {
    EXPECT_EQ(this->run({TransientRow{}, TransientRow{}}), TransientEnd::Completed);
    EXPECT_EQ(this->t.rows, Zustand16{});
}

TYPED_TEST(TransientRows, target_on_the_wrong_side_fails) {
    EXPECT_EQ(this->run({time_row(900, this->T0() - 1)}), TransientEnd::Failed);
    EXPECT_EQ(this->t.rows[0].Direction, row_heats);
    EXPECT_EQ(this->run({time_row(0, this->T0() + 1)}), TransientEnd::Failed);
    EXPECT_EQ(this->t.rows[0].Direction, row_cools);
}

TYPED_TEST(TransientRows, target_of_the_start_takes_no_time_where_the_conductor_heats) {
    EXPECT_EQ(this->run({time_row(900, this->T0())}), TransientEnd::Completed);
    EXPECT_EQ(duration_s(this->t.rows[0]), 0);
    EXPECT_EQ(this->t.rows[0].Direction, row_heats);
    // A cooling one has to be told a lower target.
    EXPECT_EQ(this->run({time_row(0, this->T0())}), TransientEnd::Failed);
}

TYPED_TEST(TransientRows, more_than_7300_seconds_fail) {
    const double steady = this->T0();
    this->t.input.start.temperature = steady - 20;
    EXPECT_EQ(this->run({time_row(400, steady - 0.1)}), TransientEnd::Completed);
    EXPECT_LT(duration_s(this->t.rows[0]), 7300);
    EXPECT_EQ(this->run({time_row(400, steady + 0.1)}), TransientEnd::Failed);
    EXPECT_EQ(this->t.rows[0].Failed, 1);
    EXPECT_EQ(duration_s(this->t.rows[0]), 0);
}

TYPED_TEST(TransientRows, current_to_the_temperature_of_the_start_is_the_steady_one) {
    EXPECT_EQ(this->run({current_row(this->T0(), 10, 0)}), TransientEnd::Completed);
    EXPECT_NEAR(this->t.rows[0].Strom, 400, 1);
    EXPECT_EQ(this->t.rows[0].Direction, row_at_rest);
}

// By TB 207 the middle point after the last move is told, by TB 601 the one that was tried.
TEST(TransientCurrent, to_the_temperature_of_the_start_is_half_an_ampere_apart_by_TB_207) {
    Tb207Transient by_tb207(line_by_tb207());
    by_tb207.rows[0] = current_row(by_tb207.input.start.temperature, 10, 0);
    by_tb207.run();
    EXPECT_EQ(by_tb207.rows[0].Strom, 399.5);
    Tb601Transient by_tb601(line_by_tb601());
    by_tb601.rows[0] = current_row(by_tb601.input.start.temperature, 10, 0);
    by_tb601.run();
    EXPECT_NEAR(by_tb601.rows[0].Strom, 400, 1);
}

TYPED_TEST(TransientRows, current_below_the_start_lies_below_the_steady_one) {
    EXPECT_EQ(this->run({current_row(this->T0() - 3, 10, 0)}), TransientEnd::Completed);
    EXPECT_EQ(this->t.rows[0].Direction, row_cools);
    EXPECT_LT(this->t.rows[0].Strom, 400);
    EXPECT_GT(this->t.rows[0].Strom, 0);
}

TYPED_TEST(TransientRows, current_that_no_cooling_can_reach_fails) {
    EXPECT_EQ(this->run({current_row(this->T0() - 30, 1, 0)}), TransientEnd::Failed);
    EXPECT_EQ(this->t.rows[0].Strom, 0);
}

// The high start current heats beyond 6000 K within 30 000 steps.
TYPED_TEST(TransientRows, current_for_a_few_seconds_runs_into_the_limit_of_steps) {
    this->t.mode = RunMode::Silent;
    EXPECT_EQ(this->run({current_row(150, 0, 2)}), TransientEnd::Failed);
    EXPECT_EQ(this->run({current_row(150, 0, 20)}), TransientEnd::Completed);
}

TYPED_TEST(TransientRows, of_no_duration_stay_where_they_are) {
    EXPECT_EQ(this->run({temperature_row(900, 0, 0), current_row(this->T0(), 0, 0)}),
              TransientEnd::Completed);
    EXPECT_EQ(this->t.rows[0].Temp, this->T0());
    EXPECT_EQ(this->t.rows[0].Direction, row_heats);
    EXPECT_EQ(this->run({current_row(this->T0() + 10, 0, 0)}), TransientEnd::Failed);
}

TYPED_TEST(TransientRows, progress_is_told_and_a_cancelled_run_leaves_them_as_before) {
    std::vector<TransientProgress> told;
    this->t.observer = [&](const TransientProgress& progress) {
        told.push_back(progress);
        return progress.row < 2;
    };
    const std::vector<TransientRow> rows = {time_row(410, this->T0() + 0.5),
                                            time_row(400, this->T0() + 0.1)};
    EXPECT_EQ(this->run(rows), TransientEnd::Cancelled);
    EXPECT_EQ(this->t.rows[0], rows[0]);
    EXPECT_EQ(this->t.rows[1], rows[1]);
    EXPECT_TRUE(this->t.dialogs.shown.empty());
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told.back().row, 2);
    for (const TransientProgress& progress : told) {
        EXPECT_GE(progress.done, 0);
        EXPECT_LE(progress.done, 1);
    }
}

TEST(TransientCancel, leaves_the_state_of_TB_601_as_before) {
    Tb601Transient t(line_by_tb601());
    t.observer = [](const TransientProgress&) { return false; };
    t.rows[0] = time_row(410, 200);
    const double T = t.records.state.T;
    EXPECT_EQ(t.run(), TransientEnd::Cancelled);
    EXPECT_EQ(t.records.state.I, 400);
    EXPECT_EQ(t.records.state.T, T);
}

// --- heat terms that fail on the way ------------------------------------------------------------

/// Cooling in a storm: at 57 °C the Reynolds number passes what TB 207 holds for.
Tb207Transient storm() {
    CalcCase c = line_by_tb207();
    c.Windgeschwindigkeit_db = typed(60);
    c.Umgebungstemperatur_db = typed(-20);
    Tb207Transient t(c, 100);
    t.input.start.temperature = 80;
    return t;
}

TEST(FailingTerm, keeps_its_last_value_and_the_row_goes_on) {
    Tb207Transient t = storm();
    t.rows[0] = temperature_row(0, 0, 10);
    EXPECT_EQ(t.run(), TransientEnd::Completed);
    EXPECT_LT(t.rows[0].Temp, 56);
    ASSERT_EQ(t.dialogs.shown.size(), 2U);
    EXPECT_EQ(t.dialogs.shown[0].title, " ST_F03_CigreTB207_PC_steady");
    EXPECT_EQ(t.dialogs.shown[0].lines.at(0), "Reynolds number is bigger than 50000 .");
    EXPECT_EQ(t.dialogs.shown[1].lines.at(0), "The calculation by Cigre TB207");
}

TEST(FailingTerm, is_told_once_a_row) {
    Tb207Transient t = storm();
    t.rows[0] = t.rows[1] = temperature_row(0, 0, 10);
    EXPECT_EQ(t.run(), TransientEnd::Completed);
    EXPECT_EQ(t.dialogs.shown.size(), 4U);
    t.dialogs.shown.clear();
    t.mode = RunMode::Silent;
    EXPECT_EQ(t.run(), TransientEnd::Completed);
    EXPECT_TRUE(t.dialogs.shown.empty());
}

TEST(FailingTerm, may_end_the_program_and_leaves_what_was_found) {
    Tb207Transient t = storm();
    t.rows[0] = temperature_row(0, 0, 1);
    t.rows[1] = temperature_row(0, 0, 10);
    t.dialogs.answers = {Answer::Yes};
    EXPECT_THROW(t.run(), ProgramEnd);
    EXPECT_LT(t.rows[0].Temp, 80);
    EXPECT_EQ(t.rows[0].Failed, 0);
    EXPECT_EQ(t.rows[1].Failed, 1);
}

// A stranded conductor passes Re 50 000 as it cools; its convection stays that of this moment.
TEST(FailingTerm, of_TB_601_is_a_refused_convection) {
    CalcCase c = line_by_tb601();
    c.Windgeschwindigkeit_db = typed(36);
    c.Umgebungstemperatur_db = typed(0);
    Tb601Transient t(c, 100);
    t.input.start.temperature = 80;
    t.rows[0] = temperature_row(0, 0, 10);
    EXPECT_EQ(t.run(), TransientEnd::Completed);
    EXPECT_LT(t.rows[0].Temp, 60);
    ASSERT_EQ(t.dialogs.shown.size(), 1U);
    EXPECT_EQ(t.dialogs.shown[0].title, "Funktion: ST_F03_CigreTB601_PC_steady");
    t.dialogs.answers = {Answer::Yes};
    EXPECT_THROW(t.run(), ProgramEnd);
}

// --- what ends the program ----------------------------------------------------------------------

TYPED_TEST(TransientRows, conductor_of_unknown_type_ends_the_program_at_its_first_step) {
    this->t.input.mass.ConductorType = tubular_busbar;
    EXPECT_EQ(this->run({temperature_row(400, 1, 0)}), TransientEnd::Completed);  // at rest
    try {
        this->run({temperature_row(400, 1, 0), temperature_row(900, 1, 0)});
        FAIL() << "the program goes on";
    } catch (const ProgramEnd& end) {
        EXPECT_STREQ(end.what(), "TS_F02_cigre_MC_mit_abhaengigkeit_von_T: err01 ");
    }
    EXPECT_EQ(this->t.dialogs.shown.size(), 1U);
    EXPECT_EQ(this->t.rows[1].Failed, 1);
}

TYPED_TEST(TransientRows, failure_in_an_undefined_message_mode_ends_the_program) {
    this->t.mode = RunMode{3};
    EXPECT_THROW(this->run({time_row(0, 200)}), ProgramEnd);
    EXPECT_TRUE(this->t.dialogs.shown.empty());
    EXPECT_EQ(this->t.rows[0].Failed, 1);
}

TYPED_TEST(TransientRows, arithmetic_fault_ends_the_run_at_its_row) {
    this->t.input.mass.DWireAlu = this->t.input.mass.DWireCore_mm = 0;  // no mass, no time
    const TransientRow given = time_row(900, this->T0() + 10);
    EXPECT_EQ(this->run({given}), TransientEnd::Failed);
    ASSERT_EQ(this->t.dialogs.shown.size(), 1U);
    EXPECT_EQ(this->t.dialogs.shown[0].title, "Unhandled error");
    EXPECT_EQ(this->t.dialogs.shown[0].lines.at(0), "Error 11 at row 0 occured.");
    TransientRow failed = given;
    failed.Failed = 1;
    EXPECT_EQ(this->t.rows[0], failed);
}

}  // namespace
}  // namespace zel
