#include "persistence/case_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "fakes/scripted_dialogs.h"
#include "steady/case/case_fields.h"

namespace zel {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

CaseFile read(const FlatObject& values, DecimalSeparator separator = DecimalSeparator::Point) {
    return read_case(values, {LangId::English, separator});
}

std::string refusal(const std::string& key, const FlatValue& value) {
    return refusal_of([&] { return read({{key, value}}); });
}

TEST(CaseFile, of_nothing_is_a_case_with_its_defaults) {
    const CalcCase c = read({}).c;
    EXPECT_EQ(c, CalcCase{});
    EXPECT_EQ(c.Gravi_merker1_db, 1);
    EXPECT_EQ(c.Formel_merker1_db, 2);
    EXPECT_EQ(c.wzsz_merker_db, 2);
}

TEST(CaseFile, takes_a_number_as_it_stands_and_a_text_as_typed) {
    const auto [c, refused] = read({{"Windgeschwindigkeit_db", 0.1 + 0.2},
                                    {"Umgebungstemperatur_db", "-5,5"},
                                    {"Seildurchmesser_db", "22,4"},
                                    {"Projekt_db", "Linie 1"},
                                    {"Anzahl_Teilleiter_db", "2"},
                                    {"Leitertemp_Merker_db", -1.0},
                                    {"Stromstaerke_Merker_db", false},
                                    {"Z6_TEMP_db", 95.0},
                                    {"Z1_merker_db", 2.0}},
                                   DecimalSeparator::Comma);
    EXPECT_THAT(refused, IsEmpty());
    EXPECT_EQ(c.Windgeschwindigkeit_db, (Entry{"0,3", 0.1 + 0.2}));
    EXPECT_EQ(c.Umgebungstemperatur_db, (Entry{"-5,5", -5.5}));
    EXPECT_EQ(c.Seildurchmesser_db, (Entry{"22,4", 22.4}));
    EXPECT_EQ(c.Projekt_db, "Linie 1");
    EXPECT_EQ(c.Anzahl_Teilleiter_db, 2);
    EXPECT_TRUE(c.Leitertemp_Merker_db);
    EXPECT_FALSE(c.Stromstaerke_Merker_db);
    EXPECT_EQ(c.Z[5].TEMP.value, 95);
    EXPECT_EQ(c.Z[0].merker, 2);
}

TEST(CaseFile, tells_a_refused_typed_text_and_counts_it_as_no_input) {
    const auto [c, refused] = read({{"Windgeschwindigkeit_db", "0,6"}, {"Winkel_W_S_db", ""}});
    EXPECT_FALSE(c.Windgeschwindigkeit_db.given());
    EXPECT_FALSE(c.Winkel_W_S_db.given());
    ASSERT_THAT(refused, SizeIs(1));
    EXPECT_EQ(refused[0].field, "Windgeschwindigkeit_db");
    EXPECT_EQ(refused[0].box.title, "Incorrect input data");
}

TEST(CaseFile, rounds_whole_numbers_to_even_as_a_table_does) {
    EXPECT_EQ(read({{"Gravi_merker1_db", 2.5}}).c.Gravi_merker1_db, 2);
    EXPECT_EQ(read({{"Gravi_merker1_db", 3.5}}).c.Gravi_merker1_db, 4);
    EXPECT_THROW((void)read({{"DrahtzahlLeiter_db", 24.5}}), InputError);  // no part of a wire
    EXPECT_EQ(read({{"DrahtzahlLeiter_db", -32768.0}}).c.DrahtzahlLeiter_db, -32768);
}

TEST(CaseFile, rounds_calendar_and_clock_whether_typed_or_not) {
    const auto [c, refused] = read({{"Tag_db", 20.5},
                                    {"Monat_db", "6.5"},
                                    {"Stunden_db", 23.5},
                                    {"Minuten_db", "0.5"},
                                    {"Netzfrequenz_db", 16.5}});
    EXPECT_THAT(refused, IsEmpty());
    EXPECT_EQ(c.Tag_db, (Entry{"20", 20}));
    EXPECT_EQ(c.Monat_db, (Entry{"6", 6}));
    EXPECT_EQ(c.Stunden_db, (Entry{"24", 24}));
    EXPECT_EQ(c.Minuten_db, (Entry{"0", 0}));
    EXPECT_EQ(c.Netzfrequenz_db, (Entry{"16.5", 16.5}));
}

TEST(CaseFile, names_the_key_that_it_refuses) {
    const struct {
        const char* key;
        FlatValue value;
        const char* reason;
    } rows[] = {
        {"Windgeschwindigkeit", 1.0, "Windgeschwindigkeit: unknown key"},
        {"windgeschwindigkeit_db", 1.0, "windgeschwindigkeit_db: unknown key"},
        {"Z7_TEMP_db", 1.0, "Z7_TEMP_db: unknown key"},
        {"Z1_temp_db", 1.0, "Z1_temp_db: unknown key"},
        {"", 1.0, ": unknown key"},
        {"Windgeschwindigkeit_db", true, "Windgeschwindigkeit_db: a number is expected"},
        {"Seildurchmesser_db", "dick", "Seildurchmesser_db: a number is expected, not \"dick\""},
        {"Projekt_db", 7.0, "Projekt_db: a text is expected"},
        {"conductor_type_db", "x", "conductor_type_db: a number is expected, not \"x\""},
        {"conductor_type_db", true, "conductor_type_db: a number is expected"},
        {"DrahtzahlLeiter_db", 32768.0,
         "DrahtzahlLeiter_db: a whole number from -32768 to 32767 is expected"},
        {"rechnung_cigre207_merker_db", -1.0,
         "rechnung_cigre207_merker_db: 1 (selected) or 0 is expected"},
        {"Leitertemp_Merker_db", 1.0, "Leitertemp_Merker_db: -1 (yes) or 0 (no) is expected"},
    };
    for (const auto& [key, value, reason] : rows) EXPECT_EQ(refusal(key, value), reason);
}

CaseFile read_by_a_german(const FlatObject& values) {
    return read(values, DecimalSeparator::Comma);
}

/// A case in which every field has a value of its own.
CalcCase full_case(DecimalSeparator separator) {
    CalcCase c;
    int n = 0;
    for (const auto& [name, info, place] : fields_of(c)) {
        ++n;
        if (auto* const* text = std::get_if<std::string*>(&place)) **text = "Text " + name;
        if (auto* const* flag = std::get_if<bool*>(&place)) **flag = true;
        if (auto* const* whole = std::get_if<std::int16_t*>(&place))
            **whole = static_cast<std::int16_t>(name.starts_with("rechnung_") ? 1
                                                : name.starts_with("Z")       ? seeks_time
                                                                              : 10 + n);
        const double number = info->rounded ? n : n + 0.25;
        if (auto* const* entry = std::get_if<Entry*>(&place))
            **entry = {plain_number(number, separator), number};
    }
    return c;
}

TEST(CaseFile, written_values_read_back_to_the_same_case) {
    const CalcCase c = full_case(DecimalSeparator::Point);
    const FlatObject values = values_of(c);
    CalcCase all;
    EXPECT_EQ(values.size(), fields_of(all).size());
    EXPECT_EQ(read(values).c, c);
    EXPECT_EQ(read_by_a_german(values).c, full_case(DecimalSeparator::Comma));
    EXPECT_EQ(values_of(full_case(DecimalSeparator::Comma)), values);
}

TEST(CaseFile, only_what_was_entered_is_written) {
    EXPECT_THAT(values_of(CalcCase()), IsEmpty());
    CalcCase c;
    c.Windgeschwindigkeit_db = {" 0,60 ", 0.6};
    c.Leitertemp_db = {"", 80};  // emptied: the double is a former value
    c.Messwert_Strom_db = {"abc", 9999};
    c.Leitertemp_Merker_db = true;
    c.Formel_merker1_db = 1;
    c.Z[2].TEMP = {"95", 95};
    const FlatObject expected = {{"Windgeschwindigkeit_db", 0.6},
                                 {"Leitertemp_Merker_db", -1.0},
                                 {"Messwert_Strom_db", "abc"},
                                 {"Formel_merker1_db", 1.0},
                                 {"Z3_TEMP_db", 95.0}};
    EXPECT_EQ(values_of(c), expected);
}

}  // namespace
}  // namespace zel
