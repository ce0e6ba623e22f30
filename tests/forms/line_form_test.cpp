#include "forms/line_form.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "fakes/steady_cases.h"
#include "fakes/tb601_cases.h"
#include "fakes/test_data.h"
#include "forms/given_value.h"
#include "workflow/rules/derived.h"
#include "workflow/rules/steady_check.h"

namespace zel::forms {
namespace {

using nlohmann::json;

std::vector<Row> all_rows() {
    std::vector<Row> rows;
    for (const Section& section : line_sections())
        rows.insert(rows.end(), section.rows.begin(), section.rows.end());
    return rows;
}

Row row_of(std::string_view control) {
    for (const Row& row : all_rows())
        if (row.control == control) return row;
    ADD_FAILURE() << control;
    return {};
}

class LineFormTest : public testing::Test {
protected:
    bool refused(std::string_view control, std::string_view text) {
        return form.enter(row_of(control), text).has_value();
    }
    CalcCase c;
    Locale locale{LangId::English, DecimalSeparator::Point};
    LineForm form{c, locale};
    json data = test_data("line_form");
};

TEST_F(LineFormTest, every_input_of_a_method_has_one_row) {
    const auto rows = all_rows();
    const std::set<std::string> without = data["no_row"];
    for (const CaseField& field : case_fields()) {
        if (field.name.starts_with("rechnung_")) continue;
        const auto count = std::count_if(rows.begin(), rows.end(),
                                         [&](const Row& row) { return row.field == &field; });
        EXPECT_EQ(count, without.contains(std::string(field.name)) ? 0 : 1) << field.name;
    }
}

/// By the entry rule, or by the check before a run.
bool is_taken(const CalcCase& of, const Row& row, double number) {
    CalcCase c = of;
    const Locale locale = {LangId::English, DecimalSeparator::Point};
    LineForm form(c, locale);
    if (form.enter(row, plain_number(number, DecimalSeparator::Point))) return false;
    const auto found = form.complaints();
    return std::none_of(found.begin(), found.end(),
                        [&](const Complaint& complaint) { return complaint.field == row.field; });
}

TEST_F(LineFormTest, told_ranges_are_those_that_a_run_takes) {
    constexpr double beyond = 0.6;  // also of what is rounded
    int ranges = 0;
    for (const Method method : all_methods) {
        c = sunny_264_34();
        for (const Method other : all_methods) c.*flag_of(other) = other == method ? 1 : 0;
        for (const Row& row : all_rows()) {
            for (const NumberSpan& span : form.allowed(row)) {
                SCOPED_TRACE(std::string(row.control) + " " + std::string(key_of(method)));
                if (span.low > -unlimited) {
                    EXPECT_EQ(is_taken(c, row, span.low), !span.beyond_low);
                    EXPECT_FALSE(is_taken(c, row, span.low - beyond));
                    ++ranges;
                }
                if (span.high == unlimited) continue;
                EXPECT_TRUE(is_taken(c, row, span.high));
                EXPECT_FALSE(is_taken(c, row, span.high + beyond));
            }
        }
    }
    EXPECT_GT(ranges, 60);
    c.*flag_of(Method::Kirn) = 0;
    c.*flag_of(Method::TBB) = 1;
    EXPECT_EQ(form.allowed(row_of("Text17")).size(), 2U);  // 0 to 1 Hz, or 49 to 61 Hz
}

TEST_F(LineFormTest, controls_are_single_and_captions_stand_in_both_languages) {
    std::set<std::string_view> names;
    for (const Section& section : form.sections()) {
        EXPECT_FALSE(section.caption.en.empty()) << section.caption.de;
        for (const Row& row : section.rows) {
            EXPECT_TRUE(names.insert(row.control).second) << row.control;
            for (const std::string_view label : {row.field->label.de, row.field->label.en})
                EXPECT_TRUE(label.ends_with(" :")) << label;
            EXPECT_EQ(row_of(form.sections(), *row.field), &row);
        }
    }
    for (const MethodRow& row : method_rows())
        EXPECT_EQ(find_field(c, row.control)->value, FieldRef(&(c.*flag_of(row.method))));
}

TEST_F(LineFormTest, list_shows_and_takes_the_numbers_of_its_entries) {
    const Row bundle = row_of("Combo3");
    ASSERT_EQ(bundle.choices.size(), 8U);
    for (int n = 1; n <= 8; ++n) {
        form.choose(bundle, n - 1);
        EXPECT_EQ(c.Anzahl_Teilleiter_db, n);
        EXPECT_EQ(form.chosen(bundle), n - 1);
        EXPECT_EQ(form.listed(bundle), bundle_name(n).en);
    }
    c.conductor_type_db = 9;
    EXPECT_EQ(form.chosen(row_of("conductor_type_db")), 0) << "the first says that none is known";
}

TEST_F(LineFormTest, only_lists_of_reports_follow_their_language) {
    const LineForm german(c, locale, [] { return LangId::German; });
    EXPECT_EQ(german.language_of_choices(row_of("conductor_shape_db")), LangId::German);
    EXPECT_EQ(german.language_of_choices(row_of("Combo3")), LangId::English);
    EXPECT_EQ(form.language_of_choices(row_of("conductor_shape_db")), LangId::English);
}

TEST_F(LineFormTest, whole_number_is_rounded_and_refused_where_it_is_none) {
    EXPECT_FALSE(refused("DrahtzahlLeiter_db", "2.5"));
    EXPECT_EQ(c.DrahtzahlLeiter_db, 2);
    for (const char* text : {"abc", "-", "32768", "1e9"}) {
        c.DrahtlagenzahlLeiter_db = 2;
        EXPECT_TRUE(refused("DrahtlagenzahlLeiter_db", text)) << text;
        EXPECT_EQ(c.DrahtlagenzahlLeiter_db, 0);
    }
    EXPECT_FALSE(refused("DrahtlagenzahlLeiter_db", "32767"));
    EXPECT_EQ(c.DrahtlagenzahlLeiter_db, 32767);
}

TEST_F(LineFormTest, whole_number_with_a_mask_is_shown_as_soon_as_there_is_a_conductor) {
    const Row year = row_of("Normjahr_db");
    c.Normjahr_db = 2001;
    EXPECT_EQ(form.shown(year), "2001");
    EXPECT_FALSE(refused("Normjahr_db", ""));
    EXPECT_EQ(form.shown(year), "");
    c.conductor_type_db = 1;
    EXPECT_EQ(form.shown(year), "0000");
    EXPECT_EQ(form.listed(year), "");
}

TEST_F(LineFormTest, text_has_no_rule_and_a_number_has_that_of_its_field) {
    EXPECT_FALSE(refused("Text4", "Süd 1,5 / abc"));
    EXPECT_EQ(c.Projekt_db, "Süd 1,5 / abc");
    EXPECT_TRUE(refused("Text11", "81"));
    EXPECT_EQ(form.shown(row_of("Text11")), "");
    EXPECT_FALSE(refused("Text11", "0.6"));
    EXPECT_EQ(form.listed(row_of("Text11")), "0.6 m/s");
}

TEST_F(LineFormTest, lists_no_resistance_of_0) {
    c.ACR1_db = c.Bodentemp_db = {"0", 0};
    EXPECT_EQ(form.beside(row_of("Text27")), "");
    EXPECT_FALSE(refused("Text27", "7.5"));
    EXPECT_EQ(form.listed(row_of("Text27")), "7.5 ° / 187.5°");
    EXPECT_EQ(form.listed(row_of("ACR1_db")), "");
    EXPECT_EQ(form.listed(row_of("Text36")), "0 °C");
}

TEST_F(LineFormTest, of_the_given_values_one_is_open) {
    for (const GivenValueRow& given : given_value_rows()) {
        set_given_value(c, given.value, DecimalSeparator::Point);
        for (const char* control : {"Text16", "Text18", "Text39"})
            EXPECT_EQ(form.state(row_of(control)).open, given.control == std::string_view(control));
        EXPECT_TRUE(form.state(row_of("Text11")).open);
    }
}

/// A complete case for the method alone.
CalcCase complete_for(Method method) {
    CalcCase c = sunny_264_34();
    static_cast<ConductorData&>(c) = line_264_34();
    c.ACDC_R_Option_Merker_db = 1;
    if (method == Method::TBB) c.conductor_type_db = tubular_busbar;
    for (const Method other : all_methods) c.*flag_of(other) = other == method ? 1 : 0;
    return c;
}

TEST_F(LineFormTest, rows_that_the_input_check_of_a_method_asks_for_are_needed) {
    for (const Method method : all_methods) {
        const CalcCase complete = complete_for(method);
        ASSERT_FALSE(S_Eingabepruefung_steady(complete, LangId::English)) << key_of(method);
        for (const Row& row : all_rows()) {
            c = complete;
            const FieldRef place = static_cast<const CaseField*>(row.field)->of(c);
            if (auto* const* number = std::get_if<Entry*>(&place)) **number = {};
            if (auto* const* whole = std::get_if<std::int16_t*>(&place)) **whole = 0;
            const bool asked = S_Eingabepruefung_steady(c, LangId::English).has_value();
            c = complete;
            EXPECT_TRUE(!asked || form.state(row).needed) << key_of(method) << row.control;
        }
    }
}

TEST_F(LineFormTest, rows_that_no_selected_method_reads_are_not_needed) {
    for (const auto& [control, readers] : data["needed"].items()) {
        c = {};
        EXPECT_TRUE(form.state(row_of(control)).needed) << "nothing selected yet";
        for (const Method method : all_methods) {
            c = complete_for(method);
            const bool read = std::count(readers.begin(), readers.end(), key_of(method)) == 1;
            EXPECT_EQ(form.state(row_of(control)).needed, read) << control << key_of(method);
        }
    }
}

TEST_F(LineFormTest, number_of_sub_conductors_starts_with_one) {
    for (const auto& [n, shown] :
         std::vector<std::pair<int, int>>{{0, 1}, {-1, 1}, {9, 1}, {8, 8}}) {
        c.Anzahl_Teilleiter_db = static_cast<std::int16_t>(n);
        EXPECT_EQ(case_for_form(c).Anzahl_Teilleiter_db, shown) << n;
    }
}

TEST_F(LineFormTest, tab_leads_along_the_chains_and_ends) {
    for (const auto& [from, to] : data["next"].items())
        EXPECT_EQ(form.next_control(from), to.get<std::string>()) << from;
}

TEST(GivenValue, flags_and_mode_say_the_same) {
    CalcCase c;
    for (const GivenValueRow& row : given_value_rows()) {
        set_given_value(c, row.value, DecimalSeparator::Point);
        EXPECT_EQ(given_value(c), row.value);
    }
    EXPECT_TRUE(c.Stromstaerke_Merker_db);  // a bundle current is a given current
    EXPECT_TRUE(c.Stromstaerkebuendel_Merker_db);
    c.Leitertemp_Merker_db = true;
    EXPECT_EQ(given_value(c), GivenValue::Nothing);
}

TEST(GivenValue, share_of_the_bundle_is_read_anew_from_what_is_shown) {
    for (const GivenValue next : {GivenValue::Current, GivenValue::Temperature}) {
        CalcCase c;
        set_given_value(c, GivenValue::BundleCurrent, DecimalSeparator::Comma);
        c.Stromstaerke_db = {"333,33", 1000.0 / 3};
        set_given_value(c, GivenValue::BundleCurrent, DecimalSeparator::Comma);
        EXPECT_EQ(c.Stromstaerke_db.value, 1000.0 / 3);
        set_given_value(c, next, DecimalSeparator::Comma);
        EXPECT_EQ(c.Stromstaerke_db, (Entry{"333,33", 333.33}));
        c.Stromstaerke_db.value = 1000.0 / 3;  // a given current stays as exact as it came
        set_given_value(c, GivenValue::Current, DecimalSeparator::Comma);
        EXPECT_EQ(c.Stromstaerke_db.value, 1000.0 / 3);
    }
}

}  // namespace
}  // namespace zel::forms
