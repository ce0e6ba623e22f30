#include "short_circuit/modul_iec865.h"

#include <gtest/gtest.h>

#include <cmath>

#include "fakes/short_circuit_cases.h"
#include "short_circuit/conductor_materials.h"

// Unless another source is named, expected numbers were worked from the formulas with 50 decimal
// digits, typed numbers rounded to 32 bits.

namespace zel {
namespace {

using C = ShortCircuitCase;

void expect_near(double actual, double expected) {
    EXPECT_NEAR(actual, expected, 1e-12 * std::abs(expected));
}

struct FactorM {
    double T, f, kappa, m;
};
constexpr FactorM factors_m[] = {
    {1, 50, 1.8, 0.0448142011772455},      {0.1, 50, 1.8, 0.4429752861475526},
    {0.1, 50, 1.95, 1.2506782519064725},   {0.02, 60, 1.02, 0.10650925701942107},
    {0.01, 16.7, 1.5, 1.6008792662860183}, {0.5, 50, 1.6, 0.03915230377942435},
};

TEST(FactorM, is_as_worked_by_hand) {
    for (const auto& [T, f, kappa, m] : factors_m)
        EXPECT_NEAR(KS_Faktor_m(T, f, kappa), m, 1e-12) << T << ' ' << f << ' ' << kappa;
}

TEST(FactorM, tends_to_2_for_a_short_flow_without_damping) {
    EXPECT_NEAR(KS_Faktor_m(0.001, 50, 1.9999), 2, 1e-4);
}

struct FactorN {
    double T, IK2, IK, n;
};
constexpr FactorN factors_n[] = {
    {0.1, 25, 8, 0.8229227151330578},   {1, 25, 8, 0.42389400563155505},
    {0.5, 10, 5, 0.7199121555585235},   {3, 20, 10, 0.46070683241023525},
    {0.05, 50, 10, 0.8293065283063248}, {5, 12, 3, 0.1401175877218645},
    {1, 9, 10, 0.993974545371706},  // Ik'' below Ik is not refused
};

TEST(FactorN, is_as_worked_by_hand_near_the_generator) {
    for (const auto& [T, IK2, IK, n] : factors_n)
        EXPECT_NEAR(KS_Faktor_n(T, generator_near, IK2, IK), n, 1e-12) << T << ' ' << IK2;
}

TEST(FactorN, is_1_where_the_current_does_not_decay) {
    for (const double T : {0.001, 0.1, 1.0, 1000.0}) {
        EXPECT_EQ(KS_Faktor_n(T, generator_near, 12.5, 12.5), 1);
        EXPECT_EQ(KS_Faktor_n(T, generator_far, 12.5, 0), 1) << "Ik is not read";
        EXPECT_EQ(KS_Faktor_n(T, 0, 12.5, 12.5), 0) << "no choice";
    }
}

TEST(FactorN, falls_from_1_to_the_square_of_the_steady_state_share) {
    EXPECT_NEAR(KS_Faktor_n(1e-6, generator_near, 20, 8), 1, 1e-4);
    EXPECT_NEAR(KS_Faktor_n(1e6, generator_near, 20, 8), 0.16, 1e-4);
}

TEST(Auswertung, copper_far_from_the_generator) {
    const ShortCircuitResult result = KS_Auswertung(copper_far().content());
    expect_near(result.flows[0].m, 0.04481418920677226);
    EXPECT_EQ(result.flows[0].n, 1);
    expect_near(result.flows[0].I_th, 20.443230558860037);
    // One flow stands for the whole: T_k is T_k1.
    expect_near(result.I_th, result.flows[0].I_th);
    EXPECT_EQ(result.T_k, 1);
    expect_near(result.K, 126.59268726952192);
    expect_near(result.S_thr, 126.59268726952192);
    expect_near(result.S_zul, 126.59268726952192);
    expect_near(result.S_th, 110.50394896681102);
    EXPECT_EQ(result.verdict_Leiter, withstands);
    EXPECT_EQ(result.verdict_Betriebsmittel, 0);
    for (const std::size_t beyond : {1U, 2U}) {
        EXPECT_EQ(result.flows[beyond].m, 0);
        EXPECT_EQ(result.flows[beyond].n, 0);
        EXPECT_EQ(result.flows[beyond].I_th, 0);
    }
}

TEST(Auswertung, aluminium_near_the_generator_with_three_flows) {
    const ShortCircuitResult result = KS_Auswertung(aluminium_near().content());
    constexpr CurrentFlow flows[] = {{30.949067235311986, 0.19575437385172637, 0.8685175847436758},
                                     {26.52268212816399, 0.06525384211542366, 0.7163602326308314},
                                     {23.875558763042687, 0.03262692105771342, 0.6007534192172914}};
    for (std::size_t i = 0; i < flow_count; ++i) {
        expect_near(result.flows[i].I_th, flows[i].I_th);
        expect_near(result.flows[i].m, flows[i].m);
        expect_near(result.flows[i].n, flows[i].n);
    }
    expect_near(result.I_th, 25.472449027060005);
    expect_near(result.T_k, 1.000000037252903);  // the sum of durations held in 32 bits
    expect_near(result.K, 83.63294931805682);
    expect_near(result.S_zul, 83.63294776027178);
    expect_near(result.S_th, 106.13520427941668);
    EXPECT_EQ(result.verdict_Leiter, does_not_withstand);
}

TEST(Auswertung, flow_beyond_the_number_of_flows_counts_for_nothing) {
    // "nein" chosen once more opens the boxes of all flows, whatever their number is.
    ShortCircuitForm form = copper_far();
    form.choose(&C::Strombegrenzschalter_ks, without_limiter);
    form.change(&C::Tk2, "5", {LangId::English, DecimalSeparator::Point});
    ASSERT_EQ(form.content().Tk2.value, 5);
    EXPECT_EQ(KS_Auswertung(form.content()).T_k, 1);
    EXPECT_EQ(KS_Auswertung(form.content()).I_th, KS_Auswertung(copper_far().content()).I_th);
}

TEST(Auswertung, two_flows_of_one_duration_give_the_current_of_one) {
    ShortCircuitTyping typing{copper_far()};
    typing.choose(&C::Anzahl_KS_fluesse, 2).type(&C::Tk1, "0.5").type(&C::Tk2, "0.5");
    const ShortCircuitResult two = KS_Auswertung(typing.form.content());
    EXPECT_EQ(two.T_k, 1);
    EXPECT_EQ(two.flows[0].I_th, two.flows[1].I_th);
    expect_near(two.I_th, two.flows[0].I_th);
}

TEST(Auswertung, given_current_and_duration_are_copied) {
    const ShortCircuitResult result = KS_Auswertung(limited_equipment().content());
    EXPECT_EQ(result.I_th, 16);
    EXPECT_EQ(result.T_k, 3);
    EXPECT_EQ(result.flows[0].m, 0);
    EXPECT_EQ(result.K, 0);
    EXPECT_EQ(result.verdict_Leiter, 0);
    // 25 kA for 1 s are 25/sqrt(3) = 14.43 kA for 3 s.
    EXPECT_EQ(result.verdict_Betriebsmittel, does_not_withstand);
}

struct EquipmentRow {
    const char* Ith;
    const char* T_k;
    std::int16_t verdict;
};
// Rated short time 1 s, rated current 25 kA.
constexpr EquipmentRow equipment_rows[] = {
    {"25", "0.5", withstands},
    {"25", "1", withstands},  // both at their limits
    {"25.001", "1", does_not_withstand},
    {"25", "0.001", withstands},
    {"25.001", "0.001", does_not_withstand},  // a short flow is no licence for more current
    {"12.5", "4", withstands},                // 25·sqrt(1/4) = 12.5 exactly
    {"12.501", "4", does_not_withstand},
};

TEST(Auswertung, equipment_is_judged_on_both_sides_of_its_rated_short_time) {
    for (const auto& [Ith, T_k, verdict] : equipment_rows) {
        ShortCircuitTyping typing{limited_equipment()};
        typing.type(&C::Ith, Ith).type(&C::T_k, T_k);
        EXPECT_EQ(KS_Auswertung(typing.form.content()).verdict_Betriebsmittel, verdict)
            << Ith << " kA " << T_k << " s";
    }
}

TEST(Auswertung, conductor_that_just_reaches_its_limit_withstands) {
    // Both densities are 0: K is 0 without a rise of temperature, and so is a current of 0.
    C c = copper_far().content();
    c.theta_e = c.theta_b;
    c.IK2 = {"0", 0};
    const ShortCircuitResult result = KS_Auswertung(c);
    EXPECT_EQ(result.S_th, result.S_zul);
    EXPECT_EQ(result.verdict_Leiter, withstands);
}

TEST(Auswertung, rated_short_time_cancels_for_a_conductor) {
    ShortCircuitTyping typing{copper_far()};
    typing.type(&C::Tkr, "4");
    const ShortCircuitResult result = KS_Auswertung(typing.form.content());
    expect_near(result.S_thr, 126.59268726952192 / 2);
    expect_near(result.S_zul, 126.59268726952192);
}

struct MaterialFactors {
    std::int16_t index;
    double K_80_200;  // A·s^0.5/mm², from 80 to 200 °C
    double K_20_300;  // from 20 to 300 °C; 0 where it was not worked
};
// The constants of materials 1 to 3 are those of EN 60865-1 for bare conductors.
constexpr MaterialFactors material_factors[] = {
    {1, 126.59268726952192, 191.801794347608},
    {2, 83.63294931805682, 126.7367136682592},
    {3, 46.377770567493066, 70.35487232991744},
    {4, 58.29709618589707, 0},
    {5, 65.62175641511722, 0},
    {6, 67.75920062171672, 0},
    {7, 74.48322654148886, 0},
};

double factor_K(std::int16_t material, const char* theta_b, const char* theta_e) {
    ShortCircuitTyping typing{copper_far()};
    typing.choose(&C::Leitermaterial_ks, material)
        .type(&C::theta_b, theta_b)
        .type(&C::theta_e, theta_e);
    return KS_Auswertung(typing.form.content()).K;
}

TEST(FactorK, of_all_materials) {
    ASSERT_EQ(std::size(material_factors) + 1, conductor_materials().size());
    for (const auto& [index, K_80_200, K_20_300] : material_factors) {
        expect_near(factor_K(index, "80", "200"), K_80_200);
        if (K_20_300 != 0) expect_near(factor_K(index, "20", "300"), K_20_300);
    }
}

TEST(FactorK, of_copper_follows_the_32_bits_of_the_typed_coefficient) {
    C c = copper_far().content();
    const double parsed = KS_Auswertung(c).K;
    c.Tk20_ks.value = 0.0039;
    const double exact = std::sqrt(390 * 56e6 * 8900 / 0.0039 * std::log(1.702 / 1.234)) / 1e6;
    EXPECT_NEAR(KS_Auswertung(c).K, exact, 1e-9);
    EXPECT_NEAR(exact, 126.6, 0.05);
    EXPECT_NE(parsed, exact);
    EXPECT_NEAR(parsed, exact, 1e-6);
}

}  // namespace
}  // namespace zel
