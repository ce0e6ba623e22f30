#include "workflow/advice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/steady_cases.h"
#include "workflow/emissivity.h"

namespace zel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* webs_title = "Important remark to calculation result by Webs:";
constexpr const char* title_1 = "Recommendation 1 for measuring of span fields failed:";
constexpr const char* title_2 = "Recommendation 2 for measuring of span fields failed:";
constexpr const char* title_3 = "Recommendation 3 for measuring of span fields failed:";

struct Situation {
    double angle = 90;
    double wind = 2;
    double current = 100;
    double rating = 680;
    double temperature = 60;
    bool webs = true;
    bool kirn = true;
    bool current_given = true;
    bool warn = true;
    RunMode mode = RunMode::Messages;
    LangId lang = LangId::English;
};

std::vector<Box> advice_in(const Situation& s) {
    CalcCase c = s.current_given ? twin_264_34_at(s.current) : twin_264_34();
    c.rechnung_webs_merker_db = s.webs ? 1 : 0;
    c.rechnung_kirn_merker_db = s.kirn ? 1 : 0;
    c.Dauerstrombelastbarkeit_db = typed(s.rating);
    c.Windgeschwindigkeit_db = typed(0.5);
    RecordingDialogs dialogs;
    const Session session = {s.lang, DecimalSeparator::Comma, s.mode, dialogs, nullptr, s.warn};
    return advice(c, {s.angle, s.wind, s.temperature}, session);
}

std::vector<std::string> titles_in(const Situation& s) {
    std::vector<std::string> titles;
    for (const Box& box : advice_in(s)) titles.push_back(box.title);
    return titles;
}

TEST(Advice, comes_on_the_unsafe_side_of_each_limit_only) {
    EXPECT_THAT(titles_in({}), IsEmpty());
    EXPECT_THAT(titles_in({.angle = 60}), IsEmpty());
    EXPECT_THAT(titles_in({.angle = 59.9}), ElementsAre(webs_title));
    EXPECT_THAT(titles_in({.angle = 120}), IsEmpty());
    EXPECT_THAT(titles_in({.angle = 361}), ElementsAre(webs_title));
    EXPECT_THAT(titles_in({.angle = 19.9, .wind = 0.59, .webs = false}), ElementsAre(title_1));
    EXPECT_THAT(titles_in({.angle = 20, .wind = 0.59, .webs = false}), IsEmpty());
    EXPECT_THAT(titles_in({.angle = 19.9, .wind = 0.6, .webs = false}), IsEmpty());
    EXPECT_THAT(titles_in({.current = 1020}), IsEmpty());
    EXPECT_THAT(titles_in({.current = 1020.1}), ElementsAre(title_2));
    EXPECT_THAT(titles_in({.current = 5000, .rating = 0}), IsEmpty());
    EXPECT_THAT(titles_in({.temperature = 65}), IsEmpty());
    EXPECT_THAT(titles_in({.temperature = 65.001}), ElementsAre(title_3));
}

TEST(Advice, comes_in_its_order) {
    EXPECT_THAT(titles_in({.angle = 5, .wind = 0.05, .current = 2000, .temperature = 90}),
                ElementsAre(webs_title, title_1, title_2, title_3));
}

TEST(Advice, of_the_survey_needs_kirn_and_a_given_current_and_the_setting) {
    const Situation all = {.angle = 5, .wind = 0.05, .current = 2000, .temperature = 90};
    Situation s = all;
    s.kirn = false;
    EXPECT_THAT(titles_in(s), ElementsAre(webs_title));
    s = all;
    s.current_given = false;
    EXPECT_THAT(titles_in(s), ElementsAre(webs_title));
    s = all;
    s.warn = false;
    EXPECT_THAT(titles_in(s), ElementsAre(webs_title));
    s = all;
    s.mode = RunMode::Silent;
    EXPECT_THAT(titles_in(s), IsEmpty());
}

TEST(Advice, fills_in_its_numbers) {
    const Situation s = {
        .angle = 10, .wind = 0.08682, .temperature = 70.04, .lang = LangId::German};
    const std::vector<Box> boxes = advice_in(s);
    ASSERT_THAT(boxes, SizeIs(3));
    EXPECT_EQ(boxes[0].lines[1], "beträgt 10,0 ° und ist damit kleiner 60° bzw. größer 120°!");
    EXPECT_EQ(boxes[0].lines[5], "angreifenden Luftgeschwindigkeit (= 0,09 m/s)");
    EXPECT_THAT(boxes[0].lines, SizeIs(12));
    EXPECT_EQ(boxes[1].lines[1], "ist bei Windgeschwindigkeit: 0,5 m/s ");
    EXPECT_EQ(boxes[1].lines[2], "und Anströmwinkel Wind/Seil : 10,0 ° ");
    EXPECT_EQ(boxes[1].lines[3], "= 0,09 m/s u. damit kleiner als der Wert 0,6 m/s!");
    EXPECT_THAT(boxes[1].lines, SizeIs(15));
    EXPECT_EQ(boxes[2].lines[1], "70,0 °C");
    Situation english = s;
    english.lang = LangId::English;
    EXPECT_EQ(advice_in(english)[2].lines[1], "70,0");
}

TEST(EmissivityFromAge, rises_from_new_to_old) {
    EXPECT_EQ(emissivity_from_age(0), 0.3);
    EXPECT_NEAR(*emissivity_from_age(1), 0.6, 1e-12);
    EXPECT_NEAR(*emissivity_from_age(9), 0.84, 1e-12);
    EXPECT_FALSE(emissivity_from_age(-0.1));
}

}  // namespace
}  // namespace zel
