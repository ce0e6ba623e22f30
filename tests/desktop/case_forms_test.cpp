#include "forms/case_forms.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

#include "fakes/scripted_dialogs.h"
#include "fakes/steady_cases.h"
#include "fakes/tb601_cases.h"
#include "forms/given_value.h"
#include "workflow/rules/derived.h"
#include "workflow/rules/steady_check.h"

namespace zel {
namespace {

using testing::Contains;
using testing::ElementsAre;

std::vector<FormRow> all_rows() {
    std::vector<FormRow> rows;
    for (const FormSection& section : case_form_sections())
        rows.insert(rows.end(), section.rows.begin(), section.rows.end());
    return rows;
}

const FormRow& row_of(std::string_view control) {
    static const auto rows = all_rows();
    return *std::find_if(rows.begin(), rows.end(),
                         [&](const FormRow& row) { return row.control == control; });
}

class CaseForms : public testing::Test {
protected:
    std::optional<Box> enter(std::string_view control, std::string_view text) {
        return enter_text(c, row_of(control), text, session);
    }
    ScriptedDialogs dialogs;
    Session session{LangId::English, DecimalSeparator::Point, RunMode::Messages, dialogs};
    CalcCase c;
};

// What is entered by other means than a row, or on other pages.
bool has_no_row(std::string_view name) {
    static const std::set<std::string_view> exceptions = {
        "Leitertemp_Merker_db",
        "Stromstaerke_Merker_db",
        "Stromstaerkebuendel_Merker_db",
        "Umgebungstemperaturmerker_db",
        "Globalstrahlung_Merker_db",
        "Umgebtemp_merker1_db",
        "Umgebtemp_merker2_db",
        "Temp_min_db",
        "Temp_max_db",
        "Schrittweite_Temp_db",
        "Strom_min_db",
        "Strom_max_db",
        "Schrittweite_Strom_db",
        "Wind1_db",
        "Wind2_db",
        "Wind3_db",
        "Wind4_db",
        "Wind5_db",
        "Wind6_db",
        "Gravi_merker1_db",
        "Formel_merker1_db",
        "wzsz_merker_db",
    };
    return exceptions.contains(name);
}

TEST(CaseFormTables, every_input_of_a_method_has_one_row) {
    const auto rows = all_rows();
    for (const CaseField& field : case_fields()) {
        const bool is_flag =
            std::any_of(method_rows().begin(), method_rows().end(), [&](const MethodRow& row) {
                return field.key == FieldKey(flag_of(row.method));
            });
        if (is_flag) continue;
        const auto count = std::count_if(
            rows.begin(), rows.end(), [&](const FormRow& row) { return row.field == field.key; });
        EXPECT_EQ(count, has_no_row(field.name) ? 0 : 1) << field.name;
    }
}

TEST(CaseFormTables, names_are_single_and_captions_stand_in_both_languages) {
    std::set<std::string_view> names;
    for (const FormRow& row : all_rows()) {
        EXPECT_TRUE(names.insert(row.control).second) << row.control;
        EXPECT_TRUE(row.label.de.ends_with(" :")) << row.label.de;
        EXPECT_TRUE(row.label.en.ends_with(" :")) << row.label.en;
    }
    for (const FormSection& section : case_form_sections()) {
        EXPECT_FALSE(section.caption.en.empty()) << section.caption.de;
        EXPECT_TRUE(section.page == 0 || section.page == 1);
    }
}

TEST(CaseFormTables, a_method_has_the_name_of_its_flag) {
    CalcCase c;
    for (const MethodRow& row : method_rows()) {
        const auto field = find_field(c, row.control);
        ASSERT_TRUE(field);
        EXPECT_EQ(std::get<std::int16_t*>(*field), &(c.*flag_of(row.method)));
    }
}

TEST(CaseFormTables, bundles_are_offered_by_their_names) {
    ASSERT_EQ(bundle_sizes().size(), 8U);
    for (const Choice& choice : bundle_sizes())
        EXPECT_EQ(choice.text.de, bundle_name(choice.value).de);
    EXPECT_EQ(bundle_sizes().front().value, 1);
}

TEST_F(CaseForms, whole_number_is_rounded) {
    EXPECT_FALSE(enter("DrahtzahlLeiter_db", "24"));
    EXPECT_EQ(c.DrahtzahlLeiter_db, 24);
    EXPECT_FALSE(enter("DrahtzahlLeiter_db", "2.5"));
    EXPECT_EQ(c.DrahtzahlLeiter_db, 2);
}

TEST_F(CaseForms, whole_number_that_is_none_is_refused_and_no_input) {
    for (const char* text : {"abc", "-", "40000", "1e9"}) {
        c.DrahtlagenzahlLeiter_db = 2;
        const auto refusal = enter("DrahtlagenzahlLeiter_db", text);
        ASSERT_TRUE(refusal) << text;
        EXPECT_EQ(refusal->title, "Incorrect input data");
        EXPECT_EQ(c.DrahtlagenzahlLeiter_db, 0);
    }
    EXPECT_FALSE(enter("DrahtlagenzahlLeiter_db", "32767"));
    EXPECT_EQ(c.DrahtlagenzahlLeiter_db, 32767);
}

TEST_F(CaseForms, emptied_whole_number_is_no_input) {
    c.Normjahr_db = 2001;
    EXPECT_EQ(shown_text(c, row_of("Normjahr_db")), "2001");
    EXPECT_FALSE(enter("Normjahr_db", ""));
    EXPECT_EQ(c.Normjahr_db, 0);
    EXPECT_EQ(shown_text(c, row_of("Normjahr_db")), "");
}

TEST_F(CaseForms, free_text_has_no_rule) {
    EXPECT_FALSE(enter("Text4", "Süd 1,5 / abc"));
    EXPECT_EQ(c.Projekt_db, "Süd 1,5 / abc");
}

TEST_F(CaseForms, rows_that_no_selected_method_reads_are_not_needed) {
    EXPECT_TRUE(is_needed(c, row_of("Text25")));  // nothing selected yet
    c.rechnung_cigre207_merker_db = 1;
    EXPECT_FALSE(is_needed(c, row_of("Text25")));
    EXPECT_TRUE(is_needed(c, row_of("Text31")));
    c.rechnung_webs_merker_db = 1;
    EXPECT_TRUE(is_needed(c, row_of("Text25")));
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

TEST(NeededRows, are_those_that_the_input_check_asks_for_and_reads) {
    for (const Method method : all_methods) {
        const CalcCase complete = complete_for(method);
        ASSERT_FALSE(S_Eingabepruefung_steady(complete, LangId::English)) << key_of(method);
        for (const FormRow& row : all_rows()) {
            CalcCase c = complete;
            if (const auto* field = std::get_if<Entry CalcCase::*>(&row.field)) c.** field = {};
            if (const auto* field = std::get_if<std::int16_t CalcCase::*>(&row.field))
                c.** field = 0;
            if (S_Eingabepruefung_steady(c, LangId::English)) {
                EXPECT_TRUE(is_needed(complete, row)) << key_of(method) << " " << row.control;
            }
        }
    }
}

TEST(NeededRows, leave_out_what_only_other_methods_ask_for) {
    const struct {
        const char* control;
        std::vector<Method> needed_by;
    } rows[] = {
        {"Text25", {Method::Webs, Method::Kirn}},
        {"Text30", {Method::Webs, Method::Kirn}},
        {"Text36", {Method::Kirn}},
        {"Text37", {Method::Kirn}},
        {"Text43", {Method::Kirn}},
        {"Text44", {Method::Kirn}},
        {"Text45", {Method::Kirn}},
        {"Text31", {Method::TB601, Method::TB207, Method::TBB}},
        {"DCR_20_db", {Method::TB601, Method::TB207, Method::Webs, Method::Kirn}},
        {"DrahtdurchmesserLeiter_db", {Method::TB601, Method::TB207, Method::TBB}},
        {"DrahtlagenzahlLeiter_db", {Method::TB601, Method::TB207}},
        {"Mantelquerschnitt_db", {Method::TB601, Method::TB207}},
        {"DC_Resist_Leiter_db", {Method::TB601, Method::TBB, Method::Webs}},
        {"T_Koeff_DC_Resist_Leiter_quadrat_db", {Method::TB601}},
        {"KerndurchmesserTraeger_db", {Method::TB601}},
        {"Dauerstrombelastbarkeit_db", {Method::Kirn}},  // the advice reads it
        // The heat capacity, for the transients.
        {"DrahtzahlLeiter_db", {Method::TB601, Method::TB207}},
        {"Dichte_Leiterwerkstoff1_db", {Method::TB601, Method::TB207, Method::TBB}},
        {"c_leiter20_db", {Method::TB601, Method::TB207, Method::TBB}},
        {"beta_leiter20_db", {Method::TB601, Method::TB207, Method::TBB}},
        {"DrahtzahlTraeger_db", {Method::TB601, Method::TB207}},
        {"DrahtdurchmesserTraeger_db", {Method::TB601, Method::TB207}},
        {"Dichte_traegerwerkstoff1_db", {Method::TB601, Method::TB207}},
        {"c_traeger20_db", {Method::TB601, Method::TB207}},
        {"beta_traeger20_db", {Method::TB601, Method::TB207}},
        {"Seilquerschnitt_db", {}},
        {"Seiltemperatur_max_db", {}},
        {"ACR_Frequenz_Remox_db", {}},
        {"KernquerschnittTraeger_db", {}},
        {"DC_Resist_traeger_db", {}},
        {"Text23", {Method::TB601}},
    };
    for (const auto& [control, needed_by] : rows)
        for (const Method method : all_methods)
            EXPECT_EQ(is_needed(complete_for(method), row_of(control)),
                      std::count(needed_by.begin(), needed_by.end(), method) == 1)
                << control << " " << key_of(method);
}

TEST_F(CaseForms, number_of_sub_conductors_starts_with_one) {
    for (const std::int16_t n : std::array<std::int16_t, 3>{0, -1, 9}) {
        c.Anzahl_Teilleiter_db = n;
        EXPECT_EQ(case_for_form(c).Anzahl_Teilleiter_db, 1) << n;
    }
    c.Anzahl_Teilleiter_db = 8;
    EXPECT_EQ(case_for_form(c).Anzahl_Teilleiter_db, 8);
}

TEST(FocusChain, leads_along_the_fields_and_ends) {
    EXPECT_EQ(next_control("Text4"), "Text20");
    EXPECT_EQ(next_control("Text26"), "Text30");
    EXPECT_EQ(next_control("Text19"), "");
    EXPECT_EQ(next_control("Text31"), "Combo3");
    EXPECT_EQ(next_control("Text41"), "Text23");
    EXPECT_EQ(next_control("Text23"), "Text7");
    EXPECT_EQ(next_control("Norm_db"), "");
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
    }
    CalcCase never_run;
    set_given_value(never_run, GivenValue::BundleCurrent, DecimalSeparator::Comma);
    set_given_value(never_run, GivenValue::Current, DecimalSeparator::Comma);
    EXPECT_FALSE(never_run.Stromstaerke_db.given());
}

TEST(GivenValue, given_current_stays_as_exact_as_it_came) {
    CalcCase c;
    c.Stromstaerke_db = {"0,3", 0.1 + 0.2};
    set_given_value(c, GivenValue::Temperature, DecimalSeparator::Comma);
    set_given_value(c, GivenValue::Current, DecimalSeparator::Comma);
    EXPECT_EQ(c.Stromstaerke_db.value, 0.1 + 0.2);
}

}  // namespace
}  // namespace zel
