#include "steady/tb207_terms.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

#include "steady/calc_case.h"

namespace zel {
namespace {

constexpr double exactness = 1e-9;

#define EXPECT_RELATIVE(value, expected) EXPECT_NEAR(value, expected, exactness* std::abs(expected))

Term joule(double I, int kind, int N, double A, double Ts = 80) {
    return ST_F01_CigreTB207_PJ_steady(
        I, {1e-4, 0.004, static_cast<std::int16_t>(kind), static_cast<std::int16_t>(N), A}, Ts);
}

/// The effective current (A) of a steel-cored conductor, from its heating of 1 ohm/m at 20 °C.
double effective_current(double I, int N, double A) {
    const Tb207Conductor conductor = {1, 0.004, steel_cored_conductor, static_cast<std::int16_t>(N),
                                      A};
    return std::sqrt(ST_F01_CigreTB207_PJ_steady(I, conductor, 20).value);
}

TEST(JouleHeating, of_a_conductor_without_steel_has_a_fixed_skin_effect) {
    // 500² · 1.0123 · 1e-4 · (1 + 0.004 · 60)
    for (const int kind : {1, 4}) EXPECT_RELATIVE(joule(500, kind, 3, 50).value, 31.3813);
    EXPECT_RELATIVE(joule(500, 1, 3, 50, 20).value, 25.3075);
    EXPECT_RELATIVE(joule(500, 1, 3, 50, -30).value, 20.246);
}

TEST(JouleHeating, is_zero_without_current_for_every_kind) {
    for (const int kind : {0, 1, 2, 3, 4, 5}) {
        for (const int N : {-1, 0, 1, 2, 3}) {
            const Term PJ = joule(0, kind, N, 0);
            EXPECT_EQ(PJ.value, 0);
            EXPECT_EQ(PJ.failure, SteadyCause::None);
        }
    }
}

TEST(JouleHeating, is_zero_for_a_tube_and_unknown_kinds_and_a_steel_core_without_layers) {
    for (const int kind : {3, 5, 0, -1}) EXPECT_EQ(joule(500, kind, 2, 263.7).value, 0) << kind;
    for (const int N : {0, -1, -5}) EXPECT_EQ(joule(500, 2, N, 263.7).value, 0) << N;
}

// The middle point after the last move, computed apart from the program, and therefore up to 3 %
// beside the x of f(x) = I.
TEST(EffectiveCurrent, follows_layers_section_and_current_density) {
    const struct {
        double I;
        int N;
        double A, Ieff;
    } rows[] = {
        {500, 1, 174.9, 521.25},      {500, 2, 174.9, 521.25},      {500, 1, 175, 501.1914063},
        {500, 2, 175, 501.1914063},   {500, 3, 174.9, 505.9891303}, {500, 3, 175, 505.9891303},
        {500, 4, 50, 505.9891303},    {74.15, 1, 100, 74.15},       {74.2, 1, 100, 74.2},
        {74.21, 1, 100, 74.19550586}, {100.5, 1, 100, 100.7041406}, {2.486, 2, 1, 2.5586378125},
        {248.7, 2, 100, 257.1907734}, {300.5, 2, 100, 314.8676563}, {390.8, 1, 100, 412.4466563},
        {390.9, 1, 100, 409.9793787}, {500.5, 1, 100, 524.9288285}};
    for (const auto& [I, N, A, Ieff] : rows)
        EXPECT_NEAR(effective_current(I, N, A), Ieff, 1e-7) << I << " A, " << N << ", " << A;
}

TEST(EffectiveCurrent, is_not_found_beyond_the_three_points) {
    for (const double I : {1e7, -500.0}) {
        const Term PJ = joule(I, 2, 2, 263.7);
        EXPECT_EQ(PJ.failure, SteadyCause::JouleBracketing) << I;
    }
}

TEST(SolarHeating, is_absorbed_over_the_diameter) {
    EXPECT_RELATIVE(ST_F02_CigreTB207_PS_steady(0.6, 900, 0.0224), 12.096);
    EXPECT_EQ(ST_F02_CigreTB207_PS_steady(0.6, 0, 0.0224), 0);
}

TEST(RadiativeCooling, goes_with_the_fourth_power_and_heats_a_colder_conductor) {
    EXPECT_RELATIVE(ST_F04_CigreTB207_PR_steady(0.0224, 0.6, 80, 35), 15.6510960061813);
    EXPECT_RELATIVE(ST_F04_CigreTB207_PR_steady(0.0224, 0.6, 15, 35), -5.08209781546938);
    EXPECT_EQ(ST_F04_CigreTB207_PR_steady(0.0224, 0.6, 35, 35), 0);
}

/// A conductor of 33 mm: 10 °C in air of -10 °C gives Re = 2500 V.
Term convection(double V, double delta, double d = 0.003, double g = 9.80665, double D = 0.033) {
    return ST_F03_CigreTB207_PC_steady({V, delta, 0, D, d, g}, 10, -10);
}

/// The Nusselt number behind it.
double nusselt(double V, double delta, double d = 0.003) {
    return convection(V, delta, d).value / (20 * 0.0242 * 3.141592654);
}

TEST(ForcedConvection, takes_the_first_band_of_reynolds_number_and_roughness) {
    constexpr double smooth = 0.003;   // roughness just below 0.05
    constexpr double rough = 0.00301;  // and just above
    const struct {
        double V;
        double d;
        double Nu90;
    } rows[] = {{1.06, smooth, 26.2546864564816},   {1.06, rough, 26.2546864564816},
                {1.0601, smooth, 26.1433100823117}, {1.0601, rough, 26.2948508606263},
                {4, smooth, 60.5926577667782},      {4, rough, 76.0748732381335},
                {20, smooth, 167.82938960702},      {20.001, smooth, 0},
                {20.001, rough, 275.69863264836},   {24, smooth, 0},
                {24, rough, 318.979106855508},      {36, smooth, 0},
                {36, rough, 441.199737043258}};
    for (const auto& [V, d, Nu90] : rows)
        EXPECT_NEAR(nusselt(V, 90, d), Nu90, exactness * Nu90) << "Re " << 2500 * V << ", d " << d;
}

TEST(ForcedConvection, fails_above_reynolds_90000_at_any_wind) {
    EXPECT_EQ(convection(36, 90).failure, SteadyCause::None);
    EXPECT_EQ(convection(36.001, 90).failure, SteadyCause::ReynoldsTooLarge);
    EXPECT_EQ(convection(36.001, 90, 0.01).failure, SteadyCause::ReynoldsTooLarge);
    // 3 m in a light air: the Grashof number is too large as well and is told second.
    EXPECT_EQ(convection(0.4, 90, 0.003, 9.80665, 3).failure, SteadyCause::ReynoldsTooLarge);
}

TEST(ForcedConvection, is_weakened_by_the_angle) {
    const std::pair<double, std::vector<double>> rows[] = {
        {0.42, {0, 180, 360}},
        {0.42071406, {0.1, 180.1, 359.9}},
        {0.677375543, {24, 156, 204, 336}},
        {0.679023158, {24.1, 155.9, 204.1, 335.9}},
        {0.730814304, {30, 150, 210, 330}},
        {0.999999205, {89.9, 90.1, 269.9, 270.1}},
        {1, {90, 270}},
        {0, {-1, -0.1, 360.1, 361}}};
    for (const auto& [factor, angles] : rows)
        for (const double delta : angles)
            EXPECT_NEAR(nusselt(1, delta), 25.5439334232107 * factor, 1e-7) << delta;
}

TEST(NaturalConvection, takes_its_band_by_grashof_times_prandtl) {
    // 20 °C in air of 0 °C; g shifts Gr·Pr, the third and the last value make it 10^4 and 10^6
    // to the last bit.
    const struct {
        double g;
        double Nu;
    } rows[] = {{0.0, 0},
                {1.107, 4.80191202587549},
                {1.1070640848580533, 4.8},
                {1.108, 4.80101416197109},
                {110.7, 15.1787130974988},
                {110.70640848580533, 15.1789327688082}};
    for (const auto& [g, Nu] : rows) {
        const Term PC = ST_F03_CigreTB207_PC_steady({0, 90, 0, 0.033, 0.003, g}, 20, 0);
        EXPECT_EQ(PC.failure, SteadyCause::None) << g;
        EXPECT_RELATIVE(PC.value / (20 * 0.02492 * 3.141592654), Nu) << g;
    }
    for (const double V : {0.0, 0.4}) {
        const Tb207Flow flow = {V, 90, 0, 0.033, 0.003, 110.71};
        EXPECT_EQ(ST_F03_CigreTB207_PC_steady(flow, 20, 0).failure,
                  SteadyCause::GrashofPrandtlTooLarge);
    }
    EXPECT_EQ(ST_F03_CigreTB207_PC_steady({0.5, 90, 0, 0.033, 0.003, 110.71}, 20, 0).failure,
              SteadyCause::None);
}

/// The conductor of 22.4 mm at 80 °C in air of 35 °C, 500 m above sea level.
double cooling(double V, double delta, double Ts = 80) {
    return ST_F03_CigreTB207_PC_steady({V, delta, 500, 0.0224, 0.00374, 9.80665}, Ts, 35).value;
}

TEST(ConvectiveCooling, is_chosen_by_the_wind_speed) {
    EXPECT_RELATIVE(cooling(0.6, 60), 51.5096397089667);
    EXPECT_RELATIVE(cooling(0.5, 90), 50.8523594817966);
    EXPECT_RELATIVE(cooling(0.49, 90), 42.5423893431866);
    EXPECT_RELATIVE(cooling(0.3, 90), 33.7647575174353);
    EXPECT_RELATIVE(cooling(0.02, 90), 25.3464503040175);  // natural convection is the stronger
    EXPECT_RELATIVE(cooling(0, 90), 25.3464503040175);
    EXPECT_EQ(cooling(-0.1, 90), 0);
}

TEST(ConvectiveCooling, does_not_read_the_angle_below_half_a_metre_per_second) {
    for (const double V : {0.0, 0.02, 0.3, 0.499})
        for (const double delta : {0.0, 30.0, 180.0, -1.0})
            EXPECT_EQ(cooling(V, delta), cooling(V, 90)) << V << " m/s at " << delta;
    EXPECT_LT(cooling(0.5, 30), cooling(0.5, 90));
}

TEST(ConvectiveCooling, heats_a_colder_conductor_from_half_a_metre_per_second_on) {
    EXPECT_RELATIVE(cooling(0.6, 60, 15), -22.8703424516563);
    EXPECT_EQ(cooling(0.3, 60, 15), 0);
    EXPECT_EQ(cooling(0, 60, 15), 0);
}

TEST(ConvectiveCooling, is_zero_at_the_temperature_of_the_air) {
    for (const double V : {0.0, 0.3, 0.6}) EXPECT_EQ(cooling(V, 60, 35), 0) << V;
}

// Parrot, the ACSR example of Cigre TB 207: 1.508 in, wires of 0.1673 in, 0.0627 ohm/mile at 25 °C
// and 0.0750 at 75 °C, 0.6 m/s across. The 590 A are those without skin effect.
TEST(Parrot, has_its_published_heat_terms_at_50_degrees) {
    const double D = 0.0383032;
    EXPECT_NEAR(ST_F02_CigreTB207_PS_steady(0.9, 900, D), 31.04, 0.02);
    EXPECT_NEAR(ST_F03_CigreTB207_PC_steady({0.6, 90, 0, D, 0.00424942, 9.80665}, 50, 30).value,
                32.52, 0.02);
    EXPECT_NEAR(ST_F04_CigreTB207_PR_steady(D, 0.8, 50, 30), 13.41, 0.02);
    const Tb207Conductor conductor = {3.819569e-5, 4.001952e-3, homogeneous_conductor, 3, 700};
    EXPECT_NEAR(ST_F01_CigreTB207_PJ_steady(590, conductor, 50).value / 1.0123,
                32.52 + 13.41 - 31.04, 0.02);
}

}  // namespace
}  // namespace zel
