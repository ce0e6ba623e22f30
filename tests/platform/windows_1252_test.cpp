#include "platform/text/windows_1252.h"

#include <gtest/gtest.h>

#include "platform/errors.h"
#include "platform/text/utf8.h"

namespace zel {
namespace {

TEST(Windows1252, has_its_characters_of_two_and_three_bytes) {
    EXPECT_EQ(utf8_of_windows_1252("AlMgSi \xE4\xF6\xFC\xDF"), "AlMgSi äöüß");
    EXPECT_EQ(utf8_of_windows_1252("\x80 \x96 \xB0"), "€ – °");
    EXPECT_EQ(windows_1252_of("€ – ° Ÿ"), "\x80 \x96 \xB0 \x9F");
}

TEST(Windows1252, every_byte_comes_back) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    EXPECT_EQ(windows_1252_of(utf8_of_windows_1252(all)), all);
}

TEST(Windows1252, refuses_what_it_does_not_have_and_what_is_no_text) {
    for (const char* text : {"Ω", "Ł", "\xF0\x9F\x98\x80", "\xE4", "a\xC3", "\x80", "\xC0\x80",
                             "\xE0\x82\xA9", "\xF0\x80\x82\xA9"})
        EXPECT_THROW((void)windows_1252_of(text), InputError) << text;
}

TEST(Utf8, has_the_characters_of_unicode_each_in_its_shortest_form) {
    for (const char* text : {"a", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF",
                             "\xEE\x80\x80", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_TRUE(is_utf8(text)) << text;
        EXPECT_EQ(width_of(text), 1U) << text;
    }
    for (const char* text :
         {"\x80", "\xC1\xBF", "\xC2", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xE4\xE4",
          "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE2\x82("})
        EXPECT_FALSE(is_utf8(text)) << text;
    EXPECT_EQ(width_of("Größe"), 5U);
    EXPECT_EQ(width_of("Gr\xF6\xDF"
                       "e"),
              5U);
}

TEST(Utf8, nothing_printable_steers_a_terminal) {
    EXPECT_EQ(printable("a\x1B[2J\tb\nGröße \xC2\x9B \x7F \xF6\r"),
              "a\\x1B[2J\\x09b\nGröße \\xC2\\x9B \\x7F \\xF6\\x0D");
}

TEST(Reasons, are_shortened_between_characters) {
    EXPECT_EQ(shortened("Größe", 3), "Gr...");
    EXPECT_EQ(shortened("Größe", 7), "Größe");
    EXPECT_EQ(in_quotes(std::string(61, 'x')), "\"" + std::string(60, 'x') + "...\"");
}

}  // namespace
}  // namespace zel
