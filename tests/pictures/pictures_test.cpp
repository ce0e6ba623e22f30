#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <sstream>

#include "fakes/memory_canvas.h"
#include "fakes/memory_stores.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/short_circuit_cases.h"
#include "fakes/steady_cases.h"
#include "persistence/conductor_library.h"
#include "pictures/balance_picture.h"
#include "pictures/conductor_picture.h"
#include "pictures/methods_picture.h"
#include "pictures/shapes.h"
#include "pictures/situation_picture.h"
#include "pictures/utilisation_picture.h"

namespace zel {
namespace {

constexpr Locale english = {LangId::English, DecimalSeparator::Point};
constexpr Locale german = {LangId::German, DecimalSeparator::Comma};

/// With all that the methods for overhead lines read.
CalcCase all_methods_case() {
    CalcCase c = sunny_264_34();
    c.rechnung_cigre601_merker_db = c.rechnung_webs_merker_db = c.rechnung_kirn_merker_db = 1;
    c.ACDC_R_Option_Merker_db = 1;
    c.KerndurchmesserTraeger_db = typed(7.47);
    c.DrahtzahlTraeger_db = 7;
    c.DrahtdurchmesserTraeger_db = typed(2.49);
    c.T_Koeff_DC_Resist_Leiter_quadrat_db = typed(0);
    c.radialthermalconductivity_unter_KPT_db = c.radialthermalconductivity_ueber_KPT_db = typed(2);
    c.KniepunktTemperatur_db = typed(100);
    c.Dauerstrombelastbarkeit_db = typed(680);
    return c;
}

class Pictures : public testing::Test {
protected:
    SteadyRunResult run(CalcCase& c) { return RunSteady(c, session); }
    ScriptedDialogs dialogs;
    Session session{english, RunMode::Silent, dialogs};
};

std::vector<std::string> texts_of(const Picture& picture) {
    MemoryCanvas canvas;
    draw(canvas, picture);
    std::vector<std::string> texts;
    for (const auto& written : canvas.texts) {
        texts.push_back(written.text);
        EXPECT_GE(written.x, 0) << written.text;
        EXPECT_LE(written.x + canvas.text_width(written.text, written.font), picture_sheet.right)
            << written.text;
        EXPECT_LE(written.y + canvas.text_height(written.font), picture_sheet.bottom)
            << written.text;
    }
    return texts;
}

/// How far a balance may be off, W/m: a current is found to 1 A, a temperature to 0.5 W/m.
double tolerance(const CalcCase& c, const SteadyResult& outcome) {
    const double watts_an_ampere = 2 * outcome.terms->PJ / std::max(1.0, *outcome.current_A);
    return c.Leitertemp_Merker_db ? 0.01 + watts_an_ampere : 0.5;
}

TEST_F(Pictures, what_flows_in_flows_out) {
    std::mt19937 random(17);
    const auto between = [&](double low, double high) {
        return typed(std::uniform_real_distribution(low, high)(random));
    };
    int balances = 0;
    for (int i = 0; i < 300; ++i) {
        CalcCase c = all_methods_case();
        if (i % 3 == 0) {
            c = tube();
            c.Winkel_S_S_db = typed(0);
            c.Anzahl_Teilleiter_db = c.conductor_shape_db = 1;
        }
        if (i % 2 == 0) {
            c.Leitertemp_Merker_db = false;
            c.Stromstaerke_Merker_db = true;
            c.Stromstaerke_db = between(0, 1500);
        }
        c.Leitertemp_db = between(20, 150);
        c.Windgeschwindigkeit_db = between(0, 15);
        c.Winkel_W_S_db = between(0, 359);
        c.Umgebungstemperatur_db = between(-20, 45);
        c.Globalstrahlung_db = between(0, 1200);
        const SteadyRunResult result = run(c);
        for (const auto& [method, caption, text, outcome] : result.methods) {
            const auto terms = heat_terms(method, outcome, c, result.angle, session);
            ASSERT_EQ(terms.has_value(), outcome.sound());
            if (!terms) continue;
            ++balances;
            const HeatFlows flows = flows_of(*terms, method);
            for (const auto& side : {flows.in, flows.out})
                for (const HeatFlow& flow : side) EXPECT_GE(flow.watts, 0);
            EXPECT_EQ(flows.in.size() + flows.out.size(), 4U);
            const double most = outcome.terms ? tolerance(c, outcome) : 1e-9 * sum_of(flows.out);
            EXPECT_NEAR(sum_of(flows.in), sum_of(flows.out), most + 1e-9) << key_of(method);
        }
    }
    EXPECT_GT(balances, 700);
}

TEST(Flows, air_that_is_hotter_than_the_conductor_heats_it) {
    const HeatFlows flows = flows_of({30, 5, -2, 37}, Method::TB207);
    ASSERT_EQ(flows.in.size(), 3U);
    EXPECT_EQ(flows.in.back().name.en, "Heat of the air");
    EXPECT_EQ(flows.in.back().watts, 2);
    ASSERT_EQ(flows.out.size(), 1U);
}

TEST(Situation, shows_the_angle_that_counts) {
    struct {
        double line, wind, acute, counted;
    } const rows[] = {{0, 90, 90, 90},   {0, 100, 80, 10},  {0, 150, 30, 60},  {90, 0, 90, 90},
                      {10, 200, 10, 10}, {350, 20, 30, 60}, {20, 350, 30, 60}, {45, 75, 30, 30}};
    for (const auto& [line, wind, acute, counted] : rows) {
        CalcCase c = twin_264_34();
        c.Winkel_S_S_db = typed(line);
        c.Winkel_W_S_db = typed(wind);
        const WindSituation at = *wind_situation(c);
        EXPECT_DOUBLE_EQ(at.acute, acute);
        EXPECT_DOUBLE_EQ(at.counted, counted);
        const auto texts = texts_of(situation_picture(c, english));
        const std::string told = "counts as " + plain_number(counted, english.separator) + "°";
        EXPECT_EQ(testing::Value(texts, testing::Contains(told)), acute != counted)
            << line << " " << wind;
    }
    EXPECT_FALSE(wind_situation({}));
    (void)texts_of(situation_picture({}, german));
}

/// At 51° north and 10° east on 21 June the sun culminates at 12:20 standard time, 62.4° high; it
/// rises in the north-east and sets in the north-west.
TEST(Situation, the_sun_moves_from_east_to_west) {
    CalcCase c = sunny_264_34();
    c.rechnung_webs_merker_db = 1;
    c.geogr_Breite_db = typed(51);
    c.geo_laeng_db = typed(-10);
    const auto at = [&](double hour, double minute) {
        c.Stunden_db = typed(hour);
        c.Minuten_db = typed(minute);
        return *sun_place(c);
    };
    EXPECT_NEAR(at(12, 20).direction, 180, 0.5);
    EXPECT_NEAR(at(12, 20).height, 62.4, 0.1);
    EXPECT_NEAR(at(4, 30).direction, 54, 4);
    EXPECT_NEAR(at(20, 10).direction, 306, 4);
    EXPECT_LT(at(23, 0).height, 0);
    c.Tag_db = {};
    EXPECT_FALSE(sun_place(c));
}

TEST(Conductor, wires_of_the_library_lie_inside_their_conductors) {
    MemoryFiles files;
    for (const std::string name : {"/conductors.csv", "/materials.csv"}) {
        std::ostringstream content;
        content << std::ifstream(ZEL_SOURCE_DIR "/data" + name).rdbuf();
        files.files[name] = content.str();
    }
    const ConductorLibrary library(files, {"", "/own.csv"}, DecimalSeparator::Point);
    std::size_t with_wires = 0;
    for (const LibraryConductor& conductor : library.conductors()) {
        const auto section = conductor_section(conductor.c);
        ASSERT_TRUE(section);
        int wires = 0;
        for (const WireRing& ring : section->rings) {
            EXPECT_LE(2 * ring.radius + ring.wire, section->diameter * 1.001)
                << conductor.c.Bezeichnung1_db;
            if (!ring.core) wires += ring.count;
        }
        if (section->rings.empty()) continue;
        ++with_wires;
        EXPECT_EQ(wires, conductor.c.DrahtzahlLeiter_db) << conductor.c.Bezeichnung1_db;
    }
    EXPECT_GT(with_wires, library.conductors().size() / 2);
}

/// The mean drop of TB 601 over the ring follows from the course: half of it at once without a
/// core.
TEST(Conductor, course_over_the_radius_leads_from_core_to_surface) {
    const RadialCourse solid({.diameter = 20}, 81, 80);
    EXPECT_DOUBLE_EQ(solid.at(0), 81);
    EXPECT_DOUBLE_EQ(solid.at(5), 80.75);
    EXPECT_DOUBLE_EQ(solid.at(10), 80);
    const RadialCourse cored({.diameter = 20, .core = 8}, 81, 80);
    EXPECT_DOUBLE_EQ(cored.at(2), 81);
    EXPECT_DOUBLE_EQ(cored.at(4), 81);
    EXPECT_NEAR(cored.at(7), 80 + (51 - 32 * std::log(10. / 7)) / (84 - 32 * std::log(2.5)), 1e-12);
    EXPECT_DOUBLE_EQ(cored.at(10), 80);
}

TEST_F(Pictures, keep_their_texts_on_the_sheet_in_both_languages) {
    CalcCase c = all_methods_case();
    const SteadyRunResult result = run(c);
    for (const Locale& locale : {english, german}) {
        static_cast<Locale&>(session) = locale;
        EXPECT_THAT(texts_of(*methods_picture(c, result, locale)),
                    testing::Contains(testing::HasSubstr("1360 A")));
        (void)texts_of(*conductor_picture(c, &result, locale));
        (void)texts_of(situation_picture(c, locale));
        for (const MethodResult& line : result.methods)
            (void)texts_of(*balance_picture(c, result, line.method, session));
    }
    EXPECT_FALSE(conductor_picture({}, nullptr, english));
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST(Use, is_never_rounded_across_its_limit) {
    const auto told = [](double load, bool withstands) {
        return share_text({true, load, 100, withstands}, DecimalSeparator::Comma);
    };
    EXPECT_EQ(told(86.84, true), "86,8");
    EXPECT_EQ(told(99.96, true), "< 100");
    EXPECT_EQ(told(100, true), "100,0");
    EXPECT_EQ(told(100.04, false), "> 100");
    EXPECT_EQ(told(115.2, false), "115,2");
}

TEST(Use, of_conductor_and_equipment_follows_the_verdict) {
    ShortCircuitCase c = copper_far().content();
    ShortCircuitResult result = RunShortCircuit(c, DecimalSeparator::Point).result;
    EXPECT_DOUBLE_EQ(utilisation(c, result)->share(), result.S_th / result.S_zul);
    EXPECT_EQ(utilisation(c, result)->withstands, result.verdict_Leiter == withstands);
    (void)texts_of(*utilisation_picture(c, result, german));
    c.Leiter_Bmittel = equipment;
    c.Ithr = typed(16);
    c.Tkr = typed(4);
    for (const double duration : {1.0, 9.0}) {
        result = {};
        result.T_k = duration;
        result.I_th = 12;
        result.verdict_Betriebsmittel = duration < 4 ? withstands : does_not_withstand;
        EXPECT_NEAR(utilisation(c, result)->limit, duration < 4 ? 16 : 16 * 2.0 / 3, 1e-9);
    }
    EXPECT_FALSE(utilisation(c, {}));
}

}  // namespace
}  // namespace zel
