#include "platform/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Text, shows_german_where_there_is_no_english) {
    constexpr Text both = {"Strom", "current"};
    constexpr Text german = {"Strom"};
    EXPECT_EQ(both.in(LangId::German), "Strom");
    EXPECT_EQ(both.in(LangId::English), "current");
    EXPECT_EQ(german.in(LangId::English), "Strom");
}

TEST(Fill, puts_values_into_their_places_and_leaves_all_else) {
    EXPECT_EQ(fill("{0} to {1}", {"0", "80"}), "0 to 80");
    EXPECT_EQ(fill("{1}{0}{1}", {"a", "b"}), "bab");
    EXPECT_EQ(fill("{0} and {1}", {"a"}), "a and {1}");
    EXPECT_EQ(fill("{0}", {"{0}"}), "{0}");
    EXPECT_EQ(fill("{}, {x}, {10}, {0", {"a"}), "{}, {x}, {10}, {0");
    EXPECT_EQ(fill("", {"a"}), "");
}

TEST(Lines, are_cut_at_line_breaks_and_keep_blanks_and_empty_lines) {
    EXPECT_THAT(lines_of(""), IsEmpty());
    EXPECT_THAT(lines_of("one"), ElementsAre("one"));
    EXPECT_THAT(lines_of("one \n two"), ElementsAre("one ", " two"));
    EXPECT_THAT(lines_of("\none\n\n"), ElementsAre("", "one", "", ""));
}

TEST(Joined, puts_the_separator_between_lines_only) {
    EXPECT_EQ(joined({}, "\n"), "");
    EXPECT_EQ(joined({"one"}, "\n"), "one");
    EXPECT_EQ(joined({"one", "", "two"}, " "), "one  two");
}

}  // namespace
}  // namespace zel
