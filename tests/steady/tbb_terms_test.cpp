#include "steady/tbb_terms.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "fakes/allocation_count.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/side_by_side.h"
#include "fakes/steady_cases.h"
#include "platform/arithmetic_fault.h"
#include "steady/steady_report.h"
#include "steady/steady_solver.h"

// Expected values are those of a computation apart from the program.

namespace zel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// A tube of 120 mm with a wall of 8 mm at 80 °C, 35 °C ambient, 0.6 m/s across, 300 m, 900 W/m².
CalcCase tube() {
    CalcCase c;
    c.rechnung_TBB_merker_db = 1;
    c.conductor_type_db = tubular_busbar;
    c.Leitertemp_Merker_db = true;
    c.Leitertemp_db = typed(80);
    c.Hoehe_ueber_NN_db = typed(300);
    c.Windgeschwindigkeit_db = typed(0.6);
    c.Umgebungstemperatur_db = typed(35);
    c.Globalstrahlung_db = typed(900);
    c.Netzfrequenz_db = typed(50);
    c.Emissionsverhaeltnis_db = typed(0.5);
    c.Absorptionsverhaeltnis_db = typed(0.6);
    c.Seildurchmesser_db = typed(120);
    c.DrahtdurchmesserLeiter_db = typed(8);
    c.DCR_20_db = typed(99);
    c.DC_Resist_Leiter_db = typed(29.5);
    c.T_Koeff_DC_Resist_Leiter_linear_db = typed(3.6);
    return c;
}

CalcCase tube_at(double current, double V = 0.6) {
    CalcCase c = tube();
    c.Leitertemp_Merker_db = false;
    c.Stromstaerke_Merker_db = true;
    c.Stromstaerke_db = typed(current);
    c.Windgeschwindigkeit_db = typed(V);
    return c;
}

SteadySolution solve(const CalcCase& c, double delta = 90) {
    return ST_00_CigreTB207_temp_strom_steady_state(c, delta);
}

TEST(BusbarTerms, joule_heating_by_bands_of_frequency) {
    struct Row {
        double f, PJ;
    };
    const double R = tube_resistance(29.5, 120, 104);
    EXPECT_NEAR(R, 1.0480068796e-5, 1e-15);
    for (const auto& [f, PJ] :
         {Row{0, 79.6485228}, Row{0.5, 79.6485228}, Row{1, 79.6485228}, Row{49.1, 80.1264140},
          Row{50, 80.1264140}, Row{60, 80.1264140}, Row{60.9, 80.1264140}}) {
        const Term term = ST_F01_TBB_PJ_steady(2500, f, R, 0.0036, 80);
        EXPECT_EQ(term.failure, SteadyCause::None) << f;
        EXPECT_NEAR(term.value, PJ, 1e-6) << f;
    }
    for (const double f : {-0.1, 1.1, 10.0, 49.0, 61.0})
        EXPECT_EQ(ST_F01_TBB_PJ_steady(0, f, R, 0.0036, 80).failure, SteadyCause::BusbarFrequency)
            << f;
}

TEST(BusbarTerms, sun_and_radiation) {
    EXPECT_NEAR(ST_F02_CigreTBB_PS_steady(0.6, 900, 0.12), 64.8, 1e-12);
    EXPECT_NEAR(ST_F04_TBB_PR_steady(0.12, 0.5, 80, 35), 69.8709643, 1e-6);
    EXPECT_NEAR(ST_F04_TBB_PR_steady(0.12, 0.5, -100, 35), -86.7669226, 1e-6);
}

// Along the tube the forced term is 0; the natural one is 87.53 W/m at 300 m.
TEST(BusbarTerms, convective_cooling_by_wind_and_angle) {
    struct Row {
        double V, delta, PC;
        double H = 300;
        double Ts = 80;
    };
    for (const auto& [V, delta, PC, H, Ts] :
         {Row{0, 90, 87.53191547}, Row{0.05, 90, 87.53191547}, Row{0.4, 0, 87.53191547},
          Row{0.4, 90, 100.9510675}, Row{0.4999, 30, 87.53191547}, Row{0.5, 30, 62.87766943},
          Row{0.5, 0, 0}, Row{0.6, 90, 126.8352141}, Row{2, 60, 235.6822604},
          Row{5, 45, 388.512778}, Row{1, 90, 173.9031728, 0}, Row{0.5, 90, -361.2237609, 300, -100},
          Row{-1, 90, 0}})
        EXPECT_NEAR(ST_F03_TBB_PC_steady({V, delta, H, 0.12, 9.80665}, Ts, 35), PC, 1e-6)
            << V << " m/s at " << delta;
}

TEST(BusbarTerms, a_tube_colder_than_the_air_is_a_numeric_fault_below_half_a_metre_per_second) {
    using enum ArithmeticFault;
    struct Row {
        double V;
        ArithmeticFault fault;
    };
    for (const auto& [V, expected] :
         {Row{0, InvalidArgument}, Row{0.4, InvalidArgument}, Row{0.5, None}}) {
        const ArithmeticScope arithmetic;
        (void)computed(ST_F03_TBB_PC_steady({V, 90, 0, 0.12, 9.80665}, 34.9, 35));
        EXPECT_EQ(arithmetic.fault(), expected) << V;
    }
}

TEST(Busbar, every_solution_is_in_balance) {
    const auto [by_temperature, no_failure] = solve(tube());
    EXPECT_FALSE(no_failure);
    EXPECT_NEAR(by_temperature.current, 3207.63338, 0.01);
    EXPECT_NEAR(solve(tube_at(3207.63338)).state.temperature, 80, 0.001);
    for (const double current : {0.0, 1000.0, 2500.0, 5000.0})
        for (const double V : {0.5, 0.6, 10.0}) {
            const auto [state, failure] = solve(tube_at(current, V));
            EXPECT_FALSE(failure);
            const auto& [PJ, PS, PC, PR] = state.terms;
            EXPECT_NEAR(PJ + PS, PC + PR, 0.001) << current << " A, " << V << " m/s";
        }
}

TEST(Busbar, is_displaced_by_TB_207) {
    CalcCase c = tube();
    EXPECT_EQ(steady_input(c, 90).method, HeatTermMethod::TBB);
    c.rechnung_cigre207_merker_db = 1;
    EXPECT_EQ(steady_input(c, 90).method, HeatTermMethod::TB207);
}

struct Told {
    std::string status;
    std::vector<Box> boxes;
};

Told told(const CalcCase& c, LangId lang = LangId::English, RunMode mode = RunMode::Messages) {
    ScriptedDialogs dialogs;
    Told told;
    told.status = report(solve(c).failure, {mode, lang, dialogs});
    told.boxes = dialogs.shown;
    return told;
}

TEST(Busbar, another_frequency_is_refused) {
    CalcCase c = tube();
    c.Netzfrequenz_db = typed(61);
    const Told english = told(c);
    EXPECT_EQ(english.status, "ST_F01_TBB_PJ_steady");
    ASSERT_THAT(english.boxes, SizeIs(2));
    EXPECT_EQ(english.boxes[0].title, "Input incorrecht !");
    EXPECT_THAT(english.boxes[0].lines,
                ElementsAre("Calculations for tubular busbars can only be carried out",
                            "for frequencies from 50Hz - 60 Hz and 0 Hz (DC): ",
                            "Please correcht your input for frequency "));
    EXPECT_EQ(english.boxes[1].title, "ST_F01_TBB_PJ_steady");
    EXPECT_EQ(english.boxes[1].lines[1], "did not lead to a usable result!");
    const Told german = told(c, LangId::German);
    EXPECT_EQ(german.boxes[0].title, "Falsche Eingabe");
    EXPECT_THAT(
        german.boxes[0].lines,
        ElementsAre("Berechnungen für Kreisringstromschienen können nur für Netzfrequenzen ",
                    "von 50 Hz bis 60 Hz oder Gleichstrom 0 Hz durchgeführt werden.",
                    "Bitte koorigieren sie die Eingabe der Netzfrquenz."));
    const Told quiet = told(c, LangId::English, RunMode::Silent);
    EXPECT_EQ(quiet.status, "ST_F01_TBB_PJ_steady");
    EXPECT_THAT(quiet.boxes, IsEmpty());
}

// The search for a temperature begins at -100 °C, where the natural term has no value.
TEST(Busbar, a_temperature_in_little_wind_meets_the_numeric_fault) {
    for (const double V : {0.0, 0.4}) {
        const Told english = told(tube_at(2500, V));
        EXPECT_EQ(english.status, "ST_F03_TBB_PC_steady");
        ASSERT_THAT(english.boxes, SizeIs(1));
        EXPECT_EQ(english.boxes[0].title, " ST_F03_TBB_PC_steady");
        EXPECT_THAT(english.boxes[0].lines, ElementsAre("Error 5 in row 0 occured."));
    }
    EXPECT_EQ(told(tube_at(2500), LangId::German).status, "");
    EXPECT_EQ(told(tube_at(2500, 0), LangId::German).boxes[0].title, " ST_F03_TBB_PC_steady");
}

TEST(Busbar, a_tube_without_wall_is_a_numeric_fault) {
    CalcCase c = tube();
    c.DrahtdurchmesserLeiter_db = {};
    const Told english = told(c);
    EXPECT_EQ(english.status, "ST_F01_TBB_PJ_steady");
    ASSERT_THAT(english.boxes, SizeIs(1));
    EXPECT_THAT(english.boxes[0].lines, ElementsAre("Error 11 in row 0 occured."));
}

TEST(Busbar, a_solution_asks_for_no_memory) {
    const SteadyInputBlock in = steady_input(tube(), 90);
    const std::size_t before = allocation_count();
    (void)solve_current(in, 80);
    (void)solve_temperature(in, 2500);
    EXPECT_EQ(allocation_count(), before);
}

TEST(Busbar, two_threads_compute_as_one) {
    EXPECT_TRUE(same_side_by_side([](int i) { return solve(tube_at(10 * i)).state.temperature; }));
}

}  // namespace
}  // namespace zel
