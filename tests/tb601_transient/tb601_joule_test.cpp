#include "tb601_transient/tb601_joule.h"

#include <gtest/gtest.h>

#include <cmath>

#include "fakes/tb601_cases.h"

namespace zel {
namespace {

Tb601Term joule(TB601Records& r, double I, double T) {
    r.state.I = I;
    r.state.T = T;
    const ArithmeticScope arithmetic;
    return ST_F01_CigreTB601_PJ_steady(r.params, r.state, arithmetic);
}

TEST(Tb601Params, are_filled_in_si_units) {
    CalcCase c = line_264_34();
    c.Hoehe_ueber_NN_db = typed(700);
    c.Emissionsverhaeltnis_db = typed(0.5);
    c.conductor_shape_db = 2;
    c.GMR_Merker_db = 1;
    c.DrahtdurchmesserTraeger_db = typed(2.49);
    c.GMR_db = typed(9.1);
    c.T_Koeff_DC_Resist_Leiter_quadrat_db = typed(8);
    c.Gravi_merker1_db = 2;
    c.KernquerschnittTraeger_db = typed(34.1);
    const TB601Params p = records_of(c, 60).params;
    EXPECT_EQ(p.RunMarker, 1);
    EXPECT_EQ(p.Y, 700);
    EXPECT_EQ(p.Eps, 0.5);
    EXPECT_EQ(p.AlphaS, 0.6);
    EXPECT_EQ(p.ConductorShape, 2);
    EXPECT_EQ(p.GMRMerker, 1);
    EXPECT_DOUBLE_EQ(p.DWireCore, 0.00249);
    EXPECT_EQ(p.Delta, 60);
    EXPECT_EQ(p.G, 9.78);
    EXPECT_EQ(p.GMR, 0.0091f);
    EXPECT_DOUBLE_EQ(p.D, 0.0224);
    EXPECT_DOUBLE_EQ(p.DWire, 0.00374);
    EXPECT_EQ(p.AreaOuter, 263.7);
    EXPECT_DOUBLE_EQ(p.AreaCore, 0.0341);
    EXPECT_DOUBLE_EQ(p.R20, 0.1095e-3);
    EXPECT_DOUBLE_EQ(p.Rho20, 28.264e-9);
    EXPECT_DOUBLE_EQ(p.Beta, 8e-7);
    // 4.03 in 32 bits is 4.0300002098...
    EXPECT_DOUBLE_EQ(p.Alpha, 0.0040300002098083496);
}

TEST(Tb601Params, of_the_other_resistance_option_keep_their_values) {
    TB601Records r = records_of(line_264_34());
    CalcCase c = line_264_34();
    c.ACDC_R_Option_Merker_db = resistance_by_table;
    c.DCR_20_db = typed(7);
    c.ACR1_db = typed(0.5);
    c.TACR1_db = typed(25);
    c.ACR5_db = typed(0.7);
    c.ACR6_db = typed(0.8);
    fill(r, c, 90);
    EXPECT_EQ(r.state.table[4].ACR, 0.0007f);
    EXPECT_EQ(r.state.table[5].ACR, 0.0008f);
    EXPECT_EQ(r.params.R20, 0.1095e-3);
    EXPECT_EQ(r.state.table[0].ACR, 0.0005f);
    c.ACDC_R_Option_Merker_db = resistance_by_formula;
    c.ACR1_db = typed(9);
    fill(r, c, 90);
    EXPECT_EQ(r.params.R20, 0.007);
    EXPECT_EQ(r.state.table[0].ACR, 0.0005f);
    EXPECT_EQ(records_of(c).state.table[0].ACR, 0);
}

// R20 · (1 + 4.03e-3 · 60) = 1.3597710e-4 ohm/m, and k = 1.00217265 for 264-AL1/34-ST1A.
TEST(Tb601Joule, follows_the_band_of_the_frequency) {
    struct Row {
        double F, PJ, KSkin;
    };
    constexpr Row rows[] = {{-1, 0, 0},
                            {0, 48.951756496, 0},
                            {0.49, 48.951756496, 0},
                            {0.5, 0, 0},
                            {0.51, 48.951766506, 1.0000002},
                            {50, 49.058111787, 1.002172655},
                            {60.9, 49.109247347, 1.003217267},
                            {61, 0, 0}};
    for (const auto& [F, PJ, KSkin] : rows) {
        TB601Records r = records_of(line_264_34());
        r.params.F = F;
        EXPECT_NEAR(joule(r, 600, 80).value, PJ, 5e-6) << F;
        EXPECT_NEAR(r.state.KSkin, KSkin, 2e-7) << F;
        EXPECT_EQ(r.state.KSkinRaw, r.state.KSkin);
    }
}

TEST(Tb601Joule, of_no_current_is_0_and_leaves_the_magnetic_factor) {
    TB601Records r = records_of(line_264_34());
    r.params.AluLayers = 3;
    (void)joule(r, 4 * 263.7, 80);
    EXPECT_EQ(joule(r, 0, 80).value, 0);
    EXPECT_EQ(r.state.KSkin, 0);
    EXPECT_EQ(r.state.KMag, 1.05);
    r.params.AluLayers = 1;
    EXPECT_FALSE(joule(r, 0, 80).failure);
}

TEST(Tb601Joule, heats_a_steel_core_by_layers_and_current_density) {
    struct Row {
        std::int16_t type, layers;
        double J, KMag;
    };
    constexpr Row rows[] = {{2, 2, 4, 1},
                            {2, 4, 4, 1},
                            {1, 3, 4, 1},
                            {4, 3, 4, 1},
                            {2, 3, 1.4999, 1},
                            {2, 3, 1.5, 0},
                            {2, 3, 1.50001, 1.0000002},
                            {2, 3, 2.75, 1.025},
                            {2, 3, 4, 1.05},
                            {2, 3, 4.0001, 1.05}};
    for (const auto& [type, layers, J, KMag] : rows) {
        TB601Records r = records_of(line_264_34());
        r.params.ConductorType = type;
        r.params.AluLayers = layers;
        r.params.AreaOuter = 256;  // a power of two gives J back exactly
        const double PJ = joule(r, 256 * J, 80).value;
        EXPECT_NEAR(r.state.KMag, KMag, 1e-10) << type << ' ' << J;
        EXPECT_EQ(PJ == 0, KMag == 0);
    }
    TB601Records r = records_of(line_264_34());
    r.params.AluLayers = 1;
    EXPECT_EQ(joule(r, 100, 80).failure.cause, Tb601Cause::SingleLayer);
    for (const double F : {0.0, 0.5}) {
        r.params.F = F;
        EXPECT_FALSE(joule(r, 100, 80).failure);
    }
}

TEST(Tb601Joule, of_an_unknown_resistance_option_is_0_but_at_direct_current) {
    TB601Records r = records_of(line_264_34());
    r.params.ROption = 3;
    EXPECT_EQ(joule(r, 600, 80).value, 0);
    r.params.F = 0;
    EXPECT_NEAR(joule(r, 600, 80).value, 48.951756, 1e-6);
}

constexpr ResistanceTable whole = {{{1, 20}, {2, 60}, {4, 100}, {8, 120}, {16, 140}, {32, 160}}};

TEST(Tb601Resistance, lies_on_the_line_through_its_neighbours) {
    struct Row {
        double T;
        float R;
    };
    constexpr Row rows[] = {{-20, 0},  {10, 0.75}, {20, 1},     {59.9, 1.9975f}, {60, 2},
                            {80, 3},   {100, 4},   {119, 7.8f}, {120, 8},        {139, 15.6f},
                            {140, 16}, {150, 24},  {160, 32},   {170, 40}};
    for (const auto& [T, R] : rows)
        EXPECT_NEAR(ST_F01_CigreTB601_Resistance(whole, T), R, 2e-6 * R + 1e-7) << T;
}

TEST(Tb601Resistance, goes_on_beyond_the_last_valid_point) {
    struct Row {
        std::size_t point;  // whose temperature is replaced
        float TACR;
        double T;
        float R;
    };
    constexpr Row rows[] = {{2, 0, 10, 0.75f},  {2, 0, 170, 4.75f}, {3, 0, 170, 7.5f},
                            {4, 0, 170, 18},    {5, 0, 170, 28},    {2, 60, 90, 2.75f},
                            {2, 50, 90, 2.75f}, {3, 99, 130, 5.5f}, {5, 140, 139, 15.6f},
                            {5, 140, 140, 0},   {5, 130, 150, 0},   {5, 140.5f, 141, 48}};
    for (const auto& [point, TACR, T, R] : rows) {
        ResistanceTable table = whole;
        table[point].TACR = TACR;
        EXPECT_NEAR(ST_F01_CigreTB601_Resistance(table, T), R, 2e-6 * R) << point << ' ' << TACR;
    }
}

TEST(Tb601Resistance, ends_at_a_second_point_of_zero_or_one_that_does_not_rise) {
    for (const float second : {0.0f, -30.0f}) {
        const ResistanceTable table = {{{0.10f, -20}, {0.11f, second}, {0.20f, 100}, {0.25f, 120}}};
        const float slope = 0.01f / (second + 20);
        EXPECT_NEAR(ST_F01_CigreTB601_Resistance(table, 80), 0.10f + slope * 100, 1e-6) << second;
    }
}

TEST(Tb601Joule, by_table_leaves_the_factors) {
    TB601Records r = records_of(line_264_34());
    r.params.ROption = resistance_by_table;
    r.state.table = whole;
    r.state.KMag = 1.01;
    EXPECT_FLOAT_EQ(static_cast<float>(joule(r, 10, 80).value), 300);
    EXPECT_EQ(r.state.KSkin, 0);
    EXPECT_EQ(r.state.KMag, 1.01);
}

TEST(Tb601SkinEffect, takes_core_or_bore_out_of_the_solid_conductor) {
    struct Row {
        std::int16_t type, GMRMerker;
        double k;
    };
    constexpr Row rows[] = {{1, 0, 1.00379968}, {2, 0, 1.00217266}, {4, 0, 1.00217266},
                            {3, 1, 1.00683974}, {2, 1, 1.00214619}, {2, 2, 1.00217266},
                            {5, 0, 0}};
    for (const auto& [type, merker, k] : rows) {
        TB601Records r = records_of(line_264_34());
        r.params.ConductorType = type;
        r.params.GMRMerker = merker;
        r.params.GMR = 0.0087f;
        r.state.T = 80;
        EXPECT_NEAR(ST_F06_CigreTB601_skin_effect_factor_601(r.params, r.state), k, 2e-7) << type;
    }
}

// Against (ka/2) · J0(ka) / J1(ka), ka = (1 - j) De / (2 delta), in 30 digits. Four terms serve up
// to about four depths of penetration; from six on they are far off.
// To the last bit: each 32-bit rounding (De, Re Z, k) shows in one of them.
TEST(Tb601SkinEffect, is_rounded_to_single_precision_in_its_places) {
    const struct {
        std::int16_t type;
        double factor;
    } rows[] = {{1, 0x1.00f904p+0}, {2, 0x1.008e631b3c7a3p+0}, {3, 0x1.01c03fb6a0ea1p+0}};
    for (const auto& [type, factor] : rows) {
        TB601Records r = records_of(line_264_34());
        r.params.ConductorType = type;
        r.state.T = 80;
        EXPECT_EQ(ST_F06_CigreTB601_skin_effect_factor_601(r.params, r.state), factor) << type;
    }
}

TEST(Tb601SkinEffect, agrees_with_the_whole_bessel_series_in_its_range) {
    struct Row {
        double De_by_delta, k, tolerance;
    };
    constexpr Row rows[] = {{0.5, 1.000081375, 2e-7}, {1, 1.001300729, 5e-7},
                            {2, 1.020492389, 1e-4},   {3, 1.097328246, 2e-3},
                            {4, 1.264642906, 1e-2},   {5, 1.505039429, 1e-2}};
    TB601Records r = records_of(line_264_34());
    r.params.ConductorType = 1;
    r.params.GMRMerker = 1;
    r.state.T = 20;
    const double delta = 503.3 * std::sqrt(28.264e-9 / 50);
    for (const auto& [ratio, k, tolerance] : rows) {
        r.params.GMR = static_cast<float>(ratio * delta / 2);
        EXPECT_NEAR(ST_F06_CigreTB601_skin_effect_factor_601(r.params, r.state), k, tolerance * k);
    }
    r.params.GMR = static_cast<float>(8 * delta / 2);
    EXPECT_NEAR(ST_F06_CigreTB601_skin_effect_factor_601(r.params, r.state), 3.27977, 1e-5);
}

}  // namespace
}  // namespace zel
