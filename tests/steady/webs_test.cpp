#include "steady/webs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "fakes/allocation_count.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/side_by_side.h"
#include "fakes/sunny_cases.h"
#include "platform/program_end.h"
#include "steady/webs_terms.h"

// Expected currents are those of a computation apart from the program.

namespace zel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr RunMode messages = RunMode::Messages;
constexpr RunMode silent = RunMode::Silent;

/// Webs with the dialogs of one run.
struct Webs {
    explicit Webs(RunMode mode = silent, LangId lang = LangId::English, bool wi_v_wi_merker = true)
        : questions({{mode, lang, dialogs},
                     lang == LangId::German ? DecimalSeparator::Comma : DecimalSeparator::Point,
                     wi_v_wi_merker,
                     {"VOR", "ZEL"}}) {}

    CurrentResult current(const CalcCase& c, double T = 80, double delta = 90) {
        return S1_Rechnung_strom_webs(webs_input(c, delta), T, questions);
    }
    TemperatureResult temperature(const CalcCase& c, double Iz, double delta = 90) {
        return S2_Rechnung_temp_webs(webs_input(c, delta), Iz, questions);
    }

    ScriptedDialogs dialogs;
    WebsQuestions questions;
};

CalcCase in_wind(double V) {
    CalcCase c = sunny_264_34();
    c.Windgeschwindigkeit_db = typed(V);
    return c;
}

struct Point {
    double x, y;
};

TEST(WebsTerms, skin_factors) {
    EXPECT_NEAR(webs_skin_factor(1, 50, 1000 / 28.264, 22.4), 1.000451914953, 1e-12);
    EXPECT_NEAR(webs_skin_factor(1, 60, 35, 47.86), 1.013415892691, 1e-12);
    // x = 1 lies between 47.86 and 47.87 mm
    for (const auto& [D, k] : {Point{22.4, 1.0159891404644}, Point{47.86, 1.3332144462045},
                               Point{47.87, 1.2970003599751}, Point{47.9, 1.2976565122793}})
        EXPECT_NEAR(webs_skin_factor(2, 50, 1000 / 28.264, D), k, 1e-12);
}

// 0.55·1^0.217 + 0.436 = 0.986; at 10^4 the exponent changes.
TEST(WebsTerms, nusselt_number_of_free_convection) {
    for (const auto& [Gr, Nu] :
         {Point{-5, 0.436}, Point{0.999, 0.436}, Point{1, 0.986}, Point{9999.9, 4.4944644588},
          Point{10000, 4.4912030425}, Point{1e7, 21.6951516141}, Point{1.1e7, 22.1717626967}})
        EXPECT_NEAR(webs_nusselt_free(Gr), Nu, 1e-9) << Gr;
}

TEST(WebsTerms, nusselt_number_of_forced_convection) {
    for (const auto& [Re, Nu] :
         {Point{0.1, 0.4498579240}, Point{949.999, 15.5214317018}, Point{950, 15.52144},
          Point{1049.999, 15.5928292861}, Point{1050, 15.5928255878}, Point{1e6, 955.4572093284}})
        EXPECT_NEAR(webs_nusselt_forced(Re).value(), Nu, 1e-9) << Re;
    EXPECT_EQ(webs_nusselt_forced(0.0999), std::nullopt);
}

TEST(WebsTerms, air_and_sun) {
    EXPECT_NEAR(webs_viscosity(50), 1.994913582e-6, 1e-15);
    EXPECT_NEAR(webs_viscosity(-20), 1.645792797e-6, 1e-15);
    for (const auto& [t, eta] : {Point{-20, 1.656e-6}, Point{-0.001, 1.7499953e-6},
                                 Point{0, 1.75e-6}, Point{50, 1.994913582e-6}})
        EXPECT_NEAR(webs_viscosity_in_wind(t), eta, 1e-15) << t;
    EXPECT_NEAR(webs_expansion(80), 0.002825738624, 1e-14);
    EXPECT_NEAR(webs_pressure(1000, 9.80665), 89407.18034417, 1e-7);
    for (const auto& [H, Gh] : {Point{0, 900}, Point{1000, 997.33365}, Point{4500, 1170.00286875}})
        EXPECT_NEAR(webs_radiation_at_altitude(900, H), Gh, 1e-9) << H;
    EXPECT_EQ(webs_sun_angle(0, 1), 0);
    EXPECT_NEAR(webs_sun_angle(0.5, 0), 3.141592654 - 0.5, 1e-8);
    EXPECT_NEAR(webs_sun_angle(0.5, 3.141592654 / 2), 1.570796327, 1e-8);
}

struct Row {
    const char* what;
    double current;
    void (*change)(CalcCase& c);
    double T = 80;
    double delta = 90;
};

constexpr Row rows[] = {
    {"noon in June", 670.628723, [](CalcCase&) {}},
    {"free, 0.05", 486.856389, [](CalcCase& c) { c.Windgeschwindigkeit_db = typed(0.05); }},
    {"free, whatever the angle", 486.856389,
     [](CalcCase& c) { c.Windgeschwindigkeit_db = typed(0.0999); }, 80, 0},
    {"forced from 0.1 on", 531.43633, [](CalcCase& c) { c.Windgeschwindigkeit_db = typed(0.1); }},
    {"along the line", 531.43633, [](CalcCase&) {}, 80, 0},
    {"0.1999 across", 531.43633, [](CalcCase& c) { c.Windgeschwindigkeit_db = typed(0.1999); }},
    {"0.2 across", 531.43633, [](CalcCase& c) { c.Windgeschwindigkeit_db = typed(0.2); }},
    {"0.3 across", 577.401729, [](CalcCase& c) { c.Windgeschwindigkeit_db = typed(0.3); }},
    {"0.25 across", 556.004717, [](CalcCase& c) { c.Windgeschwindigkeit_db = typed(0.5); }, 80, 30},
    {"Re 998", 714.0942, [](CalcCase& c) { c.Windgeschwindigkeit_db = typed(0.83); }},
    {"storm", 1741.92486, [](CalcCase& c) { c.Windgeschwindigkeit_db = typed(20); }},
    {"DC", 675.96885, [](CalcCase& c) { c.Netzfrequenz_db = typed(0); }},
    {"0.5 Hz", 675.96831, [](CalcCase& c) { c.Netzfrequenz_db = typed(0.5); }},
    {"49 Hz", 670.837791, [](CalcCase& c) { c.Netzfrequenz_db = typed(49); }},
    {"60 Hz", 668.318827, [](CalcCase& c) { c.Netzfrequenz_db = typed(60); }},
    {"61 Hz", 668.066193, [](CalcCase& c) { c.Netzfrequenz_db = typed(61); }},
    {"ABB", 675.816162, [](CalcCase& c) { c.Formel_merker1_db = 1; }},
    {"altitude", 645.022212, [](CalcCase& c) { c.Hoehe_ueber_NN_db = typed(1000); }},
    {"night", 733.006883, [](CalcCase& c) { c.Stunden_db = typed(1); }},
    {"along the meridian", 677.360656, [](CalcCase& c) { c.Winkel_S_S_db = typed(0); }},
    {"azimuth 300", 672.25074, [](CalcCase& c) { c.Winkel_S_S_db = typed(300); }},
    {"film above 0", 385.033311, [](CalcCase& c) { c.Umgebungstemperatur_db = typed(-9); }, 10},
    {"film below 0", 401.892976, [](CalcCase& c) { c.Umgebungstemperatur_db = typed(-10.1); }, 10},
    {"cold in wind", 134.883565, [](CalcCase& c) { c.Umgebungstemperatur_db = typed(-40); }, -30},
    {"hotter without current", -227.319666,
     [](CalcCase& c) { c.Umgebungstemperatur_db = typed(39); }, 40},
    {"colder than the air", -287.421107, [](CalcCase& c) { c.Windgeschwindigkeit_db = typed(0); },
     30},
    {"weak gravity", 486.971801,
     [](CalcCase& c) { c.Windgeschwindigkeit_db = typed(0), c.Gravi_merker1_db = 2; }},
    {"absorptivity is not read", 670.628723,
     [](CalcCase& c) { c.Absorptionsverhaeltnis_db = typed(0.1); }},
};

TEST(Webs, current_from_temperature) {
    for (const auto& [what, current, change, T, delta] : rows) {
        CalcCase c = sunny_264_34();
        change(c);
        const CurrentResult result = Webs().current(c, T, delta);
        EXPECT_FALSE(result.fault) << what;
        EXPECT_NEAR(result.current, current, 1e-5) << what;
    }
}

TEST(Webs, temperature_leads_back_to_the_current) {
    for (const double Iz : {0.0, 100.0, 665.0, 2000.0}) {
        const TemperatureResult result = Webs().temperature(sunny_264_34(), Iz);
        EXPECT_NEAR(result.current, Iz, 0.1);
        EXPECT_EQ(result.current, Webs().current(sunny_264_34(), result.temperature).current);
    }
    EXPECT_NEAR(Webs().temperature(sunny_264_34(), 670.628723).temperature, 80, 0.02);
}

TEST(Webs, a_current_out_of_reach_leaves_the_last_temperature_tried) {
    const TemperatureResult result = Webs().temperature(sunny_264_34(), 9999);
    EXPECT_EQ(result.temperature, 500);
    EXPECT_NEAR(result.current, 2092.31958, 1e-4);
}

TEST(Webs, numeric_faults_are_told_by_procedure) {
    struct Fault {
        void (*change)(CalcCase& c);
        ArithmeticFault fault;
    };
    using enum ArithmeticFault;
    for (const auto& [change, fault] : {
             Fault{[](CalcCase& c) { c.DC_Resist_Leiter_db = {}, c.Formel_merker1_db = 1; },
                   DivisionByZero},
             Fault{[](CalcCase& c) { c.DC_Resist_Leiter_db = {}; }, None},
             Fault{[](CalcCase& c) { c.DC_Resist_Leiter_db = typed(-1); }, InvalidArgument},
             Fault{[](CalcCase& c) { c.DCR_20_db = {}; }, DivisionByZero},
             Fault{[](CalcCase& c) { c.Gravi_merker1_db = 0; }, DivisionByZero},
             Fault{[](CalcCase& c) { c.Hoehe_ueber_NN_db = typed(-1e7); }, Overflow},
         }) {
        CalcCase c = sunny_264_34();
        change(c);
        Webs webs(messages);
        const MethodFault met = webs.current(c).fault;
        EXPECT_EQ(met.fault, fault);
        EXPECT_EQ(met.module, "Modul_Webs");
        EXPECT_EQ(met.procedure, "S1_Rechnung_strom_webs");
        EXPECT_EQ(webs.temperature(c, 400).fault.fault, fault);
        EXPECT_THAT(webs.dialogs.shown, IsEmpty());
    }
}

TEST(WebsQuestions, low_wind_is_asked_once_for_all_searches_of_a_run) {
    Webs webs(messages);
    webs.dialogs.answers = {Answer::No};
    EXPECT_NEAR(webs.current(in_wind(0.15)).current, 502.248399, 1e-5);
    EXPECT_NEAR(webs.temperature(in_wind(0.15), 502.248399).temperature, 80, 0.03);
    ASSERT_THAT(webs.dialogs.shown, SizeIs(1));
    const Box& box = webs.dialogs.shown[0];
    EXPECT_EQ(box.title, "ZEL");
    EXPECT_EQ(box.buttons, Buttons::YesNo);
    EXPECT_THAT(
        box.lines,
        ElementsAre("The 90°angle amount of the wind direction ",
                    "relative to conductor direction ", "is at windspeed: 0.15 m/s",
                    "and angle wind/condutor : 90.0 °", "less than 0,2 m/s!",
                    "This value for the wind speed / air speed is because of ",
                    "ground thermic influences and convection practically never appearing! ",
                    "Would you prefer to go on calculating ",
                    "with the more practically minimum wind speed of 0,2 m/s ?"));
}

TEST(WebsQuestions, low_wind_in_german_with_a_yes) {
    Webs webs(messages, LangId::German);
    EXPECT_NEAR(webs.current(in_wind(0.15), 80, 45).current, 531.43633, 1e-5);
    ASSERT_THAT(webs.dialogs.shown, SizeIs(1));
    EXPECT_THAT(
        webs.dialogs.shown[0].lines,
        ElementsAre("Der Betrag der im 90°-Winkel zum Leiterseil ",
                    "angreifenden Luftgeschwindigkeit ist bei", "Windgeschwindigkeit: 0,15 m/s",
                    "und Winkel Wind/Seil : 45,0 °", "kleiner 0,2 m/s!", "(Wind90 = 0,106 m/s )",
                    "Dieser Wert für die Luftgeschwindigkeit tritt in der Praxis ",
                    "aufgrund von Bodenthermik u. freier Konvektion nicht auf! ",
                    "Wollen Sie daher mit der praxisnäheren Mindestluftgeschwindigkeit 0,2 m/s",
                    "weiterrechnen ?"));
}

TEST(WebsQuestions, low_wind_is_raised_where_nothing_is_asked) {
    for (Webs& webs :
         std::array{Webs(silent), Webs(messages, LangId::English, false), Webs(RunMode{3})}) {
        EXPECT_NEAR(webs.current(in_wind(0.15)).current, 531.43633, 1e-5);
        EXPECT_THAT(webs.dialogs.shown, IsEmpty());
    }
    Webs enough(messages);
    (void)enough.current(in_wind(0.2));
    (void)enough.current(in_wind(0.0999));
    EXPECT_THAT(enough.dialogs.shown, IsEmpty());
}

CalcCase thick_in_still_air() {
    CalcCase c = in_wind(0);
    c.Seildurchmesser_db = typed(160);
    return c;
}

TEST(WebsQuestions, a_grashof_number_above_ten_million_is_asked_about) {
    Webs webs(messages);
    EXPECT_NEAR(webs.current(thick_in_still_air()).current, 544.585227, 1e-5);
    ASSERT_THAT(webs.dialogs.shown, SizeIs(1));
    EXPECT_THAT(webs.dialogs.shown[0].lines,
                ElementsAre("Grashof number greater than 10000000 ",
                            "The usability of the calculation ",
                            "with inpunt data :", "Wind speed: 0.0 m/s",
                            "Ambient temperature: 35.0 °C", "conductor temperature: 80.0 °C",
                            "can't be granted.", "Do you want to continue the calculation ? "));
    Webs quiet(silent);
    EXPECT_NEAR(quiet.current(thick_in_still_air()).current, 544.585227, 1e-5);
    EXPECT_THAT(quiet.dialogs.shown, IsEmpty());
}

// Gr is 10^7 at a diameter of 151.7243457256725 mm, 80 °C and 35 °C of the air.
TEST(WebsQuestions, a_grashof_number_of_ten_million_is_the_limit) {
    for (const double part : {-1e-9, 1e-9}) {
        CalcCase c = in_wind(0);
        c.Seildurchmesser_db = typed(151.7243457256725 * (1 + part));
        Webs webs(messages);
        (void)webs.current(c);
        EXPECT_THAT(webs.dialogs.shown, SizeIs(part > 0 ? 1 : 0));
    }
}

TEST(WebsQuestions, a_no_on_the_grashof_number_ends_the_program) {
    Webs german(messages, LangId::German);
    german.dialogs.answers = {Answer::No};
    EXPECT_THROW((void)german.current(thick_in_still_air()), ProgramEnd);
    ASSERT_THAT(german.dialogs.shown, SizeIs(2));
    EXPECT_THAT(german.dialogs.shown[0].lines,
                ElementsAre("Grashofzahl größer als 10000000 ", "Die Genauigkeit der Berechnung ",
                            "ist bei den Eingabewerten für :", "Windgeschwindigkeit: 0,0 m/s",
                            "Umgebungstemperatur: 35,0 °C", "Leitertemperatur: 80,0 °C",
                            "nicht mehr gewährleistet.",
                            "Wollen Sie die Berechnung trotzdem weiterführen ? "));
    EXPECT_THAT(german.dialogs.shown[1].lines,
                ElementsAre("Das Programm muß zur Erlangung eines",
                            "definierten Zustandes leider beendet werden!"));
    Webs english(messages);
    english.dialogs.answers = {Answer::No};
    EXPECT_THROW((void)english.current(thick_in_still_air()), ProgramEnd);
    EXPECT_THAT(english.dialogs.shown[1].lines,
                ElementsAre("For coming into a defined state, the application ",
                            "must be closed and restarted !"));
}

TEST(WebsQuestions, a_reynolds_number_below_a_tenth_ends_the_program) {
    Webs english(messages);
    english.dialogs.answers = {Answer::No};
    EXPECT_THROW((void)english.current(in_wind(0.6), 80, 0), ProgramEnd);
    EXPECT_THAT(english.dialogs.shown.back().lines,
                ElementsAre("Reynoldszahl less than 0.1 !",
                            "Please check and correct the input data.",
                            "To get an defined state, the application will be closed now !"));
    CalcCase hair = in_wind(0.6);
    hair.Seildurchmesser_db = typed(0.003);
    Webs german(messages, LangId::German);
    EXPECT_THROW((void)german.current(hair), ProgramEnd);
    EXPECT_THAT(
        german.dialogs.shown.back().lines,
        ElementsAre("Reynoldszahl kleiner als 0.1 !", "Bitte überprüfe Sie ihre Eigabedaten."));
    Webs quiet(silent);
    EXPECT_THROW((void)quiet.temperature(hair, 400), ProgramEnd);
    EXPECT_THAT(quiet.dialogs.shown, IsEmpty());
}

// Continuous ratings of EN 50182, table F.19: 80 °C in 35 °C and 0.6 m/s across, with sun.
struct Rated {
    const char* designation;
    double diameter, DCR20, rating;  // mm, ohm/km, A
};
constexpr Rated ratings[] = {
    {"70-AL1/11-ST1A", 11.7, 0.4132, 290},   {"94-AL1/15-ST1A", 13.6, 0.306, 350},
    {"122-AL1/20-ST1A", 15.5, 0.2376, 410},  {"128-AL1/30-ST1A", 16.3, 0.226, 425},
    {"149-AL1/24-ST1A", 17.1, 0.194, 470},   {"172-AL1/40-ST1A", 18.9, 0.1683, 520},
    {"184-AL1/30-ST1A", 19.0, 0.1571, 535},  {"209-AL1/34-ST1A", 20.3, 0.1381, 590},
    {"212-AL1/49-ST1A", 21.0, 0.1363, 610},  {"231-AL1/30-ST1A", 21.0, 0.125, 630},
    {"243-AL1/39-ST1A", 21.8, 0.1188, 645},  {"264-AL1/34-ST1A", 22.4, 0.1095, 680},
    {"304-AL1/49-ST1A", 24.4, 0.0949, 740},  {"305-AL1/39-ST1A", 24.1, 0.0949, 740},
    {"339-AL1/30-ST1A", 25.0, 0.0852, 790},  {"382-AL1/49-ST1A", 27.0, 0.0758, 840},
    {"386-AL1/34-ST1A", 26.7, 0.0749, 850},  {"434-AL1/56-ST1A", 28.8, 0.0666, 900},
    {"449-AL1/39-ST1A", 28.7, 0.0644, 920},  {"490-AL1/64-ST1A", 30.6, 0.059, 960},
    {"494-AL1/34-ST1A", 29.9, 0.0584, 985},  {"511-AL1/45-ST1A", 30.7, 0.0566, 995},
    {"550-AL1/71-ST1A", 32.4, 0.0526, 1020}, {"562-AL1/49-ST1A", 32.2, 0.0515, 1040},
    {"571-AL1/39-ST1A", 32.2, 0.0506, 1050}, {"653-AL1/45-ST1A", 34.4, 0.0442, 1120},
    {"679-AL1/86-ST1A", 36.0, 0.0426, 1150},
};

TEST(Webs, meets_the_continuous_ratings_of_steel_cored_conductors) {
    double sum = 0;
    for (const auto& [designation, diameter, DCR20, rating] : ratings) {
        CalcCase c = sunny_264_34();
        c.Seildurchmesser_db = typed(diameter);
        c.DCR_20_db = typed(DCR20);
        const double deviation = Webs().current(c).current / rating - 1;
        EXPECT_LT(std::abs(deviation), 0.035) << designation;
        sum += deviation;
    }
    EXPECT_LT(std::abs(sum / std::size(ratings)), 0.005);
}

TEST(Webs, a_solution_asks_for_no_memory) {
    Webs webs;
    const WebsInput in = webs_input(sunny_264_34(), 90);
    const std::size_t before = allocation_count();
    (void)S1_Rechnung_strom_webs(in, 80, webs.questions);
    (void)S2_Rechnung_temp_webs(in, 665, webs.questions);
    EXPECT_EQ(allocation_count(), before);
}

TEST(Webs, two_threads_compute_as_one) {
    EXPECT_TRUE(same_side_by_side(
        [](int i) { return Webs().temperature(sunny_264_34(), 10 * i).temperature; }));
}

}  // namespace
}  // namespace zel
