#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "fakes/short_circuit_cases.h"
#include "platform/arithmetic_fault.h"
#include "short_circuit/short_circuit_fields.h"
#include "short_circuit/short_circuit_run.h"

namespace zel {
namespace {

using C = ShortCircuitCase;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

struct FaultRow {
    const char* what;
    ShortCircuitForm form;
    KsKey focus;
    int page;
    const char* named;  // the input, in the line
};

KsTyping conductor() { return KsTyping{copper_far()}; }
KsTyping judged_equipment() { return KsTyping{limited_equipment()}; }

const FaultRow fault_rows[] = {
    {"kappa 2", conductor().type(&C::Kappa, "2").form, &C::Kappa, 0, "Faktor kappa"},
    {"frequency 0", conductor().type(&C::Frequenz_ks, "0").form, &C::Frequenz_ks, 0, "Frequenz"},
    {"overflow by a negative frequency",
     conductor().type(&C::Frequenz_ks, "-50").type(&C::Tk1, "60").form, &C::Frequenz_ks, 0,
     "Frequenz"},
    {"n far below 0", KsTyping{aluminium_near()}.type(&C::IK2, "0.01").type(&C::IK, "1000").form,
     &C::IK, 0, "Dauerkurzschlußwechselstrom"},
    {"equipment with a negative rated time", judged_equipment().type(&C::Tkr, "-1").form, &C::Tkr,
     0, "T_kr"},
    {"coefficient 0", conductor().type(&C::Tk20_ks, "0").form, &C::Tk20_ks, 1,
     "Temperaturkoeffizient"},
    {"g_b 0", conductor().type(&C::Tk20_ks, "0.0125").type(&C::theta_b, "-60").form, &C::theta_b, 0,
     "theta_b"},
    {"g_b and g_e below 0",
     conductor().type(&C::Tk20_ks, "0.1").type(&C::theta_b, "-50").type(&C::theta_e, "-55").form,
     &C::theta_b, 0, "theta_b"},
    {"end below start", conductor().type(&C::theta_e, "79.9").form, &C::theta_e, 0, "theta_e"},
    {"rated time 0", conductor().type(&C::Tkr, "0").form, &C::Tkr, 0, "T_kr"},
    {"rated time negative", conductor().type(&C::Tkr, "-1").form, &C::Tkr, 0, "T_kr"},
    {"section 0", conductor().type(&C::A_Leiter, "0").form, &C::A_Leiter, 1,
     "Leitermaterialquerschnitt"},
    {"section negative", conductor().type(&C::A_Leiter, "-185").form, &C::A_Leiter, 1,
     "Leitermaterialquerschnitt"},
};

TEST(ArithmeticFaults, are_refused_by_one_line_that_names_the_input) {
    for (const auto& [what, form, focus, page, named] : fault_rows) {
        EXPECT_FALSE(first_refusal(form.content())) << what << ": the checks let it through";
        const ShortCircuitRun run = RunShortCircuit(form.content(), DecimalSeparator::Point);
        ASSERT_TRUE(run.refusal) << what;
        EXPECT_EQ(run.refusal->box.title, " Fehlerhafte Eingabe") << what;
        EXPECT_EQ(run.refusal->box.icon, Icon::Stop) << what;
        ASSERT_THAT(run.refusal->box.lines, SizeIs(1)) << what;
        EXPECT_THAT(run.refusal->box.lines[0], HasSubstr(named)) << what;
        EXPECT_EQ(run.refusal->focus, focus) << what << name_of(run.refusal->focus);
        EXPECT_EQ(run.refusal->page, page) << what;
        EXPECT_EQ(run.result.I_th, 0) << what << ": nothing half computed";
        EXPECT_THAT(run.page.groups, IsEmpty()) << what;
    }
}

TEST(ArithmeticFaults, what_is_odd_but_sound_is_calculated) {
    // No rise of temperature: nothing is admissible.
    const auto cold = RunShortCircuit(conductor().type(&C::theta_e, "80").form.content(),
                                      DecimalSeparator::Point);
    ASSERT_FALSE(cold.refusal);
    EXPECT_EQ(cold.result.S_zul, 0);
    EXPECT_EQ(cold.result.verdict_Leiter, does_not_withstand);
    // Equipment without a rated time carries nothing for longer.
    const auto never = RunShortCircuit(judged_equipment().type(&C::Tkr, "0").form.content(),
                                       DecimalSeparator::Point);
    ASSERT_FALSE(never.refusal);
    EXPECT_EQ(never.result.verdict_Betriebsmittel, does_not_withstand);
    // Kappa and frequency are not read where the current is given.
    EXPECT_FALSE(RunShortCircuit(judged_equipment().type(&C::Frequenz_ks, "0").form.content(),
                                 DecimalSeparator::Point)
                     .refusal);
}

// Every box at the ends of what it takes, two at a time: what is not refused meets no fault.
TEST(ArithmeticFaults, none_is_left_in_what_passes) {
    constexpr struct {
        KsBox box;
        const char* texts[5];
    } ends[] = {
        {&C::Frequenz_ks, {"-99", "-1e-30", "1e-30", "16.7", "99"}},
        {&C::IK2, {"0.01", "1", "20", "999", "1000"}},
        {&C::IK, {"0.01", "1", "20", "999", "1000"}},
        {&C::Kappa, {"1.02", "1.5", "1.999", "1.9999999", "2"}},
        {&C::Tk1, {"0.001", "0.1", "1", "60", "1000"}},
        {&C::Tkr, {"-1000", "0", "1e-30", "1", "1000"}},
        {&C::theta_b, {"-60", "-59.9", "0", "80", "500"}},
        {&C::theta_e, {"-60", "-59.9", "0", "80", "500"}},
        {&C::A_Leiter, {"-1", "0", "1e-30", "240", "1e30"}},
        {&C::waermekapaz, {"0", "1e-30", "390", "4183", "5000"}},
        {&C::Tk20_ks, {"0", "1e-30", "0.0039", "0.0125", "0.1"}},
    };
    int passed = 0;
    for (const auto& one : ends)
        for (const auto& other : ends)
            for (const char* text : one.texts)
                for (const char* second : other.texts) {
                    KsTyping typing{aluminium_near()};
                    typing.type(one.box, text).type(other.box, second);
                    const ArithmeticScope watch;
                    const auto run =
                        RunShortCircuit(typing.form.content(), DecimalSeparator::Point);
                    if (run.refusal) continue;
                    ++passed;
                    const ArithmeticScope clean;
                    const ShortCircuitResult result = KS_Auswertung(typing.form.content());
                    for (const double value :
                         {result.I_th, result.K, result.S_thr, result.S_th, result.S_zul})
                        EXPECT_TRUE(std::isfinite(computed(value)));
                    EXPECT_EQ(clean.fault(), ArithmeticFault::None)
                        << name_of(one.box) << text << name_of(other.box) << second;
                }
    EXPECT_GT(passed, 1000);
}

}  // namespace
}  // namespace zel
