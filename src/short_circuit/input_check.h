#pragma once

#include <optional>
#include <span>
#include <vector>

#include "platform/message_box.h"
#include "short_circuit/short_circuit_case.h"
#include "workflow/rules/rule_tables.h"

namespace zel::short_circuit {

/// Pages of the form.
inline constexpr int input_page = 0;
inline constexpr int conductor_page = 1;
inline constexpr int result_page = 2;

}  // namespace zel::short_circuit

namespace zel {

/// Where the user goes to mend a case.
struct InputPlace {
    int page = short_circuit::input_page;
    ShortCircuitKey focus;
};

/// Why a case cannot be calculated.
struct ShortCircuitRefusal : InputPlace {
    Box box;
};

using ShortCircuitCheck = Check<ShortCircuitCase, InputPlace>;

/// The first of `checks` that refuses `c`. The texts are German in every language.
[[nodiscard]] std::optional<ShortCircuitRefusal> refusal_by(
    std::span<const ShortCircuitCheck> checks, const ShortCircuitCase& c);

/// The gate before the calculation: walks 30 checks in a fixed order and gives the first that
/// refuses, or nothing where the case may run. The texts are German in every language.
[[nodiscard]] std::optional<ShortCircuitRefusal> first_refusal(const ShortCircuitCase& c);

/// What the checks let through and the calculation cannot do: kappa 2, frequency 0, a section of 0
/// and so on. One line names the input. Nothing for a case that meets no arithmetic fault.
///
/// A negative section meets none, but it would withstand everything, and is refused too.
[[nodiscard]] std::optional<ShortCircuitRefusal> arithmetic_refusal(const ShortCircuitCase& c);

/// All checks of the gate that refuse `c`, in their order; where none does, what the calculation
/// cannot do.
[[nodiscard]] std::vector<ShortCircuitRefusal> all_refusals(const ShortCircuitCase& c);

/// What the checks that apply let pass of the number of `field`.
[[nodiscard]] std::vector<NumberSpan> allowed_by_checks(const ShortCircuitCase& c,
                                                        const ShortCircuitKey& field);

}  // namespace zel
