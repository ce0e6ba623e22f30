#include "shell/startup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/memory_stores.h"
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

TEST_F(Startup, another_system_is_refused_in_the_chosen_language) {
    system.major_version = "4";
    for (const LangId lang : {LangId::English, LangId::German}) {
        answer->lang = lang;
        EXPECT_EQ(start().end, StartEnd::SystemRefused);
        EXPECT_THAT(dialogs.shown.back().lines.at(2),
                    testing::HasSubstr(lang == LangId::German ? "und" : "and"));
    }
}

TEST_F(Startup, the_first_start_of_the_companion_comes_before_the_paths_are_read) {
    shared.values.clear();
    platform.start_companion = [&] {
        shared.values = {{"Seildatei", "Seildatenbanknamepluspfad", "/usr/bin/zel"},
                         {"Seildatei", "Einseil1_dat", "/data/einseil1.dat"}};
    };
    EXPECT_EQ(start().end, StartEnd::Ready);
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(Startup, takes_the_separator_of_the_system_for_the_run) {
    platform.separator = DecimalSeparator::Comma;
    start();
    EXPECT_EQ(now().Punkt_Komma_Format_merker, 1);
    EXPECT_THAT(shared.written, IsEmpty());
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
