#pragma once

#include <optional>

#include "platform/message_box.h"
#include "steady/case/calc_case.h"

// What moving along the four pages of the main form means.

namespace zel {

inline constexpr int input_page = 0;      // project, surroundings, line, methods
inline constexpr int conductor_page = 1;  // conductor data and further inputs
inline constexpr int result_page = 2;
inline constexpr int transient_page = 3;

struct PageChange {
    int page = input_page;        // the page that is shown in the end
    bool clears_balance = false;  // the balance lines of the former run are emptied
    bool runs = false;            // the page is filled by a new steady run
    std::optional<Box> refusal;   // told; the page is then not the wanted one
};

/// What going from page `from` to page `to` means for the case `c`. The conductor page is refused
/// as long as no method is selected; every arrival at the result page is a new run.
[[nodiscard]] PageChange change_page(const CalcCase& c, int from, int to, LangId lang);

}  // namespace zel
