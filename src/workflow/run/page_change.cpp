#include "workflow/run/page_change.h"

#include <algorithm>

#include "workflow/run/steady_methods.h"

namespace zel {
namespace {

constexpr BoxText no_method = {Icon::Warning,
                               {"Eingabeprüfung", "Input verification"},
                               {"Sie müssen zunächst mindestens ein Berechnungsverfahren:\n"
                                "Cigre TB207 / TB601, Webs, Kirn oder Puffer\n"
                                "in der aktuell angezeigten Registerkarte auswählen!",
                                "You have to chose first at least one calculation method:\n"
                                "Cigre TB207 / TB601, Webs, Kirn or Puffer\n"
                                "within the viewed datasheet !"}};

}  // namespace

PageChange change_page(const CalcCase& c, int from, int to, LangId lang) {
    PageChange change;
    change.page = to;
    change.clears_balance = to != input_page && (from == input_page || from == conductor_page);
    change.runs = to == result_page;
    const bool any_method = std::any_of(all_methods.begin(), all_methods.end(),
                                        [&](Method method) { return is_selected(c, method); });
    if (to == conductor_page && !any_method) {
        change.page = input_page;
        change.refusal = box_in(lang, no_method);
    }
    return change;
}

}  // namespace zel
