#include "shell/case_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/memory_settings.h"
#include "fakes/scripted_dialogs.h"

namespace zel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class CaseSettings : public testing::Test {
protected:
    MemorySettings shared, user;
    Settings settings{shared, user, "/data"};
    ScriptedDialogs dialogs;
    Session session{LangId::German, DecimalSeparator::Comma, RunMode::Messages, dialogs};
    MethodSelection stored;
};

TEST_F(CaseSettings, a_case_with_the_present_settings_is_not_asked_about) {
    adopt_settings(stored, settings, session);
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(CaseSettings, yes_takes_the_stored_value_and_no_keeps_the_setting) {
    stored.Gravi_merker1_db = 3;
    stored.Formel_merker1_db = 1;
    stored.wzsz_merker_db = 1;
    dialogs.answers = {Answer::Yes, Answer::No, Answer::Yes};
    adopt_settings(stored, settings, session);
    EXPECT_EQ(stored.Gravi_merker1_db, 3);
    EXPECT_EQ(stored.Formel_merker1_db, 2);
    EXPECT_EQ(stored.wzsz_merker_db, 1);
    EXPECT_EQ(shared.read("VOR", "Gravi_merker"), "3");
    EXPECT_EQ(shared.read("VOR", "Formel_merker"), std::nullopt);
    EXPECT_EQ(shared.read("VOR", "wzsz_merker"), "1");
    ASSERT_THAT(dialogs.shown, SizeIs(3));
    for (const Box& box : dialogs.shown) {
        EXPECT_EQ(box.icon, Icon::Question);
        EXPECT_EQ(box.buttons, Buttons::YesNo);
        EXPECT_EQ(box.unattended, Answer::No);
    }
    EXPECT_EQ(dialogs.shown[0].lines.at(2), "ist zu 9,83 m/s^2 angenommen !");
    EXPECT_EQ(dialogs.shown[0].lines.at(5), "ist zu 9,80665 m/s^2 angenommen !");
    EXPECT_EQ(dialogs.shown[1].lines.at(1),
              "des einzulesenden Datensatzes ist auf < Formel 1(ABB)> gesetzt !");
    EXPECT_EQ(dialogs.shown[1].lines.at(3), "ist auf < Formel 2(Kiessling)> gesetzt!");
    EXPECT_EQ(dialogs.shown[2].lines.at(2),
              "des einzulesenden Datensatzes ist auf < ja > gesetzt !");
    EXPECT_EQ(dialogs.shown[2].lines.at(4), "ist auf < nein > gesetzt!");
}

TEST_F(CaseSettings, asks_in_english) {
    session.lang = LangId::English;
    session.separator = DecimalSeparator::Point;
    stored.Gravi_merker1_db = 2;
    stored.Formel_merker1_db = 1;
    stored.wzsz_merker_db = 1;
    adopt_settings(stored, settings, session);
    ASSERT_THAT(dialogs.shown, SizeIs(3));
    EXPECT_THAT(dialogs.shown[0].lines,
                ElementsAre("The setting : constant of gravity", "of the read-in data file",
                            "is 9.78 m/s^2 !", "The currently used setting ",
                            "for  constant of gravity", "is 9.80665 m/s^2 !",
                            "Will you take over the setting", "of the read-in data file ?"));
    EXPECT_EQ(dialogs.shown[1].lines.at(2), "is < formula 1(ABB)>");
    EXPECT_EQ(dialogs.shown[1].lines.at(5), "is < formula 2(Kiessling) >");
    EXPECT_EQ(dialogs.shown[2].lines.at(2), "is set on: < yes >");
    EXPECT_EQ(dialogs.shown[2].lines.at(5), "is set on: < no >");
    EXPECT_EQ(stored, MethodSelection());
}

TEST_F(CaseSettings, reach_the_session) {
    settings.set(&ProgramSettings::wi_v_wi_merker, 0);
    settings.set(&ProgramSettings::cigre_TKW_merker, 2);
    take_settings(session, settings.now());
    EXPECT_FALSE(session.wi_v_wi_merker);
    EXPECT_EQ(session.cigre_TKW_merker, 2);
}

}  // namespace
}  // namespace zel
