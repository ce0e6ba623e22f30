#include "workflow/rules/conductor_needs.h"

#include "workflow/rules/steady_check_rows.h"

namespace zel {
namespace {

std::string in_one_line(std::string_view lines) {
    std::string text;
    for (const std::string& line : lines_of(lines)) {
        if (!text.empty()) text += ' ';
        text += without_outer_blanks(line);
    }
    return text;
}

CalcCase with_only(const CalcCase& c, Method method) {
    CalcCase alone = c;
    static_cast<MethodSelection&>(alone) = MethodSelection{};
    alone.ACDC_R_Option_Merker_db = c.ACDC_R_Option_Merker_db;
    alone.GMR_Merker_db = c.GMR_Merker_db;
    alone.*flag_of(method) = 1;
    return alone;
}

}  // namespace

bool is_for_kind(const CalcCase& c, Method method) {
    const CalcCase alone = with_only(c, method);
    return first_refusing(steady_check::kind_checks(), alone) == nullptr;
}

std::vector<std::string> missing_for(const CalcCase& c, Method method, LangId lang) {
    const CalcCase alone = with_only(c, method);
    std::vector<std::string> missing;
    for (const auto checks : {steady_check::kind_checks(), steady_check::conductor_checks()})
        for (const steady_check::Check& check : checks)
            if (check.refuses(alone)) missing.push_back(in_one_line(check.line.in(lang)));
    return missing;
}

}  // namespace zel
