#include "workflow/rules/steady_check.h"

#include "workflow/rules/steady_check_rows.h"

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

}  // namespace steady_check

std::optional<Box> S_Eingabepruefung_steady(const CalcCase& c, LangId lang) {
    const steady_check::Check* const refusal = steady_check::first_refusal(c);
    if (refusal == nullptr) return std::nullopt;
    return refusal->box(lang);
}

}  // namespace zel
