#pragma once

#include <cstdint>
#include <span>

#include "platform/text/number_text.h"
#include "platform/text/text.h"
#include "steady/case/calc_case.h"

// The mode of calculation: which value is given, and so which is sought.

namespace zel {

enum class GivenValue : std::uint8_t { Nothing, Temperature, Current, BundleCurrent };

struct GivenValueRow {
    GivenValue value;
    const char* control;  // the box that is open for input; empty for none
    Text text;
};

/// In the order of the list on the form, which is that of `GivenValue`.
[[nodiscard]] std::span<const GivenValueRow> given_value_rows();

/// What the mode flags of `c` say is given. Flags that contradict each other give `Nothing`.
[[nodiscard]] GivenValue given_value(const MethodSelection& c);

/// Sets the three mode flags. Where the current of the bundle is no longer the given one,
/// `Stromstaerke_db` is read anew from its text: what the box shows, and no longer the unrounded
/// share that was derived from the bundle.
void set_given_value(CalcCase& c, GivenValue value, DecimalSeparator separator);

}  // namespace zel
