#include <utility>

#include "cli/steady_output.h"
#include "desktop/case_forms.h"
#include "platform/listing.h"
#include "shell/program_texts.h"
#include "workflow/result_text.h"

namespace zel {
namespace {

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

std::string inputs(const CalcCase& c, LangId lang) {
    Listing listing;
    for (const FormSection& section : case_form_sections()) {
        bool headed = false;
        for (const FormRow& row : section.rows) {
            std::string value = shown_value(c, row, lang);
            if (value.empty()) continue;
            if (!headed) listing.add_caption(section.caption.in(lang));
            headed = true;
            listing.add(row.label.in(lang), std::move(value));
        }
    }
    return listing.text();
}

}  // namespace

std::string steady_page(const CalcCase& c, const SteadyRunResult& result,
                        const CommonOptions& options) {
    const LangId lang = options.lang;
    return std::string(short_name.in(lang)) + "   " + std::string(long_title.in(lang)) + "\n" +
           inputs(c, lang) + "\n" + result_text(result, lang);
}

}  // namespace zel
