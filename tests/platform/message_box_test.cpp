#include "platform/message_box.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zel {
namespace {

using testing::ElementsAre;

constexpr BoxText question = {Icon::Question,
                              {"Frage {0}", "question {0}"},
                              {"Wert {1}\nWeiter?", "value {1}\nGo on?"},
                              Buttons::YesNo,
                              Answer::No};

TEST(BoxIn, fills_title_and_lines_of_one_language) {
    const Box box = box_in(LangId::English, question, {"A", "80.1"});
    EXPECT_EQ(box.icon, Icon::Question);
    EXPECT_EQ(box.title, "question A");
    EXPECT_THAT(box.lines, ElementsAre("value 80.1", "Go on?"));
    EXPECT_EQ(box.buttons, Buttons::YesNo);
    EXPECT_EQ(box.unattended, Answer::No);
    EXPECT_THAT(box_in(LangId::German, question).lines, ElementsAre("Wert {1}", "Weiter?"));
}

TEST(RecordingDialogs, keep_each_box_and_answer_as_a_run_without_a_user) {
    RecordingDialogs dialogs;
    const Box first = box_in(LangId::German, question);
    const Box second = {Icon::Warning, "title", {"line"}};
    EXPECT_EQ(dialogs.show(first), Answer::No);
    EXPECT_EQ(dialogs.show(second), Answer::Ok);
    EXPECT_THAT(dialogs.shown(), ElementsAre(first, second));
}

}  // namespace
}  // namespace zel
