#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "cli/process.h"
#include "fakes/scratch_folder.h"

namespace zel {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

class SettingsCommand : public testing::Test {
protected:
    ProcessResult run(std::vector<std::string> words) {
        words.insert(words.begin(), "settings");
        return run_zel(words, ".", "", home.path());
    }
    static constexpr const char* file = ".local/share/R-MOX V.6.1/flb_8261.ini";
    ScratchFolder home;
};

TEST_F(SettingsCommand, lists_every_setting_with_its_value) {
    home.write(file, "[vor]\n gravi_MERKER = 4\nBerechnungsdaten=/Größe/z.mdb\n");
    const json list = json::parse(run({"list", "--json"}).output).at("settings");
    EXPECT_EQ(list.size(), 23U);
    const auto row_of = [&](const char* key) {
        return *std::find_if(list.begin(), list.end(),
                             [&](const json& row) { return row.at("key") == key; });
    };
    EXPECT_EQ(row_of("Gravi_merker"),
              json({{"section", "VOR"}, {"key", "Gravi_merker"}, {"value", 4}, {"stored", true}}));
    EXPECT_EQ(row_of("Vollbildmodus").at("stored"), false);
    EXPECT_EQ(row_of("DeviceName").at("value"), "");
    const std::string page = run({"list", "--lang", "de"}).output;
    EXPECT_THAT(page, HasSubstr("/Größe/z.mdb"));
    EXPECT_THAT(page, HasSubstr("Erdbeschleunigung"));
}

TEST_F(SettingsCommand, sets_one_value_and_gets_it_again) {
    home.write(file, "; mine\r\n[VOR]\r\nGRAVI_merker = 1\r\n");
    const ProcessResult set = run({"set", "Gravi_Merker", "3"});
    EXPECT_EQ(set.exit_status, 0) << set.errors;
    EXPECT_EQ(set.output, "");
    EXPECT_EQ(home.read(file), "; mine\r\n[VOR]\r\nGRAVI_merker = 3\r\n");
    EXPECT_EQ(run({"get", "gravi_merker"}).output, "3\n");
    EXPECT_EQ(json::parse(run({"set", "wi_v_wi_merker", "-1", "--json"}).output).at("value"), -1);
    EXPECT_EQ(run({"get", "LangId"}).output, "1\n");
}

TEST_F(SettingsCommand, first_write_starts_the_conductor_database_once) {
    EXPECT_EQ(run({"set", "Druckvorschau", "2"}).exit_status, 0);
    EXPECT_EQ(run({"get", "Einseil1_dat"}).output,
              home.file(".local/share/R-MOX V.6.1/einseil1.dat") + "\n");
    EXPECT_EQ(home.read(".local/share/R-MOX V.6.1/einseil1.dat"), "");
    EXPECT_TRUE(std::filesystem::is_directory(home.file(".local/share/ZEL V.8.2")));
    home.write(file, "[VOR]\n");  // another program's file stays as it is
    EXPECT_EQ(run({"set", "Druckvorschau", "1"}).exit_status, 0);
    EXPECT_EQ(home.read(file), "[VOR]\nDruckvorschau=1\n");
}

TEST_F(SettingsCommand, warning_below_the_minima_reaches_a_rating) {
    const std::string folder =
        ZEL_SOURCE_DIR "/tests/cases/steady/all_overhead_methods_temperature_with_advice";
    const auto messages = [&] {
        const ProcessResult rated =
            run_zel({"steady", "case.json", "--json"}, folder, "", home.path());
        return json::parse(rated.output).at("messages").size();
    };
    const std::size_t with_advice = messages();
    run({"set", "wi_v_wi_merker", "0"});
    EXPECT_LT(messages(), with_advice);
    EXPECT_EQ(run({"set", "wi_v_wi_merker", "-1"}).exit_status, 0);
    EXPECT_EQ(messages(), with_advice);
}

TEST_F(SettingsCommand, conductor_columns_reach_a_batch_that_is_not_told_of_them) {
    const std::string workbook = home.file("rows.xlsx");
    ASSERT_EQ(run_zel({"template", "steady-var", "-o", workbook}, ".", "", home.path()).exit_status,
              0);
    const auto refusal = [&] { return run_zel({"batch", workbook}, ".", "", home.path()).errors; };
    EXPECT_THAT(refusal(), HasSubstr("without editing option for conductor data"));
    run({"set", "Excel_Leiterdaten_Merker", "1"});
    EXPECT_THAT(refusal(), Not(HasSubstr("without editing option for conductor data")));
}

TEST_F(SettingsCommand, refuses_and_writes_nothing) {
    const std::vector<std::string> words[] = {{"set", "Gravi_merker", "4"},
                                              {"set", "cigre_TKW_merker", "2"},
                                              {"get", "nothing"},
                                              {"set", "Gravi_merker"},
                                              {"get"},
                                              {}};
    for (const auto& refused : words) {
        const ProcessResult result = run(refused);
        EXPECT_EQ(result.exit_status, 2);
        EXPECT_EQ(result.output, "");
        EXPECT_NE(result.errors, "");
    }
    EXPECT_TRUE(std::filesystem::is_empty(home.path()));
}

TEST_F(SettingsCommand, a_file_that_cannot_be_written_is_told) {
    home.write(".local/share/R-MOX V.6.1", "a file in the place of the folder");
    const ProcessResult result = run({"set", "Gravi_merker", "2"});
    EXPECT_EQ(result.exit_status, 2);
    EXPECT_THAT(result.errors, HasSubstr("R-MOX V.6.1: "));
}

}  // namespace
}  // namespace zel
