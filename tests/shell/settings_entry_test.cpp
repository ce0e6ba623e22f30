#include "shell/settings_entry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/errors.h"

namespace zel {
namespace {

using testing::HasSubstr;

std::string refusal(const char* key, std::string_view value) {
    try {
        (void)setting_entry(*find_setting(key), value);
        return {};
    } catch (const InputError& error) {
        return error.what();
    }
}

TEST(SettingsEntry, takes_the_numbers_that_a_setting_has) {
    for (const SettingRow& row : setting_rows())
        for (const std::int16_t number : row.offered)
            EXPECT_EQ(setting_entry(row, std::to_string(number)), std::to_string(number));
    EXPECT_EQ(setting_entry(*find_setting("Accessformat"), "-32768"), "-32768");
}

TEST(SettingsEntry, refuses_others_by_key_and_limit) {
    EXPECT_THAT(refusal("Gravi_merker", "4"),
                HasSubstr("Gravi_merker: \"4\" is not one of 1, 2, 3"));
    EXPECT_THAT(refusal("wi_v_wi_merker", "1"), HasSubstr("one of -1, 0"));
    EXPECT_THAT(refusal("Messzyklusdauer", "30"), HasSubstr("one of 5, 10, 15"));
    EXPECT_THAT(refusal("Accessformat", "32768"), HasSubstr("from -32768 to 32767"));
    for (const char* text : {"", " 1", "1 ", "1.0", "+1", "1x", "0x1"})
        EXPECT_NE(refusal("Gravi_merker", text), "") << text;
}

TEST(SettingsEntry, takes_texts_that_are_read_back_as_they_are) {
    EXPECT_EQ(setting_entry(*find_setting("Berechnungsdaten"), "/Größe/a b.mdb"), "/Größe/a b.mdb");
    EXPECT_EQ(setting_entry(*find_setting("Berechnungsdaten"), ""), "");  // the default again
    EXPECT_EQ(setting_entry(*find_setting("DeviceName"), "P"), "P");
    for (const char* text : {"x", "kein Eintrag gefunden", " /x", "/x ", "/x\n[VOR]", "/x\x7F"})
        EXPECT_THAT(refusal("Berechnungsdaten", text), HasSubstr("Berechnungsdaten: ")) << text;
    EXPECT_EQ(refusal("DeviceName", std::string(511, 'x')), "");
    EXPECT_THAT(refusal("DeviceName", std::string(512, 'x')), HasSubstr("at most 511 characters"));
}

}  // namespace
}  // namespace zel
