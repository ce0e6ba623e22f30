#include "workflow/rules/steady_check.h"

#include <utility>

#include "workflow/rules/steady_check_rows.h"

namespace zel {
namespace steady_check {

unsigned selected(const CalcCase& c) {
    unsigned methods = always;
    for (const Method method : all_methods)
        if (is_selected(c, method)) methods |= bit(method);
    return methods;
}

Box box_of(const Check& check, LangId lang) {
    return box_in(lang, *check.rule.frame, {check.lines.in(lang)});
}

std::optional<SteadyRefusal> first_refusal(const CalcCase& c, LangId lang) {
    const unsigned methods = selected(c);
    for (const auto checks : {input_checks(), conductor_checks()})
        for (const Check& check : checks)
            if ((check.rule.applies & methods) != 0 && check.rule.refuses(c))
                return SteadyRefusal{check.rule.number, box_of(check, lang)};
    return std::nullopt;
}

}  // namespace steady_check

std::optional<Box> S_Eingabepruefung_steady(const CalcCase& c, LangId lang) {
    auto refusal = steady_check::first_refusal(c, lang);
    if (!refusal) return std::nullopt;
    return std::move(refusal->box);
}

}  // namespace zel
