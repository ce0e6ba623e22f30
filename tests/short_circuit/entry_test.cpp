#include "short_circuit/entry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "short_circuit/short_circuit_fields.h"

namespace zel {
namespace {

using C = ShortCircuitCase;
using testing::ElementsAre;

std::optional<KsEntryRefusal> entered(Entry& field, KsBox box, std::string_view text,
                                      LangId lang = LangId::German) {
    return enter(field, box, text, {lang, DecimalSeparator::Point});
}

struct LimitRow {
    KsBox box;
    const char* passes;
    const char* refused;
    const char* lines;
};

constexpr const char* too_long = "Maximalwert beträgt 1000 s !\n"
                                 "Geben Sie bitte einen geringeren Wert ein";
constexpr const char* too_much = "Maximalwert beträgt 1000 kA !\n"
                                 "Geben Sie bitte einen geringeren Wert ein";
constexpr const char* too_hot = "Maximalwert beträgt 500 °C !\n"
                                "Geben Sie bitte einen geringeren Wert ein";
constexpr const char* too_cold = "Minimalwert beträgt -60°C !\n"
                                 "Geben Sie bitte einen größeren Wert ein";
constexpr const char* heat = "Minimalwert der spez. Wärmekapazität beträgt 0 J/kg*k !\n"
                             "Maximalwert der spez. Wärmekapazität beträgt 4183 J/kg*k !\n"
                             "Geben Sie bitte einen korrekten Wert ein.";
constexpr const char* conductivity =
    "Minimalwert des spezifischen Leitfähigkeit beträgt 1 m / (Ohm *qmm) !\n"
    "Maximalwert des spezifischen Leitfähigkeit beträgt 100 m / (Ohm *qmm) !\n"
    "Geben Sie bitte einen korrekten Wert ein.";
constexpr const char* coefficient =
    "Minimalwert des Temperaturkoeffizienten der Leitfähigkeit beträgt 0 / k !\n"
    "Maximalwert des Temperaturkoeffizienten der Leitfähigkeit beträgt 0,1 / k !\n"
    "Geben Sie bitte einen korrekten Wert ein.";
constexpr const char* density =
    "Minimalwert der Dichte des Leiterwerkstoffes beträgt 100 kg *m^3 !\n"
    "Minimalwert der Dichte des Leiterwerkstoffes beträgt 22600 kg *m^3 !\n"
    "Geben Sie bitte einen korrekten Wert ein.";

constexpr LimitRow limit_rows[] = {
    {&C::Frequenz_ks, "99", "99.001",
     "Maximalwert für die Frequenz des Stromkreises beträgt 99 Hz !\n"
     "Geben Sie bitte einen geringeren Wert ein"},
    {&C::Tk1, "1000", "1000.001", too_long},
    {&C::Tk2, "1000", "1000.001", too_long},
    {&C::Tk3, "1000", "1000.001", too_long},
    {&C::T_k, "1000", "1000.001", too_long},
    {&C::Tkr, "1000", "1000.001", too_long},
    {&C::IK2, "1000", "1000.001", too_much},
    {&C::IK, "1000", "1000.001", too_much},
    {&C::Ith, "1000", "1000.001", too_much},
    {&C::Ithr, "1000", "1000.001", too_much},
    {&C::Kappa, "2", "2.001", "Maximalwert beträgt 2 !\nGeben Sie bitte einen geringeren Wert ein"},
    {&C::theta_b, "500", "500.01", too_hot},
    {&C::theta_b, "-60", "-60.01", too_cold},
    {&C::theta_e, "500", "500.01", too_hot},
    {&C::theta_e, "-60", "-60.01", too_cold},
    {&C::waermekapaz, "5000", "5000.1", heat},  // the message says 4183
    {&C::waermekapaz, "0", "-0.1", heat},
    {&C::kappa20_ks, "100", "100.01", conductivity},
    {&C::kappa20_ks, "1", "0.999", conductivity},
    {&C::Tk20_ks, "0.1", "0.1001", coefficient},
    {&C::Tk20_ks, "0", "-0.0001", coefficient},
    {&C::Dichte_rho, "22600", "22600.1", density},
    {&C::Dichte_rho, "100", "99.9", density},
};

TEST(KsEntry, limits_hold_on_both_sides) {
    for (const auto& [box, passes, refused, lines] : limit_rows) {
        for (const LangId lang : {LangId::German, LangId::English}) {
            Entry field;
            EXPECT_FALSE(entered(field, box, passes, lang)) << name_of(box) << passes;
            EXPECT_EQ(field.text, passes);
            const auto refusal = entered(field, box, refused, lang);
            ASSERT_TRUE(refusal) << name_of(box) << refused;
            EXPECT_EQ(refusal->box.title, " Fehlerhafte Eingabe");
            EXPECT_EQ(refusal->box.icon, Icon::Stop);
            EXPECT_EQ(joined(refusal->box.lines, "\n"), lines);
            EXPECT_FALSE(refusal->text_stays);
            EXPECT_EQ(field, Entry{}) << "text and number are gone";
        }
    }
}

TEST(KsEntry, boxes_without_a_lower_limit_take_negative_numbers) {
    for (const KsBox box : {&C::Frequenz_ks, &C::Tk1, &C::Tkr, &C::IK2, &C::Ithr, &C::Kappa}) {
        Entry field;
        EXPECT_FALSE(entered(field, box, "-3")) << name_of(box);
        EXPECT_EQ(field.value, -3);
    }
    for (const char* any : {"-1e30", "0", "1e30"}) {
        Entry field;
        EXPECT_FALSE(entered(field, &C::A_Leiter, any));
    }
}

TEST(KsEntry, number_is_read_at_32_bits) {
    Entry field;
    entered(field, &C::Tk1, "0.1");
    EXPECT_EQ(field.value, 0.100000001490116119384765625);
    entered(field, &C::A_Leiter, "16777217");
    EXPECT_EQ(field.value, 16777216);
    // A last digit beyond 32 bits still meets the limit.
    EXPECT_FALSE(entered(field, &C::Tk20_ks, "0.1000000001"));
}

TEST(KsEntry, empty_text_keeps_the_number) {
    Entry field;
    entered(field, &C::Tk1, "0.5");
    EXPECT_FALSE(entered(field, &C::Tk1, ""));
    EXPECT_EQ(field, (Entry{"", 0.5}));
}

TEST(KsEntry, what_is_no_number_stays_in_the_box_only) {
    for (const char* text : {"abc", "-", "1,5", " ", "1e39e", "nan"}) {
        Entry field{"7", 7};
        const auto refusal = entered(field, &C::Kappa, text);
        ASSERT_TRUE(refusal) << text;
        EXPECT_TRUE(refusal->text_stays);
        EXPECT_EQ(refusal->box.icon, Icon::Stop);
        EXPECT_EQ(refusal->box.title, "Fehlerhafte Eingabe");
        EXPECT_THAT(refusal->box.lines,
                    ElementsAre("Eingegebener Wert kann nicht als Zahl interpretiert werden. "
                                "Korrigieren Sie bitte die Eingabe !"));
        EXPECT_EQ(field, Entry{});
    }
    Entry field;
    const auto refusal = entered(field, &C::Kappa, "abc", LangId::English);
    EXPECT_EQ(refusal->box.title, "Incorrect input data");
    EXPECT_THAT(refusal->box.lines, ElementsAre("Input value can not be identified as a number. "
                                                "Please correct your input data !"));
}

TEST(KsEntry, number_beyond_32_bits_meets_the_limit_or_is_none) {
    Entry field;
    EXPECT_EQ(entered(field, &C::IK2, "1e39")->box.lines.front(), "Maximalwert beträgt 1000 kA !");
    EXPECT_TRUE(entered(field, &C::A_Leiter, "1e39")->text_stays);
    EXPECT_TRUE(entered(field, &C::IK2, "-1e39")->text_stays);
}

TEST(KsEntry, separator_is_that_of_the_session) {
    Entry field;
    EXPECT_FALSE(enter(field, &C::Kappa, "1,8", {LangId::German, DecimalSeparator::Comma}));
    EXPECT_TRUE(enter(field, &C::Kappa, "1.8", {LangId::German, DecimalSeparator::Comma}));
}

}  // namespace
}  // namespace zel
