#include <gtest/gtest.h>

#include <cmath>

#include "fakes/short_circuit_rows.h"
#include "platform/arithmetic_fault.h"
#include "short_circuit/short_circuit_run.h"

// The rules of the short-circuit area by tests/data/short_circuit_rules.json.

namespace zel {
namespace {

using C = ShortCircuitCase;
using nlohmann::json;

const json& data() {
    static const json all = test_data("short_circuit_rules");
    return all;
}

void expect_refusal(const json& row, const std::optional<ShortCircuitRefusal>& refusal) {
    ASSERT_TRUE(refusal) << row;
    EXPECT_EQ(as_json({refusal->box})[0],
              (json{{"icon", "stop"}, {"title", row["title"]}, {"lines", row["lines"]}}));
    EXPECT_EQ(refusal->page, row["page"]) << row;
    EXPECT_EQ(name_of(refusal->focus), row["focus"].get<std::string>()) << row;
}

std::optional<NumberRefusal> entered(Entry& field, const std::string& name, const std::string& text,
                                     LangId lang = LangId::German) {
    return enter(field, box_of(name), text, {lang, DecimalSeparator::Point});
}

TEST(EntryRule, limits_hold_on_both_sides_and_are_told_in_german) {
    for (const json& row : data()["limits"])
        for (const LangId lang : {LangId::German, LangId::English}) {
            Entry field;
            EXPECT_FALSE(entered(field, row[0], row[1], lang)) << row;
            EXPECT_EQ(field.text, row[1]);
            const auto refusal = entered(field, row[0], row[2], lang);
            ASSERT_TRUE(refusal) << row;
            EXPECT_EQ(
                as_json({refusal->box})[0],
                (json{{"icon", "stop"}, {"title", " Fehlerhafte Eingabe"}, {"lines", row[3]}}));
            EXPECT_FALSE(refusal->text_stays);
            EXPECT_EQ(field, Entry{}) << "text and number are gone";
        }
}

TEST(EntryRule, boxes_without_a_lower_limit_take_negative_numbers) {
    for (const char* name : {"Frequenz_ks", "Tk1", "Tkr", "IK2", "Ithr", "Kappa", "A_Leiter"}) {
        Entry field;
        EXPECT_FALSE(entered(field, name, "-3")) << name;
        EXPECT_EQ(field.value, -3);
    }
}

TEST(EntryRule, number_is_read_at_32_bits) {
    Entry field;
    EXPECT_FALSE(entered(field, "Tk1", "0.1"));
    EXPECT_EQ(field.value, 0.100000001490116119384765625);
    EXPECT_FALSE(entered(field, "A_Leiter", "16777217"));
    EXPECT_EQ(field.value, 16777216);
    // A last digit beyond 32 bits still meets the limit.
    EXPECT_FALSE(entered(field, "Tk20_ks", "0.1000000001"));
    EXPECT_EQ(entered(field, "IK2", "1e39")->box.lines[0], "Maximalwert beträgt 1000 kA !");
    EXPECT_TRUE(entered(field, "A_Leiter", "1e39")->text_stays);
    EXPECT_TRUE(entered(field, "IK2", "-1e39")->text_stays);
}

TEST(EntryRule, empty_text_keeps_the_number) {
    Entry field{"0.5", 0.5};
    EXPECT_FALSE(entered(field, "Tk1", ""));
    EXPECT_EQ(field, (Entry{"", 0.5}));
}

TEST(EntryRule, what_is_no_number_stays_in_the_box_only) {
    const json& group = data()["no_number"];
    for (const std::string text : group["texts"])
        for (const json lang : {"de", "en"}) {
            Entry field{"7", 7};
            const auto refusal = entered(field, "Kappa", text, lang);
            ASSERT_TRUE(refusal) << text;
            EXPECT_TRUE(refusal->text_stays);
            EXPECT_EQ(as_json({refusal->box})[0], group[lang.get<std::string>()]);
            EXPECT_EQ(field, Entry{});
        }
    Entry field;
    EXPECT_FALSE(enter(field, &C::Kappa, "1,8", {LangId::German, DecimalSeparator::Comma}));
}

TEST(InputCheck, each_check_refuses_its_fault) {
    ASSERT_EQ(data()["checks"].size(), 30U);
    for (const json& row : data()["checks"]) {
        ShortCircuitTyping typing = base_of(row);
        ASSERT_FALSE(first_refusal(typing.form.content())) << row;
        change(typing, row);
        expect_refusal(row, first_refusal(typing.form.content()));
    }
    EXPECT_EQ(first_refusal({})->focus, ShortCircuitKey(&C::Frequenz_ks));
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
        ShortCircuitTyping typing{base()};
        for (const std::size_t number : numbers) {
            const json& row = data()["checks"][number - 1];
            change(typing, row);
            expect_refusal(row, first_refusal(typing.form.content()));
        }
    }
}

TEST(InputCheck, asks_for_nothing_that_is_not_read_and_lower_limits_are_inclusive) {
    for (const json& row : data()["pass"]) {
        ShortCircuitTyping typing = base_of(row);
        change(typing, row);
        EXPECT_FALSE(RunShortCircuit(typing.form.content(), DecimalSeparator::Point).refusal)
            << row;
    }
}

TEST(InputCheck, flow_that_was_hidden_once_is_missing) {
    ShortCircuitTyping typing{aluminium_near()};
    typing.choose(&C::Anzahl_KS_fluesse, 1).choose(&C::Anzahl_KS_fluesse, 3);
    EXPECT_EQ(first_refusal(typing.form.content())->focus, ShortCircuitKey(&C::Tk2));
}

TEST(ArithmeticFaults, are_refused_by_one_line_that_names_the_input) {
    for (const json& row : data()["arithmetic"]) {
        ShortCircuitTyping typing = base_of(row);
        change(typing, row);
        EXPECT_FALSE(first_refusal(typing.form.content())) << row << ": the checks let it through";
        const ShortCircuitRun run = RunShortCircuit(typing.form.content(), DecimalSeparator::Point);
        expect_refusal(row, run.refusal);
        EXPECT_EQ(run.result.I_th, 0) << row << ": nothing half computed";
        EXPECT_TRUE(run.page.groups.empty()) << row;
    }
}

TEST(ArithmeticFaults, what_is_odd_but_sound_is_calculated) {
    // No rise of temperature: nothing is admissible.
    const auto cold =
        RunShortCircuit(ShortCircuitTyping{copper_far()}.type(&C::theta_e, "80").form.content(),
                        DecimalSeparator::Point);
    ASSERT_FALSE(cold.refusal);
    EXPECT_EQ(cold.result.S_zul, 0);
    EXPECT_EQ(cold.result.verdict_Leiter, does_not_withstand);
    // Equipment without a rated time carries nothing for longer.
    const auto never =
        RunShortCircuit(ShortCircuitTyping{limited_equipment()}.type(&C::Tkr, "0").form.content(),
                        DecimalSeparator::Point);
    ASSERT_FALSE(never.refusal);
    EXPECT_EQ(never.result.verdict_Betriebsmittel, does_not_withstand);
}

// Every box at the ends of what it takes, two at a time: what is not refused meets no fault.
TEST(ArithmeticFaults, none_is_left_in_what_passes) {
    constexpr struct {
        NumberKey box;
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
                    ShortCircuitTyping typing{aluminium_near()};
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
