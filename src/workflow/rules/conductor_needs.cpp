#include "workflow/rules/conductor_needs.h"

#include <algorithm>

#include "workflow/rules/steady_check_rows.h"

namespace zel {
namespace {

using steady_check::Check;

// The checks that a conductor's kind goes with the methods.
constexpr int kind_checks[] = {2, 3};

std::string in_one_line(std::string_view lines) {
    std::string text;
    for (const std::string& line : lines_of(lines)) {
        if (!text.empty()) text += ' ';
        text += without_outer_blanks(line);
    }
    return text;
}

bool is_kind_check(const Check& check) {
    return std::find(std::begin(kind_checks), std::end(kind_checks), check.rule.number) !=
           std::end(kind_checks);
}

CalcCase with_only(const CalcCase& c, Method method) {
    CalcCase alone = c;
    static_cast<MethodSelection&>(alone) = MethodSelection{};
    alone.ACDC_R_Option_Merker_db = c.ACDC_R_Option_Merker_db;
    alone.GMR_Merker_db = c.GMR_Merker_db;
    alone.*flag_of(method) = 1;
    return alone;
}

bool refuses(const Check& check, const CalcCase& c) {
    return (check.rule.applies & steady_check::selected(c)) != 0 && check.rule.refuses(c);
}

}  // namespace

bool is_for_kind(const CalcCase& c, Method method) {
    const CalcCase alone = with_only(c, method);
    const auto checks = steady_check::input_checks();
    return std::none_of(checks.begin(), checks.end(), [&](const Check& check) {
        return is_kind_check(check) && refuses(check, alone);
    });
}

std::vector<std::string> missing_for(const CalcCase& c, Method method, LangId lang) {
    const CalcCase alone = with_only(c, method);
    std::vector<std::string> missing;
    const auto ask = [&](const Check& check) {
        if (refuses(check, alone)) missing.push_back(in_one_line(check.lines.in(lang)));
    };
    for (const Check& check : steady_check::input_checks())
        if (is_kind_check(check)) ask(check);
    for (const Check& check : steady_check::conductor_checks()) ask(check);
    return missing;
}

}  // namespace zel
