#include "workflow/steady_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "fakes/steady_cases.h"
#include "fakes/sunny_cases.h"
#include "fakes/tb601_cases.h"
#include "platform/program_end.h"

namespace zel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct Run {
    RecordingDialogs dialogs;
    SteadyRunResult result;
};

Run run(CalcCase c, LangId lang = LangId::English,
        DecimalSeparator separator = DecimalSeparator::Point, RunMode mode = RunMode::Messages) {
    Run done;
    done.result = RunSteady(c, {lang, separator, mode, done.dialogs});
    return done;
}

TEST(SteadyRun, emptied_field_does_not_count_with_its_former_number) {
    CalcCase c = line_264_34();
    c.GMR_Merker_db = 1;
    const auto without = run(c).result;
    c.GMR_db = {"", 1.5};
    const auto emptied = run(c).result;
    c.GMR_db = typed(1.5);
    const auto given = run(c).result;
    ASSERT_TRUE(without.input_valid && emptied.input_valid && given.input_valid);
    EXPECT_EQ(emptied.methods[0].outcome.current_A, without.methods[0].outcome.current_A);
    EXPECT_NE(emptied.methods[0].outcome.current_A, given.methods[0].outcome.current_A);
}

// 665.524 A by hand: PC 56.9468, PR 15.6511, PS 12.0960 W/m, R(80 °C) 1.359774e-4 ohm/m, and
// x / sqrt(1.0045 + 9e-8 x) for x = 667.040 A. The method finds x within 0.01 % only.
TEST(SteadyRun, shows_the_current_of_the_bundle_in_english) {
    const auto [dialogs, result] = run(twin_264_34());
    EXPECT_TRUE(result.input_valid);
    EXPECT_THAT(dialogs.shown(), IsEmpty());
    EXPECT_EQ(result.head_line,
              "By given conductor temperature of  80.0 °C  the current of the  2-conductor-bundle");
    ASSERT_THAT(result.methods, SizeIs(1));
    const MethodResult& line = result.methods[0];
    EXPECT_EQ(line.caption, "2-conductor-bundle by Cigre TB 207 :");
    EXPECT_EQ(line.result, "1331 A");
    EXPECT_NEAR(*line.outcome.current_A, 665.524, 0.08);
    EXPECT_EQ(result.methods_line, "Cigre TB 207");
    EXPECT_EQ(result.angle_text, "90.0 °");
    EXPECT_EQ(result.perpendicular_wind_text, "0.6 m/s");
    EXPECT_THAT(result.balance_lines,
                ElementsAre("TB 207 / TBB:  P Joule 60.5 W/m  +  P Solar 12.1 W/m   =   "
                            "P Radiation 15.65 W/m  +  P Convection 56.95 W/m"));
    EXPECT_EQ(result.transient_start->temperature, 80);
    EXPECT_EQ(result.transient_start->current, *line.outcome.current_A);
    EXPECT_TRUE(result.may_save);
}

TEST(SteadyRun, shows_the_temperature_in_german_with_comma) {
    const auto [dialogs, result] =
        run(twin_264_34_at(665.451), LangId::German, DecimalSeparator::Comma);
    EXPECT_EQ(result.head_line,
              "Bei gegebener Stromstärke des Doppel-Leiter von  1331 A  beträgt die "
              "Leitertemperatur ");
    ASSERT_THAT(result.methods, SizeIs(1));
    EXPECT_EQ(result.methods[0].caption, "Doppel-Leiter nach Cigre TB 207 :");
    EXPECT_EQ(result.methods[0].result, "80,0 °C");
    EXPECT_EQ(result.angle_text, "90,0 °");
    EXPECT_THAT(result.balance_lines,
                ElementsAre("TB 207 / TBB:  P Joule 60,5 W/m  +  P Solar 12,1 W/m   =   "
                            "P Radiation 15,65 W/m  +  P Convection 56,95 W/m"));
}

TEST(SteadyRun, computes_a_bundle_current_with_its_unrounded_share) {
    CalcCase c = twin_264_34_at(0);
    c.Stromstaerke_db = {};
    c.Stromstaerkebuendel_Merker_db = true;
    c.Stromstaerke_Buendel = typed(1000);
    c.Anzahl_Teilleiter_db = 3;
    const auto [dialogs, result] = run(c);
    EXPECT_EQ(result.head_line,
              "By given current of  1000 A  the conductor temperature of the 3-conductor-bundle");
    EXPECT_EQ(result.transient_start->current, 1000 / 3.0);
}

TEST(SteadyRun, shows_small_bundle_currents_in_two_places) {
    CalcCase c = twin_264_34_at(2.4);
    EXPECT_EQ(run(c).result.head_line,
              "By given current of  05 A  the conductor temperature of the 2-conductor-bundle");
}

TEST(SteadyRun, goes_on_after_a_failed_method_and_names_it) {
    CalcCase c = twin_264_34();
    c.Umgebungstemperatur_db = typed(90);
    const auto [dialogs, result] = run(c);
    EXPECT_TRUE(result.input_valid);
    EXPECT_EQ(result.methods[0].result, " Error");
    EXPECT_EQ(result.methods[0].outcome.status, "ST_00_CigreTB207_temp_strom_steady_state: err02 ");
    EXPECT_EQ(result.methods_line, "Cigre TB 207");
    EXPECT_THAT(result.balance_lines, IsEmpty());
    EXPECT_FALSE(result.transient_start);
    EXPECT_FALSE(result.may_save);
    ASSERT_THAT(dialogs.shown(), SizeIs(1));
    EXPECT_EQ(dialogs.shown()[0].title, "ST_00_CigreTB207_temp_strom_steady_state");
}

TEST(SteadyRun, is_silent_in_mode_2) {
    CalcCase c = twin_264_34();
    c.Umgebungstemperatur_db = typed(90);
    const auto silent = run(c, LangId::English, DecimalSeparator::Point, RunMode::Silent);
    EXPECT_THAT(silent.dialogs.shown(), IsEmpty());
    EXPECT_EQ(silent.result.methods[0].result, " Error");
}

TEST(SteadyRun, refuses_a_case_without_mode_and_runs_nothing) {
    CalcCase c = twin_264_34();
    c.Leitertemp_Merker_db = false;
    const auto [dialogs, result] = run(c);
    EXPECT_FALSE(result.input_valid);
    EXPECT_THAT(result.methods, IsEmpty());
    ASSERT_THAT(dialogs.shown(), SizeIs(1));
    EXPECT_EQ(dialogs.shown()[0].title, "Input incomplete !");
    EXPECT_THAT(dialogs.shown()[0].lines,
                ElementsAre("You havn't made a selection of calculating current",
                            "or conductor temperature !", "Please complete your input !"));
}

TEST(SteadyRun, ends_the_program_where_both_modes_are_set) {
    for (const RunMode mode : {RunMode::Messages, RunMode::Silent}) {
        CalcCase c = twin_264_34_at(500);
        c.Leitertemp_Merker_db = true;
        c.Leitertemp_db = typed(80);
        RecordingDialogs dialogs;
        EXPECT_THROW((void)RunSteady(c, {LangId::English, DecimalSeparator::Point, mode, dialogs}),
                     ProgramEnd);
        EXPECT_THAT(dialogs.shown(), SizeIs(mode == RunMode::Messages ? 1 : 0));
    }
}

// Without emissivity and without a difference to the air, Kirn's heat is in exact balance.
TEST(SteadyRun, keeps_the_former_current_of_kirn_where_no_heat_flows) {
    CalcCase balanced = sunny_264_34();
    balanced.rechnung_cigre207_merker_db = 0;
    balanced.rechnung_kirn_merker_db = 1;
    balanced.Emissionsverhaeltnis_db = typed(0);
    balanced.Leitertemp_db = balanced.Umgebungstemperatur_db;
    CalcCase rated = sunny_264_34();
    rated.rechnung_cigre207_merker_db = 0;
    rated.rechnung_kirn_merker_db = 1;
    RecordingDialogs dialogs;
    MethodMemory memory;
    const Session session = {LangId::English, DecimalSeparator::Point, RunMode::Silent, dialogs,
                             &memory};
    EXPECT_EQ(*RunSteady(balanced, session).methods.at(0).outcome.current_A, 0);
    const double former = *RunSteady(rated, session).methods.at(0).outcome.current_A;
    EXPECT_NEAR(former, 505.466099, 1e-5);
    EXPECT_EQ(*RunSteady(balanced, session).methods.at(0).outcome.current_A, former);
    const Session fresh = {LangId::English, DecimalSeparator::Point, RunMode::Silent, dialogs};
    EXPECT_EQ(*RunSteady(balanced, fresh).methods.at(0).outcome.current_A, 0);
}

TEST(SteadyRun, leaves_what_the_other_resistance_option_set) {
    RecordingDialogs dialogs;
    MethodMemory memory;
    const Session session = {LangId::English, DecimalSeparator::Point, RunMode::Silent, dialogs,
                             &memory};
    CalcCase c = line_264_34();
    c.DrahtlagenzahlLeiter_db = 3;
    const Tb601Details by_formula = *RunSteady(c, session).methods.at(0).outcome.tb601;
    EXPECT_GT(by_formula.KMag, 1.01);
    c.ACDC_R_Option_Merker_db = resistance_by_table;
    c.ACR1_db = typed(0.11);
    c.TACR1_db = typed(20);
    c.ACR2_db = typed(0.14);
    c.TACR2_db = typed(80);
    EXPECT_EQ(RunSteady(c, session).methods.at(0).outcome.tb601->KMag, by_formula.KMag);
    c.Netzfrequenz_db = typed(0);  // direct current reads the former DC resistance
    EXPECT_TRUE(RunSteady(c, session).methods.at(0).outcome.sound());
    const Session fresh = {LangId::English, DecimalSeparator::Point, RunMode::Silent, dialogs};
    EXPECT_FALSE(RunSteady(c, fresh).methods.at(0).outcome.sound());
}

TEST(SteadyRun, sets_the_texts_of_tables_and_printing_by_the_kind_of_result) {
    CalcCase c = twin_264_34();
    const ResultTexts current = run(c).result.texts;
    EXPECT_EQ(current.parameter_table_caption,
              "Wind speed / conductor temperature / current table ");
    EXPECT_THAT(current.table_steps, ElementsAre(" 10 ", "  5 ", "  2 ", "  1 "));
    EXPECT_EQ(current.print_caption, "Print : Current calculation ");
    c.Umgebtemp_merker1_db = 1;
    EXPECT_EQ(run(c, LangId::German).result.texts.parameter_table_caption,
              "Windgeschwindigkeit- / Umgebungstemperatur- / Strom-Tabelle ");
    const ResultTexts temperature = run(twin_264_34_at(500), LangId::German).result.texts;
    EXPECT_THAT(temperature.table_steps, ElementsAre(" 100 ", "  50 ", "  20 ", "  10 "));
    EXPECT_EQ(temperature.print_caption, "Ausdruck : &Temperaturberechnung");
}

}  // namespace
}  // namespace zel
