#pragma once

#include <optional>

#include "short_circuit/input_check.h"
#include "short_circuit/result_page.h"

namespace zel {

/// What going to the result page gives: either the reason of a refusal, with nothing computed, or
/// the result and how it is shown.
struct ShortCircuitRun {
    std::optional<ShortCircuitRefusal> refusal;
    ShortCircuitResult result;
    VerdictPage page;
};

/// Checks and calculates a case. A function of its arguments alone; shows no box.
[[nodiscard]] ShortCircuitRun RunShortCircuit(const ShortCircuitCase& c,
                                              DecimalSeparator separator);

}  // namespace zel
