#include "workflow/rules/key_filter.h"

#include <gtest/gtest.h>

#include <string_view>

namespace zel {
namespace {

constexpr auto Comma = DecimalSeparator::Comma;
constexpr auto Point = DecimalSeparator::Point;

TEST(KeyFilter, passes_digits_minus_backspace_and_the_separator) {
    for (const char32_t key : std::u32string_view(U"0123456789-\b")) {
        EXPECT_TRUE(filter_key(key, {LangId::English, Comma}).passes);
        EXPECT_TRUE(filter_key(key, {LangId::English, Point}).passes);
    }
    EXPECT_TRUE(filter_key(U',', {LangId::English, Comma}).passes);
    EXPECT_TRUE(filter_key(U'.', {LangId::English, Point}).passes);
}

TEST(KeyFilter, drops_every_other_key_in_silence) {
    for (const char32_t key : std::u32string_view(U"aEe +*/:;<=> '\"°ä€\u0660\U0001D7CE\t\x7F\n")) {
        const FilteredKey filtered = filter_key(key, {LangId::English, Comma});
        EXPECT_FALSE(filtered.passes);
        EXPECT_FALSE(filtered.refusal);
    }
}

TEST(KeyFilter, refuses_the_other_separator_with_a_box) {
    const struct {
        char32_t key;
        DecimalSeparator separator;
        LangId lang;
        const char* title;
        const char* lines;
    } rows[] = {
        {U'.', Comma, LangId::German, "Unzulässige Eingabe!",
         "Als Dezimaltrennzeichen ist im Windows-Benutzerprofil das Dezimalkomma ( , ) "
         "eingestellt.\nBitte geben Sie deshalb zur Trennung des ganzzahligen und des "
         "gebrochenens Teils einer Zahl das Komma als Dezimaltrennzeichen ein!"},
        {U'.', Comma, LangId::English, "Input inadmissible!",
         "The decimal comma ( , ) is set as the decimal separator in the Windows user "
         "profile.\nSo please specify the comma as decimal separatorto separate the integer part "
         "and the fraction part!"},
        {U',', Point, LangId::German, "Unzulässige Eingabe!",
         "Als Dezimaltrennzeichen ist im Windows-Benutzerprofil der Dezimalpunkt ( . ) "
         "eingestellt.\nbitte geben Sie deshalb zur Trennung des ganzzahligen und des "
         "gebrochenens Teils einer Zahl den Punkt als Dezimaltrennzeichen ein!"},
        {U',', Point, LangId::English, "Input inadmissible!",
         "The decimal point ( . ) is set as the decimal separator in the Windows user "
         "profile.\nSo please specify the point as decimal separator to separate the integer part "
         "and the fraction part!"},
    };
    for (const auto& [key, separator, lang, title, lines] : rows) {
        const FilteredKey filtered = filter_key(key, {lang, separator});
        EXPECT_FALSE(filtered.passes);
        ASSERT_TRUE(filtered.refusal);
        EXPECT_EQ(filtered.refusal->title, title);
        EXPECT_EQ(joined(filtered.refusal->lines, "\n"), lines);
    }
}

TEST(KeyFilter, passes_everything_with_an_unknown_number_format) {
    for (const auto format : {DecimalSeparator{0}, DecimalSeparator{3}})
        for (const char32_t key : std::u32string_view(U"a.,"))
            EXPECT_TRUE(filter_key(key, {LangId::English, format}).passes);
}

}  // namespace
}  // namespace zel
