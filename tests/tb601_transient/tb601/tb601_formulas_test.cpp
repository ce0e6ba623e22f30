#include "fakes/formulas.h"
#include "fakes/tb601_cases.h"
#include "tb601_transient/tb601/math_module.h"
#include "tb601_transient/tb601/tb601_joule.h"
#include "tb601_transient/tb601/tb601_radial.h"
#include "tb601_transient/tb601/tb601_solver.h"
#include "tb601_transient/tb601/tb601_terms.h"

namespace zel {

using nlohmann::json;

void from_json(const json& j, ResistancePoint& p) { p = {j[0], j[1]}; }

json value_of(const Tb601Term& term) {
    if (term.failure) return name_of(term.failure);
    return term.value;
}

namespace MathModule {
void from_json(const json& j, Complex& x) { x = {j[0], j[1]}; }
void to_json(json& j, const Complex& x) { j = {x.re, x.im}; }
}  // namespace MathModule

namespace {

using namespace MathModule;

// Formulas over the records start from those of 264-AL1/34-ST1A, at 600 A and 80 °C where nothing
// else stands, filled anew with some fields of the case changed.
TB601Records changed(const json& fields, double I = 600, double T = 80) {
    CalcCase c = line_264_34();
    set_fields(c, fields);
    TB601Records r = records_of(line_264_34());
    fill(r, c, 90);
    r.state.I = I;
    r.state.T = T;
    return r;
}

json params(json fields, double delta) {
    CalcCase c = line_264_34();
    set_fields(c, fields);
    const TB601Params p = records_of(c, delta).params;
    return {{"RunMarker", p.RunMarker},
            {"Ta", p.Ta},
            {"V", p.V},
            {"Delta", p.Delta},
            {"Y", p.Y},
            {"Ig", p.Ig},
            {"G", p.G},
            {"Eps", p.Eps},
            {"AlphaS", p.AlphaS},
            {"F", p.F},
            {"ConductorType", p.ConductorType},
            {"ConductorShape", p.ConductorShape},
            {"GMR", p.GMR},
            {"GMRMerker", p.GMRMerker},
            {"AluLayers", p.AluLayers},
            {"AreaOuter", p.AreaOuter},
            {"D", p.D},
            {"DCore", p.DCore},
            {"AreaCore", p.AreaCore},
            {"DWire", p.DWire},
            {"DWireCore", p.DWireCore},
            {"ROption", p.ROption},
            {"R20", p.R20},
            {"Rho20", p.Rho20},
            {"Alpha", p.Alpha},
            {"Beta", p.Beta},
            {"Tknee", p.Tknee},
            {"Lambda1", p.Lambda1},
            {"Lambda2", p.Lambda2}};
}

json joule_heating(json fields, double I, double T) {
    auto [params, state] = changed(fields, I, T);
    const ArithmeticScope arithmetic;
    const Tb601Term PJ = ST_F01_CigreTB601_PJ_steady(params, state, arithmetic);
    if (PJ.failure) return name_of(PJ.failure);
    return {{"PJ", PJ.value},
            {"KSkin", state.KSkin},
            {"KSkinRaw", state.KSkinRaw},
            {"KMag", state.KMag}};
}

double skin_effect(json fields, double T) {
    const auto [params, state] = changed(fields, 600, T);
    const ArithmeticScope apart;  // an unknown type has no number to compute with
    return ST_F06_CigreTB601_skin_effect_factor_601(params, state);
}

double solar_heating(json fields) { return ST_F02_CigreTB601_PS_steady(changed(fields).params); }

double radiation(json fields, double TSurface) {
    auto [params, state] = changed(fields);
    state.TSurface = TSurface;
    return ST_F04_CigreTB601_PR_steady(params, state);
}

json radial(json fields, double P, double T) {
    auto [params, state] = changed(fields, 600, T);
    const ArithmeticScope arithmetic;
    const auto failure =
        ST_S09_CigreTB601_Tsurface_conductor_temperature_distribution(params, state, P, arithmetic);
    if (failure) return name_of(failure);
    return {state.TCore, state.TSurface};
}

std::string heat_balance(json fields, double I, double T) {
    auto [params, state] = changed(fields, I, T);
    return name_of(ST_CigreTB601_Heat_Balance(params, state));
}

// Example A of annex E: Drake at 100 °C, air 40 °C, 0.61 m/s at 60 degrees.
constexpr Tb601Flow drake = {0.61, 60, 100, 40, 0, 0.0281, 0.0044, 9.80665, 2, 1};

json value_or_refusal(const Tb601Convection& c, double value) {
    if (c.refusal != Tb601Cause::None) return name_of(Tb601Failure{c.refusal});
    return value;
}

/// By a wind of exactly `Re`; not every ambient temperature has one.
json nusselt_across(std::int16_t type, std::int16_t shape, double DWire, double Re) {
    Tb601Flow flow = {0, 90, 80, 40, 0, 11, DWire, 0, type, shape};
    for (;; flow.Ta += 0.25) {
        flow.V = Re * tb601_convection(flow).air.nu / flow.D;
        const Tb601Convection c = tb601_convection(flow);
        if (c.Re == Re) return value_or_refusal(c, c.Nu90);
    }
}

/// By the gravity that gives exactly `X` = Gr·Pr.
json nusselt_natural(double X) {
    const auto present = [](const Tb601Flow& flow) {
        const Tb601Convection c = tb601_convection(flow);
        return c.Gr * c.air.Pr;
    };
    Tb601Flow flow = {0, 90, 80, 40, 0, 1, 0.1, 1, 2, 1};
    for (;; flow.Ta += 0.25) {
        flow.G = 1;
        flow.G = X / present(flow);
        if (present(flow) != X) continue;
        const Tb601Convection c = tb601_convection(flow);
        return value_or_refusal(c, c.Pnat / (3.141592654 * c.air.lambda * (80 - flow.Ta)));
    }
}

double angle_factor(double Delta, std::int16_t shape) {
    Tb601Flow flow = drake;
    flow.Delta = Delta;
    flow.ConductorShape = shape;
    const Tb601Convection c = tb601_convection(flow);
    return c.Nu / c.Nu90;
}

TEST(Tb601Formulas, have_the_values_of_their_rows) {
    expect_formulas("tb601_formulas", {ZEL_FORMULA(params),
                                       ZEL_FORMULA(joule_heating),
                                       ZEL_FORMULA(ST_F01_CigreTB601_Resistance),
                                       ZEL_FORMULA(skin_effect),
                                       ZEL_FORMULA(solar_heating),
                                       ZEL_FORMULA(radial),
                                       ZEL_FORMULA(nusselt_across),
                                       ZEL_FORMULA(nusselt_natural),
                                       ZEL_FORMULA(angle_factor),
                                       ZEL_FORMULA(ST_F03_CigreTB601_PC_steady),
                                       ZEL_FORMULA(radiation),
                                       ZEL_FORMULA(heat_balance),
                                       ZEL_FORMULA(sum),
                                       ZEL_FORMULA(difference),
                                       ZEL_FORMULA(product),
                                       ZEL_FORMULA(quotient),
                                       ZEL_FORMULA(real_minus_complex),
                                       ZEL_FORMULA(complex_by_real),
                                       ZEL_FORMULA(modulus),
                                       ZEL_FORMULA(power),
                                       ZEL_FORMULA(argument)});
}

TEST(Tb601Convection, of_a_colder_conductor_may_be_natural) {
    Tb601Flow cold = drake;
    cold.V = 0.05;
    cold.TSurface = 30;
    const Tb601Convection c = tb601_convection(cold);
    EXPECT_LT(c.Pnat, c.Pforced);
    EXPECT_LT(c.Pforced, 0);
}

TEST(Tb601Joule, leaves_the_factors_that_it_does_not_compute) {
    auto [params, state] = changed({{"DrahtlagenzahlLeiter_db", 3}}, 4 * 263.7);
    const ArithmeticScope arithmetic;
    const auto joule = [&, &p = params, &s = state] {
        return static_cast<float>(ST_F01_CigreTB601_PJ_steady(p, s, arithmetic).value);
    };
    (void)joule();
    state.I = 0;
    EXPECT_EQ(joule(), 0);
    EXPECT_EQ(state.KSkin, 0);
    EXPECT_EQ(state.KMag, 1.05);
    state.I = 10;
    params.ROption = resistance_by_table;
    state.table = {{{1, 20}, {2, 60}, {4, 100}}};
    EXPECT_FLOAT_EQ(joule(), 300);
    EXPECT_EQ(state.KSkin, 0);
    EXPECT_EQ(state.KMag, 1.05);
}

TEST(Tb601HeatBalance, leaves_the_last_cooling_after_a_refusal) {
    auto [params, state] = changed({{"Windgeschwindigkeit_db", 60}});
    state.terms = {1, 2, 3, 4};
    EXPECT_EQ(ST_CigreTB601_Heat_Balance(params, state).cause, Tb601Cause::RoughReynolds);
    EXPECT_NEAR(state.terms.PJ, 49.058112, 1e-5);
    EXPECT_EQ(state.terms.PC, 3);
    EXPECT_EQ(state.terms.PR, 4);
}

TEST(Tb601Params, of_the_other_resistance_option_keep_their_values) {
    TB601Records r = changed({});
    CalcCase c = line_264_34();
    set_fields(c, {{"ACDC_R_Option_Merker_db", 2},
                   {"DCR_20_db", 7},
                   {"ACR1_db", 0.5},
                   {"TACR1_db", 25},
                   {"ACR5_db", 0.7},
                   {"ACR6_db", 0.8}});
    fill(r, c, 90);
    EXPECT_EQ(r.params.R20, 0.1095e-3);
    EXPECT_EQ(r.state.table[0].ACR, 0.0005f);
    EXPECT_EQ(r.state.table[4].ACR, 0.0007f);
    EXPECT_EQ(r.state.table[5].ACR, 0.0008f);
    set_fields(c, {{"ACDC_R_Option_Merker_db", 1}, {"ACR1_db", 9}});
    fill(r, c, 90);
    EXPECT_EQ(r.params.R20, 0.007);
    EXPECT_EQ(r.state.table[0].ACR, 0.0005f);
}

}  // namespace
}  // namespace zel
