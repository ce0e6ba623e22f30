#include "tb601_transient/tb601_terms.h"

#include <gtest/gtest.h>

#include "fakes/tb601_cases.h"

namespace zel {
namespace {

// Example A of annex E: Drake at 100 °C, air 40 °C, 0.61 m/s at 60 degrees.
constexpr Tb601Flow drake = {0.61, 60, 100, 40, 0, 0.0281, 0.0044, 9.80665, 2, 1};

Tb601Term PC(const Tb601Flow& f) {
    return ST_F03_CigreTB601_PC_steady(f.V, f.Delta, f.TSurface, f.Ta, f.Y, f.D, f.DWire, f.G,
                                       f.ConductorType, f.ConductorShape);
}

TEST(Tb601Convection, passes_through_the_figures_of_the_published_example) {
    const Tb601Convection c = tb601_convection(drake);
    EXPECT_NEAR(c.air.lambda, 0.0286, 5e-5);
    EXPECT_NEAR(c.air.mu, 20.384e-6, 5e-10);
    EXPECT_NEAR(c.Re, 865, 0.5);
    EXPECT_NEAR(c.Nu90, 15.495, 1e-3);  // 15.4955: printed cut, not rounded
    EXPECT_NEAR(c.Nu, 14.40, 5e-3);
    EXPECT_NEAR(c.Gr, 96.95e3, 60);  // the example takes 273 K for 0 °C: 0.05 %
    EXPECT_NEAR(c.air.Pr, 0.716, 5e-4);
    EXPECT_NEAR(c.Pforced, 77.6, 0.1);  // 77.67: printed cut
    EXPECT_NEAR(c.Pnat, 42.0, 0.05);
}

/// `flow` with the wind that gives exactly `Re`; not every ambient temperature has one.
Tb601Flow at_reynolds(Tb601Flow flow, double Re) {
    for (;; flow.Ta += 0.25) {
        flow.V = Re * tb601_convection(flow).air.nu / flow.D;
        if (tb601_convection(flow).Re == Re) return flow;
    }
}

/// `flow` with the gravity that gives exactly `X` = Gr·Pr.
Tb601Flow at_gr_pr(Tb601Flow flow, double X) {
    const auto present = [&] { return tb601_convection(flow).Gr * tb601_convection(flow).air.Pr; };
    for (;; flow.Ta += 0.25) {
        flow.G = 1;
        flow.G = X / present();
        if (present() == X) return flow;
    }
}

TEST(Tb601Convection, chooses_the_band_by_surface_roughness_and_reynolds_number) {
    using enum Tb601Cause;
    struct Row {
        std::int16_t type, shape;
        double DWire;  // of D = 11 m: 1 gives a roughness of exactly 0.05
        double Re, Nu90;
        Tb601Cause refusal = None;
    };
    constexpr Row rows[] = {
        {3, 1, 1, 20, 2.3903070},
        {3, 1, 1, 4999.99, 32.2020128},
        {1, 2, 2, 5000, 32.4870090},
        {2, 2, 1, 49999.9, 139.543361},
        {5, 2, 1, 50000, 139.003238},
        {4, 2, 1, 199999, 429.635327},
        {3, 0, 1, 200000, 0},
        {3, 1, 1, 200000.1, 0, SmoothReynolds},
        {1, 1, 1, 2649.99, 26.2546398},
        {4, 1, 2, 2649.99, 26.2546398},
        {2, 1, 1, 2650, 26.1417490},
        {2, 1, 1, 50000, 167.829390},
        {2, 1, 1, 50000.1, 0, StrandedReynolds},
        {2, 1, 1.001, 2650, 26.2928665},
        {4, 1, 2, 50000, 275.687605},
        {1, 1, 2, 50000.1, 0, RoughReynolds},
        {2, 0, 2, 60000, 0},
        {5, 1, 2, 1000, 0},
    };
    for (const auto& [type, shape, DWire, Re, Nu90, refusal] : rows) {
        const Tb601Flow flow = {0, 90, 80, 40, 0, 11, DWire, 0, type, shape};
        const Tb601Convection c = tb601_convection(at_reynolds(flow, Re));
        EXPECT_NEAR(c.Nu90, Nu90, 1e-8 * Nu90 + 1e-7) << type << ' ' << shape << ' ' << Re;
        EXPECT_EQ(c.refusal, refusal) << Re;
    }
}

TEST(Tb601Convection, chooses_the_natural_band_by_gr_pr) {
    struct Row {
        double X, Nunat;
    };
    constexpr Row rows[] = {{0.5, 0.92055074},         {99.99, 2.01647919}, {100, 2.02031424},
                            {9999.9, 4.8019553},       {10000, 4.8},        {1e7, 26.9923836},
                            {1.0000001e7, 26.7861334}, {1e12, 1238.53993}};
    constexpr Tb601Flow still = {0, 90, 80, 40, 0, 1, 0.1, 1, 2, 1};
    for (const auto& [X, Nunat] : rows) {
        const Tb601Flow flow = at_gr_pr(still, X);
        const Tb601Convection c = tb601_convection(flow);
        const double per_nusselt = 3.141592654 * c.air.lambda * (80 - flow.Ta);
        EXPECT_NEAR(c.Pnat / per_nusselt, Nunat, 2e-8 * Nunat) << X;
    }
    EXPECT_EQ(tb601_convection(at_gr_pr(still, 1.0000001e12)).refusal,
              Tb601Cause::GrashofPrandtlTooLarge);
}

TEST(Tb601Convection, weakens_with_the_angle) {
    struct Row {
        double Delta, stranded, smooth;
    };
    constexpr Row rows[] = {{0, 0.42, 0.399277197},
                            {0.5, 0.424060861, 0.399674487},
                            {359.5, 0.424060861, 0.399674487},
                            {24, 0.677375543, 0.679494036},
                            {24.001, 0.678122157, 0.679504894},
                            {45, 0.844584852, 0.858827331},
                            {89.999, 1, 1},
                            {90, 1, 1},
                            {155.999, 0.678122157, 0.679504894},
                            {156, 0.677375543, 0.679494036},
                            {180, 0.42, 0.399277197},
                            {204, 0.677375543, 0.679494036},
                            {204.001, 0.678122157, 0.679504894},
                            {270, 1, 1},
                            {335.999, 0.678122157, 0.679504894},
                            {336, 0.677375543, 0.679494036},
                            {360, 0.42, 0.399277197},
                            {-10, 0.539986173, 0.501498371},
                            {400, 0.809662615, 0.824039669}};
    for (const auto& [Delta, stranded, smooth] : rows) {
        Tb601Flow flow = drake;
        flow.Delta = Delta;
        const auto factor = [&] { return tb601_convection(flow).Nu / tb601_convection(flow).Nu90; };
        EXPECT_NEAR(factor(), stranded, 1e-8) << Delta;
        flow.ConductorShape = smooth_surface;
        EXPECT_NEAR(factor(), smooth, 1e-8) << Delta;
    }
}

TEST(Tb601Convection, is_the_larger_of_forced_and_natural) {
    struct Row {
        double V, TSurface, Y, PC;
    };
    constexpr Row rows[] = {
        {-1, 100, 0, 42.0073638},
        {0, 100, 0, 42.0073638},
        {0.05, 100, 0, 42.0073638},
        {0.61, 100, 0, 77.6678221},
        {0.61, 100, 1600, 70.8962568},
        {1, 100, 0, 98.0281428},
        {1.01, 100, 0, 98.4886403},
        {0, 40, 0, 0},
        {2, 40, 0, 0},
        {1, 30, 0, -4.628031521514936},
        {1.01, 30, 0, 0},  // the absent natural term is above a forced one below 0
    };
    for (const auto& [V, TSurface, Y, expected] : rows) {
        Tb601Flow flow = drake;
        flow.V = V;
        flow.TSurface = TSurface;
        flow.Y = Y;
        // pi of ten digits: 1.3e-10 of the value
        EXPECT_NEAR(PC(flow).value, expected, 1e-7) << V << ' ' << TSurface;
    }
    Tb601Flow cold = drake;
    cold.V = 0.05;
    cold.TSurface = 30;
    EXPECT_LT(tb601_convection(cold).Pnat, tb601_convection(cold).Pforced);
    EXPECT_LT(PC(cold).value, 0);
}

TEST(Tb601Terms, of_sun_and_radiation_are_those_of_the_published_example) {
    TB601Records r;
    r.params.D = 0.0281;
    r.params.AlphaS = r.params.Eps = 0.8;
    r.params.Ig = 1210;
    r.params.Ta = 40;
    EXPECT_NEAR(ST_F02_CigreTB601_PS_steady(r.params), 27.2008, 1e-12);
    r.state.TSurface = 100;
    EXPECT_NEAR(ST_F04_CigreTB601_PR_steady(r.params, r.state), 39.10813607, 1e-7);
    r.state.TSurface = 20;
    EXPECT_NEAR(ST_F04_CigreTB601_PR_steady(r.params, r.state), -8.92960224, 1e-7);
    r.state.TSurface = 40;
    EXPECT_EQ(ST_F04_CigreTB601_PR_steady(r.params, r.state), 0);
}

}  // namespace
}  // namespace zel
