#include "shell/case_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/memory_stores.h"
#include "fakes/scripted_dialogs.h"

namespace zel {
namespace {

using testing::SizeIs;

class CaseSettings : public testing::Test {
protected:
    MemorySettings shared, user;
    Settings settings{shared, user, "/data"};
    ScriptedDialogs dialogs;
    Session session{LangId::German, DecimalSeparator::Comma, RunMode::Messages, dialogs};
    MethodSelection stored;
};

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
}

TEST_F(CaseSettings, reach_the_session) {
    settings.set(&ProgramSettings::wi_v_wi_merker, 0);
    settings.set(&ProgramSettings::cigre_TKW_merker, 2);
    take_settings(session, settings.now());
    EXPECT_FALSE(session.wi_v_wi_merker);
    const Session silenced = silent(session);
    EXPECT_EQ(silenced.Meldung_merker, RunMode::Silent);
    EXPECT_EQ(silenced.cigre_TKW_merker, session.cigre_TKW_merker);
    EXPECT_FALSE(silenced.wi_v_wi_merker);
    EXPECT_EQ(session.cigre_TKW_merker, HeatCapacityOption::At20Degrees);
}

}  // namespace
}  // namespace zel
