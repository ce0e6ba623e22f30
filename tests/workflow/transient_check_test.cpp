#include "workflow/rules/transient_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/typed_rows.h"

namespace zel {
namespace {

using testing::ElementsAreArray;

std::optional<TransientRefusal> check(const CalcCase& c, LangId lang = LangId::English) {
    Zustand16 rows;
    return S_Eingabepruefung_transient(c, rows, lang);
}

using Lines = std::vector<std::string>;

void expect_refusal(const CalcCase& c, const Lines& german, const Lines& english, std::size_t row,
                    StateCell cell) {
    const auto de = check(c, LangId::German);
    const auto en = check(c, LangId::English);
    ASSERT_TRUE(de && en);
    EXPECT_THAT(de->box.lines, ElementsAreArray(german));
    EXPECT_EQ(de->box.title, "Unvollständige Eingabe");
    EXPECT_EQ(de->box.icon, Icon::Stop);
    EXPECT_THAT(en->box.lines, ElementsAreArray(english));
    EXPECT_EQ(en->box.title, "Input incomplete !");
    EXPECT_EQ(en->row, row);
    EXPECT_EQ(en->cell, cell);
}

TEST(TransientCheck, first_row_must_be_in_use) {
    CalcCase c = bundle_with_rows({});
    c.Z[1] = typed_temperature_row(800, 5, 0);
    expect_refusal(c,
                   {"Es wurden keine Angaben zur Zustandsänderung 1 gemacht. ",
                    "Zur Berechnung des transienten Zustandes muß mindestens eine "
                    "Zustandsänderung eingegeben werden!",
                    "Bitte vervollständigen Sie ihre Eingabe !"},
                   {"There is not input for the change-of-state 1. ",
                    "For running the calculation at least one change-of-state must be added!",
                    "Please complete your input !"},
                   0, nullptr);
}

struct Missing {
    StateChange row;
    StateCell cell;
    const char* german;
    const char* english;
};

// The quantities that each kind needs, the first one missing first.
const Missing missing_rows[] = {
    {typed_current_row(80, 5, 0), &StateChange::TEMP, "Es wurden keine Angaben zur Temperatur neu",
     "Temperature (new)  "},
    {typed_current_row(80, 5, 0), &StateChange::min, "Es wurden keine Angaben zur Zeitdauer",
     "Period ( min/ sec) "},
    {typed_temperature_row(800, 5, 0), &StateChange::Strom,
     "Es wurden keine Angaben zur Stromstärke neu", "Current (new)  "},
    {typed_temperature_row(800, 5, 0), &StateChange::min, "Es wurden keine Angaben zur Zeitdauer",
     "Period ( min/ sec) "},
    {typed_time_row(800, 80), &StateChange::Strom, "Es wurden keine Angaben zur Stromstärke neu",
     "Current (new)  "},
    {typed_time_row(800, 80), &StateChange::TEMP, "Es wurden keine Angaben zur Temperatur neu",
     "Temperature (new)  "},
};

StateChange without(StateChange row, StateCell cell) {
    row.*cell = {};
    if (cell == &StateChange::min) row.sec = {};
    return row;
}

TEST(TransientCheck, missing_cell_of_the_first_row_is_named) {
    for (const auto& [row, cell, german, english] : missing_rows)
        expect_refusal(bundle_with_rows({without(row, cell)}),
                       {german, "der Zustandsänderung 1 gemacht.",
                        "Bitte vervollständigen Sie ihre Eingabe !"},
                       {"There is not input for:  ", english, "of the change-of-state 1. ",
                        "Please complete your input !"},
                       0, cell);
}

TEST(TransientCheck, missing_cell_of_a_later_row_can_be_mended_by_the_minus_button) {
    for (const auto& [row, cell, german, english] : missing_rows)
        expect_refusal(
            bundle_with_rows(
                {typed_time_row(800, 80), typed_temperature_row(1, 1, 1), without(row, cell)}),
            {german, "der Zustandsänderung 3 gemacht.", "Bitte vervollständigen Sie ihre Eingabe",
             "oder setzen Sie die Zustandsänderung", "mit der ' - ' Schaltfläche inaktiv !"},
            {"There is not input for:  ", english, "of the change-of-state 3. ",
             "Please complete your input", "or deactivate this change-of-state",
             "with the ' - ' Button !"},
            2, cell);
}

TEST(TransientCheck, of_two_missing_quantities_the_first_is_told) {
    StateChange bare;
    bare.merker = seeks_current;
    EXPECT_EQ(check(bundle_with_rows({bare}))->cell, &StateChange::TEMP);
    bare.merker = seeks_time;
    EXPECT_EQ(check(bundle_with_rows({bare}))->cell, &StateChange::Strom);
}

TEST(TransientCheck, either_half_of_the_duration_is_enough) {
    StateChange row = typed_current_row(80, 0, 30);
    row.min = {};
    EXPECT_FALSE(check(bundle_with_rows({row})));
    row = typed_current_row(80, 5, 0);
    row.sec = {};
    EXPECT_FALSE(check(bundle_with_rows({row})));
    EXPECT_FALSE(check(bundle_with_rows({typed_current_row(80, 0, 0)})));
}

struct GapRow {
    std::vector<std::size_t> unused;  // rows 0 to 5
    std::size_t told;                 // where the focus goes
    Lines german;                     // the first and the sixth line
    const char* english;              // the second
};

TEST(TransientCheck, rows_in_use_must_not_follow_an_empty_one) {
    const GapRow gaps[] = {
        {{1, 3, 4, 5},
         1,
         {"Es wurden keine Angaben zur Zustandsänderung 2  ", "in Zustandsänderung 2", "3"},
         "change-of-state 2 but for change-of-state 3. "},
        {{2, 4, 5},
         2,
         {"Es wurden keine Angaben zur Zustandsänderung 2 oder 3 ", "in Zustandsänderung 2 oder 3",
          "4"},
         "change-of-state 2 or 3, but for change-of-state 4. "},
        {{3, 5},
         3,
         {"Es wurden keine Angaben zur Zustandsänderung 2,3 oder 4 ",
          "in Zustandsänderung 2,3 oder 4", "5"},
         "change-of-state 2,3 or 4 but for change-of-state 5. "},
        {{4},
         4,
         {"Es wurden keine Angaben zur Zustandsänderung 2,3,4 oder 5",
          "in Zustandsänderung 2,3,4 oder 5", "6"},
         "change-of-state 2,3,4 or 5 but for change-of-state 6. "},
    };
    for (const auto& [unused, told, german, english] : gaps) {
        CalcCase c = bundle_with_rows({});
        c.Z.fill(typed_time_row(800, 80));
        for (const std::size_t row : unused) c.Z[row].merker = row_unused;
        const std::string& in_use = german[2];
        expect_refusal(c,
                       {german[0], "jedoch Angaben zur Zustandsänderung " + in_use + " gemacht. ",
                        "Zur Berechnung der transienten Zustände müssen",
                        "die Zustandsänderungen lückenlos hintereinander eingegeben werden!",
                        "Bitte vervollständigen Sie ihre Eingaben", german[1],
                        "oder setzen Sie die Zustandsänderung " + in_use,
                        "mit der ' - ' Schaltfläche inaktiv !"},
                       {"There is not input for:  ", english, "Please correct your input",
                        "or deactivate the last change-of-state", "with the ' - ' Button !"},
                       told, nullptr);
    }
}

TEST(TransientCheck, gap_is_told_before_the_cells_of_its_row_and_after_those_before) {
    StateChange bare;
    bare.merker = seeks_time;
    CalcCase c = bundle_with_rows({typed_time_row(800, 80), {}, bare});
    EXPECT_EQ(check(c)->cell, nullptr);
    EXPECT_EQ(check(c)->row, 1);
    c = bundle_with_rows({typed_time_row(800, 80), bare, {}, typed_time_row(800, 80)});
    EXPECT_EQ(check(c)->row, 1);
    EXPECT_EQ(check(c)->cell, &StateChange::Strom);
}

TEST(TransientCheck, row_that_passes_is_copied_with_whole_minutes_and_seconds) {
    StateChange row = typed_temperature_row(800, 5, 0);
    row.min = {"2.5", 2.5};  // ties to even
    row.sec = {"59.4", 59.4};
    Zustand16 rows;
    rows[5].Failed = 1;
    const CalcCase c = bundle_with_rows({row, typed_time_row(1000, 90)});
    EXPECT_FALSE(S_Eingabepruefung_transient(c, rows, LangId::English));
    EXPECT_EQ(rows[0], (TransientRow{seeks_temperature, 400, 0, 2, 59}));
    EXPECT_EQ(rows[1], (TransientRow{seeks_time, 500, 90}));
    for (std::size_t i = 2; i < rows.size(); ++i) EXPECT_EQ(rows[i], TransientRow{});
}

TEST(TransientCheck, refusal_leaves_the_rows_as_far_as_they_came) {
    StateChange bare;
    bare.merker = seeks_time;
    Zustand16 rows;
    rows[2].Strom = 1;
    const CalcCase c = bundle_with_rows({typed_time_row(800, 80), bare});
    EXPECT_TRUE(S_Eingabepruefung_transient(c, rows, LangId::English));
    EXPECT_EQ(rows[0].Merker, seeks_time);
    EXPECT_EQ(rows[2], TransientRow{});
}

TEST(TransientCheck, unknown_kind_is_a_row_that_is_not_in_use) {
    CalcCase c = bundle_with_rows({typed_time_row(800, 80)});
    c.Z[1].merker = empty_mark;
    EXPECT_FALSE(check(c));
    c.Z[0].merker = 4;
    EXPECT_EQ(check(c)->cell, nullptr);
}

TEST(TransientCheck, duration_beyond_16_bits_is_an_overflow_where_it_counts) {
    StateChange row = typed_current_row(80, 0, 0);
    row.min = {"40000", 40000};
    const auto refusal = check(bundle_with_rows({row}));
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->box.lines.front(), "Error 6 in Form1.S_Eingabepruefung_transient");
    EXPECT_EQ(refusal->cell, &StateChange::min);
    row.merker = seeks_time;  // does not read it
    row.Strom = {"800", 400};
    EXPECT_FALSE(check(bundle_with_rows({row})));
}

}  // namespace
}  // namespace zel
