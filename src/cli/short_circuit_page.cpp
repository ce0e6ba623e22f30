#include <algorithm>

#include "cli/case_listing.h"
#include "cli/case_output.h"
#include "forms/short_circuit_form.h"
#include "shell/program_texts.h"

namespace zel {
namespace {

constexpr Text result_caption = {"Ergebnis", "Result"};

std::string inputs_of(ShortCircuitForm form, const CommonOptions& options) {
    const forms::ShortCircuitRecord record(form, options);
    std::vector<forms::Section> sections(record.sections().begin(), record.sections().end());
    // Nothing is asked of the conductor where equipment is judged.
    if (form.content().Leiter_Bmittel == equipment)
        std::erase_if(sections,
                      [](const auto& s) { return s.page == short_circuit::conductor_page; });
    return listing_of(record, sections, options.lang);
}

}  // namespace

std::string short_circuit_page(const ShortCircuitForm& form, const ShortCircuitRun& run,
                               const CommonOptions& options) {
    const LangId lang = options.lang;
    return std::string(short_circuit_name.in(lang)) + "   " +
           std::string(short_circuit_title.in(lang)) + "\n" + inputs_of(form, options) + "\n" +
           std::string(result_caption.in(lang)) + "\n  " + result_text(run.page, lang);
}

}  // namespace zel
