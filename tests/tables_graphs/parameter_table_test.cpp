#include "tables_graphs/parameter_table.h"

#include <gtest/gtest.h>

#include <random>

#include "fakes/scripted_dialogs.h"
#include "fakes/steady_cases.h"
#include "fakes/tb601_cases.h"
#include "fakes/test_data.h"
#include "platform/text/csv.h"
#include "platform/text/text.h"
#include "tables_graphs/curve_points.h"
#include "workflow/run/steady_run.h"

namespace zel {
namespace {

using nlohmann::json;

const json data = test_data("parameter_tables");

TEST(ParameterTableCheck, tells_the_first_of_its_refusals) {
    for (const json& row : data.at("check")) {
        CalcCase c;
        set_fields(c, row.at("set"));
        for (const LangId lang : {LangId::German, LangId::English}) {
            const auto box = check_table(c, lang);
            const std::string expected = row.at(lang == LangId::German ? "de" : "en");
            EXPECT_EQ(box ? joined(box->lines, "|").substr(0, expected.size()) : "", expected)
                << row;
            if (lang == LangId::English) {
                EXPECT_EQ(box ? box->title : "", row.at("title")) << row;
            }
            EXPECT_EQ(box.has_value(), !expected.empty()) << row;
        }
    }
}

struct Tables : testing::Test {
    ScriptedDialogs dialogs;
    Session session = {{LangId::English, DecimalSeparator::Point}, RunMode::Silent, dialogs};
};

CalcCase rateable_tube() {
    CalcCase c = tube();
    c.conductor_shape_db = 2;
    c.Seilquerschnitt_db = c.Mantelquerschnitt_db = typed(2814.9);
    c.KerndurchmesserTraeger_db = typed(104);
    c.ACDC_R_Option_Merker_db = resistance_by_formula;
    return c;
}

TEST_F(Tables, step_from_the_lowest_value_to_the_highest_that_is_reached) {
    for (const json& row : data.at("steps")) {
        CalcCase c = twin_264_34();
        c.Temp_min_db = typed(row.at("low"));
        c.Temp_max_db = typed(row.at("high"));
        c.Schrittweite_Temp_db = row.at("step");
        c.Wind3_db = typed(0.6);
        const auto table = calculate_table(c, session);
        EXPECT_EQ(table->winds, std::vector<double>{0.6});
        const auto expected = row.at("are").get<std::vector<double>>();
        ASSERT_EQ(table->steps.size(), expected.size()) << row;
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_NEAR(table->steps[i], expected[i], 1e-9) << row;
    }
}

/// Expects every cell to be what a run of its case finds.
void expect_runs(const CalcCase& c, const Session& session) {
    const auto table = calculate_table(c, session);
    ASSERT_TRUE(table);
    int compared = 0;
    Box refused;
    for (std::size_t step = 0; step < table->steps.size(); ++step)
        for (std::size_t wind = 0; wind < table->winds.size(); ++wind) {
            CalcCase cell = case_of_cell(c, table->stepped, table->winds[wind], table->steps[step]);
            const SteadyRunResult run = RunSteady(cell, session);
            if (!run.input_valid) {
                refused = run.refusal;
                continue;
            }
            ASSERT_EQ(run.methods.size(), table->methods.size());
            ++compared;
            for (std::size_t method = 0; method < run.methods.size(); ++method) {
                const SteadyResult& outcome = run.methods[method].outcome;
                const auto expected =
                    !outcome.sound() ? std::nullopt
                    : table->stepped == Stepped::Current
                        ? outcome.temperature_C
                        : std::optional(*outcome.current_A * c.Anzahl_Teilleiter_db);
                EXPECT_EQ(table->at(step, wind, method), expected);
            }
        }
    EXPECT_GE(compared, 4) << joined(refused.lines, "\n");
}

TEST_F(Tables, hold_in_each_cell_what_a_run_finds) {
    std::mt19937 random(20);
    const auto between = [&](double low, double high) {
        return typed(std::round(std::uniform_real_distribution(low, high)(random)));
    };
    for (int i = 0; i < 12; ++i) {
        CalcCase c = i % 3 == 2 ? rateable_tube() : of_all_methods();
        c.Anzahl_Teilleiter_db = static_cast<std::int16_t>(1 + i % 4);
        c.Winkel_S_S_db = between(0, 359);
        c.Winkel_W_S_db = between(0, 359);
        c.Umgebungstemperatur_db = between(-10, 40);
        c.Umgebungstemperaturmerker_db = i % 4 == 1 ? 1 : 0;
        c.Temp_min_db = between(-10, 20);
        c.Temp_max_db = between(60, 110);
        c.Schrittweite_Temp_db = 20;
        c.Strom_min_db = between(0, 100);
        c.Strom_max_db = between(1000, 2000);
        c.Schrittweite_Strom_db = 400;
        c.Wind1_db = typed(0);
        c.Wind4_db = between(1, 10);
        if (i % 2 == 1) {
            c.Leitertemp_Merker_db = false;
            c.Stromstaerke_Merker_db = true;
            c.Stromstaerkebuendel_Merker_db = i % 4 == 3;
            (c.Stromstaerkebuendel_Merker_db ? c.Stromstaerke_Buendel : c.Stromstaerke_db) =
                typed(500);
        }
        expect_runs(c, session);
    }
}

TEST_F(Tables, stay_empty_where_a_method_finds_nothing) {
    CalcCase c = twin_264_34();
    c.Temp_min_db = typed(20);
    c.Temp_max_db = typed(80);
    c.Schrittweite_Temp_db = 60;
    c.Wind2_db = typed(0.6);
    const auto table = calculate_table(c, session);
    EXPECT_FALSE(table->complete());
    EXPECT_EQ(cell_text(table->at(0, 0, 0), table->stepped, DecimalSeparator::Point), "");
    EXPECT_EQ(cell_text(table->at(1, 0, 0), table->stepped, DecimalSeparator::Point), "1331");
    const SheetDesign sheet = table_sheet(*table, {LangId::German, DecimalSeparator::Comma});
    EXPECT_EQ(std::get<std::string>(sheet.cells[1].content), "Cigre TB 207, 0,6 m/s, A");
    EXPECT_EQ(std::get<double>(sheet.cells.back().content), 1331);
    EXPECT_EQ(sheet.cells.size(), 5U);
}

TEST_F(Tables, can_be_stopped) {
    CalcCase c = twin_264_34();
    c.Temp_min_db = typed(40);
    c.Temp_max_db = typed(80);
    c.Schrittweite_Temp_db = 1;
    c.Wind2_db = typed(0.6);
    std::size_t told = 0;
    EXPECT_FALSE(calculate_table(c, session, [&](std::size_t done, std::size_t all) {
        EXPECT_EQ(all, 41U);
        told = done;
        return done < 7;
    }));
    EXPECT_EQ(told, 7U);
}

/// The fields of a line.
std::vector<std::string> fields(const std::string& csv, std::size_t line) {
    return parse_csv(csv).at(line).cells;
}

TEST_F(Tables, give_curves_their_own_points_and_more) {
    CalcCase c = twin_264_34_at(900);
    c.Strom_min_db = typed(100);
    c.Strom_max_db = typed(1030);
    c.Schrittweite_Strom_db = 200;
    c.Wind2_db = typed(0.6);
    const auto table = calculate_table(c, session);
    const auto curves = calculate_curves(c, session);
    ASSERT_EQ(table->steps.size(), 5U);
    ASSERT_GE(curves->steps.size(), 200U);
    EXPECT_EQ(curves->steps.back(), 1030);
    for (std::size_t step = 0, at = 0; step < table->steps.size(); ++step) {
        while (curves->steps.at(at) < table->steps[step] - 1e-6) ++at;
        EXPECT_NEAR(curves->steps[at], table->steps[step], 1e-9);
        EXPECT_NEAR(curves->at(at, 0, 0).value(), table->at(step, 0, 0).value(), 1e-6);
    }
    // The current of a sub-conductor is shown for the bundle.
    const std::string csv = steady_points(*curves, c);
    EXPECT_EQ(parse_csv(csv).size(), curves->steps.size() + 1);
    EXPECT_EQ(fields(csv, 1)[0], "TB207");
    EXPECT_EQ(fields(csv, 1)[2], "200");
    EXPECT_EQ(fields(csv, curves->steps.size())[2], "2060");
    EXPECT_EQ(fields(csv, 1)[3], exact_number(*curves->at(0, 0, 0)));
}

TEST(TransientPoints, have_the_current_of_their_row) {
    EXPECT_EQ(transient_points({{1, {{0, 50}, {60, 70.5}}}, {2, {{60, 70.5}}}},
                               {{0, 0, 400}, {0, 60, 900}, {60, 60, 0}}),
              "t_s,temperature_C,current_A\n0,50,900\n60,70.5,900\n60,70.5,0\n");
}

}  // namespace
}  // namespace zel
