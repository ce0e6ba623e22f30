#include "short_circuit/input_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "fakes/short_circuit_cases.h"
#include "short_circuit/short_circuit_fields.h"

namespace zel {
namespace {

using C = ShortCircuitCase;
using Fault = std::function<void(KsTyping&)>;

Fault empty(KsBox box) {
    return [=](KsTyping& typing) { typing.type(box, ""); };
}
Fault typed(KsBox box, const char* text) {
    return [=](KsTyping& typing) { typing.type(box, text); };
}
Fault chosen(KsList list, std::int16_t index) {
    return [=](KsTyping& typing) { typing.choose(list, index); };
}

/// A case with given current, to be judged for a conductor.
ShortCircuitForm limited_conductor() {
    KsTyping typing{copper_far()};
    return typing.choose(&C::Strombegrenzschalter_ks, with_limiter)
        .type(&C::Ith, "16")
        .type(&C::T_k, "1")
        .form;
}

constexpr const char* incomplete = "Unvollständige Eingabe";
constexpr const char* incorrect = " Fehlerhafte Eingabe";
constexpr const char* too_low_current =
    "Minimalwert beträgt 0,01 kA !\nGeben Sie bitte einen größeren Wert ein";
constexpr const char* too_short =
    "Minimalwert beträgt 0,001 s !\nGeben Sie bitte einen größeren Wert ein";

struct CheckRow {
    ShortCircuitForm (*base)();
    Fault fault;
    const char* title;
    const char* lines;
    int page;
    KsKey focus;
};

// In the order of the checks.
const CheckRow check_rows[] = {
    {copper_far, empty(&C::Frequenz_ks), " Unvollständige Eingabe",
     "Geben Sie die Frequenz des Stromkreises in Hz an !", 0, &C::Frequenz_ks},
    {copper_far, chosen(&C::Strombegrenzschalter_ks, 0), incomplete,
     "Es wurden keine Auswahl getroffen\nob strombegrenzende Schaltgeräte\nvorhanden sind !\n"
     "Bitte korrigieren Sie ihre Eingabe !",
     0, &C::Strombegrenzschalter_ks},
    {limited_equipment, empty(&C::Ith), incomplete,
     "Es wurde keine Angabe zum\nthermisch gleichwertigen Kurzschlußstrom I_th\ngemacht !\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     0, &C::Ith},
    {limited_equipment, empty(&C::T_k), incomplete,
     "Es wurde keine Angabe zur\nDauer des Kurzschlußstromes T_k\ngemacht !\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     0, &C::T_k},
    {copper_far, chosen(&C::generatornah, 0), incomplete,
     "Es wurden keine Auswahl getroffen, ob ein\n"
     "generatornaher oder generatorferner Kurzschluß\nvorliegt !\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     0, &C::generatornah},
    {copper_far, empty(&C::IK2), incomplete,
     "Es wurde keine Angabe zum\nAnfangskurzschlußwechselstrom Ik''\ngemacht !\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     0, &C::IK2},
    {aluminium_near, empty(&C::IK), incomplete,
     "Es wurde keine Angabe zum\nDauerkurzschlußwechselstrom Ik\ngemacht !\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     0, &C::IK},
    {copper_far, empty(&C::Kappa), incomplete,
     "Es wurde keine Angabe zum\nFaktor kappa\ngemacht !\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     0, &C::Kappa},
    {copper_far, chosen(&C::Anzahl_KS_fluesse, 0), incomplete,
     "Es wurde keine Angabe zur\nAnzahl der Kurzschlußstromflüsse\ngemacht !\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     0, &C::Anzahl_KS_fluesse},
    {copper_far, empty(&C::Tk1), incomplete,
     "Es wurde keine Angabe zur\nDauer des 1.Stromflusses\ngemacht !\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     0, &C::Tk1},
    {aluminium_near, empty(&C::Tk2), incomplete,
     "Es wurde keine Angabe zur\nDauer des 2.Stromflusses\ngemacht !\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     0, &C::Tk2},
    {aluminium_near, empty(&C::Tk3), incomplete,
     "Es wurde keine Angabe zur\nDauer des 3.Stromflusses\ngemacht !\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     0, &C::Tk3},
    {copper_far, chosen(&C::Leiter_Bmittel, 0), incomplete,
     "Es wurde keine Auswahl getroffen\nob ein elektrisches Betriebsmittel oder\n"
     "ein blanker Leiter berechnet werden soll !\nBitte vervollständigen Sie ihre Eingabe !",
     0, &C::Leiter_Bmittel},
    {copper_far, empty(&C::Tkr), incomplete,
     "Es wurde keine Angabe zur \nBemessungs-Kurzzeit Tkr\ngemacht !\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     0, &C::Tkr},
    {limited_equipment, empty(&C::Ithr), incomplete,
     "Es wurde keine Angabe zum\nBemessungs-Kurzzeitstrom Ithr\n"
     "des elektrischen Betriebsmittels gemacht !\nBitte vervollständigen Sie ihre Eingabe !",
     0, &C::Ithr},
    {copper_far, empty(&C::theta_b), incomplete,
     "Es wurde keine Angabe zur\nLeitertemperatur bei Kurzschlußbeginn\ngemacht !\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     0, &C::theta_b},
    {copper_far, empty(&C::theta_e), incomplete,
     "Es wurde keine Angabe zur\nLeitertemperatur bei Kurzschlußende\ngemacht !\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     0, &C::theta_e},
    {copper_far, empty(&C::A_Leiter), incomplete,
     "Es wurde keine Angabe zum\nLeitermaterialquerschnitt\ngemacht !\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     1, &C::A_Leiter},
    {copper_far, empty(&C::waermekapaz), incomplete,
     "Es wurden keine Angabe zur\nWärmekapazität gemacht!\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     1, &C::waermekapaz},
    {copper_far, empty(&C::kappa20_ks), incomplete,
     "Es wurden keine Angabe zur\nspezifischen Leitfähigkeit  gemacht!\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     1, &C::kappa20_ks},
    {copper_far, empty(&C::Tk20_ks), incomplete,
     "Es wurden keine Angabe zum\n"
     "Temperaturkoeffizienten der spezifischen Leitfähigkeit gemacht!\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     1, &C::Tk20_ks},
    {copper_far, empty(&C::Dichte_rho), incomplete,
     "Es wurden keine Angabe zur\nDichte des Leiterwerkstoffes gemacht!\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     1, &C::Dichte_rho},
    {limited_equipment, typed(&C::Ith, "0.00999"), incorrect, too_low_current, 0, &C::Ith},
    {limited_equipment, typed(&C::T_k, "0.000999"), incorrect, too_short, 0, &C::T_k},
    {copper_far, typed(&C::IK2, "0.00999"), incorrect, too_low_current, 0, &C::IK2},
    {copper_far, typed(&C::Kappa, "1.0199"), incorrect,
     "Minimalwert beträgt 1,02 !\nGeben Sie bitte einen größeren Wert ein", 0, &C::Kappa},
    {aluminium_near, typed(&C::IK, "0.00999"), incorrect, too_low_current, 0, &C::IK},
    {copper_far, typed(&C::Tk1, "0.000999"), incorrect, too_short, 0, &C::Tk1},
    {aluminium_near, typed(&C::Tk2, "0.000999"), incorrect, too_short, 0, &C::Tk2},
    {aluminium_near, typed(&C::Tk3, "0.000999"), incorrect, too_short, 0, &C::Tk3},
};

void expect_refusal(const CheckRow& row, const std::optional<KsRefusal>& refusal,
                    std::size_t number) {
    ASSERT_TRUE(refusal) << number;
    EXPECT_EQ(refusal->box.title, row.title) << number;
    EXPECT_EQ(refusal->box.icon, Icon::Stop) << number;
    EXPECT_EQ(joined(refusal->box.lines, "\n"), row.lines) << number;
    EXPECT_EQ(refusal->page, row.page) << number;
    EXPECT_EQ(refusal->focus, row.focus) << number << name_of(refusal->focus);
}

TEST(InputCheck, each_of_the_30_checks_refuses_its_fault) {
    ASSERT_EQ(std::size(check_rows), 30U);
    for (std::size_t i = 0; i < std::size(check_rows); ++i) {
        KsTyping typing{check_rows[i].base()};
        ASSERT_FALSE(first_refusal(typing.form.content())) << i + 1;
        check_rows[i].fault(typing);
        expect_refusal(check_rows[i], first_refusal(typing.form.content()), i + 1);
    }
}

// Faults are added from the last check to the first: each is told before all that follow it.
TEST(InputCheck, checks_come_in_order) {
    const struct {
        ShortCircuitForm (*base)();
        std::vector<std::size_t> numbers;
    } orders[] = {
        {aluminium_near, {30, 29, 28, 27, 26, 25, 22, 21, 20, 19, 18, 17, 16,
                          14, 13, 12, 11, 10, 9,  8,  7,  6,  5,  2,  1}},
        {limited_equipment, {24, 23, 15, 14, 13, 4, 3, 2, 1}},
    };
    for (const auto& [base, numbers] : orders) {
        KsTyping typing{base()};
        for (const std::size_t number : numbers) {
            check_rows[number - 1].fault(typing);
            expect_refusal(check_rows[number - 1], first_refusal(typing.form.content()), number);
        }
    }
}

TEST(InputCheck, lower_limits_are_inclusive_at_32_bits) {
    KsTyping limited{limited_equipment()};
    limited.type(&C::Ith, "0.01").type(&C::T_k, "0.001");
    EXPECT_FALSE(first_refusal(limited.form.content()));
    KsTyping computed{aluminium_near()};
    computed.type(&C::IK2, "0.01").type(&C::IK, "0.01").type(&C::Kappa, "1.02");
    computed.type(&C::Tk1, "0.001").type(&C::Tk2, "0.001").type(&C::Tk3, "0.001");
    EXPECT_FALSE(first_refusal(computed.form.content()));
}

TEST(InputCheck, given_current_asks_nothing_of_the_flows) {
    const ShortCircuitForm form = limited_conductor();
    EXPECT_FALSE(form.content().IK2.given());
    EXPECT_EQ(form.content().Anzahl_KS_fluesse, 0);
    EXPECT_FALSE(first_refusal(form.content()));
}

TEST(InputCheck, equipment_asks_nothing_of_the_conductor) {
    const ShortCircuitForm form = limited_equipment();
    EXPECT_FALSE(form.content().A_Leiter.given());
    EXPECT_FALSE(first_refusal(form.content()));
}

TEST(InputCheck, far_from_the_generator_the_steady_current_is_not_asked_for) {
    const ShortCircuitForm form = copper_far();
    EXPECT_FALSE(form.content().IK.given());
    EXPECT_FALSE(first_refusal(form.content()));
}

TEST(InputCheck, flow_that_was_hidden_once_is_missing) {
    KsTyping typing{aluminium_near()};
    typing.choose(&C::Anzahl_KS_fluesse, 1).choose(&C::Anzahl_KS_fluesse, 3);
    const auto refusal = first_refusal(typing.form.content());
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->focus, KsKey(&C::Tk2));
}

TEST(InputCheck, empty_case_is_asked_for_its_frequency) {
    EXPECT_EQ(first_refusal({})->focus, KsKey(&C::Frequenz_ks));
}

}  // namespace
}  // namespace zel
