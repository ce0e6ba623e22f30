#include "cli/case_listing.h"

#include <algorithm>
#include <utility>

#include "forms/line_form.h"
#include "platform/text/listing.h"
#include "program/console.h"

namespace zel {

std::string listing_of(const forms::Record& record, std::span<const forms::Section> sections,
                       LangId lang, std::string_view nothing) {
    Listing listing;
    for (const forms::Section& section : sections) {
        bool headed = false;
        for (const forms::Row& row : section.rows) {
            std::string value = printable(record.listed(row));
            std::replace(value.begin(), value.end(), '\n', ' ');
            if (value.empty()) value = nothing;
            if (value.empty()) continue;
            if (!headed) listing.add_caption(section.caption.in(lang));
            headed = true;
            listing.add(without_outer_blanks(record.label(row).in(lang)), std::move(value));
        }
    }
    return listing.text();
}

std::string case_listing(CalcCase c, std::span<const forms::Section> sections, LangId lang,
                         std::string_view nothing) {
    const Locale locale{lang};
    return listing_of(forms::LineForm(c, locale), sections, lang, nothing);
}

std::string case_listing(CalcCase c, LangId lang) {
    const Locale locale{lang};
    const forms::LineForm form(c, locale);
    return listing_of(form, form.sections(), lang);
}

}  // namespace zel
