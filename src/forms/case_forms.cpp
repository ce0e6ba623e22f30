#include "forms/case_forms.h"

#include <algorithm>
#include <array>

#include "platform/rounding.h"
#include "workflow/rules/derived.h"
#include "workflow/rules/entry_rules.h"

namespace zel {
namespace {

template <class... Ts>
struct overloaded : Ts... {
    using Ts::operator()...;
};
template <class... Ts>
overloaded(Ts...) -> overloaded<Ts...>;

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

std::optional<Box> enter_whole_number(std::int16_t& field, std::string_view text,
                                      const Session& session) {
    Entry typed;
    field = 0;
    auto refusal = enter(typed, nullptr, text, session);
    if (refusal || !typed.given()) return refusal;
    const auto whole = round_to_int16(typed.value);
    // A number too large for the field is refused as a text that is no number at all.
    if (!whole) return enter(typed, nullptr, "-", session);
    field = *whole;
    return std::nullopt;
}

}  // namespace

const std::vector<FormSection>& case_form_sections() {
    static const auto all = [] {
        std::vector<FormSection> sections(input_sections().begin(), input_sections().end());
        const auto conductor = conductor_sections();
        sections.insert(sections.end(), conductor.begin(), conductor.end());
        return sections;
    }();
    return all;
}

std::span<const Choice> bundle_sizes() {
    static const auto sizes = [] {
        std::array<Choice, 8> made{};
        for (std::int16_t n = 1; n <= 8; ++n)
            made[static_cast<std::size_t>(n - 1)] = {n, bundle_name(n)};
        return made;
    }();
    return sizes;
}

std::string shown_text(const CalcCase& c, const FormRow& row) {
    return std::visit(
        overloaded{[&](std::string CalcCase::*field) { return c.*field; },
                   [&](Entry CalcCase::*field) { return (c.*field).text; },
                   [&](std::int16_t CalcCase::*field) {
                       const bool unknown = c.*field == 0 && c.conductor_type_db == 0;
                       if (!row.mask.empty() && !unknown)
                           return masked(c.*field, row.mask, DecimalSeparator::Point);
                       return c.*field == 0 ? std::string{} : std::to_string(c.*field);
                   },
                   [&](bool CalcCase::*field) { return std::string(c.*field ? "1" : "0"); }},
        row.field);
}

std::optional<Box> enter_text(CalcCase& c, const FormRow& row, std::string_view text,
                              const Session& session) {
    if (const auto* field = std::get_if<Entry CalcCase::*>(&row.field))
        return enter(c, *field, text, session);
    if (const auto* field = std::get_if<std::int16_t CalcCase::*>(&row.field))
        return enter_whole_number(c.**field, text, session);
    if (const auto* field = std::get_if<std::string CalcCase::*>(&row.field)) c.** field = text;
    return std::nullopt;
}

bool is_needed(const CalcCase& c, const FormRow& row) {
    MethodSet selected = 0;
    for (const Method method : all_methods)
        if (is_selected(c, method)) selected |= methods(method);
    return selected == 0 || (selected & row.read_by) != 0;
}

std::string_view next_control(std::string_view control) {
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

}  // namespace zel
