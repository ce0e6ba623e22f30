#include "forms/line_form.h"

#include <algorithm>
#include <array>

#include "forms/given_value.h"
#include "platform/rounding.h"
#include "tables_graphs/parameter_table.h"
#include "workflow/rules/entry_rules.h"
#include "workflow/rules/steady_check.h"
#include "workflow/run/page_change.h"

namespace zel::forms {
namespace {

// Tab and return lead from one control to the next, but not on from the last of a chain.
constexpr std::string_view first_chain[] = {
    "Text4",  "Text20", "Text21", "Text22", "Text3",  "Text27", "Text25", "Text24",
    "Text26", "Text30", "Text29", "Text28", "Text15", "Text11", "Text1",  "Text19"};
constexpr std::string_view ground_chain[] = {"Text36", "Text37", "Text14"};
constexpr std::string_view line_chain[] = {"Text43", "Text44", "Text45", "Text17", "Text2"};
constexpr std::string_view bundle_chain[] = {"Text31", "Combo3"};
constexpr std::string_view conductivity_ring[] = {"Text7", "Text40", "Text41", "Text23", "Text7"};

constexpr std::array<std::span<const std::string_view>, 5> focus_chains = {
    first_chain, ground_chain, line_chain, bundle_chain, conductivity_ring};

constexpr MethodRow method_table[] = {
    {Method::TB601, "rechnung_cigre601_merker_db", {"Cigre TB 601"}},
    {Method::TB207, "rechnung_cigre207_merker_db", {"Cigre TB 207"}},
    {Method::TBB,
     "rechnung_TBB_merker_db",
     {"RWTH Aachen / Puffer   Kreisring-Stromschiene / statisch && transient"}},
    {Method::Webs, "rechnung_webs_merker_db", {"Webs"}},
    {Method::Kirn, "rechnung_kirn_merker_db", {"Kirn"}},
};

constexpr Text wall_thickness = {"Wandstärke :", "Wall thickness :"};

const FieldKey& key(const Row& row) { return key_of<CalcCase>(*row.field); }

template <class Member>
const Member* member(const Row& row) {
    return std::get_if<Member>(&key(row));
}
using Number = Entry CalcCase::*;
using Whole = std::int16_t CalcCase::*;
using String = std::string CalcCase::*;

std::optional<Box> enter_whole_number(std::int16_t& field, std::string_view text,
                                      const Locale& locale) {
    Entry typed;
    field = 0;
    auto refusal = zel::enter(typed, nullptr, text, locale);
    if (refusal || !typed.given()) return refusal;
    const auto whole = round_to_int16(typed.value);
    // A number too large for the field is refused as a text that is no number at all.
    if (!whole) return zel::enter(typed, nullptr, "-", locale);
    field = *whole;
    return std::nullopt;
}

}  // namespace

std::span<const MethodRow> method_rows() { return method_table; }

std::span<const Section> line_sections() {
    static const auto all = [] {
        std::vector<Section> made = input_sections();
        for (const auto* more : {&conductor_sections(), &table_sections()})
            made.insert(made.end(), more->begin(), more->end());
        return made;
    }();
    return all;
}

std::span<const Section> LineForm::sections() const { return line_sections(); }

Text LineForm::label(const Row& row) const {
    const bool of_wall = row.field == &field_of(&CalcCase::DrahtdurchmesserLeiter_db) &&
                         c_.conductor_type_db == tubular_busbar;
    return of_wall ? wall_thickness : row.field->label;
}

std::string LineForm::shown(const Row& row) const {
    if (const auto* number = member<Number>(row)) return (c_.**number).text;
    if (const auto* text = member<String>(row)) return c_.**text;
    const std::int16_t whole = c_.*std::get<Whole>(key(row));
    const bool unknown = whole == 0 && c_.conductor_type_db == 0;
    if (!row.field->mask.empty() && !unknown)
        return masked(whole, row.field->mask, DecimalSeparator::Point);
    return whole == 0 ? std::string{} : std::to_string(whole);
}

int LineForm::chosen(const Row& row) const {
    const std::int16_t value = c_.*std::get<Whole>(key(row));
    const auto found = std::find_if(row.choices.begin(), row.choices.end(),
                                    [&](const Choice& choice) { return choice.value == value; });
    return found == row.choices.end() ? 0 : static_cast<int>(found - row.choices.begin());
}

InputState LineForm::state(const Row& row) const {
    MethodSet selected = 0;
    for (const Method method : all_methods)
        if (is_selected(c_, method)) selected |= methods(method);
    InputState state;
    state.needed = selected == 0 || (selected & row.read_by) != 0;
    for (const GivenValueRow& given : given_value_rows())
        if (given.control == std::string_view(row.control))
            state.open = given.value == given_value(c_);
    if (const auto* number = member<Number>(row)) state.assumed = (c_.**number).assumed;
    return state;
}

std::string LineForm::beside(const Row& row) const {
    const auto* number = member<Number>(row);
    if (number == nullptr) return {};
    const Entry& entry = c_.**number;
    if (entry.assumed) return std::string(assumed_mark.in(locale_.lang));
    const bool is_direction =
        *number == &CalcCase::Winkel_S_S_db || *number == &CalcCase::Winkel_W_S_db;
    if (!is_direction || entry.text.empty()) return {};
    return "/ " + plain_number(entry.value + 180, locale_.separator) + "°";
}

std::string LineForm::listed(const Row& row) const {
    std::string text = text_in_listing(row);
    if (text.empty() || row.is_list() || row.field->unit.empty()) return text;
    const std::string mark = beside(row);
    return text + " " + std::string(row.field->unit) + (mark.empty() ? "" : " " + mark);
}

std::string LineForm::text_in_listing(const Row& row) const {
    if (const auto* number = member<Number>(row))
        if (row.field->nothing_at_0 && (c_.**number).value == 0) return {};
    if (const auto* whole = member<Whole>(row); whole != nullptr && c_.**whole == 0) return {};
    if (!row.is_list()) return shown(row);
    const Choice& choice = row.choices[static_cast<std::size_t>(chosen(row))];
    return std::string(choice.text.in(locale_.lang));
}

LangId LineForm::language_of_choices(const Row& row) const {
    return row.in_report_language && list_language_ ? list_language_() : locale_.lang;
}

std::optional<Refusal> LineForm::enter(const Row& row, std::string_view text) {
    std::optional<Box> box;
    if (const auto* number = member<Number>(row))
        box = zel::enter(c_, *number, text, locale_);
    else if (const auto* whole = member<Whole>(row))
        box = enter_whole_number(c_.**whole, text, locale_);
    else
        c_.*std::get<String>(key(row)) = text;
    if (!box) return std::nullopt;
    return Refusal{*std::move(box)};
}

void LineForm::choose(const Row& row, int index) {
    const std::int16_t value = row.choices[static_cast<std::size_t>(index)].value;
    c_.*std::get<Whole>(key(row)) = value;
    if (row.field != &field_of(&CalcCase::Umgebungstemperaturmerker_db)) return;
    // Which of the two tables of a temperature is shown goes with what it steps.
    c_.Umgebtemp_merker1_db = value == ambient_stepped ? 1 : 0;
    c_.Umgebtemp_merker2_db = value == ambient_stepped ? 0 : 1;
}

void LineForm::typed_into(const Row& row) {
    if (const auto* number = member<Number>(row)) (c_.**number).assumed = false;
}

const Limits* LineForm::limits(const Row& row) const {
    const auto* number = member<Number>(row);
    return number == nullptr ? nullptr : limits_of(*number);
}

std::vector<NumberSpan> LineForm::allowed(const Row& row) const {
    return common(Record::allowed(row), steady_check::allowed_by_checks(c_, key(row)));
}

std::vector<Complaint> LineForm::complaints() const {
    std::vector<Complaint> found;
    for (const steady_check::Check* check : steady_check::all_refusals(c_)) {
        const CaseField& field = field_of(check->rule.place);
        const auto on_field = [&](const Section& section) {
            return std::any_of(section.rows.begin(), section.rows.end(),
                               [&](const Row& row) { return row.field == &field; });
        };
        const auto sections = line_sections();
        const auto section = std::find_if(sections.begin(), sections.end(), on_field);
        add_once(found, {&field, section == sections.end() ? input_page : section->page,
                         is_empty(field.of(c_)), check->box(locale_.lang)});
    }
    return found;
}

std::string_view LineForm::next_control(std::string_view control) const {
    for (const auto& chain : focus_chains) {
        const auto here = std::find(chain.begin(), chain.end(), control);
        if (here != chain.end() && here + 1 != chain.end()) return *(here + 1);
    }
    return {};
}

CalcCase case_for_form(CalcCase c) {
    if (c.Anzahl_Teilleiter_db < 1 || c.Anzahl_Teilleiter_db > 8) c.Anzahl_Teilleiter_db = 1;
    return c;
}

}  // namespace zel::forms
