#include "adapters/ini/profile_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace zel {
namespace {

// A file as a person and other programs leave it: odd cases, blanks, comments, a duplicate, a line
// of no known form, a section twice, an "ö" in Windows-1252.
constexpr std::string_view foreign = "; settings\r\n"
                                     "loose = 1\r\n"
                                     "[vor]\r\n"
                                     "  FORMEL_Merker  =  1  \r\n"
                                     "Formel_merker=2\r\n"
                                     ";Gravi_merker=3\r\n"
                                     "Gravi_merker = 2;3\r\n"
                                     "Quoted=\" a b \"\r\n"
                                     "just a line\r\n"
                                     "Empty=\r\n"
                                     "Sum=a=b\r\n"
                                     "\r\n"
                                     "[ Seildatei ] trailing\r\n"
                                     "Einseil1_dat=C:\\Gr\xF6\xDF"
                                     "e\\e.dat\r\n"
                                     "[VOR]\r\n"
                                     "Late=1";

TEST(ProfileText, reads_what_stands_there) {
    const struct {
        const char *section, *key;
        std::optional<std::string> value;
    } rows[] = {
        {"VOR", "Formel_merker", "1"},   // the first of duplicates, whatever its letters
        {"Vor", "gravi_MERKER", "2;3"},  // no comment behind a value
        {"VOR", "Quoted", " a b "},
        {"VOR", "Empty", ""},
        {"VOR", "Sum", "a=b"},
        {"VOR", "loose", std::nullopt},
        {"VOR", "just a line", std::nullopt},
        {"VOR", "Late", std::nullopt},  // only the first section of a name counts
        {"SEILDATEI", "einseil1_DAT",
         "C:\\Gr\xF6\xDF"
         "e\\e.dat"},
        {"Printer", "DeviceName", std::nullopt},
        {"", "loose", std::nullopt},
    };
    for (const auto& [section, key, value] : rows)
        EXPECT_EQ(profile_value(foreign, section, key), value) << section << " " << key;
}

TEST(ProfileText, replaces_a_value_and_keeps_every_other_byte) {
    const struct {
        const char *key, *value;
        std::string_view before, after;
    } rows[] = {
        {"formel_merker", "7", "  FORMEL_Merker  =  1  \r\n", "  FORMEL_Merker  =  7  \r\n"},
        {"Empty", "x", "Empty=\r\n", "Empty=x\r\n"},
        {"Gravi_merker", "1", "Gravi_merker = 2;3\r\n", "Gravi_merker = 1\r\n"},
        {"Quoted", "q", "Quoted=\" a b \"\r\n", "Quoted=q\r\n"},
        {"Sum", "\"z\"", "Sum=a=b\r\n", "Sum=\"\"z\"\"\r\n"},
        {"New", "1", "Sum=a=b\r\n", "Sum=a=b\r\nNew=1\r\n"},
    };
    for (const auto& [key, value, before, after] : rows) {
        std::string expected(foreign);
        expected.replace(expected.find(before), before.size(), after);
        const std::string text = with_profile_value(foreign, "VOR", key, value);
        EXPECT_EQ(text, expected) << key;
        EXPECT_EQ(profile_value(text, "VOR", key), value);
    }
}

TEST(ProfileText, a_missing_section_comes_to_the_end) {
    EXPECT_EQ(with_profile_value("", "VOR", "a", "1"), "[VOR]\na=1\n");
    EXPECT_EQ(with_profile_value("\xEF\xBB\xBF", "VOR", "a", "1"), "\xEF\xBB\xBF[VOR]\na=1\n");
    EXPECT_EQ(with_profile_value("[x]\r\nb=2", "VOR", "a", "1"), "[x]\r\nb=2\r\n[VOR]\r\na=1\r\n");
    EXPECT_EQ(with_profile_value("[x]\n\n[VOR]", "vor", "a", "1"), "[x]\n\n[VOR]\na=1\n");
    EXPECT_EQ(with_profile_value("[VOR]\n\n\n[x]\n", "VOR", "a", "1"), "[VOR]\na=1\n\n\n[x]\n");
}

TEST(ProfileText, finds_the_first_section_behind_a_byte_order_mark) {
    EXPECT_EQ(profile_value("\xEF\xBB\xBF[VOR]\na=1\n", "VOR", "a"), "1");
}

TEST(ProfileText, every_value_without_a_line_end_comes_back) {
    for (const std::string value : {"", " ", "a", " a", "a ", "\"", "'", "\"\"", "'a'", "\"a", "=",
                                    "; x", "[VOR]", "/tmp/Größe"})
        for (const std::string_view text : {std::string_view(), foreign})
            EXPECT_EQ(profile_value(with_profile_value(text, "VOR", "k", value), "VOR", "k"),
                      value);
}

TEST(ProfileText, refuses_what_would_break_the_file) {
    EXPECT_THROW((void)with_profile_value("", "VOR", "a", "1\n[x]"), std::invalid_argument);
    EXPECT_THROW((void)with_profile_value("", "VOR", "a", "1\r"), std::invalid_argument);
    EXPECT_THROW((void)with_profile_value("", "V]R", "a", "1"), std::invalid_argument);
    EXPECT_THROW((void)with_profile_value("", " ", "a", "1"), std::invalid_argument);
    EXPECT_THROW((void)with_profile_value("", "VOR ", "a", "1"), std::invalid_argument);
    for (const char* key : {"", "a=b", ";a", "[a]", "a\nb", " a", "a\t"})
        EXPECT_THROW((void)with_profile_value("", "VOR", key, "1"), std::invalid_argument) << key;
}

}  // namespace
}  // namespace zel
