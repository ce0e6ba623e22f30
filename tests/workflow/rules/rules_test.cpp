#include <gtest/gtest.h>

#include <set>

#include "fakes/formulas.h"
#include "fakes/steady_cases.h"
#include "fakes/tb601_cases.h"
#include "steady/case/case_fields.h"
#include "workflow/rules/derived.h"
#include "workflow/rules/entry_rules.h"
#include "workflow/rules/steady_check.h"
#include "workflow/rules/transient_cells.h"
#include "workflow/rules/transient_check.h"

// The rules by the rows of tests/data/rules.json. A German user types with comma.

namespace zel {

using nlohmann::json;

void to_json(json& j, const Entry& entry) { j = {{"text", entry.text}, {"value", entry.value}}; }

namespace {

using Field = Entry CalcCase::*;

Locale locale_of(LangId lang) {
    return {lang, lang == LangId::German ? DecimalSeparator::Comma : DecimalSeparator::Point};
}

Field field_of(const std::string& name) { return std::get<Field>(find_case_field(name)->key); }

std::vector<std::string_view> name_of_bundle(int n) {
    const Text name = bundle_name(n);
    return {name.de, name.en};
}

json bundle_current(json fields, DecimalSeparator separator) {
    CalcCase before = twin_264_34_at(0);
    set_fields(before, fields);
    CalcCase c = before;
    S_Stromstaerke_buendel(c, separator);
    return {{"bundle", c.Stromstaerke_Buendel},
            {"sub_conductor", c.Stromstaerke_db},
            {"entered", without_derived_current(c) == before},
            {"entered_sub_conductor", without_derived_current(c).Stromstaerke_db.text}};
}

/// Into a field that holds 7.
json entered(std::string field, std::string text, LangId lang) {
    CalcCase c;
    c.*field_of(field) = {"7", 7};
    const bool refused = enter(c, field_of(field), text, locale_of(lang)).has_value();
    return {refused ? "refused" : "taken", (c.*field_of(field)).text, (c.*field_of(field)).value};
}

/// The box for what is beyond a limit, where each of the fields takes what is not.
json limit_of(std::vector<std::string> fields, std::string taken, std::string refused) {
    json told;
    for (const std::string& name : fields) {
        CalcCase c;
        EXPECT_FALSE(enter(c, field_of(name), taken, {})) << name;
        const json box = in_both([&](LangId lang) {
            return enter(c, field_of(name), refused, {lang, DecimalSeparator::Point});
        });
        EXPECT_TRUE(told.is_null() || told == box) << name;
        told = box;
    }
    return told;
}

json key(char32_t code, DecimalSeparator separator) {
    json refusal = in_both([&](LangId lang) {
        return filter_key(code, {lang, separator}).refusal;
    });
    EXPECT_TRUE(refusal.is_null() || !filter_key(code, {LangId::English, separator}).passes);
    if (!refusal.is_null()) return refusal;
    return filter_key(code, {LangId::English, separator}).passes ? "passes" : "dropped";
}

/// What becomes of each of these keys alike.
json keys(std::vector<std::uint32_t> codes, std::int16_t separator) {
    json told;
    for (const char32_t code : codes) {
        const json one = key(code, DecimalSeparator(separator));
        EXPECT_TRUE(told.is_null() || told == one) << std::uint32_t{code};
        told = one;
    }
    return told;
}

/// The line 264-AL1/34-ST1A with some fields changed.
CalcCase changed_line(const json& fields) {
    CalcCase c = line_264_34();
    set_fields(c, fields);
    return c;
}

json missing(json fields, std::string method, LangId lang) {
    for (const Method m : all_methods)
        if (key_of(m) == method) return missing_for(changed_line(fields), m, lang);
    return "no method";
}

json methods_for_kind(std::int16_t kind) {
    CalcCase c;
    c.conductor_type_db = kind;
    json methods = json::array();
    for (const Method m : all_methods)
        if (is_for_kind(c, m)) methods.push_back(key_of(m));
    return methods;
}

// --- changes of state ---------------------------------------------------------------------------

StateCellPlace place_of(const std::string& name) { return *find_state_cell(name); }

CalcCase bundle_of(std::int16_t n) {
    CalcCase c;
    c.Anzahl_Teilleiter_db = n;
    return c;
}

/// A text after 7, typed into a cell or read from a file, of a bundle of `n`.
json cell(std::string name, std::int16_t n, std::string how, std::string text) {
    CalcCase c = bundle_of(n);
    const auto [row, member] = place_of(name);
    c.Z[row].*member = {"7", 7};
    const bool refused =
        (how == "typed" ? enter_cell : read_cell)(c, {row, member}, text, Locale()).has_value();
    return {refused ? "refused" : "taken", (c.Z[row].*member).text, (c.Z[row].*member).value};
}

json cell_limit(std::string name, std::string taken, std::string refused) {
    CalcCase c = bundle_of(1);
    EXPECT_FALSE(enter_cell(c, place_of(name), taken, Locale())) << taken;
    EXPECT_EQ((c.Z[place_of(name).row].*place_of(name).cell).text, taken);
    return in_both([&](LangId lang) {
        return enter_cell(c, place_of(name), refused, {lang, DecimalSeparator::Point});
    });
}

json inputs_of(std::int16_t kind) {
    json inputs = json::array();
    for (const StateCell cell : state_cells) inputs.push_back(takes_input(kind, cell));
    return inputs;
}

/// Rows of kind, current of a sub-conductor, temperature, minutes and seconds; null is no input.
CalcCase case_of(const json& rows) {
    CalcCase c = bundle_of(2);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        c.Z[i].merker = rows[i].at(0);
        for (std::size_t k = 0; k < state_cells.size(); ++k)
            if (!rows[i].at(k + 1).is_null()) c.Z[i].*state_cells[k] = typed(rows[i].at(k + 1));
    }
    return c;
}

/// What is told, and the control that it is about.
json refused_rows(json given) {
    const CalcCase c = case_of(given);
    Zustand16 rows;
    json place;
    json told = in_both([&](LangId lang) -> std::optional<Box> {
        const auto refusal = S_Eingabepruefung_transient(c, rows, lang);
        if (!refusal) return std::nullopt;
        place = refusal->row ? json(name_of(*refusal->row, refusal->cell)) : json();
        return refusal->box;
    });
    if (!told.is_null()) told["at"] = place;
    return told;
}

/// The rows in use of the run, as far as the check came.
json copied_rows(json given) {
    Zustand16 rows;
    rows[0].Failed = rows[5].Failed = 1;
    (void)S_Eingabepruefung_transient(case_of(given), rows, LangId::English);
    json copied = json::array();
    for (const TransientRow& row : rows)
        if (row != TransientRow{})
            copied.push_back({row.Merker, row.Strom, row.Temp, row.Min, row.Sec, row.Failed});
    return copied;
}

TEST(Rules, hold_what_their_rows_expect) {
    expect_formulas("rules",
                    {ZEL_FORMULA(fold_angle), ZEL_FORMULA(emissivity_from_age),
                     ZEL_FORMULA(name_of_bundle), ZEL_FORMULA(bundle_current), ZEL_FORMULA(entered),
                     ZEL_FORMULA(limit_of), ZEL_FORMULA(keys), ZEL_FORMULA(missing),
                     ZEL_FORMULA(methods_for_kind), ZEL_FORMULA(cell), ZEL_FORMULA(cell_limit),
                     ZEL_FORMULA(inputs_of), ZEL_FORMULA(refused_rows), ZEL_FORMULA(copied_rows)});
}

/// Which fields have a limit stands in the rows; the others take any number and nothing else.
TEST(EntryRules, other_fields_take_any_number_and_nothing_else) {
    std::set<std::string> limited[2];  // fields with a lower and with an upper limit
    for (const json& group : test_data("rules"))
        if (group.at("formula") == "limit_of")
            for (const json& row : group.at("rows"))
                if (const auto refused =
                        parse_number(row[2].get<std::string>(), DecimalSeparator::Point))
                    for (const std::string name : row[0])
                        limited[*refused > 0 ? 1 : 0].insert(name);
    for (const CaseField& field : case_fields()) {
        const std::string name(field.name);
        if (!std::holds_alternative<Field>(field.key) || name.starts_with("Messwert_")) continue;
        const auto refused = [&](const char* text) {
            CalcCase c;
            return enter(c, field_of(name), text, {}).has_value();
        };
        EXPECT_EQ(refused("-1e9"), limited[0].contains(name)) << name;
        EXPECT_EQ(refused("1e9"), limited[1].contains(name)) << name;
        for (const char* text : {"abc", "-", "1,5"}) EXPECT_TRUE(refused(text)) << name;
    }
    Entry field;
    EXPECT_FALSE(enter(field, nullptr, "-1e9", {}));
    EXPECT_EQ(field.value, -1e9);
    EXPECT_TRUE(enter(field, nullptr, "-", {}));
}

TEST(TransientCells, typed_bundle_current_stays_when_the_bundle_changes) {
    CalcCase c = bundle_of(2);
    EXPECT_FALSE(enter_cell(c, {0, &StateChange::Strom}, "1200", Locale()));
    for (const auto& [n, share] : {std::pair{3, 400}, {0, 1200}}) {
        c.Anzahl_Teilleiter_db = static_cast<std::int16_t>(n);
        share_bundle_currents(c, DecimalSeparator::Point);
        EXPECT_EQ(c.Z[0].Strom, (Entry{"1200", static_cast<double>(share)}));
    }
}

}  // namespace
}  // namespace zel
