#include "workflow/steady_check.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "steady/case_fields.h"
#include "workflow/steady_check_faults.h"
#include "workflow/steady_check_rows.h"

namespace zel {
namespace {

using enum Method;
using namespace steady_faults;

/// The number of the check that refuses the case, or 0.
int refused_by(const CalcCase& c) {
    const auto refusal = steady_check::first_refusal(c, LangId::English);
    return refusal ? refusal->number : 0;
}

CalcCase spoiled(const Methods& methods, const FaultRow& row) {
    CalcCase c = complete(methods);
    row.fault.spoil(c);
    return c;
}

/// The number of the first check of `methods` that the fault of `row` comes up against, or 0. One
/// fault may have a check of its own for each kind of method.
int check_of(const FaultRow& row, const Methods& methods) {
    for (const FaultRow& other : rows())
        for (const Method method : methods)
            if (other.fault.spoil == row.fault.spoil && has(other.fault.methods, method))
                return other.fault.number;
    return 0;
}

void expect_box(const Box& box, const FaultRow& row, LangId lang) {
    const Box expected = expected_box(row, lang);
    EXPECT_EQ(box.title, expected.title);
    EXPECT_EQ(box.lines, expected.lines);
    EXPECT_EQ(box, expected);
}

TEST(SteadyCheck, complete_case_passes_with_every_method) {
    for (const Method method : all_methods) EXPECT_EQ(refused_by(complete({method})), 0);
    EXPECT_EQ(refused_by(complete(overhead)), 0);
    EXPECT_EQ(S_Eingabepruefung_steady(complete(overhead), LangId::German), std::nullopt);
}

TEST(SteadyCheck, checks_are_numbered_in_their_order_and_each_has_its_fault) {
    auto row = rows().begin();
    int number = 0;
    for (const auto checks : {steady_check::input_checks(), steady_check::conductor_checks()}) {
        for (const auto& check : checks) {
            EXPECT_EQ(check.rule.number, ++number);
            if (number == unreachable_row.fault.number) continue;
            ASSERT_NE(row, rows().end());
            EXPECT_EQ((row++)->fault.number, number);
        }
    }
    EXPECT_EQ(number, 59);
}

TEST(SteadyCheck, each_fault_is_refused_by_its_own_box) {
    for (const FaultRow& row : rows()) {
        for (const Method method : row.fault.methods) {
            const CalcCase c = spoiled({method}, row);
            for (const LangId lang : {LangId::German, LangId::English}) {
                SCOPED_TRACE(std::to_string(row.fault.number) + " " + std::string(key_of(method)));
                const auto refusal = steady_check::first_refusal(c, lang);
                ASSERT_TRUE(refusal);
                EXPECT_EQ(refusal->number, row.fault.number);
                expect_box(refusal->box, row, lang);
                EXPECT_EQ(S_Eingabepruefung_steady(c, lang), refusal->box);
            }
        }
    }
}

TEST(SteadyCheck, fault_that_no_selected_method_reads_passes) {
    for (const FaultRow& row : rows())
        for (const Method method : all_methods)
            EXPECT_EQ(refused_by(spoiled({method}, row)), check_of(row, {method}))
                << row.fault.number << " " << key_of(method);
}

TEST(SteadyCheck, one_of_several_methods_is_enough_for_its_checks) {
    for (const FaultRow& row : rows())
        EXPECT_EQ(refused_by(spoiled(overhead, row)), check_of(row, overhead)) << row.fault.number;
}

TEST(SteadyCheck, of_two_faults_the_earlier_one_speaks) {
    for (const Method method : all_methods) {
        for (auto later = rows().begin(); later != rows().end(); ++later) {
            for (auto earlier = rows().begin(); earlier != later; ++earlier) {
                if (!has(earlier->fault.methods, method) || !has(later->fault.methods, method))
                    continue;
                CalcCase c = spoiled({method}, *later);
                earlier->fault.spoil(c);
                EXPECT_EQ(refused_by(c), earlier->fault.number)
                    << later->fault.number << " " << key_of(method);
            }
        }
    }
}

TEST(SteadyCheck, case_without_mode_and_without_value_asks_for_the_mode) {
    CalcCase c = spoiled({TB207}, unreachable_row);
    EXPECT_EQ(refused_by(c), 36);
    const steady_check::Check& hidden = steady_check::input_checks()[38];
    for (const LangId lang : {LangId::German, LangId::English})
        expect_box(steady_check::box_of(hidden, lang), unreachable_row, lang);
    EXPECT_TRUE(hidden.rule.refuses(c));
    set(c.Stromstaerke_db, 500);
    EXPECT_FALSE(hidden.rule.refuses(c));
    blank<&CalcCase::Stromstaerke_db>(c);
    set(c.Leitertemp_db, 80);
    EXPECT_FALSE(hidden.rule.refuses(c));
    blank<&CalcCase::Leitertemp_db>(c);
    c.Stromstaerke_Merker_db = true;
    EXPECT_FALSE(hidden.rule.refuses(c));
}

TEST(SteadyCheck, only_the_value_of_the_mode_is_asked_for) {
    CalcCase temperature = complete({TB207});
    blank<&CalcCase::Stromstaerke_db>(temperature);
    blank<&CalcCase::Stromstaerke_Buendel>(temperature);
    EXPECT_EQ(refused_by(temperature), 0);

    CalcCase current = complete({TB207});
    current.Leitertemp_Merker_db = false;
    current.Stromstaerke_Merker_db = true;
    blank<&CalcCase::Leitertemp_db>(current);
    blank<&CalcCase::Stromstaerke_Buendel>(current);
    EXPECT_EQ(refused_by(current), 0);

    CalcCase bundle = current;
    bundle.Stromstaerkebuendel_Merker_db = true;
    set(bundle.Stromstaerke_Buendel, 1500);
    blank<&CalcCase::Stromstaerke_db>(bundle);
    EXPECT_EQ(refused_by(bundle), 0);
}

struct Limit {
    Methods methods;
    Entry CalcCase::*field;
    double value;
    int number;  // of the check that refuses, or 0
};

const std::vector<Limit> limits = {
    {every, &CalcCase::Windgeschwindigkeit_db, -0.1, 10},
    {every, &CalcCase::Windgeschwindigkeit_db, 0, 0},
    {every, &CalcCase::Windgeschwindigkeit_db, 80, 0},
    {every, &CalcCase::Windgeschwindigkeit_db, 80.1, 10},
    {webs_kirn, &CalcCase::Tag_db, 0, 18},
    {webs_kirn, &CalcCase::Tag_db, 1, 0},
    {webs_kirn, &CalcCase::Tag_db, 31, 0},
    {webs_kirn, &CalcCase::Tag_db, 32, 18},
    {webs_kirn, &CalcCase::Monat_db, 0, 20},
    {webs_kirn, &CalcCase::Monat_db, 1, 0},
    {webs_kirn, &CalcCase::Monat_db, 12, 0},
    {webs_kirn, &CalcCase::Monat_db, 13, 20},
    {webs_kirn, &CalcCase::Stunden_db, -1, 22},
    {webs_kirn, &CalcCase::Stunden_db, 0, 0},
    {webs_kirn, &CalcCase::Stunden_db, 23, 0},
    {webs_kirn, &CalcCase::Stunden_db, 24, 22},
    {webs_kirn, &CalcCase::Minuten_db, -1, 24},
    {webs_kirn, &CalcCase::Minuten_db, 0, 0},
    {webs_kirn, &CalcCase::Minuten_db, 59, 0},
    {webs_kirn, &CalcCase::Minuten_db, 60, 24},
    {{TB207, TB601, TBB, Webs}, &CalcCase::Stunden_db, 23, 0},
    {{TB207, TB601, TBB}, &CalcCase::Stunden_db, 24, 0},
    {{Kirn}, &CalcCase::Feldlaenge_db, 0, 25},
    {{Kirn}, &CalcCase::Feldlaenge_db, 0.1, 0},
    {{Kirn}, &CalcCase::Hoehendifferenz_db, -10, 0},
    {{TB207, Kirn}, &CalcCase::Netzfrequenz_db, 0, 28},
    {{TB207, Kirn}, &CalcCase::Netzfrequenz_db, 48.9, 28},
    {{TB207, Kirn}, &CalcCase::Netzfrequenz_db, 49, 0},
    {{TB207, Kirn}, &CalcCase::Netzfrequenz_db, 61, 0},
    {{TB207, Kirn}, &CalcCase::Netzfrequenz_db, 61.1, 28},
    {{TBB}, &CalcCase::Netzfrequenz_db, -0.1, 29},
    {{TBB}, &CalcCase::Netzfrequenz_db, 0, 0},
    {{TBB}, &CalcCase::Netzfrequenz_db, 0.5, 0},
    {{TBB}, &CalcCase::Netzfrequenz_db, 1, 0},
    {{TBB}, &CalcCase::Netzfrequenz_db, 1.1, 29},
    {{TBB}, &CalcCase::Netzfrequenz_db, 48.9, 29},
    {{TBB}, &CalcCase::Netzfrequenz_db, 49, 0},
    {{TBB}, &CalcCase::Netzfrequenz_db, 61, 0},
    {{TBB}, &CalcCase::Netzfrequenz_db, 61.1, 29},
    {{TB601, Webs}, &CalcCase::Netzfrequenz_db, -0.1, 30},
    {{TB601, Webs}, &CalcCase::Netzfrequenz_db, 0, 0},
    {{TB601, Webs}, &CalcCase::Netzfrequenz_db, 1.1, 0},
    {{TB601, Webs}, &CalcCase::Netzfrequenz_db, 48.9, 0},
    {{TB601, Webs}, &CalcCase::Netzfrequenz_db, 61, 0},
    {{TB601, Webs}, &CalcCase::Netzfrequenz_db, 61.1, 30},
    {every, &CalcCase::Emissionsverhaeltnis_db, -0.01, 32},
    {every, &CalcCase::Emissionsverhaeltnis_db, 0, 0},
    {every, &CalcCase::Emissionsverhaeltnis_db, 1, 0},
    {every, &CalcCase::Emissionsverhaeltnis_db, 1.01, 32},
    {every, &CalcCase::Absorptionsverhaeltnis_db, -0.5, 0},
    {every, &CalcCase::Absorptionsverhaeltnis_db, 1, 0},
    {{TB601, TB207, TBB}, &CalcCase::Absorptionsverhaeltnis_db, 1.01, 34},
    {webs_kirn, &CalcCase::Absorptionsverhaeltnis_db, 1.01, 0},
    {every, &CalcCase::Seildurchmesser_db, -1, 43},
    {every, &CalcCase::Seildurchmesser_db, 0.1, 0},
    {{TB601}, &CalcCase::T_Koeff_DC_Resist_Leiter_quadrat_db, 0, 0},
    {{TB601}, &CalcCase::KniepunktTemperatur_db, -1, 58},
};

TEST(SteadyCheck, limits_hold_on_both_sides) {
    for (const Limit& limit : limits) {
        for (const Method method : limit.methods) {
            CalcCase c = complete({method});
            set(c.*limit.field, limit.value);
            EXPECT_EQ(refused_by(c), limit.number)
                << name_of(limit.field) << " " << limit.value << " " << key_of(method);
        }
    }
}

struct Marker {
    Method method;
    std::int16_t CalcCase::*field;
    std::int16_t value;
    int number;  // of the check that refuses, or 0
};

TEST(SteadyCheck, counts_and_kinds_hold_on_both_sides) {
    const std::vector<Marker> markers = {
        {TB207, &CalcCase::Anzahl_Teilleiter_db, 0, 35},
        {TB207, &CalcCase::Anzahl_Teilleiter_db, 1, 0},
        {TB207, &CalcCase::Anzahl_Teilleiter_db, 8, 0},
        {TB207, &CalcCase::Anzahl_Teilleiter_db, 9, 35},
        {TBB, &CalcCase::conductor_type_db, 1, 2},
        {TBB, &CalcCase::conductor_type_db, 2, 2},
        {TBB, &CalcCase::conductor_type_db, 4, 2},
        {TBB, &CalcCase::conductor_type_db, -1, 41},
        {TB207, &CalcCase::conductor_type_db, 1, 0},
        {TB207, &CalcCase::conductor_type_db, 4, 0},
        {TB207, &CalcCase::conductor_type_db, -1, 41},
        {TB207, &CalcCase::conductor_shape_db, -1, 42},
        {TB207, &CalcCase::ACDC_R_Option_Merker_db, 0, 0},
        {TBB, &CalcCase::ACDC_R_Option_Merker_db, 2, 0},
        {TB601, &CalcCase::ACDC_R_Option_Merker_db, 2, 0},
        {TB601, &CalcCase::ACDC_R_Option_Merker_db, 3, 54},
        {TB601, &CalcCase::DrahtlagenzahlLeiter_db, 3, 0},
        {TB207, &CalcCase::DrahtlagenzahlLeiter_db, 1, 0},
        {TB207, &CalcCase::rechnung_cigre207_merker_db, 2, 1},
    };
    for (const Marker& marker : markers) {
        CalcCase c = complete({marker.method});
        c.*marker.field = marker.value;
        EXPECT_EQ(refused_by(c), marker.number) << key_of(marker.method) << " " << marker.value;
    }
}

TEST(SteadyCheck, emptied_field_of_the_conductor_is_no_input) {
    const struct {
        Method method;
        Entry CalcCase::*field;
        int number;
    } emptied[] = {
        {TB207, &CalcCase::Seildurchmesser_db, 43},
        {Kirn, &CalcCase::DCR_20_db, 44},
        {TBB, &CalcCase::DrahtdurchmesserLeiter_db, 45},
        {TB207, &CalcCase::DrahtdurchmesserLeiter_db, 46},
        {TB207, &CalcCase::Mantelquerschnitt_db, 48},
        {Webs, &CalcCase::DC_Resist_Leiter_db, 49},
        {Kirn, &CalcCase::T_Koeff_DC_Resist_Leiter_linear_db, 50},
        {TB601, &CalcCase::T_Koeff_DC_Resist_Leiter_quadrat_db, 51},
        {TB601, &CalcCase::KerndurchmesserTraeger_db, 52},
        {TB601, &CalcCase::radialthermalconductivity_unter_KPT_db, 57},
        {TB601, &CalcCase::KniepunktTemperatur_db, 58},
        {TB601, &CalcCase::radialthermalconductivity_ueber_KPT_db, 59},
    };
    for (const auto& [method, field, number] : emptied) {
        CalcCase c = complete({method});
        (c.*field).text.clear();  // the double still stands
        EXPECT_EQ(refused_by(c), number) << name_of(field);
    }
    CalcCase c = complete({TB601});
    c.conductor_type_db = 1;
    c.radialthermalconductivity_unter_KPT_db.text.clear();
    EXPECT_EQ(refused_by(c), 56);
}

TEST(SteadyCheck, tb601_reads_the_dc_resistance_by_choice_only) {
    CalcCase c = complete({TB601});
    set(c.DCR_20_db, 0);
    EXPECT_EQ(refused_by(c), 44);
    c.ACDC_R_Option_Merker_db = 2;
    EXPECT_EQ(refused_by(c), 0);
    c.rechnung_webs_merker_db = 1;
    EXPECT_EQ(refused_by(c), 44);
}

TEST(SteadyCheck, what_tb601_reads_depends_on_the_kind_of_conductor) {
    CalcCase one_layer = complete({TB601});
    one_layer.DrahtlagenzahlLeiter_db = 1;
    EXPECT_EQ(refused_by(one_layer), 55);
    one_layer.conductor_type_db = 4;
    EXPECT_EQ(refused_by(one_layer), 0);
    one_layer.conductor_type_db = 1;
    EXPECT_EQ(refused_by(one_layer), 0);

    CalcCase no_core = complete({TB601});
    set(no_core.KerndurchmesserTraeger_db, 0);
    no_core.conductor_type_db = 4;
    EXPECT_EQ(refused_by(no_core), 52);
    no_core.conductor_type_db = 1;
    EXPECT_EQ(refused_by(no_core), 0);

    CalcCase no_knee_point = complete({TB601});
    set(no_knee_point.KniepunktTemperatur_db, 0);
    set(no_knee_point.radialthermalconductivity_ueber_KPT_db, 0);
    no_knee_point.conductor_type_db = 4;
    EXPECT_EQ(refused_by(no_knee_point), 58);
    no_knee_point.conductor_type_db = 1;
    EXPECT_EQ(refused_by(no_knee_point), 0);
}

}  // namespace
}  // namespace zel
