#include "workflow/rules/steady_check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "fakes/test_data.h"
#include "steady/case/case_fields.h"

// tests/data/steady_check.json holds for each check of the steady input a fault that it refuses
// and the texts that it then shows, and limits: values of a field, each with the number of the
// check that refuses it, or 0.

namespace zel {
namespace {

using nlohmann::json;
using Methods = std::vector<Method>;

const json data = test_data("steady_check");
const Methods overhead = {Method::TB601, Method::TB207, Method::Webs, Method::Kirn};

bool has(const json& methods, Method method) {
    return std::find(methods.begin(), methods.end(), key_of(method)) != methods.end();
}

/// The faults that a case of `method` can have.
std::vector<json> faults_of(Method method) {
    std::vector<json> faults;
    for (const json& fault : data.at("faults"))
        if (has(fault.at("methods"), method) && !fault.contains("unreachable"))
            faults.push_back(fault);
    return faults;
}

/// A case that passes: the conductor temperature is given, and so is every number.
CalcCase complete(const Methods& methods) {
    CalcCase c;
    for (const CaseField& field : case_fields())
        if (const auto* entry = std::get_if<Entry CalcCase::*>(&field.key)) c.*(*entry) = {"1", 1};
    for (const Method method : methods) c.*flag_of(method) = 1;
    set_fields(c, {{"Netzfrequenz_db", 50},
                   {"Anzahl_Teilleiter_db", 1},
                   {"Leitertemp_Merker_db", true},
                   {"conductor_type_db", methods.front() == Method::TBB ? 3 : 2},
                   {"conductor_shape_db", 1},
                   {"DrahtlagenzahlLeiter_db", 2},
                   {"ACDC_R_Option_Merker_db", 1}});
    return c;
}

void spoil(CalcCase& c, const json& fault) {
    json fields = fault.at("set");
    if (fields.contains("kind of a line")) {  // a busbar stays one
        if (c.conductor_type_db != tubular_busbar) c.conductor_type_db = fields["kind of a line"];
        fields.erase("kind of a line");
    }
    set_fields(c, fields);
}

CalcCase spoiled(const Methods& methods, const json& fault) {
    CalcCase c = complete(methods);
    spoil(c, fault);
    return c;
}

/// The checks in their order.
std::vector<const steady_check::Check*> checks() {
    std::vector<const steady_check::Check*> all;
    for (const auto list : {steady_check::input_checks(), steady_check::conductor_checks()})
        for (const auto& check : list) all.push_back(&check);
    return all;
}

/// The number of the check that refuses the case, or 0.
int refused_by(const CalcCase& c) {
    const auto* const refusal = steady_check::first_refusal(c);
    if (refusal == nullptr) return 0;
    const auto all = checks();
    return static_cast<int>(std::find(all.begin(), all.end(), refusal) - all.begin()) + 1;
}

/// The number of the first check of `methods` that `fault` comes up against, or 0. One fault may
/// have a check of its own for each kind of method.
int check_of(const json& fault, const Methods& methods) {
    for (const json& other : data.at("faults"))
        for (const Method method : methods)
            if (other.at("set") == fault.at("set") && has(other.at("methods"), method))
                return other.at("check");
    return 0;
}

Box expected_box(const json& fault, LangId lang) {
    const char* const language = lang == LangId::German ? "german" : "english";
    const json& ending = data.at("endings").at(fault.at("ending")).at(language);
    std::vector<std::string> lines = ending.at("before");
    for (const json& part : {fault.at(language), ending.at("after")})
        lines.insert(lines.end(), part.begin(), part.end());
    return {Icon::Stop, ending.at("title"), lines};
}

TEST(SteadyCheck, complete_case_passes_with_every_method) {
    for (const Method method : all_methods) EXPECT_EQ(refused_by(complete({method})), 0);
    EXPECT_EQ(S_Eingabepruefung_steady(complete(overhead), LangId::German), std::nullopt);
}

TEST(SteadyCheck, each_check_has_its_fault) {
    EXPECT_EQ(data.at("faults").size(), checks().size());
    for (std::size_t i = 0; i < checks().size(); ++i)
        EXPECT_EQ(data.at("faults").at(i).at("check"), i + 1);
}

TEST(SteadyCheck, each_fault_is_refused_by_its_own_box) {
    for (const Method method : all_methods)
        for (const json& fault : faults_of(method))
            for (const LangId lang : {LangId::German, LangId::English}) {
                SCOPED_TRACE(fault.dump() + std::string(key_of(method)));
                const CalcCase c = spoiled({method}, fault);
                EXPECT_EQ(refused_by(c), fault.at("check"));
                EXPECT_EQ(S_Eingabepruefung_steady(c, lang), expected_box(fault, lang));
            }
}

TEST(SteadyCheck, each_check_leads_to_the_input_that_mends_its_fault) {
    for (const json& fault : data.at("faults")) {
        const auto& check = *checks()[fault.at("check").get<std::size_t>() - 1];
        EXPECT_TRUE(fault.at("set").contains(name_of(check.rule.place))) << fault;
    }
}

TEST(SteadyCheck, fault_is_refused_where_one_of_the_selected_methods_reads_it) {
    for (const json& fault : data.at("faults")) {
        if (fault.contains("unreachable")) continue;
        for (const Method method : all_methods)
            EXPECT_EQ(refused_by(spoiled({method}, fault)), check_of(fault, {method}))
                << fault << key_of(method);
        EXPECT_EQ(refused_by(spoiled(overhead, fault)), check_of(fault, overhead)) << fault;
    }
}

TEST(SteadyCheck, of_two_faults_the_earlier_one_speaks) {
    for (const Method method : all_methods) {
        const std::vector<json> faults = faults_of(method);
        for (auto later = faults.begin(); later != faults.end(); ++later)
            for (auto earlier = faults.begin(); earlier != later; ++earlier) {
                CalcCase c = spoiled({method}, *later);
                spoil(c, *earlier);
                EXPECT_EQ(refused_by(c), earlier->at("check")) << *later << key_of(method);
            }
    }
}

TEST(SteadyCheck, case_without_mode_and_without_value_asks_for_the_mode) {
    const json& fault = data.at("faults").at(38);
    CalcCase c = spoiled({Method::TB207}, fault);
    EXPECT_EQ(refused_by(c), 36);
    const steady_check::Check& hidden = *checks().at(38);
    for (const LangId lang : {LangId::German, LangId::English})
        EXPECT_EQ(hidden.box(lang), expected_box(fault, lang));
    EXPECT_TRUE(hidden.refuses(c));
    for (const json& given : {json{{"Stromstaerke_db", 500}}, json{{"Leitertemp_db", 80}},
                              json{{"Stromstaerke_Merker_db", true}}}) {
        CalcCase with = c;
        set_fields(with, given);
        EXPECT_FALSE(hidden.refuses(with)) << given;
    }
}

TEST(SteadyCheck, limits_hold_on_both_sides) {
    for (const json& limit : data.at("limits"))
        for (const Method method : all_methods) {
            if (!has(limit.at("methods"), method)) continue;
            for (const json& check : limit.at("checks")) {
                CalcCase c = complete({method});
                set_fields(c, {{limit.at("field"), check[0]}});
                EXPECT_EQ(refused_by(c), check[1]) << limit << check << key_of(method);
            }
        }
}

// The value of the chosen mode alone, the DC resistance by choice, the core by kind of conductor.
TEST(SteadyCheck, only_what_is_read_is_asked_for) {
    for (const json& row : data.at("cases"))
        for (const Method method : all_methods) {
            if (key_of(method) != row.at("method")) continue;
            CalcCase c = complete({method});
            set_fields(c, row.at("set"));
            EXPECT_EQ(refused_by(c), row.at("check")) << row;
        }
}

}  // namespace
}  // namespace zel
