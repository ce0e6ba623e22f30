#include "short_circuit/result_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/short_circuit_cases.h"

namespace zel {
namespace {

using C = ShortCircuitCase;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

VerdictPage page_of(const ShortCircuitForm& form,
                    DecimalSeparator separator = DecimalSeparator::Point) {
    return KS_Ergebnisanzeige(form.content(), KS_Auswertung(form.content()), separator);
}

std::vector<std::string> texts(const VerdictGroup& group) {
    std::vector<std::string> all;
    for (const VerdictRow& row : group.rows)
        all.push_back(std::string(row.label.de) + "|" + row.value + "|" + std::string(row.unit.de));
    return all;
}

TEST(ResultPage, one_flow_leaves_the_cells_of_the_others_empty) {
    const VerdictPage page = page_of(copper_far());
    EXPECT_EQ(page.verdict.de, "Der Leiter ist thermisch kurzschlußfest !");
    EXPECT_TRUE(page.withstands);
    ASSERT_THAT(page.groups, SizeIs(2));
    EXPECT_EQ(page.groups[0].caption.de, "Zwischenergebnisse nach EN 60865-1 ; Abschnitt 3.2.2");
    EXPECT_THAT(texts(page.groups[0]),
                ElementsAre("1. Stromfluss, Faktor m:|0.045|", "Faktor n :|1.0|",
                            "I_th1 :|20.44|kA", "2. Stromfluss, Faktor m:||", "Faktor n :||",
                            "I_th2 :||kA", "3. Stromfluss, Faktor m:||", "Faktor n :||",
                            "I_th3 :||kA", "thermisch gleichwertiger Kurzzeitstrom I_th :|20.44|kA",
                            "Kurzschlußstromdauer T_k :|1.0|s"));
    EXPECT_EQ(page.groups[1].caption.de, "Zwischenergebnisse nach EN 60865-1 ; Abschnitt 3.2.4.2");
    EXPECT_THAT(texts(page.groups[1]),
                ElementsAre("Faktor K zur Berechnung von S_thr :|126.59|As^0.5/qmm",
                            "Bemessungs-Kurzzeitstromdichte S_thr :|126.59|A/qmm",
                            "thermisch gleichwertige Kurzzeitstromdichte S_th :|110.5|A/qmm",
                            "S_thr * SQR(T_kr / T_k)  :|126.59|A/qmm",
                            "S_th <= S_thr * SQR(T_kr / T_k) :|ja|"));
}

TEST(ResultPage, three_flows_fill_all_cells_with_the_separator_of_the_session) {
    const VerdictPage page = page_of(aluminium_near(), DecimalSeparator::Comma);
    EXPECT_EQ(page.verdict.de, "Der Leiter ist thermisch nicht kurzschlußfest !");
    EXPECT_FALSE(page.withstands);
    EXPECT_THAT(
        texts(page.groups.at(0)),
        ElementsAre("1. Stromfluss, Faktor m:|0,196|", "Faktor n :|0,869|", "I_th1 :|30,95|kA",
                    "2. Stromfluss, Faktor m:|0,065|", "Faktor n :|0,716|", "I_th2 :|26,52|kA",
                    "3. Stromfluss, Faktor m:|0,033|", "Faktor n :|0,601|", "I_th3 :|23,88|kA",
                    "thermisch gleichwertiger Kurzzeitstrom I_th :|25,47|kA",
                    "Kurzschlußstromdauer T_k :|1,0|s"));
    EXPECT_EQ(texts(page.groups.at(1)).back(), "S_th <= S_thr * SQR(T_kr / T_k) :|nein|");
}

TEST(ResultPage, given_current_shows_no_flows) {
    const VerdictPage page = page_of(limited_equipment());
    EXPECT_EQ(page.verdict.de, "Das Betriebsmittel ist thermisch nicht kurzschlußfest !");
    EXPECT_FALSE(page.withstands);
    ASSERT_THAT(page.groups, SizeIs(1));
    EXPECT_EQ(page.groups[0].caption.de, "Zwischenergebnisse nach EN 60865-1 ; Abschnitt 3.2.4.1");
    EXPECT_THAT(texts(page.groups[0]),
                ElementsAre("Tk <= Tkr :|nein|", "I_thr * SQR(T_kr / T_k) :|14.43|kA",
                            "I_th <= I_thr * SQR(T_kr / T_k) :|nein|"));
}

TEST(ResultPage, equipment_up_to_its_rated_short_time) {
    for (const auto& [Ith, answer] : {std::pair("25", "ja"), std::pair("26", "nein")}) {
        ShortCircuitTyping typing{limited_equipment()};
        typing.type(&C::T_k, "1").type(&C::Ith, Ith);  // T_k is T_kr: the first rule holds
        const VerdictPage page = page_of(typing.form);
        EXPECT_EQ(page.withstands, std::string(answer) == "ja");
        EXPECT_THAT(
            texts(page.groups.at(0)),
            ElementsAre("T_k <= T_kr :|ja|", std::string("I_th <= Ithr :|") + answer + "|"));
    }
}

TEST(ResultPage, equipment_that_withstands_a_longer_flow) {
    ShortCircuitTyping typing{limited_equipment()};
    typing.type(&C::Ith, "12.5").type(&C::T_k, "4");
    const VerdictPage page = page_of(typing.form);
    EXPECT_EQ(page.verdict.de, "Das Betriebsmittel ist thermisch kurzschlußfest !");
    EXPECT_TRUE(page.withstands);
    EXPECT_EQ(texts(page.groups.at(0)).back(), "I_th <= I_thr * SQR(T_kr / T_k) :|ja|");
}

TEST(ResultPage, english_page_says_what_its_german_answers_mean) {
    const std::string text = result_text(page_of(limited_equipment()), LangId::English);
    EXPECT_THAT(text, testing::HasSubstr("The equipment does not withstand"));
    EXPECT_THAT(text, testing::ContainsRegex("T_k\\) : +nein \\(no\\)"));
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("Abschnitt")));
}

TEST(ResultPage, nothing_computed_shows_nothing) {
    const VerdictPage page = KS_Ergebnisanzeige({}, {}, DecimalSeparator::Point);
    EXPECT_EQ(page.verdict.de, "");
    EXPECT_THAT(page.groups, IsEmpty());
}

}  // namespace
}  // namespace zel
