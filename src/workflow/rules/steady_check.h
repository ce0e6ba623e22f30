#pragma once

#include <optional>

#include "platform/message_box.h"
#include "steady/case/calc_case.h"

namespace zel {

/// `S_Eingabepruefung_steady`, the gate before any steady calculation: walks a fixed list of checks
/// and gives the box of the first that refuses, or nothing where the case may run. The case stays
/// as it is. A check that belongs to a method applies only where that method is selected.
[[nodiscard]] std::optional<Box> S_Eingabepruefung_steady(const CalcCase& c, LangId lang);

}  // namespace zel
