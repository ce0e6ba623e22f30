#include "persistence/conductor_link.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/memory_stores.h"
#include "fakes/steady_cases.h"
#include "persistence/exchange_record.h"

namespace zel {
namespace {

using testing::ElementsAre;

constexpr auto Point = DecimalSeparator::Point;
constexpr const char* exchange = "/link/einseil1.dat";

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
        return take_over_conductor(c, files, exchange, {lang, Point});
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
    copy_record_fields(read_record(files.files[exchange], Point), expected);
    EXPECT_EQ(take(), std::nullopt);
    EXPECT_EQ(c, expected);
    EXPECT_EQ(c.DCR_20_db, (Entry{"0.5", 0.5}));
    EXPECT_EQ(c.Seildurchmesser_db, (Entry{"0.0", 0}));
    EXPECT_EQ(c.KniepunktTemperatur_db, typed(100));
    EXPECT_EQ(c.ACDC_R_Option_Merker_db, 2);
}

TEST_F(ConductorLink, tells_that_nothing_is_selected_without_a_record) {
    const CalcCase before = c;
    const auto missing = take();
    files.files[exchange] = "";
    EXPECT_EQ(take(), missing);
    ASSERT_TRUE(missing);
    EXPECT_EQ(missing->icon, Icon::Stop);
    EXPECT_EQ(missing->title, "Conductor data not selected !");
    EXPECT_THAT(missing->lines,
                ElementsAre("There is no conductor data selected", "within the conductor database!",
                            "Please select a conductor data first !"));
    const auto german = take(LangId::German);
    EXPECT_EQ(german->title, "Keine Seilauswahl erfolgt !");
    EXPECT_THAT(german->lines, ElementsAre("Es wurde aus der Seildatenbank kein Seil ausgewählt .",
                                           "Bitte wählen Sie zunächst ein Seil aus. "));
    EXPECT_EQ(c, before);
}

struct KindRow {
    bool conductor_method, busbar_method;
    std::int16_t type;
    const char* first_line;  // of the refusal in English
};

constexpr const char* tube_wanted = "Within the calculation method for tubular busbars";
constexpr const char* no_tube = "Within the calculation method for overhead conductors";

constexpr KindRow kind_rows[] = {
    {true, false, steel_cored_conductor, nullptr},
    {true, false, tubular_busbar, no_tube},
    {false, true, tubular_busbar, nullptr},
    {false, true, homogeneous_conductor, tube_wanted},
    {false, true, 0, tube_wanted},  // a record of zero bytes is no tube
    {true, true, tubular_busbar, no_tube},
    {true, true, composite_core_conductor, nullptr},
    {false, false, steel_cored_conductor, nullptr},
    {false, false, tubular_busbar, no_tube},  // without a method the test is that of a conductor
    {false, false, 0, nullptr},
};

TEST_F(ConductorLink, the_kind_must_go_with_the_methods) {
    std::int16_t MethodSelection::*const conductor_methods[] = {
        &MethodSelection::rechnung_cigre601_merker_db,
        &MethodSelection::rechnung_cigre207_merker_db, &MethodSelection::rechnung_webs_merker_db,
        &MethodSelection::rechnung_kirn_merker_db};
    for (const KindRow& row : kind_rows)
        for (const auto method : conductor_methods) {
            c = CalcCase{};
            c.*method = row.conductor_method ? 1 : 0;
            c.rechnung_TBB_merker_db = row.busbar_method ? 1 : 0;
            files.files[exchange] = record_of(row.type);
            const CalcCase before = c;
            const auto box = take();
            ASSERT_EQ(box.has_value(), row.first_line != nullptr) << row.type;
            EXPECT_EQ(c == before, box.has_value());
            if (box) {
                EXPECT_EQ(box->lines.front(), row.first_line);
            }
        }
}

TEST_F(ConductorLink, tells_the_wrong_kind_in_both_languages) {
    MethodSelection busbar;
    busbar.rechnung_TBB_merker_db = 1;
    const auto german = wrong_kind(busbar, steel_cored_conductor, LangId::German);
    EXPECT_EQ(german->icon, Icon::Stop);
    EXPECT_EQ(german->title, "Falsche Leiterauswahl");
    EXPECT_THAT(german->lines,
                ElementsAre("Es wurde zur Berechnungsmethode für Kreisringstromschienen",
                            "ein Leiterseil aus der Seildatenbank gewählt !",
                            "Bitte starten Sie die Seildatenbank erneut und wählen dort eine "
                            "Kreisring-Stromschiene aus. + Chr(13) + Chr(10)"));
    const auto english = wrong_kind({}, tubular_busbar, LangId::English);
    EXPECT_EQ(english->title, " Invalid choice of conductor");
    EXPECT_THAT(english->lines,
                ElementsAre("Within the calculation method for overhead conductors",
                            "you have select a tubular busbars from the conductor database ! "
                            "(R-MOX) !",
                            "Please start R-MOX again and select an overhead conductor."));
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
}

TEST_F(ConductorLink, keeps_a_record_that_is_there_when_it_comes_into_being) {
    MemorySettings settings;
    files.files["/data/einseil1.dat"] = record_of(steel_cored_conductor);
    create_companion_files(files, "/data", "/usr/bin/zel", settings);
    EXPECT_EQ(files.files["/data/einseil1.dat"], record_of(steel_cored_conductor));
}

}  // namespace
}  // namespace zel
