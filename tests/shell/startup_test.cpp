#include "shell/startup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/memory_settings.h"
#include "fakes/scripted_dialogs.h"

namespace zel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class Startup : public testing::Test {
protected:
    Startup() {
        shared.values = {{"Seildatei", "Seildatenbanknamepluspfad", "/opt/remox/remox"},
                         {"Seildatei", "Einseil1_dat", "/data/einseil1.dat"}};
        platform.ask_language = [this](const LanguageChoice& marked) {
            asked.push_back(marked);
            return answer;
        };
    }
    Started start(bool may_skip_language = true) {
        settings.emplace(shared, user, "/data/ZEL V.8.2");
        return S00_Start_Programminitialisierung(*settings, platform, may_skip_language);
    }
    void set_user(const char* key, const char* value) {
        user.write("MultiLang", key, value);
        user.written.clear();
    }
    const ProgramSettings& now() { return settings->now(); }

    SystemFacts system{"10", "0", "19045", "/data", "/config"};
    MemorySettings shared, user;
    std::optional<Settings> settings;
    ScriptedDialogs dialogs;
    std::vector<LanguageChoice> asked;
    std::optional<LanguageChoice> answer = LanguageChoice{LangId::English, true};
    StartupPlatform platform{system, dialogs};
};

TEST_F(Startup, the_language_is_asked_for_and_kept) {
    EXPECT_EQ(start().end, StartEnd::Ready);
    EXPECT_THAT(asked, ElementsAre(LanguageChoice{LangId::German, true}));
    using V = MemorySettings::Value;
    EXPECT_THAT(user.written,
                ElementsAre(V{"MultiLang", "ShowDialog", "-1"}, V{"MultiLang", "LangId", "2"}));
    answer = LanguageChoice{LangId::German, false};
    EXPECT_EQ(start().lang, LangId::German);
    EXPECT_EQ(asked.back(), (LanguageChoice{LangId::English, true}));
    EXPECT_EQ(start().lang, LangId::German);
    EXPECT_THAT(asked, SizeIs(2));  // the third start did not ask
    EXPECT_EQ(start(false).lang, LangId::German);
    EXPECT_EQ(asked.back(), (LanguageChoice{LangId::German, false}));
}

TEST_F(Startup, a_cancelled_language_dialog_ends_and_saves_nothing) {
    answer.reset();
    bool companion_started = false;
    platform.start_companion = [&] { companion_started = true; };
    EXPECT_EQ(start().end, StartEnd::LanguageCancelled);
    EXPECT_THAT(user.written, IsEmpty());
    EXPECT_THAT(shared.written, IsEmpty());
    EXPECT_FALSE(companion_started);
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(Startup, a_stored_language_of_3_is_german_and_stays_in_the_store) {
    set_user("LangId", "3");
    set_user("ShowDialog", "0");
    EXPECT_EQ(start().lang, LangId::German);
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_THAT(user.written, IsEmpty());
}

TEST_F(Startup, a_language_of_the_command_line_holds_for_the_run_alone) {
    platform.lang = LangId::English;
    EXPECT_EQ(start().lang, LangId::English);
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_THAT(user.written, IsEmpty());
    EXPECT_EQ(now().LangId_print, 2);
    for (const auto& [stored, print] : {std::pair("1", 1), std::pair("none", 2)}) {
        set_user("LangId_print", stored);
        start();
        EXPECT_EQ(now().LangId_print, print) << stored;
    }
}

TEST_F(Startup, systems_from_5_to_11_are_good) {
    const std::pair<const char*, bool> rows[] = {{"4", false}, {"5", true},   {"10", true},
                                                 {"11", true}, {"12", false}, {"", false},
                                                 {"x", false}, {"10x", false}};
    for (const auto& [major, good] : rows) EXPECT_EQ(runs_on(major), good) << major;
}

TEST_F(Startup, another_system_is_refused_in_the_chosen_language) {
    for (const char* major : {"4", "12"}) {
        system.major_version = major;
        EXPECT_EQ(start().end, StartEnd::SystemRefused);
    }
    ASSERT_THAT(dialogs.shown, SizeIs(2));
    EXPECT_EQ(dialogs.shown[0].icon, Icon::Stop);
    EXPECT_THAT(dialogs.shown[0].lines,
                ElementsAre("The application runs on the systems:", "",
                            "Microsoft Windows 10 and 11 ",
                            "The currently used systems is none of the above",
                            "the application can not be started.", "",
                            "Please contact the developer of the program", "for an Update !"));
    answer->lang = LangId::German;
    start();
    EXPECT_THAT(dialogs.shown[2].lines,
                ElementsAre("Das Programm ist auf den Betriebsystemen", "",
                            "Microsoft Windows 10 und 11 lauffähig !",
                            "Das aktuelle Betriebssystem entspricht keinem dieser Systeme",
                            "das Programm kann daher nicht ordnungsgemäß ausgeführt werden.",
                            "Bitte fragen Sie beim Programmhersteller unter Angabe ihres ",
                            "Betriebssystemes um ein Update nach!",
                            "Wenden Sie sich dazu bitte an den Entwickler des Programms."));
}

TEST_F(Startup, a_missing_database_path_is_told_and_a_missing_exchange_file_ends) {
    shared.values = {{"Seildatei", "Seildatenbanknamepluspfad", "x"}};  // too short for a path
    EXPECT_EQ(start().end, StartEnd::NoExchangeFile);
    ASSERT_THAT(dialogs.shown, SizeIs(2));
    for (const Box& box : dialogs.shown) EXPECT_EQ(box.icon, Icon::None);
    EXPECT_THAT(
        dialogs.shown[0].lines,
        ElementsAre("There is no filepath selected for using the conductor database R-MOX !",
                    "Please select it unter the menu item:",
                    "< Settings / Specify path for conductor database (R-MOX)...>"));
    EXPECT_THAT(dialogs.shown[1].lines,
                ElementsAre("There is no connection file and path defined for communication "
                            "between ZEL and R-MOX !",
                            "This application will be closed now, please start the application "
                            "R-MOX one time.",
                            "This will auto-define the connection between both applications."));
    shared.values.push_back({"Seildatei", "Einseil1_dat", "/e"});
    const Started started = start();
    EXPECT_EQ(started.end, StartEnd::Ready);
    EXPECT_EQ(started.state.companion_program_folder, "");
    EXPECT_THAT(dialogs.shown, SizeIs(3));
}

TEST_F(Startup, the_first_start_of_the_companion_comes_before_the_paths_are_read) {
    shared.values.clear();
    platform.start_companion = [&] {
        shared.values = {{"Seildatei", "Seildatenbanknamepluspfad", "/usr/bin/zel"},
                         {"Seildatei", "Einseil1_dat", "/data/einseil1.dat"}};
    };
    const Started started = start();
    EXPECT_EQ(started.end, StartEnd::Ready);
    EXPECT_EQ(started.state.companion_program_folder, "/usr/bin/");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(Startup, leaves_the_state_of_a_fresh_run) {
    shared.write("VOR", "Druckvorschau", "2");
    shared.write("VOR", "Berechnungsdaten", "/db/of/mine.mdb");
    shared.write("Printer", "DeviceName", "Laser");
    platform.separator = DecimalSeparator::Comma;
    platform.printer_exists = [](const std::string& name) { return name == "Laser"; };
    const ProgramState state = start().state;
    EXPECT_TRUE(state.Druck_direkt);
    EXPECT_FALSE(state.Schnellzugriff_offen || state.Excel_Modus || state.Excel_Stop);
    EXPECT_EQ(state.display_colour, 16777215);
    EXPECT_EQ(state.calculation_folder, "/db/of/");
    EXPECT_EQ(state.printer, "Laser");
    EXPECT_EQ(state.build_number, "19045");
    EXPECT_EQ(now().Punkt_Komma_Format_merker, 1);
    EXPECT_EQ(now().cigre_TKW_merker, 1);
    shared.write("Printer", "DeviceName", "Gone");
    EXPECT_EQ(start().state.printer, "");
}

TEST_F(Startup, the_short_circuit_area_keeps_the_lower_number_after_a_switch) {
    ProgramState state = start().state;
    EXPECT_EQ(state.short_circuit_short_name.de, "QUV V.3.0");
    EXPECT_EQ(state.short_circuit_short_name.en, "JOL V.3.0");
    state.language_switched();
    state.language_switched();
    EXPECT_EQ(state.short_circuit_short_name.de, "QUV V.2.0");
    EXPECT_EQ(state.short_circuit_short_name.en, "JOL V.2.0");
}

}  // namespace
}  // namespace zel
