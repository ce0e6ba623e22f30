#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "cli/process.h"
#include "fakes/scratch_folder.h"

namespace zel {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr const char* own_file = ".local/share/ZEL V.8.2/conductors.csv";

class ConductorCommand : public testing::Test {
protected:
    ProcessResult run(const std::vector<std::string>& words, const std::string& input = {}) {
        return run_zel(words, folder.path(), input, home.path());
    }
    json run_json(std::vector<std::string> words, const std::string& input = {}) {
        words.emplace_back("--json");
        const ProcessResult result = run(words, input);
        EXPECT_EQ(result.exit_status, 0) << result.errors;
        return json::parse(result.output);
    }
    ScratchFolder folder;
    ScratchFolder home;
};

TEST_F(ConductorCommand, picks_a_record_and_shows_it) {
    const ProcessResult picked = run({"conductor", "pick", "265/35", "-o", "r.dat"});
    EXPECT_EQ(picked.exit_status, 0) << picked.errors;
    EXPECT_EQ(picked.output, "264-AL1/34-ST1A -> r.dat\n");
    EXPECT_EQ(folder.read("r.dat").size(), 714U);
    const json shown = run_json({"conductor", "show", "r.dat"});
    EXPECT_EQ(shown.at("Bezeichnung1_db"), "264-AL1/34-ST1A");
    EXPECT_EQ(shown.at("DCR_20_db"), 0.10949999839067459);
    EXPECT_FALSE(shown.contains("KniepunktTemperatur_db"));
    const std::string page = run({"conductor", "show", "r.dat", "--lang", "de"}).output;
    EXPECT_THAT(page, AllOf(HasSubstr("0.1095 Ω/km"), HasSubstr("EN 50182:2001, table F.19"),
                            HasSubstr("Kniepunkt-Temperatur")));
}

TEST_F(ConductorCommand, writes_the_record_that_it_shows) {
    run({"conductor", "pick", "ZEBRA", "-o", "zebra.dat"});
    folder.write("zebra.json", run({"conductor", "show", "zebra.dat", "--json"}).output);
    EXPECT_EQ(run({"conductor", "write", "zebra.json", "-o", "again.dat"}).exit_status, 0);
    EXPECT_EQ(folder.read("again.dat"), folder.read("zebra.dat"));
    EXPECT_EQ(run_json({"conductor", "write", "-", "-o", "third.dat"}, folder.read("zebra.json")),
              json::parse(folder.read("zebra.json")));
}

TEST_F(ConductorCommand, writes_to_the_exchange_file_of_the_settings_without_a_path) {
    EXPECT_EQ(run({"conductor", "pick", "ZEBRA"}).exit_status, 2);
    home.write(".local/share/R-MOX V.6.1/flb_8261.ini",
               "[Seildatei]\nEinseil1_dat=" + folder.file("exchange.dat") + "\n");
    EXPECT_EQ(run({"conductor", "pick", "ZEBRA"}).exit_status, 0);
    EXPECT_EQ(folder.read("exchange.dat").substr(0, 15), "429-AL1/56-ST1A");
}

TEST_F(ConductorCommand, refuses_and_writes_nothing) {
    folder.write("empty.dat", "");
    folder.write("unknown.json", R"({"Seilfarbe": 1})");
    folder.write("long.json", R"({"Norm_db": ")" + std::string(51, 'x') + R"("})");
    folder.write("text.json", R"({"DCR_20_db": "much"})");
    const std::pair<std::vector<std::string>, const char*> refused[] = {
        {{"pick", "none such", "-o", "r.dat"}, "no conductor of the library"},
        {{"pick", "212-AL1/49-ST1A", "-o", "r.dat"}, "PANTHER"},
        {{"pick", "ZEBRA", "-o", "no/folder/r.dat"}, "no/folder/r.dat"},
        {{"show", "empty.dat"}, "no conductor is selected"},
        {{"show", "none.dat"}, "no conductor of the library"},
        {{"write", "unknown.json", "-o", "r.dat"}, "unknown.json: Seilfarbe: unknown key"},
        {{"write", "long.json", "-o", "r.dat"}, "Norm_db: the text has 51 characters"},
        {{"write", "text.json", "-o", "r.dat"}, "DCR_20_db: a number is expected"},
        {{"write", "text.json"}, "-o"},
        {{"list", "--sort", "colour"}, "--sort"},
        {{}, "subcommand"},
    };
    for (auto [words, told] : refused) {
        words.insert(words.begin(), "conductor");
        const ProcessResult result = run(words);
        EXPECT_EQ(result.exit_status, 2) << told;
        EXPECT_EQ(result.output, "");
        EXPECT_THAT(result.errors, HasSubstr(told));
    }
    EXPECT_FALSE(std::filesystem::exists(folder.file("r.dat")));
}

TEST_F(ConductorCommand, tells_what_of_a_case_has_no_place_in_a_record) {
    folder.write("case.json", R"({"Bezeichnung1_db": "A", "KniepunktTemperatur_db": 90})");
    const ProcessResult result = run({"conductor", "write", "case.json", "-o", "r.dat"});
    EXPECT_EQ(result.exit_status, 0);
    EXPECT_THAT(result.errors, HasSubstr("KniepunktTemperatur_db"));
    EXPECT_EQ(folder.read("r.dat").size(), 714U);
}

TEST_F(ConductorCommand, lists_own_conductors_beside_the_shipped_ones) {
    EXPECT_EQ(run_json({"conductor", "list"}).at("conductors").size(), 99U);
    home.write(own_file, "Bezeichnung1_db,conductor_type_db,conductor_shape_db,DCR_20_db\n"
                         "Hausseil,1,1,0.1\n");
    const json list = run_json({"conductor", "list"}).at("conductors");
    EXPECT_EQ(list.size(), 100U);
    EXPECT_EQ(list.front().at("name"), "Hausseil");
    EXPECT_EQ(list.front().at("own"), true);
    EXPECT_TRUE(list.front().at("cannot_run").contains("TB207"));
    const json found = run_json({"conductor", "list", "--find", "tube 120", "--sort", "resistance"})
                           .at("conductors");
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found.front().at("name"), "TUBE 120x10 E-AlMgSi0.5");
    EXPECT_THAT(run({"conductor", "list", "--find", "haus"}).output,
                AllOf(HasSubstr("Hausseil"), Not(HasSubstr("ZEBRA"))));
}

TEST_F(ConductorCommand, refuses_an_own_file_by_its_line) {
    home.write(own_file, "Bezeichnung1_db,conductor_type_db,conductor_shape_db\nHausseil,1,9\n");
    const ProcessResult result = run({"conductor", "list"});
    EXPECT_EQ(result.exit_status, 2);
    EXPECT_THAT(result.errors, HasSubstr("conductors.csv: line 2, column conductor_shape_db"));
}

// 35 °C, 0.6 m/s across, 900 W/m² across the line, emissivity 0.6, conductor at 80 °C, 50 Hz.
constexpr const char* rating_case = R"({
    "Leitertemp_Merker_db": -1, "Leitertemp_db": 80, "Hoehe_ueber_NN_db": 0, "Winkel_S_S_db": 90,
    "Windgeschwindigkeit_db": 0.6, "Winkel_W_S_db": 0, "Umgebungstemperatur_db": 35,
    "Globalstrahlung_db": 900, "Netzfrequenz_db": 50, "Emissionsverhaeltnis_db": 0.6,
    "Absorptionsverhaeltnis_db": 0.6, "Anzahl_Teilleiter_db": 1,
    "geogr_Breite_db": 51, "geo_laeng_db": -10, "geo_laeng_zeit_db": -15,
    "Tag_db": 21, "Monat_db": 6, "Stunden_db": 12, "Minuten_db": 20,
    "KniepunktTemperatur_db": 100)";

std::string rating(const std::string& methods) { return rating_case + methods + "}"; }

double current_of(const json& document, std::size_t method = 0) {
    return document.at("methods").at(method).at("current_A");
}

TEST_F(ConductorCommand, a_named_conductor_carries_the_current_of_the_standard) {
    const std::string input = rating(R"(, "rechnung_cigre601_merker_db": 1,
        "rechnung_cigre207_merker_db": 1, "rechnung_webs_merker_db": 1)");
    const json document = run_json({"steady", "-", "--conductor", "264-AL1/34-ST1A"}, input);
    for (std::size_t method = 0; method < 3; ++method)
        EXPECT_NEAR(current_of(document, method), 680, 0.08 * 680);
}

TEST_F(ConductorCommand, conductors_of_two_and_three_layers_meet_the_ratings_of_the_standard) {
    const std::string input = rating(R"(, "rechnung_webs_merker_db": 1)");
    double sum = 0;
    int count = 0;
    const json library = run_json({"conductor", "list"});
    for (const json& conductor : library.at("conductors")) {
        const std::string name = conductor.at("name");
        if (name.find("-AL1/") == std::string::npos ||
            !conductor.contains("Seiltemperatur_max_db") ||
            conductor.at("DrahtlagenzahlLeiter_db") == 1)
            continue;
        const std::string both = name + " " + std::string(conductor.at("second_name"));
        const double rated = conductor.at("Dauerstrombelastbarkeit_db");
        const json document = run_json({"steady", "-", "--conductor", both}, input);
        EXPECT_NEAR(current_of(document), rated, 0.035 * rated) << name;
        sum += current_of(document) / rated;
        ++count;
    }
    EXPECT_EQ(count, 27);
    EXPECT_NEAR(sum / count, 1, 0.005);
}

TEST_F(ConductorCommand, a_picked_conductor_rates_as_the_named_one) {
    const std::string input = rating(R"(, "rechnung_cigre601_merker_db": 1)");
    run({"conductor", "pick", "265/35", "-o", "r.dat"});
    const json named = run_json({"steady", "-", "--conductor", "265/35"}, input);
    EXPECT_EQ(run_json({"steady", "-", "--conductor", "r.dat"}, input), named);
    const json& told = named.at("messages").at(0);
    EXPECT_EQ(told.at("title"), "Conductor taken over");
    EXPECT_THAT(told.at("lines").dump(), HasSubstr("below the knee point: 1.5 W/(m·K)"));
}

TEST_F(ConductorCommand, a_conductor_of_the_wrong_kind_is_refused) {
    const ProcessResult result =
        run({"steady", "-", "--json", "--conductor", "TUBE 120x8 E-AlMgSi0.5"},
            rating(R"(, "rechnung_webs_merker_db": 1)"));
    EXPECT_EQ(result.exit_status, 2);
    EXPECT_EQ(json::parse(result.output).at("input_valid"), false);
    EXPECT_EQ(run({"steady", "-", "--conductor", "none such"}, rating("")).exit_status, 2);
}

TEST_F(ConductorCommand, a_named_conductor_follows_its_changes_of_state) {
    // 434.3 mm² of aluminium and 56.3 mm² of steel hold 1.27 kJ/(K m).
    const std::string input = rating(R"(, "rechnung_cigre207_merker_db": 1, "Z1_merker_db": 2,
        "Z1_Strom_db": 1200, "Z1_min_db": 1, "Z1_sec_db": 0)");
    const json document = run_json({"transient", "-", "--conductor", "435/55"}, input);
    const double first = document.at("start").at("temperature_C");
    const double last = document.at("rows").at(0).at("Temp_C");
    // The balance at 80 °C stands at some 950 A: 1200 A surpass it by some 45 W/m at first, which
    // is 2.1 K in a minute, less what the rising temperature gives off.
    EXPECT_GT(last, first + 1);
    EXPECT_LT(last, first + 4);
}

TEST_F(ConductorCommand, workbooks_take_a_named_conductor) {
    const std::vector<std::string> words = {"template", "steady-fix", "-o", "t.xlsx",
                                            "--conductor"};
    const auto with = [&](const char* name) {
        auto all = words;
        all.emplace_back(name);
        return run(all).exit_status;
    };
    EXPECT_EQ(with("none such"), 2);
    EXPECT_FALSE(std::filesystem::exists(folder.file("t.xlsx")));
    EXPECT_EQ(with("265/35"), 0);
    EXPECT_TRUE(std::filesystem::exists(folder.file("t.xlsx")));
    EXPECT_EQ(run({"batch", "t.xlsx", "--conductor", "none such"}).exit_status, 2);
}

TEST_F(ConductorCommand, a_tube_of_the_library_runs_by_the_busbar_method) {
    const json document = run_json({"steady", "-", "--conductor", "120/8"},
                                   rating(R"(, "rechnung_TBB_merker_db": 1)"));
    // 120x8 of 30 MS/m: about 3.2 kA in calm summer air.
    EXPECT_NEAR(current_of(document), 3200, 150);
}

}  // namespace
}  // namespace zel
