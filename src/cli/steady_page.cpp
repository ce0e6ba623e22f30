#include "cli/case_listing.h"
#include "cli/steady_output.h"
#include "shell/program_texts.h"
#include "workflow/run/steady_texts.h"

namespace zel {

std::string steady_page(const CalcCase& c, const SteadyRunResult& result,
                        const CommonOptions& options) {
    const LangId lang = options.lang;
    return std::string(short_name.in(lang)) + "   " + std::string(long_title.in(lang)) + "\n" +
           case_listing(c, case_form_sections(), lang) + "\n" + result_text(result, lang);
}

}  // namespace zel
