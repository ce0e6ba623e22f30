#pragma once

#include <string>
#include <vector>

#include "cli/console.h"
#include "short_circuit/short_circuit_run.h"

namespace zel {

/// The JSON document of a calculated case, with a line end.
[[nodiscard]] std::string short_circuit_document(const ShortCircuitRun& run,
                                                 const std::vector<Message>& messages);

/// Inputs and results for a terminal.
[[nodiscard]] std::string short_circuit_page(const ShortCircuitCase& c, const ShortCircuitRun& run,
                                             const CommonOptions& options);

}  // namespace zel
