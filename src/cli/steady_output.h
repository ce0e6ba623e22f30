#pragma once

#include <string>
#include <vector>

#include "cli/console.h"
#include "steady/calc_case.h"
#include "workflow/steady_run.h"

namespace zel {

/// The JSON document of a steady run, with a line end.
[[nodiscard]] std::string steady_document(const SteadyRunResult& result,
                                          const std::vector<Message>& messages);

/// The JSON document of a refused input.
[[nodiscard]] std::string refusal_document(const std::vector<Message>& messages);

/// The JSON document of a run that had to end the program.
[[nodiscard]] std::string program_end_document(std::string_view reason,
                                               const std::vector<Message>& messages);

/// Inputs and results for a terminal.
[[nodiscard]] std::string steady_page(const CalcCase& c, const SteadyRunResult& result,
                                      const CommonOptions& options);

}  // namespace zel
