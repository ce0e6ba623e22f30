#include <algorithm>
#include <utility>

#include "cli/case_output.h"
#include "forms/ks_forms.h"
#include "platform/text/listing.h"
#include "shell/program_texts.h"

namespace zel {
namespace {

constexpr Text result_caption = {"Ergebnis", "Result"};

/// `value` in one line, with its unit; a value without a unit stands alone.
std::string with_unit(std::string_view value, std::string_view unit) {
    std::string text = without_outer_blanks(printable(value));
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text.empty() || unit.empty() ? text : text + " " + std::string(unit);
}

void add_inputs(Listing& listing, const ShortCircuitCase& c, const CommonOptions& options) {
    for (const KsFormSection& section : ks_form_sections()) {
        // Nothing is asked of the conductor where equipment is judged.
        if (section.page == ks_conductor_page && c.Leiter_Bmittel == equipment) continue;
        bool headed = false;
        for (const KsFormRow& row : section.rows) {
            std::string value = with_unit(ks_shown_text(c, row, options.separator), row.unit);
            if (value.empty()) continue;
            if (!headed) listing.add_caption(section.caption.in(options.lang));
            headed = true;
            listing.add(without_outer_blanks(row.caption), std::move(value));
        }
    }
}

}  // namespace

std::string short_circuit_page(const ShortCircuitCase& c, const ShortCircuitRun& run,
                               const CommonOptions& options) {
    const LangId lang = options.lang;
    Listing inputs;
    add_inputs(inputs, c, options);
    return std::string(short_circuit_name.in(lang)) + "   " +
           std::string(short_circuit_title.in(lang)) + "\n" + inputs.text() + "\n" +
           std::string(result_caption.in(lang)) + "\n  " + result_text(run.page);
}

}  // namespace zel
