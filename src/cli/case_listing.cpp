#include "cli/case_listing.h"

#include <algorithm>
#include <utility>

#include "platform/text/listing.h"
#include "program/console.h"

namespace zel {
namespace {

// What a record says nothing about stands there as 0.
constexpr Entry CalcCase::*nothing_at_0[] = {&CalcCase::GMR_db,   &CalcCase::ACR_Frequenz_Remox_db,
                                             &CalcCase::ACR1_db,  &CalcCase::ACR2_db,
                                             &CalcCase::ACR3_db,  &CalcCase::ACR4_db,
                                             &CalcCase::ACR5_db,  &CalcCase::ACR6_db,
                                             &CalcCase::TACR1_db, &CalcCase::TACR2_db,
                                             &CalcCase::TACR3_db, &CalcCase::TACR4_db,
                                             &CalcCase::TACR5_db, &CalcCase::TACR6_db};

bool says_nothing(const CalcCase& c, const FormRow& row) {
    if (const auto* whole = std::get_if<std::int16_t CalcCase::*>(&row.field))
        return row.choices == nullptr && c.**whole == 0;
    const auto* field = std::get_if<Entry CalcCase::*>(&row.field);
    return field != nullptr && (c.**field).value == 0 &&
           std::find(std::begin(nothing_at_0), std::end(nothing_at_0), *field) !=
               std::end(nothing_at_0);
}

/// What the field shows, with its unit; empty where it has no input.
std::string shown_value(const CalcCase& c, const FormRow& row, LangId lang) {
    std::string text = printable(shown_text(c, row));
    std::replace(text.begin(), text.end(), '\n', ' ');
    if (text.empty() || row.choices == nullptr)
        return text.empty() || *row.unit == '\0' ? text : text + " " + row.unit;
    const std::int16_t number = c.*std::get<std::int16_t CalcCase::*>(row.field);
    const auto choices = row.choices();
    const auto chosen = std::find_if(choices.begin(), choices.end(),
                                     [&](const Choice& choice) { return choice.value == number; });
    // The first choice stands for every number that is not told.
    return std::string((chosen == choices.end() ? choices.front() : *chosen).text.in(lang));
}

}  // namespace

std::string case_listing(const CalcCase& c, std::span<const FormSection> sections, LangId lang) {
    Listing listing;
    for (const FormSection& section : sections) {
        bool headed = false;
        for (const FormRow& row : section.rows) {
            std::string value = shown_value(c, row, lang);
            if (value.empty() || says_nothing(c, row)) continue;
            if (!headed) listing.add_caption(section.caption.in(lang));
            headed = true;
            listing.add(row.label.in(lang), std::move(value));
        }
    }
    return listing.text();
}

}  // namespace zel
