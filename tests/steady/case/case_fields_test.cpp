#include "steady/case/case_fields.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

#include "fakes/steady_cases.h"

namespace zel {
namespace {

TEST(CaseFields, stand_once_each_and_are_found_by_their_names) {
    CalcCase c;
    std::set<FieldRef> places;
    for (const FieldOf& field : fields_of(c)) {
        EXPECT_TRUE(places.insert(field.value).second) << field.name;
        const auto found = find_field(c, field.name);
        ASSERT_TRUE(found) << field.name;
        EXPECT_EQ(found->value, field.value) << field.name;
        EXPECT_EQ(found->info, field.info) << field.name;
    }
    EXPECT_EQ(places.size(), 140U);
    for (const CaseField& field : case_fields()) {
        EXPECT_EQ(find_case_field(field.name), &field);
        EXPECT_EQ(&field_of(field.key), &field);
    }
}

TEST(CaseFields, of_a_change_of_state_bear_the_number_of_their_row) {
    CalcCase c;
    EXPECT_EQ(find_field(c, "Z1_merker_db")->value, FieldRef(&c.Z[0].merker));
    EXPECT_EQ(find_field(c, "Z2_Strom_db")->value, FieldRef(&c.Z[1].Strom));
    EXPECT_EQ(find_field(c, "Z3_TEMP_db")->value, FieldRef(&c.Z[2].TEMP));
    EXPECT_EQ(find_field(c, "Z5_min_db")->value, FieldRef(&c.Z[4].min));
    EXPECT_EQ(find_field(c, "Z6_sec_db")->value, FieldRef(&c.Z[5].sec));
    for (const StateCell cell : state_cells) {
        const auto place = find_state_cell(name_of(3, cell));
        ASSERT_TRUE(place);
        EXPECT_EQ(place->row, 3U);
        EXPECT_EQ(place->cell, cell);
    }
    EXPECT_EQ(name_of(3, nullptr), "Z4_merker_db");
    EXPECT_FALSE(find_state_cell("Z4_merker_db"));
}

TEST(CaseFields, are_not_found_by_any_other_name) {
    CalcCase c;
    for (const char* name :
         {"", "Windgeschwindigkeit", "windgeschwindigkeit_db", "Windgeschwindigkeit_db ",
          "Reserve_139_Text", "Z_Strom_db", "Zn_Strom_db", "Z0_Strom_db", "Z7_Strom_db",
          "Z1_strom_db", "Z1_", "Z1", "Z1_Strom", "Z11_Strom_db"})
        EXPECT_FALSE(find_field(c, name)) << name;
}

TEST(CaseFields, are_called_by_their_long_label_or_by_that_of_the_form_without_its_colon) {
    const CaseField& wind = *find_case_field("Windgeschwindigkeit_db");
    EXPECT_EQ(long_label_of(wind).de, "Windgeschwindigkeit");
    EXPECT_EQ(long_label_of(wind).en, "Wind speed");
    EXPECT_EQ(long_unit_of(wind), wind.unit);
    const CaseField& beta = *find_case_field("beta_leiter20_db");
    EXPECT_EQ(long_label_of(beta).de, beta.long_label.de);
    EXPECT_EQ(long_unit_of(beta), beta.long_unit);
}

TEST(CaseFields, without_text_are_as_new_once_forgotten) {
    CalcCase c;
    c.GMR_db = {"", 8.7};
    c.Messwert_Strom_db = {"", 620};
    c.Windgeschwindigkeit_db = {"0,6", 0.6};
    forget_emptied(c);
    EXPECT_EQ(c.GMR_db, Entry{});
    EXPECT_EQ(c.Messwert_Strom_db, (Entry{"", empty_mark}));
    EXPECT_EQ(c.Windgeschwindigkeit_db, (Entry{"0,6", 0.6}));
}

TEST(CaseFields, change_the_separator_of_numbers_and_nothing_else) {
    CalcCase c = twin_264_34();
    c.Projekt_db = "1.5";
    c.Z[5].TEMP = {"80.5", 80.5};
    c.Bodentemp_db = {"-", 0};
    const CalcCase before = c;
    respell(c, DecimalSeparator::Point, DecimalSeparator::Comma);
    EXPECT_EQ(c.Windgeschwindigkeit_db, (Entry{"0,6", 0.6}));
    EXPECT_EQ(c.Z[5].TEMP, (Entry{"80,5", 80.5}));
    EXPECT_EQ(c.Projekt_db, "1.5");
    EXPECT_EQ(c.Bodentemp_db.text, "-");
    respell(c, DecimalSeparator::Comma, DecimalSeparator::Point);
    EXPECT_EQ(c, before);
}

}  // namespace
}  // namespace zel
