#include "platform/text/windows_1252.h"

#include <gtest/gtest.h>

#include "platform/errors.h"

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
    for (const char* text : {"Ω", "Ł", "\xF0\x9F\x98\x80", "\xE4", "a\xC3", "\x80", "\xC0\x80"})
        EXPECT_THROW((void)windows_1252_of(text), InputError) << text;
}

}  // namespace
}  // namespace zel
