#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "cli/process.h"
#include "fakes/scratch_folder.h"

namespace zel {
namespace {

using nlohmann::json;
using testing::HasSubstr;

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

TEST_F(ConductorCommand, writes_the_record_that_it_shows) {
    run({"conductor", "pick", "ZEBRA", "-o", "zebra.dat"});
    folder.write("zebra.json", run({"conductor", "show", "zebra.dat", "--json"}).output);
    EXPECT_EQ(run({"conductor", "write", "zebra.json", "-o", "again.dat"}).exit_status, 0);
    EXPECT_EQ(folder.read("again.dat"), folder.read("zebra.dat"));
    EXPECT_EQ(run_json({"conductor", "write", "-", "-o", "third.dat"}, folder.read("zebra.json")),
              json::parse(folder.read("zebra.json")));
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

TEST_F(ConductorCommand, conductors_of_two_and_three_layers_meet_the_ratings_of_the_standard) {
    const std::string input = rating(R"(, "rechnung_webs_merker_db": 1)");
    double sum = 0;
    int count = 0;
    const json library = run_json({"conductor", "list"});
    EXPECT_EQ(library.at("conductors").size(), 99U);
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

}  // namespace
}  // namespace zel
