#include "persistence/conductor_link.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/memory_stores.h"
#include "fakes/steady_cases.h"
#include "fakes/test_data.h"
#include "persistence/exchange_record.h"
#include "steady/case/method.h"

namespace zel {
namespace {

using nlohmann::json;
using testing::ElementsAre;

constexpr const char* exchange = "/link/einseil1.dat";
const json link_data = test_data("conductor_link");

std::string record_of(std::int16_t type) {
    ConductorData c;
    c.Bezeichnung1_db = "from the record";
    c.conductor_type_db = type;
    c.DCR_20_db = {"0.5", 0.5};
    return written_record(c);
}

class ConductorLink : public testing::Test {
protected:
    std::optional<Box> take(LangId lang = LangId::English) {
        return take_over_conductor(c, files, exchange, {lang, DecimalSeparator::Point});
    }
    MemoryFiles files;
    CalcCase c = twin_264_34();
};

TEST_F(ConductorLink, takes_over_all_that_the_record_holds_and_nothing_else) {
    files.files[exchange] = record_of(homogeneous_conductor);
    c.GMR_Merker_db = 1;
    c.ACDC_R_Option_Merker_db = 2;
    c.KniepunktTemperatur_db = typed(100);
    CalcCase expected = c;
    copy_record_fields(read_record(files.files[exchange], DecimalSeparator::Point), expected);
    EXPECT_EQ(take(), std::nullopt);
    EXPECT_EQ(c, expected);
    EXPECT_EQ(c.DCR_20_db, (Entry{"0.5", 0.5}));
    EXPECT_EQ(c.Seildurchmesser_db, (Entry{"0.0", 0}));
    EXPECT_EQ(c.KniepunktTemperatur_db, typed(100));
    EXPECT_EQ(c.ACDC_R_Option_Merker_db, 2);
}

TEST_F(ConductorLink, the_kind_must_go_with_the_methods) {
    for (const json& row : link_data.at("kinds"))
        for (const LangId lang : {LangId::German, LangId::English}) {
            SCOPED_TRACE(row.dump());
            c = CalcCase{};
            for (const Method method : all_methods)
                c.*flag_of(method) =
                    row.at("methods").get<std::string>().find(key_of(method)) != std::string::npos;
            if (row.contains("kind")) files.files[exchange] = record_of(row.at("kind"));
            if (row.contains("bytes")) files.files[exchange] = row.at("bytes");
            const CalcCase before = c;
            const auto box = take(lang);
            const json& refusal = row.at("box");
            EXPECT_EQ(box.has_value(), refusal.is_string());
            EXPECT_EQ(c == before, box.has_value());
            if (box) {
                const json& expected =
                    link_data.at(refusal).at(lang == LangId::German ? "de" : "en");
                EXPECT_EQ(box->title + "\n" + joined(box->lines, "\n"), expected);
                EXPECT_EQ(box->icon, Icon::Stop);
            }
            files.files.clear();
        }
}

TEST_F(ConductorLink, comes_into_being_with_its_file_and_its_keys) {
    MemorySettings settings;
    create_companion_files(files, "/data/R-MOX V.6.1", "/usr/bin/zel", settings);
    EXPECT_EQ(files.files,
              (std::map<std::string, std::string>{{"/data/R-MOX V.6.1/einseil1.dat", ""}}));
    EXPECT_THAT(
        settings.written,
        ElementsAre(
            MemorySettings::Value{"Seildatei", "Seildatenbanknamepluspfad", "/usr/bin/zel"},
            MemorySettings::Value{"Seildatei", "Einseil1_dat", "/data/R-MOX V.6.1/einseil1.dat"}));
    // A record that is there stays.
    files.files["/data/R-MOX V.6.1/einseil1.dat"] = record_of(steel_cored_conductor);
    create_companion_files(files, "/data/R-MOX V.6.1", "/usr/bin/zel", settings);
    EXPECT_EQ(files.files["/data/R-MOX V.6.1/einseil1.dat"], record_of(steel_cored_conductor));
}

TEST(ConductorLinkSettings, lack_an_exchange_file_that_this_program_may_make) {
    const auto lacks = [](const char* program, const char* exchange_file) {
        MemorySettings settings;
        if (program != nullptr) settings.write("Seildatei", "Seildatenbanknamepluspfad", program);
        if (exchange_file != nullptr) settings.write("Seildatei", "Einseil1_dat", exchange_file);
        return lacks_companion_files(settings);
    };
    EXPECT_TRUE(lacks(nullptr, nullptr));
    EXPECT_TRUE(lacks("/usr/bin/zel", ""));
    EXPECT_TRUE(lacks("kein Eintrag gefunden", "x"));
    EXPECT_FALSE(lacks("/opt/other", nullptr));
    EXPECT_FALSE(lacks("/opt/zel/other", nullptr));
    EXPECT_FALSE(lacks("/usr/bin/zel", "/link/einseil1.dat"));
}

}  // namespace
}  // namespace zel
