#pragma once

#include <string_view>

#include "steady/steady_report.h"
#include "tb601_transient/tb601/tb601_cause.h"

// From the cause of a failure to what the user is told: the abort text, the boxes, the end of the
// program. The calculation itself knows nothing of this.

namespace zel {

/// The abort text, the status of TB 601, of a failure; empty for none. Some texts differ by the
/// message mode.
[[nodiscard]] std::string_view tb601_abort_text(const Tb601Failure& failure,
                                                RunMode Meldung_merker);

/// Tells `failure` as the message mode allows and gives its abort text (empty for no failure).
/// Throws `ProgramEnd` where the mode of the calculation is undefined, where a question is not
/// answered with No, and on any failure in a message mode that is neither 1 nor 2.
std::string_view report(const Tb601Failure& failure, const Reporting& reporting);

}  // namespace zel
