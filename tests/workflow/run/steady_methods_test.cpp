#include "workflow/run/steady_methods.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "fakes/allocation_count.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/steady_cases.h"
#include "fakes/tb601_cases.h"
#include "fakes/test_data.h"
#include "platform/errors.h"
#include "steady/steady_solver.h"
#include "tb601_transient/tb601/tb601_solver.h"

// All methods by the rows of tests/data/steady_methods.json: a case with some fields changed and T
// or I given, at an angle of 90 where nothing stands; and what comes of it, a number for what is
// sought or a text for the failure.

namespace zel {
namespace {

using nlohmann::json;

const std::map<std::string, CalcCase (*)()> cases = {{"twin_264_34", twin_264_34},
                                                     {"sunny_264_34", sunny_264_34},
                                                     {"line_264_34", line_264_34},
                                                     {"tube", tube}};

Method method_of(const json& key) {
    return *std::find_if(all_methods.begin(), all_methods.end(),
                         [&](Method method) { return key_of(method) == key; });
}

CalcCase case_of(const json& group, const json& row) {
    CalcCase c = cases.at(group.at("case"))();
    if (group.contains("set")) set_fields(c, group.at("set"));
    if (row.contains("T"))
        set_fields(c, {{"Leitertemp_db", row.at("T")},
                       {"Stromstaerke_Merker_db", false},
                       {"Leitertemp_Merker_db", true}});
    if (row.contains("I"))
        set_fields(c, {{"Stromstaerke_db", row.at("I")},
                       {"Stromstaerke_Merker_db", true},
                       {"Leitertemp_Merker_db", false}});
    if (row.contains("set")) set_fields(c, row.at("set"));
    return c;
}

std::string failure_of(Method method, const CalcCase& c, double angle) {
    if (method == Method::TB601) {
        TB601Records records;
        return name_of(ST_00_CigreTB601_temp_strom_steady_state(c, angle, records));
    }
    return name_of(ST_00_CigreTB207_temp_strom_steady_state(c, angle).failure);
}

json as_json(const SteadyResult& outcome) {
    json values = {{"status", outcome.status}, {"failure", outcome.fault}};
    if (outcome.angle) values["angle"] = *outcome.angle;
    if (!outcome.sound()) return values;
    values["I"] = *outcome.current_A;
    values["T"] = *outcome.temperature_C;
    if (outcome.terms) {
        const auto& [PJ, PS, PC, PR] = *outcome.terms;
        values.update({{"PJ", PJ}, {"PS", PS}, {"PC", PC}, {"PR", PR}});
        values["balance"] = (PJ + PS) - (PC + PR);
    }
    if (outcome.tb601) {
        const auto& [TSurface, TCore, Kiessling, KSkin, KMag] = *outcome.tb601;
        values.update({{"TSurface", TSurface},
                       {"TCore", TCore},
                       {"Kiessling", Kiessling},
                       {"KSkin", KSkin},
                       {"KMag", KMag}});
    }
    return values;
}

/// All that comes of a row.
json outcome_of(const json& group, const json& row) {
    const Method method = method_of(group.at("method"));
    const CalcCase c = case_of(group, row);
    const double angle = row.value("angle", 90.0);
    const bool german = row.value("lang", "en") == "de";
    ScriptedDialogs dialogs;
    for (const json& answer : row.value("answers", json::array()))
        dialogs.answers.push_back(answer == "yes" ? Answer::Yes : Answer::No);
    const Session session = {
        german ? LangId::German : LangId::English,
        german ? DecimalSeparator::Comma : DecimalSeparator::Point,
        RunMode{row.value<std::int16_t>("mode", group.value<std::int16_t>("mode", 1))},
        dialogs,
        nullptr,
        row.value("warn", true)};
    json outcome;
    try {
        outcome = as_json(find_method(method)->run(c, angle, session));
    } catch (const ProgramEnd&) {
        outcome = {{"ends", true}, {"failure", ""}};
    }
    if (method <= Method::TBB) outcome["failure"] = failure_of(method, c, angle);
    outcome["boxes"] = as_json(dialogs.shown);
    return outcome;
}

/// A number stands for what is sought, a text for the failure.
json whole_expectation(const json& row) {
    const json& expected = row.at("expect");
    if (expected.is_string()) return {{"failure", expected}};
    if (expected.is_object()) return expected;
    return {{"failure", ""}, {row.contains("T") ? "I" : "T", expected}};
}

TEST(SteadyMethods, give_what_their_rows_expect) {
    for (const json& group : test_data("steady_methods")) {
        for (const json& row : group.at("rows")) {
            const json outcome = outcome_of(group, row);
            expect_part(whole_expectation(row), outcome, closeness(group),
                        std::string(group.at("method")) + row.dump());
        }
    }
}

const std::map<Method, CalcCase> one_case_each = {{Method::TB601, line_264_34()},
                                                  {Method::TB207, twin_264_34()},
                                                  {Method::TBB, tube()},
                                                  {Method::Webs, sunny_264_34()},
                                                  {Method::Kirn, sunny_264_34()}};

CalcCase at_current(CalcCase c, double current) {
    c.Leitertemp_Merker_db = false;
    c.Stromstaerke_Merker_db = true;
    c.Stromstaerke_db = typed(current);
    return c;
}

// At the temperature found for a current the current is found again, and no memory is asked for.
TEST(SteadyMethods, lead_back_from_temperature_to_current_without_allocation) {
    RecordingDialogs dialogs;
    const Session session = {LangId::English, DecimalSeparator::Point, RunMode::Silent, dialogs};
    for (const auto& [method, base] : one_case_each)
        for (const double current : {0.0, 100.0, 646.0, 1900.0}) {
            const auto run = find_method(method)->run;
            CalcCase c = at_current(base, current);
            const std::size_t before = allocation_count();
            const SteadyResult there = run(c, 90, session);
            EXPECT_EQ(allocation_count(), before) << key_of(method);
            ASSERT_TRUE(there.sound()) << key_of(method) << current;
            c.Leitertemp_db.value = *there.temperature_C;
            c.Leitertemp_Merker_db = true;
            c.Stromstaerke_Merker_db = false;
            const std::size_t between = allocation_count();
            const SteadyResult back = run(c, 90, session);
            EXPECT_EQ(allocation_count(), between) << key_of(method);
            if (there.terms) {  // 0.01 W/m are 9 A near no current
                EXPECT_NEAR(*back.current_A, current, current > 0 ? 1 : 9) << key_of(method);
            } else {
                EXPECT_EQ(*back.current_A, *there.current_A) << key_of(method);
                EXPECT_NEAR(*back.current_A, current, 0.1) << key_of(method);
            }
        }
    ::operator delete(::operator new(1));
    EXPECT_GT(allocation_count(), 0U);
}

}  // namespace
}  // namespace zel
