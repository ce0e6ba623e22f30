#pragma once

#include <optional>
#include <string_view>

#include "shell/error_table.h"

namespace zel::forms {

/// The message of a failure in `procedure` of the short-circuit databases and
/// the second half of the report where it is not that of
/// the central table: faults of arithmetic (5, 6, 11), numbers without a row of their own, and
/// everything that fails while a table is dropped. The cause stands below the fixed wording.
[[nodiscard]] std::optional<Box> short_circuit_failure(const ErrorObject& error, std::int16_t Zeile,
                                                       std::string_view procedure, LangId lang);

}  // namespace zel::forms
