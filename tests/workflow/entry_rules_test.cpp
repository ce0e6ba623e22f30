#include "workflow/entry_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zel {
namespace {

using testing::ElementsAre;

TEST(EntryRule, takes_a_number_with_the_separator_of_the_session) {
    Entry field;
    EXPECT_FALSE(enter(field, "0,6", DecimalSeparator::Comma, LangId::German));
    EXPECT_EQ(field, (Entry{"0,6", 0.6}));
    EXPECT_FALSE(enter(field, " 12 ", DecimalSeparator::Comma, LangId::German));
    EXPECT_EQ(field, (Entry{" 12 ", 12}));
    EXPECT_FALSE(enter(field, "1e3", DecimalSeparator::Point, LangId::German));
    EXPECT_EQ(field.value, 1000);
}

TEST(EntryRule, empties_a_refused_text_and_keeps_the_former_double) {
    for (const char* text : {"abc", "-", "1.5", "1,5,0", " "}) {
        Entry field = {"7", 7};
        const auto box = enter(field, text, DecimalSeparator::Comma, LangId::English);
        ASSERT_TRUE(box) << text;
        EXPECT_EQ(box->title, "Incorrect input data");
        EXPECT_THAT(box->lines, ElementsAre("Input value can not be identified as a number. Please "
                                            "correct your input data !"));
        EXPECT_EQ(field, (Entry{"", 7})) << text;
    }
}

TEST(EntryRule, speaks_german) {
    Entry field;
    const auto box = enter(field, "x", DecimalSeparator::Comma, LangId::German);
    ASSERT_TRUE(box);
    EXPECT_EQ(box->title, "Fehlerhafte Eingabe");
    EXPECT_THAT(box->lines, ElementsAre("Eingegebener Wert kann nicht als Zahl interpretiert "
                                        "werden. Korrigieren Sie bitte die Eingabe !"));
}

TEST(EntryRule, takes_an_empty_text_as_no_input) {
    Entry field = {"7", 7};
    EXPECT_FALSE(enter(field, "", DecimalSeparator::Comma, LangId::English));
    EXPECT_FALSE(field.given());
    EXPECT_EQ(field.value, 7);
}

}  // namespace
}  // namespace zel
