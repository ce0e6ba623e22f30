#include "workflow/rules/transient_cells.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "steady/case/state_change.h"

namespace zel {
namespace {

using testing::ElementsAre;

constexpr auto point = DecimalSeparator::Point;

CalcCase bundle_of(std::int16_t n) {
    CalcCase c;
    c.Anzahl_Teilleiter_db = n;
    return c;
}

std::optional<Box> type(CalcCase& c, StateCell cell, std::string_view text,
                        LangId lang = LangId::English, std::size_t row = 0) {
    return enter_cell(c, {row, cell}, text, {lang, point});
}

struct LimitRow {
    StateCell cell;
    const char* text;
    bool refused;
};

// Compared in 32 bits: 999999.03 and 350.00001 are the limits themselves there.
constexpr LimitRow limit_rows[] = {
    {&StateChange::Strom, "999999", false},   {&StateChange::Strom, "999999.03", false},
    {&StateChange::Strom, "999999.04", true}, {&StateChange::Strom, "1000000", true},
    {&StateChange::Strom, "-5", false},       {&StateChange::TEMP, "350", false},
    {&StateChange::TEMP, "350.00001", false}, {&StateChange::TEMP, "350.0001", true},
    {&StateChange::TEMP, "-50", false},       {&StateChange::TEMP, "-50.000001", false},
    {&StateChange::TEMP, "-50.1", true},      {&StateChange::min, "60", false},
    {&StateChange::min, "60.1", true},        {&StateChange::min, "-1", false},
    {&StateChange::sec, "59", false},         {&StateChange::sec, "59.4", false},
    {&StateChange::sec, "59.5", true},        {&StateChange::sec, "60", true},
    {&StateChange::sec, "40000", true},       {&StateChange::sec, "-40000", false},
};

TEST(TransientCells, limits_hold_on_both_sides) {
    for (const auto& [cell, text, refused] : limit_rows) {
        CalcCase c = bundle_of(1);
        EXPECT_EQ(type(c, cell, text).has_value(), refused) << text;
        EXPECT_EQ((c.Z[0].*cell).text, refused ? "" : text);
    }
}

TEST(TransientCells, current_is_that_of_the_bundle_and_held_for_one_sub_conductor) {
    CalcCase c = bundle_of(2);
    EXPECT_FALSE(type(c, &StateChange::Strom, "1000"));
    EXPECT_EQ(c.Z[0].Strom, (Entry{"1000", 500}));
    // The limit is that of the bundle: half a million each would be within it.
    EXPECT_TRUE(type(c, &StateChange::Strom, "1000000"));
}

TEST(TransientCells, refused_text_clears_text_and_number) {
    for (const char* text : {"abc", "-", "1,5", "400"}) {
        CalcCase c = bundle_of(1);
        EXPECT_FALSE(type(c, &StateChange::TEMP, "80"));
        EXPECT_TRUE(type(c, &StateChange::TEMP, text)) << text;
        EXPECT_EQ(c.Z[0].TEMP, Entry{}) << text;
    }
}

TEST(TransientCells, empty_text_is_accepted_and_0) {
    CalcCase c = bundle_of(3);
    EXPECT_FALSE(type(c, &StateChange::min, "5"));
    EXPECT_FALSE(type(c, &StateChange::min, ""));
    EXPECT_EQ(c.Z[0].min, Entry{});
}

TEST(TransientCells, text_that_is_no_number_is_told_with_the_stop_icon) {
    CalcCase c = bundle_of(1);
    const auto german = type(c, &StateChange::Strom, "abc", LangId::German);
    ASSERT_TRUE(german);
    EXPECT_EQ(german->icon, Icon::Stop);
    EXPECT_EQ(german->title, "Fehlerhafte Eingabe");
    EXPECT_THAT(german->lines,
                ElementsAre("Eingegebener Wert kann nicht als Zahl interpretiert werden. "
                            "Korrigieren Sie bitte die Eingabe !"));
    EXPECT_EQ(type(c, &StateChange::Strom, "abc")->title, "Incorrect input data");
}

struct TextRow {
    StateCell cell;
    const char* text;
    std::size_t row;
    std::vector<std::string> german;
    std::vector<std::string> english;
};

TEST(TransientCells, box_beyond_a_limit_names_the_row) {
    const TextRow rows[] = {
        {&StateChange::Strom,
         "1e6",
         0,
         {"Der Maximalwert für die Stromstärke ", "der Zustandsänderung 1 beträgt 999999 Ampere !",
          "Geben Sie bitte einen geringeren Wert für die Stromstärke ein"},
         {"Maximum value for current ", "for the change-of-state 1 is 999999 Ampere !",
          "Please correct your input. "}},
        {&StateChange::TEMP,
         "351",
         1,
         {"Der maximale Eingabewert für die Temperatur", "der Zustandsänderung 2 beträgt 350 °C!",
          "Geben Sie bitte einen geringeren Wert für die Temperatur ein"},
         {"Maximum value of conductor temperature", "for the change-of-state 2 is 350 °C !",
          "Please correct your input."}},
        {&StateChange::TEMP,
         "-51",
         2,
         {"Der minimale Eingabewert für die Temperatur", "der Zustandsänderung 3 beträgt -50 °C!",
          "Geben Sie bitte einen größeren Wert für die Temperatur ein"},
         {"Minimum value of conductor temperature", "for the change-of-state 3 is -50 °C !",
          "Please correct your input."}},
        {&StateChange::min,
         "61",
         4,
         {"Der Maximalwert für die Zeitdauer ", "der Zustandsänderung 5 beträgt 60 min !",
          "Geben Sie bitte einen geringeren Wert für die Zeitdauer ein"},
         {"Maximum value for time", "of the change-of-state 5 is 60 min !",
          "Please correct your input."}},
        {&StateChange::sec,
         "60",
         5,
         {"Der Maximalwert für die Sekundenangabe der Zeitdauer",
          "der Zustandsänderung 6 beträgt 59 Sekunden !",
          "Geben Sie bitte einen geringeren Sekundenwert"},
         {"Maximum input value for seconds", "of the change-of-state 6 is 59 seconds !",
          "Please correct your input."}},
    };
    for (const auto& [cell, text, row, german, english] : rows) {
        CalcCase c = bundle_of(1);
        const auto de = type(c, cell, text, LangId::German, row);
        ASSERT_TRUE(de);
        EXPECT_EQ(de->lines, german);
        EXPECT_EQ(de->title, " Fehlerhafte Eingabe");
        EXPECT_EQ(de->icon, Icon::Stop);
        const auto en = type(c, cell, text, LangId::English, row);
        ASSERT_TRUE(en);
        EXPECT_EQ(en->lines, english);
        EXPECT_EQ(en->title, "Incorrect input");
    }
}

TEST(TransientCells, text_of_a_file_is_the_current_of_one_sub_conductor) {
    CalcCase c = bundle_of(2);
    EXPECT_FALSE(read_cell(c, {3, &StateChange::Strom}, "700.5", {LangId::English, point}));
    EXPECT_EQ(c.Z[3].Strom, (Entry{"1401", 700.5}));
    EXPECT_FALSE(read_cell(c, {3, &StateChange::sec}, "30", {LangId::English, point}));
    EXPECT_EQ(c.Z[3].sec, (Entry{"30", 30}));
    // The limit stays that of the bundle.
    EXPECT_TRUE(read_cell(c, {3, &StateChange::Strom}, "500000", {LangId::English, point}));
    EXPECT_EQ(c.Z[3].Strom, Entry{});
    EXPECT_TRUE(read_cell(c, {3, &StateChange::Strom}, "x", {LangId::English, point}));
    EXPECT_FALSE(read_cell(c, {3, &StateChange::Strom}, "", {LangId::English, point}));
    EXPECT_EQ(c.Z[3].Strom, Entry{});
}

TEST(TransientCells, typed_bundle_current_stays_when_the_bundle_changes) {
    CalcCase c = bundle_of(2);
    EXPECT_FALSE(type(c, &StateChange::Strom, "1200"));
    c.Anzahl_Teilleiter_db = 3;
    share_bundle_currents(c, point);
    EXPECT_EQ(c.Z[0].Strom, (Entry{"1200", 400}));
    c.Anzahl_Teilleiter_db = 0;  // no number of sub-conductors: shared by one
    share_bundle_currents(c, point);
    EXPECT_EQ(c.Z[0].Strom, (Entry{"1200", 1200}));
}

TEST(TransientCells, each_kind_leaves_one_quantity_to_the_run) {
    struct Row {
        std::int16_t kind;
        std::array<bool, 4> inputs;  // current, temperature, minutes, seconds
    };
    for (const auto& [kind, inputs] : {Row{row_unused, {false, false, false, false}},
                                       Row{seeks_current, {false, true, true, true}},
                                       Row{seeks_temperature, {true, false, true, true}},
                                       Row{seeks_time, {true, true, false, false}},
                                       Row{empty_mark, {false, false, false, false}}})
        for (std::size_t cell = 0; cell < state_cells.size(); ++cell)
            EXPECT_EQ(takes_input(kind, state_cells[cell]), inputs[cell]) << kind << " " << cell;
}

}  // namespace
}  // namespace zel
