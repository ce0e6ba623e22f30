#include "workflow/rules/entry_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "steady/case/case_fields.h"

namespace zel {
namespace {

using testing::ElementsAre;
using Field = Entry CalcCase::*;

constexpr auto Comma = DecimalSeparator::Comma;
constexpr auto Point = DecimalSeparator::Point;

std::optional<Box> entered(Field field, const char* text, LangId lang = LangId::English,
                           DecimalSeparator separator = Point) {
    CalcCase c;
    return enter(c, field, text, {lang, separator});
}

// One limit: what still passes, what is refused and what is told.
struct LimitRow {
    Field field;
    const char* passes;
    const char* refused;
    Text title;
    Text lines;
};

constexpr Text input_title = {" Fehlerhafte Eingabe", "Incorrect Input"};
constexpr Text range_title = {"Fehlerhafte Eingabe", "Incorrect input"};
constexpr Text plain_title = {"Fehlerhafte Eingabe", "Incorrect input data"};
constexpr Text wind = {
    "Die Eingabe für die Windgeschwindigkeit liegt nicht innerhalb der Berechnungsbandbreite "
    "von 0 bis 80 m/s !",
    "The input for the windspeed isn't within the range of 0 to 80 m/s !"};
constexpr Text too_cold = {"Eingegebener Wert < -50 °C. Korrigieren Sie bitte die Eingabe !",
                           "Input value lower than -50 °C. Please correct your input !"};
constexpr Text too_hot_for_table = {
    "Eingegebener Wert größer 500 °C. Korrigieren Sie bitte die Eingabe !",
    "Input value higher than 500 °C. Please correct your input !"};
constexpr Text current_too_high = {
    "Eingegebener Wert größer als 1000000 A. Korrigieren Sie bitte die Eingabe !",
    "Input value higher than 1000000 A. Please correct your input !"};

constexpr LimitRow limit_rows[] = {
    {&CalcCase::Winkel_W_S_db,
     "359.9",
     "359.91",
     range_title,
     {"Maximalwert für Winkel beträgt 359.9° !\nGeben Sie bitte einen geeigneten Wert ein",
      "Maximum value for angle is 359.9° !\nPlease use a value within this range !"}},
    {&CalcCase::Winkel_W_S_db,
     "0",
     "-0.1",
     range_title,
     {"Minimalwert für Winkel beträgt 0° !\nGeben Sie bitte einen geeigneten Wert ein",
      "Minimum value for angle is 0° !\nPlease use a value within this range !"}},
    {&CalcCase::Winkel_S_S_db,
     "360",
     "360.1",
     range_title,
     {"Maximalwert für Winkel beträgt 360° !", "Maximum value for angle is 360° !"}},
    {&CalcCase::Winkel_S_S_db,
     "0",
     "-1",
     range_title,
     {"Minimalwert für Winkel beträgt 0° !", "Minimum value for angle is 0° !"}},
    {&CalcCase::Hoehe_ueber_NN_db,
     "4500",
     "4500.1",
     plain_title,
     {"Maximalwert für die Höhe beträgt 4500 m über N.N. !",
      "Maximum value for altitude is 4500 m above sea level !"}},
    {&CalcCase::Globalstrahlung_db,
     "1400",
     "1400.1",
     plain_title,
     {"Maximalwert für die Globalstrahlung beträgt 1370 W /qm !\n"
      "=Solarkonstante bei senkrechtem Strahleneinfall\n"
      "ohne Schwächung durch Erdatmosphäre!",
      "Maximum value for solar heating is 1370 W /qm !\n"
      "Please use a value beneath the maximum value !"}},
    {&CalcCase::Leitertemp_db,
     "500",
     "500.1",
     input_title,
     {"Eingegebener Wert > 500 °C. Korrigieren Sie bitte die Eingabe !",
      "Input value higher than 500 °C. Please correct your input !"}},
    {&CalcCase::Leitertemp_db, "-50", "-50.1", input_title, too_cold},
    {&CalcCase::Temp_min_db, "500", "500.1", input_title, too_hot_for_table},
    {&CalcCase::Temp_min_db, "-50", "-50.1", input_title, too_cold},
    {&CalcCase::Temp_max_db, "500", "501", input_title, too_hot_for_table},
    {&CalcCase::Temp_max_db, "-50", "-51", input_title, too_cold},
    {&CalcCase::Strom_min_db, "1000000", "1000000.1", input_title, current_too_high},
    {&CalcCase::Strom_max_db, "1e6", "1000001", input_title, current_too_high},
    {&CalcCase::Windgeschwindigkeit_db, "80", "80.1", plain_title, wind},
    {&CalcCase::Windgeschwindigkeit_db, "0", "-0.1", plain_title, wind},
    {&CalcCase::Wind1_db, "80", "80.1", plain_title, wind},
    {&CalcCase::Wind1_db, "0", "-0.1", plain_title, wind},
    {&CalcCase::Wind2_db, "80", "80.1", plain_title, wind},
    {&CalcCase::Wind2_db, "0", "-0.1", plain_title, wind},
    {&CalcCase::Wind3_db, "80", "81", plain_title, wind},
    {&CalcCase::Wind3_db, "0", "-0.1", plain_title, wind},
    {&CalcCase::Wind4_db, "80", "81", plain_title, wind},
    {&CalcCase::Wind4_db, "0", "-0.1", plain_title, wind},
    {&CalcCase::Wind5_db, "80", "81", plain_title, wind},
    {&CalcCase::Wind5_db, "0", "-0.1", plain_title, wind},
    {&CalcCase::Wind6_db, "80", "1e3", plain_title, wind},
    {&CalcCase::Wind6_db, "0", "-1", plain_title, wind},
};

TEST(EntryRules, limits_hold_on_both_sides_and_are_told_in_both_languages) {
    for (const LimitRow& row : limit_rows) {
        EXPECT_FALSE(entered(row.field, row.passes)) << name_of(row.field) << " " << row.passes;
        for (const LangId lang : {LangId::German, LangId::English}) {
            const auto box = entered(row.field, row.refused, lang);
            ASSERT_TRUE(box) << name_of(row.field) << " " << row.refused;
            EXPECT_EQ(box->title, row.title.in(lang)) << name_of(row.field);
            EXPECT_EQ(joined(box->lines, "\n"), row.lines.in(lang));
        }
    }
}

bool has_limit(Field field, bool upper) {
    return std::any_of(std::begin(limit_rows), std::end(limit_rows), [&](const LimitRow& row) {
        const double refused = parse_number(row.refused, Point).value_or(0);
        const double passes = parse_number(row.passes, Point).value_or(0);
        return row.field == field && (refused > passes) == upper;
    });
}

bool is_measured(Field field) {
    return field == &CalcCase::Messwert_Strom_db || field == &CalcCase::Messwert_Temperatur_db;
}

TEST(EntryRules, all_other_fields_take_any_number_and_nothing_else) {
    for (const CaseField& row : case_fields()) {
        const auto* field = std::get_if<Field>(&row.key);
        if (field == nullptr || is_measured(*field)) continue;
        EXPECT_EQ(entered(*field, "-1e9").has_value(), has_limit(*field, false)) << row.name;
        EXPECT_EQ(entered(*field, "1e9").has_value(), has_limit(*field, true)) << row.name;
        for (const char* text : {"abc", "-", "1,5"}) {
            const auto box = entered(*field, text);
            ASSERT_TRUE(box) << row.name;
            EXPECT_EQ(box->title, "Incorrect input data");
        }
    }
}

TEST(EntryRules, takes_a_number_with_the_separator_of_the_session) {
    const struct {
        const char* text;
        DecimalSeparator separator;
        double value;
    } rows[] = {
        {"0,6", Comma, 0.6}, {"0.6", Point, 0.6},  {" 12 ", Comma, 12}, {"12\r\n", Comma, 12},
        {"1e1", Point, 10},  {"1E-1", Comma, 0.1}, {",5", Comma, 0.5},  {"5.", Point, 5},
    };
    for (const auto& [text, separator, value] : rows) {
        CalcCase c;
        EXPECT_FALSE(
            enter(c, &CalcCase::Windgeschwindigkeit_db, text, {LangId::German, separator}));
        EXPECT_EQ(c.Windgeschwindigkeit_db, (Entry{text, value}));
    }
}

TEST(EntryRules, takes_an_exponent) {
    CalcCase c;
    EXPECT_FALSE(enter(c, &CalcCase::Feldlaenge_db, "1e3", {LangId::German, Comma}));
    EXPECT_EQ(c.Feldlaenge_db, (Entry{"1e3", 1000}));
}

TEST(EntryRules, rounds_calendar_and_clock_to_the_even_neighbour_and_shows_it) {
    const struct {
        const char* text;
        const char* shown;
        double value;
    } rows[] = {
        {"14", "14", 14},
        {" 7 ", " 7 ", 7},
        {"6,0", "6,0", 6},
        {"14,5", "14", 14},
        {"15,5", "16", 16},
        {"23,51", "24", 24},
        {"0,5", "0", 0},
        {"-0,5", "0", 0},
        {"-1,5", "-2", -2},
        {"1,2e1", "1,2e1", 12},
        {"125e-2", "1", 1},
        {"0,4999", "0", 0},
        {"40000,5", "40000", 40000},
    };
    for (const Field field :
         {&CalcCase::Tag_db, &CalcCase::Monat_db, &CalcCase::Stunden_db, &CalcCase::Minuten_db}) {
        for (const auto& [text, shown, value] : rows) {
            CalcCase c;
            EXPECT_FALSE(enter(c, field, text, {LangId::German, Comma}));
            EXPECT_EQ(c.*field, (Entry{shown, value})) << name_of(field) << " " << text;
        }
        EXPECT_TRUE(entered(field, "abc"));
    }
    CalcCase c;
    EXPECT_FALSE(enter(c, &CalcCase::Netzfrequenz_db, "16.7", {LangId::English, Point}));
    EXPECT_EQ(c.Netzfrequenz_db, (Entry{"16.7", 16.7}));
}

TEST(EntryRules, empties_a_refused_text_and_keeps_the_former_double) {
    for (const char* text : {"abc", "-", "1.5", "1,5,0", " ", "80,1"}) {
        CalcCase c;
        c.Windgeschwindigkeit_db = {"7", 7};
        EXPECT_TRUE(enter(c, &CalcCase::Windgeschwindigkeit_db, text, {LangId::English, Comma}));
        EXPECT_EQ(c.Windgeschwindigkeit_db, (Entry{"", 7})) << text;
    }
}

TEST(EntryRules, text_that_is_no_number_is_told_in_both_languages) {
    const auto german = entered(&CalcCase::Netzfrequenz_db, "x", LangId::German);
    const auto english = entered(&CalcCase::Netzfrequenz_db, "x", LangId::English);
    ASSERT_TRUE(german && english);
    EXPECT_EQ(german->title, "Fehlerhafte Eingabe");
    EXPECT_THAT(german->lines, ElementsAre("Eingegebener Wert kann nicht als Zahl interpretiert "
                                           "werden. Korrigieren Sie bitte die Eingabe !"));
    EXPECT_EQ(english->title, "Incorrect input data");
    EXPECT_THAT(english->lines, ElementsAre("Input value can not be identified as a number. Please "
                                            "correct your input data !"));
}

TEST(EntryRules, takes_an_empty_text_as_no_input) {
    CalcCase c;
    c.Leitertemp_db = {"7", 7};
    EXPECT_FALSE(enter(c, &CalcCase::Leitertemp_db, "", {LangId::English, Comma}));
    EXPECT_EQ(c.Leitertemp_db, (Entry{"", 7}));
}

TEST(EntryRules, measured_value_takes_any_text) {
    CalcCase c;
    EXPECT_FALSE(enter(c, &CalcCase::Messwert_Strom_db, "620.5", {LangId::English, Point}));
    EXPECT_EQ(c.Messwert_Strom_db, (Entry{"620.5", 620.5}));
    EXPECT_FALSE(enter(c, &CalcCase::Messwert_Strom_db, "abc", {LangId::English, Point}));
    EXPECT_EQ(c.Messwert_Strom_db, (Entry{"abc", 620.5}));
}

TEST(EntryRules, field_without_a_key_takes_any_number) {
    Entry field;
    EXPECT_FALSE(enter(field, nullptr, "-1e9", {LangId::English, Point}));
    EXPECT_EQ(field.value, -1e9);
    EXPECT_TRUE(enter(field, nullptr, "-", {LangId::English, Point}));
}

}  // namespace
}  // namespace zel
