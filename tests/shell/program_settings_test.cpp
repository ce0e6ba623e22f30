#include "shell/program_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "fakes/memory_settings.h"
#include "shell/program_paths.h"

namespace zel {
namespace {

using S = ProgramSettings;
using testing::ElementsAre;
using testing::IsEmpty;

class SettingsTest : public testing::Test {
protected:
    Settings settings() { return {shared, user, "/data"}; }
    /// The number that `key` gives with `text` in its store.
    std::int16_t read(const char* key, const std::string& text) {
        const SettingRow& row = *find_setting(key);
        MemorySettings& store = row.home == SettingsHome::Shared ? shared : user;
        store.values = {{std::string(row.section), key, text}};
        return settings().now().*std::get<NumberMember>(row.member);
    }
    MemorySettings shared, user;
};

TEST_F(SettingsTest, empty_stores_give_the_defaults_and_are_not_written) {
    const ProgramSettings now = settings().now();
    const struct {
        NumberMember member;
        int value;
    } numbers[] = {
        {&S::startfenster, 1},  {&S::Druckvorschau, 1},
        {&S::Vollbildmodus, 1}, {&S::Accessformat, 2},
        {&S::Formel_merker, 2}, {&S::Excel_Leiterdaten_Merker, 2},
        {&S::Gravi_merker, 1},  {&S::wi_v_wi_merker, -1},
        {&S::Mess_merker, 0},   {&S::Excel_Zelle_Array_Schreiben_Merker, 2},
        {&S::wzsz_merker, 2},   {&S::Messzyklusdauer, 15},
        {&S::MUCOM, 2},         {&S::MGCOM, 1},
        {&S::LangId_screen, 1}, {&S::LangId_print, 1},
        {&S::ShowDialog, -1},   {&S::cigre_TKW_merker, 1},
    };
    for (const auto& [member, value] : numbers) EXPECT_EQ(now.*member, value);
    EXPECT_EQ(now.Berechnungsdaten, "/data/zel01.mdb");
    EXPECT_EQ(now.worstcasedatenVORV81, "/data/worstcas.mdb");
    EXPECT_EQ(now.Standardfalldaten, "/data/stcas.mdb");
    EXPECT_EQ(now.Seildatenbanknamepluspfad + now.Einseil1_dat + now.DeviceName, "");
    EXPECT_EQ(now.g(), 9.80665);
    EXPECT_EQ(now.frm_excel_IO_height, 10700);
    EXPECT_THAT(shared.written, IsEmpty());
    EXPECT_THAT(user.written, IsEmpty());
}

TEST_F(SettingsTest, a_number_is_trimmed_and_what_is_none_is_the_default) {
    EXPECT_EQ(read("Druckvorschau", " 2 "), 2);
    EXPECT_EQ(read("Druckvorschau", "2.0"), 2);
    EXPECT_EQ(read("Druckvorschau", "2,0"), 2);
    EXPECT_EQ(read("wi_v_wi_merker", "0"), 0);
    for (const char* text : {"", "two", "2x", "99999"}) EXPECT_EQ(read("Druckvorschau", text), 1);
    EXPECT_EQ(read("Vollbildmodus", "7"), 7);  // a number is kept whether a control has it or not
    EXPECT_EQ(read("Accessformat", "-30000"), -30000);
}

TEST_F(SettingsTest, a_gravity_of_no_known_number_leaves_g_at_0) {
    const std::pair<const char*, double> rows[] = {
        {"1", 9.80665}, {"2", 9.78}, {"3", 9.83}, {"4", 0}, {"0", 0}};
    for (const auto& [text, g] : rows) {
        read("Gravi_merker", text);
        EXPECT_EQ(settings().now().g(), g) << text;
    }
}

TEST_F(SettingsTest, a_language_of_no_known_number_is_german_and_not_written_back) {
    EXPECT_EQ(read("LangId", "2"), 2);
    EXPECT_EQ(settings().now().LangId_print, 2);  // the default of the reports
    EXPECT_EQ(read("LangId", "3"), 1);
    EXPECT_EQ(read("LangId_print", "4"), 4);
    EXPECT_THAT(user.written, IsEmpty());
}

TEST_F(SettingsTest, a_path_is_missing_where_it_is_short_or_says_so) {
    const std::pair<const char*, const char*> rows[] = {
        {"/x", "/x"},
        {"  /Größe/a b.mdb  ", "/Größe/a b.mdb"},
        {"x", "/data/zel01.mdb"},
        {"ü", "/data/zel01.mdb"},  // one character, whatever its bytes
        {"üx", "üx"},
        {"kein Eintrag gefunden", "/data/zel01.mdb"},
        {"kein Eintrag gefunden und mehr", "/data/zel01.mdb"},
        {"kein Eintrag gefunde", "kein Eintrag gefunde"},
    };
    for (const auto& [text, path] : rows) {
        shared.values = {{"vor", "BERECHNUNGSDATEN", text}};
        EXPECT_EQ(settings().now().Berechnungsdaten, path) << text;
    }
    shared.values = {{"Seildatei", "Seildatenbanknamepluspfad", "x"},
                     {"Printer", "DeviceName", "P"}};
    EXPECT_EQ(settings().now().Seildatenbanknamepluspfad, "");
    EXPECT_EQ(settings().now().DeviceName, "P");
}

TEST_F(SettingsTest, a_text_is_read_to_its_511th_character) {
    std::string text = "/";
    for (int i = 0; i < 600; ++i) text += "ö";
    shared.values = {{"VOR", "Berechnungsdaten", text}};
    EXPECT_EQ(settings().now().Berechnungsdaten, text.substr(0, 1 + 2 * 510));
}

TEST_F(SettingsTest, every_setting_is_written_at_once_and_read_again) {
    for (const SettingRow& row : setting_rows()) {
        Settings s = settings();
        const auto* number = std::get_if<NumberMember>(&row.member);
        if (number != nullptr)
            s.set(*number, row.offered.empty() ? std::int16_t{7} : row.offered.back());
        else
            s.set(std::get<TextMember>(row.member), "/some where/ä");
        if (row.keeping == Keeping::Kept) {
            EXPECT_EQ(text_of(settings().now(), row), text_of(s.now(), row)) << row.key;
        }
    }
    EXPECT_EQ(shared.read("VOR", "wi_v_wi_merker"), "0");
    EXPECT_EQ(user.read("MultiLang", "LangId_print"), "4");
    EXPECT_EQ(user.written.size(), 3U);
}

TEST_F(SettingsTest, a_write_that_fails_is_not_reported_and_the_value_holds_for_the_run) {
    shared.locked = true;
    Settings s = settings();
    s.set(&S::Gravi_merker, 3);
    s.set(&S::Berechnungsdaten, "/x/y.mdb");
    EXPECT_EQ(s.now().g(), 9.83);
    EXPECT_EQ(s.now().Berechnungsdaten, "/x/y.mdb");
    EXPECT_THROW(s.write(*find_setting("Gravi_merker"), "2"), OutputError);
}

TEST_F(SettingsTest, the_heat_capacity_option_is_never_kept) {
    shared.values = {{"VOR", "cigre_TKW_merker", "2"}, {"VOR", "Punkt_Komma_Format_merker", "1"}};
    Settings s = settings();
    EXPECT_EQ(s.now().cigre_TKW_merker, 1);
    EXPECT_EQ(s.now().Punkt_Komma_Format_merker, 2);
    s.set(&S::cigre_TKW_merker, 2);
    EXPECT_EQ(s.now().cigre_TKW_merker, 2);
    EXPECT_THAT(shared.written, IsEmpty());
    s.set(&S::cigre_TKW_merker, 1);
    EXPECT_EQ(shared.read("VOR", "cigre_TKW_merker"), "1");
    s.set(&S::Punkt_Komma_Format_merker, 2);
    EXPECT_EQ(shared.read("VOR", "Punkt_Komma_Format_merker"), "2");
}

TEST_F(SettingsTest, standard_settings_are_written_in_their_order) {
    shared.values = {{"VOR", "Excel_Leiterdaten_Merker", "1"}};
    Settings s = settings();
    for (const auto member : {&S::Gravi_merker, &S::Formel_merker, &S::wzsz_merker})
        s.set(member, 1);
    s.set(&S::cigre_TKW_merker, 2);
    shared.written.clear();
    set_standard_settings(s);
    using V = MemorySettings::Value;
    EXPECT_THAT(shared.written,
                ElementsAre(V{"VOR", "Gravi_merker", "1"}, V{"VOR", "Formel_merker", "2"},
                            V{"VOR", "wzsz_merker", "2"}, V{"VOR", "cigre_TKW_merker", "1"},
                            V{"VOR", "Excel_Zelle_Array_Schreiben_Merker", "2"},
                            V{"VOR", "wi_v_wi_merker", "-1"}, V{"VOR", "Mess_merker", "0"}));
    EXPECT_EQ(s.now().Excel_Leiterdaten_Merker, 1);
    EXPECT_EQ(s.now().g(), 9.80665);
}

TEST_F(SettingsTest, a_form_reads_its_setting_when_it_opens) {
    Settings s = settings();
    shared.values = {{"VOR", "Messzyklusdauer", "5"}};
    EXPECT_EQ(s.now().Messzyklusdauer, 15);
    s.reread(&S::Messzyklusdauer);
    EXPECT_EQ(s.now().Messzyklusdauer, 5);
}

TEST_F(SettingsTest, reach_the_case) {
    Settings s = settings();
    s.set(&S::Gravi_merker, 3);
    s.set(&S::Formel_merker, 1);
    s.set(&S::wzsz_merker, 1);
    MethodSelection selection;
    take_settings(selection, s.now());
    EXPECT_EQ(selection.Gravi_merker1_db, 3);
    EXPECT_EQ(selection.Formel_merker1_db, 1);
    EXPECT_EQ(selection.wzsz_merker_db, 1);
}

TEST(SettingRows, no_key_stands_twice_and_each_is_found_in_any_letters) {
    std::set<std::string_view> keys;
    for (const SettingRow& row : setting_rows())
        EXPECT_TRUE(keys.insert(row.key).second) << row.key;
    EXPECT_EQ(find_setting("FORMEL_Merker")->key, "Formel_merker");
    EXPECT_EQ(find_setting("cigre_TKW_merker"), nullptr);
    EXPECT_EQ(find_setting("Messzyklus"), nullptr);
}

TEST(ProgramPaths, lie_below_the_folders_of_the_system) {
    const ProgramPaths paths = program_paths({"10", "0", "0", "/d", "/c"});
    EXPECT_EQ(paths.companion_folder, "/d/R-MOX V.6.1");
    EXPECT_EQ(paths.shared_settings_file, "/d/R-MOX V.6.1/flb_8261.ini");
    EXPECT_EQ(paths.data_folder, "/d/ZEL V.8.2");
    EXPECT_EQ(paths.user_settings_file, "/c/zel/settings.ini");
    EXPECT_EQ(folder_of("/a/b.c"), "/a/");
    EXPECT_EQ(folder_of("b.c"), "");
}

}  // namespace
}  // namespace zel
