#include "workflow/rules/steady_check.h"

namespace zel {
namespace steady_check {

unsigned selected(const CalcCase& c) {
    unsigned methods = always;
    for (const Method method : all_methods)
        if (is_selected(c, method)) methods |= bit(method);
    return methods;
}

const Check* first_refusal(const CalcCase& c) {
    const Check* const refusal = first_refusing(input_checks(), c);
    return refusal != nullptr ? refusal : first_refusing(conductor_checks(), c);
}

std::vector<const Check*> all_refusals(const CalcCase& c) {
    std::vector<const Check*> refusals;
    for (const auto checks : {input_checks(), conductor_checks()})
        for (const Check& check : checks)
            if (check.refuses(c)) refusals.push_back(&check);
    return refusals;
}

std::vector<NumberSpan> allowed_by_checks(const CalcCase& c, const FieldKey& field) {
    std::vector<NumberSpan> spans = {{}};
    for (const auto checks : {input_checks(), conductor_checks()})
        for (const Check& check : checks)
            if (check.rule.place == field && check.rule.applies(c))
                spans = common(spans, check.rule.allowed);
    return spans;
}

}  // namespace steady_check

std::optional<Box> S_Eingabepruefung_steady(const CalcCase& c, LangId lang) {
    const steady_check::Check* const refusal = steady_check::first_refusal(c);
    if (refusal == nullptr) return std::nullopt;
    return refusal->box(lang);
}

namespace {

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
