#include "steady/kirn.h"

#include <gtest/gtest.h>

#include <cmath>

#include "fakes/allocation_count.h"
#include "fakes/side_by_side.h"
#include "fakes/sunny_cases.h"

// Expected values are those of a computation apart from the program.

namespace zel {
namespace {

struct Point {
    double x, y;
};

TEST(KirnTerms, the_season_has_a_floor_of_five) {
    const double season[] = {5,           5,           5.262982829, 5.684807621,
                             5.921458708, 6.026794919, 5.960177468, 5.598205080,
                             5,           5,           5,           5};
    for (std::int16_t month = 1; month <= 12; ++month)
        EXPECT_NEAR(kirn_season(month), season[month - 1], 1e-9) << month;
}

TEST(KirnTerms, the_air_mass_is_forty_up_to_a_degree_and_a_half) {
    for (const auto& [hd, m] : {Point{-10, 40}, Point{1.4999, 40}, Point{1.5001, 38.199003996},
                                Point{30, 2}, Point{90, 1}})
        EXPECT_NEAR(kirn_air_mass(hd * 3.14159265358979 / 180), m, 1e-7) << hd;
}

TEST(KirnTerms, sky) {
    EXPECT_NEAR(kirn_sky(40, 5, 1), 1.9548769728, 1e-9);
    EXPECT_NEAR(kirn_sky(1, 6, 0.75), 0.5859874978, 1e-9);
    EXPECT_EQ(kirn_sky(2, 5.5, 0), 0);
}

// A slope of exactly 1 is taken as 0.999995, one above 1 by another root.
TEST(KirnTerms, slope_angle) {
    for (const auto& [rise, beta] :
         {Point{0, 0}, Point{300, 1.5676340478}, Point{299.9985, 1.5676340478},
          Point{450, 0.9302740141}, Point{-150, -0.5235987756}})
        EXPECT_NEAR(kirn_slope_angle(rise / 300), beta, 1e-8) << rise;
}

// The sine of the azimuth is cut at 0.99999, an obtuse angle is mirrored.
TEST(KirnTerms, angle_between_conductor_and_sun) {
    EXPECT_NEAR(kirn_sun_angle({0.5, 0.4, 1}, 1, 0.3, 0.1), 1.03584307685, 1e-10);
    EXPECT_NEAR(kirn_sun_angle({0.5, 0.4, 0.5}, 0.5, 3, 0.1), 0.87995719517, 1e-10);
    EXPECT_NEAR(kirn_sun_angle({1.5, 0.1, 0.2}, 0.2, 1.2, 0), 0.41519066535, 1e-10);
    EXPECT_NEAR(kirn_sun_angle({-1.5, 0.1, 0.2}, 0.2, 1.2, 0), 0.42299643353566, 1e-10);
    EXPECT_EQ(kirn_sun_angle({-2.9, 0.4, -0.3}, -0.3, 1, 0), 0);
}

TEST(KirnTerms, wind_and_surface) {
    struct Row {
        double V, delta, Rw;
    };
    for (const auto& [V, delta, Rw] :
         {Row{5, 90, 11000}, Row{0, 0, 18333.333333}, Row{2, 0, 19036.724634},
          Row{2, 45, 13370.772192}, Row{10, 80, 11806.608484}})
        EXPECT_NEAR(kirn_wind_divisor(V, delta), Rw, 1e-5) << V << " m/s at " << delta;
    for (const auto& [delta, mirrored] :
         {Point{0, 0}, Point{90, 90}, Point{90.1, 89.9}, Point{180, 0}})
        EXPECT_NEAR(kirn_mirrored(delta), mirrored, 1e-12);
    for (const auto& [epsilon, w] : {Point{0.3, 4.5}, Point{0.6, 4.4565217391},
                                     Point{0.89, 4.4021558872}, Point{0.95, 4.3888888889}})
        EXPECT_NEAR(kirn_surface(kirn_ageing(epsilon)), w, 1e-9) << epsilon;
}

TEST(KirnTerms, the_sun_heats_less_above_1_5_radians) {
    const KirnGround ground = {900, 0.6, 0.0224, 0.2, 308.15};
    EXPECT_NEAR(kirn_solar_heating(ground, 1.5, 0.5, 1.2), 34.7768557664, 1e-9);
    EXPECT_NEAR(kirn_solar_heating(ground, 1.50001, 0.5, 1.2), 33.5101656083, 1e-9);
    EXPECT_NEAR(kirn_solar_heating(ground, -0.3, 0.7, 0), 25.3387643398, 1e-9);
}

/// The shipped example of a line, at 15° east on 21 June at 13 o'clock, on a steep span.
CalcCase shipped_264_34() {
    CalcCase c = sunny_264_34();
    c.Winkel_S_S_db = typed(0);
    c.geo_laeng_db = typed(-15);
    c.Bewoelkungsgrad_db = typed(0.7);
    c.Feldlaenge_db = typed(350);
    c.Hoehendifferenz_db = typed(330);
    return c;
}

struct Row {
    const char* what;
    double current;
    void (*change)(CalcCase& c);
    double T = 80;
    double delta = 90;
};

constexpr Row rows[] = {
    {"noon in June", 646.443732, [](CalcCase&) {}},
    {"night", 773.062221, [](CalcCase& c) { c.Stunden_db = typed(1); }},
    {"sun 0.4 degrees high", 720.685183,
     [](CalcCase& c) { c.Stunden_db = typed(5), c.Minuten_db = typed(21); }},
    {"sun 1.6 degrees high", 717.463122,
     [](CalcCase& c) { c.Stunden_db = typed(5), c.Minuten_db = typed(30); }},
    {"winter", 639.75375, [](CalcCase& c) { c.Monat_db = typed(12), c.Stunden_db = typed(12); }},
    {"last day without summer time", 645.704239,
     [](CalcCase& c) { c.Tag_db = typed(25), c.Monat_db = typed(3), c.Stunden_db = typed(12); }},
    {"first day with summer time", 645.754999,
     [](CalcCase& c) { c.Tag_db = typed(26), c.Monat_db = typed(3); }},
    {"summer time whatever the setting", 646.443732, [](CalcCase& c) { c.wzsz_merker_db = 3; }},
    {"sun 1.545 rad high", 654.198782,
     [](CalcCase& c) { c.geogr_Breite_db = typed(22), c.geo_laeng_db = typed(-15); }},
    {"sun overhead", 654.200658,
     [](CalcCase& c) { c.geogr_Breite_db = typed(23.4498), c.geo_laeng_db = typed(-15); }},
    {"slope 0", 646.490406, [](CalcCase& c) { c.Hoehendifferenz_db = typed(0); }},
    {"slope 1", 668.796376, [](CalcCase& c) { c.Hoehendifferenz_db = typed(300); }},
    {"slope 1.5", 657.37087, [](CalcCase& c) { c.Hoehendifferenz_db = typed(450); }},
    {"slope -0.5", 651.687429, [](CalcCase& c) { c.Hoehendifferenz_db = typed(-150); }},
    {"still air", 481.072451, [](CalcCase& c) { c.Windgeschwindigkeit_db = typed(0); }},
    {"along the line", 505.466099, [](CalcCase&) {}, 80, 0},
    {"from 80 degrees", 644.272388, [](CalcCase&) {}, 80, 80},
    {"from 100 degrees", 644.272388, [](CalcCase&) {}, 80, 100},
    {"storm", 1465.17308, [](CalcCase& c) { c.Windgeschwindigkeit_db = typed(10); }, 80, 45},
    {"azimuth 45", 648.064829, [](CalcCase& c) { c.Winkel_S_S_db = typed(45); }},
    {"azimuth 200", 648.78854, [](CalcCase& c) { c.Winkel_S_S_db = typed(200); }},
    {"overcast", 623.648588, [](CalcCase& c) { c.Bewoelkungsgrad_db = typed(0); }},
    {"light ground", 613.176679, [](CalcCase& c) { c.Bodenart_db = typed(0.5); }},
    {"cool ground", 669.806784, [](CalcCase& c) { c.Bodentemp_db = typed(10); }},
    {"no global radiation", 746.014474, [](CalcCase& c) { c.Globalstrahlung_db = typed(0); }},
    {"bright", 644.807132, [](CalcCase& c) { c.Emissionsverhaeltnis_db = typed(0.5); }},
    {"black", 651.51715, [](CalcCase& c) { c.Emissionsverhaeltnis_db = typed(0.95); }},
    {"hotter without current", -317.681268, [](CalcCase&) {}, 36},
    {"as warm as the air", -335.980327, [](CalcCase&) {}, 35},
    {"frost", -216.830647,
     [](CalcCase& c) { c.Umgebungstemperatur_db = typed(-40), c.Bodentemp_db = typed(-40); }, -30},
};

TEST(Kirn, current_from_temperature) {
    for (const auto& [what, current, change, T, delta] : rows) {
        CalcCase c = sunny_264_34();
        change(c);
        const KirnCurrent result = S1_Rechnung_strom_kirn(kirn_input(c, delta), T);
        EXPECT_FALSE(result.fault) << what;
        EXPECT_NEAR(result.current, current, 1e-5) << what;
    }
}

// A sun within 0.001 of the zenith, by the cosine of its height, counts as 1.5697 rad high. A steep
// span feels it.
TEST(Kirn, a_sun_near_the_zenith_is_held_off_it) {
    const struct {
        double latitude, current;
    } rows_at_zenith[] = {
        {23.4797828, 677.0549014}, {23.5069828, 677.0548973}, {23.5072828, 677.0517592}};
    for (const auto& [latitude, current] : rows_at_zenith) {
        CalcCase c = shipped_264_34();
        c.geogr_Breite_db = typed(latitude);
        EXPECT_NEAR(S1_Rechnung_strom_kirn(kirn_input(c, 90), 80).current, current, 2e-7)
            << latitude;
    }
}

TEST(Kirn, an_angle_above_90_comes_back_mirrored) {
    for (const auto& [delta, angle] : {Point{45, 45}, Point{90, 90}, Point{100, 80}}) {
        const KirnInput in = kirn_input(sunny_264_34(), delta);
        EXPECT_EQ(S1_Rechnung_strom_kirn(in, 80).angle, angle);
        EXPECT_EQ(S2_Rechnung_temp_kirn(in, 600).angle, angle);
    }
}

TEST(Kirn, ratings_of_two_conductors_within_eight_percent) {
    struct Rated {
        double diameter, DCR20, rating;
    };
    for (const auto& [diameter, DCR20, rating] :
         {Rated{22.4, 0.1095, 680}, Rated{27, 0.0758, 840}}) {
        CalcCase c = sunny_264_34();
        c.Seildurchmesser_db = typed(diameter);
        c.DCR_20_db = typed(DCR20);
        EXPECT_NEAR(S1_Rechnung_strom_kirn(kirn_input(c, 90), 80).current / rating, 1, 0.08);
    }
}

// A conductor without a surface, as warm as the air, neither takes nor gives heat.
TEST(Kirn, the_former_current_stands_where_no_heat_flows) {
    CalcCase c = sunny_264_34();
    c.Seildurchmesser_db = {};
    EXPECT_EQ(S1_Rechnung_strom_kirn(kirn_input(c, 90), 35).current, 0);
    EXPECT_EQ(S1_Rechnung_strom_kirn(kirn_input(c, 90), 35, 123).current, 123);
}

TEST(Kirn, temperature_leads_back_to_the_current) {
    const KirnInput in = kirn_input(sunny_264_34(), 90);
    for (const double Iz : {0.0, 100.0, 646.0, 2600.0}) {
        const KirnTemperature result = S2_Rechnung_temp_kirn(in, Iz);
        EXPECT_NEAR(result.current, Iz, 0.1);
        EXPECT_EQ(result.current, S1_Rechnung_strom_kirn(in, result.temperature).current);
    }
    EXPECT_NEAR(S2_Rechnung_temp_kirn(in, 646.443732).temperature, 80, 0.02);
    EXPECT_EQ(S2_Rechnung_temp_kirn(in, 9999).temperature, 500);
}

TEST(Kirn, numeric_faults_are_told_by_procedure) {
    struct Fault {
        void (*change)(CalcCase& c);
        ArithmeticFault fault;
        double angle;
    };
    using enum ArithmeticFault;
    for (const auto& [change, fault, angle] : {
             Fault{[](CalcCase& c) { c.Emissionsverhaeltnis_db = typed(0.9); }, DivisionByZero, 80},
             Fault{[](CalcCase& c) { c.Hoehendifferenz_db = typed(-300); }, DivisionByZero, 100},
             Fault{[](CalcCase& c) { c.Hoehendifferenz_db = typed(-301); }, InvalidArgument, 100},
             Fault{[](CalcCase& c) { c.Feldlaenge_db = {}; }, DivisionByZero, 100},
             Fault{[](CalcCase& c) { c.DCR_20_db = {}; }, DivisionByZero, 80},
         }) {
        CalcCase c = sunny_264_34();
        change(c);
        const KirnInput in = kirn_input(c, 100);
        const KirnCurrent result = S1_Rechnung_strom_kirn(in, 80);
        EXPECT_EQ(result.fault.fault, fault);
        EXPECT_EQ(result.fault.procedure, "S1_Rechnung_strom_kirn");
        EXPECT_EQ(result.angle, angle);
        EXPECT_EQ(S2_Rechnung_temp_kirn(in, 400).fault.fault, fault);
    }
}

TEST(Kirn, a_solution_asks_for_no_memory) {
    const KirnInput in = kirn_input(sunny_264_34(), 90);
    const std::size_t before = allocation_count();
    (void)S1_Rechnung_strom_kirn(in, 80);
    (void)S2_Rechnung_temp_kirn(in, 600);
    EXPECT_EQ(allocation_count(), before);
}

TEST(Kirn, two_threads_compute_as_one) {
    const KirnInput in = kirn_input(sunny_264_34(), 90);
    EXPECT_TRUE(
        same_side_by_side([&](int i) { return S2_Rechnung_temp_kirn(in, 10 * i).temperature; }));
}

}  // namespace
}  // namespace zel
