#pragma once

#include <string>
#include <vector>

#include "cli/console.h"
#include "steady/case/calc_case.h"
#include "workflow/run/steady_run.h"

namespace zel {

/// The JSON document of a steady run, with a line end. `program_end` is the reason of a run that
/// had to end the program, whose result is what was found up to there; empty otherwise.
[[nodiscard]] std::string steady_document(const SteadyRunResult& result,
                                          const std::vector<Message>& messages,
                                          std::string_view program_end = {});

/// Inputs and results for a terminal.
[[nodiscard]] std::string steady_page(const CalcCase& c, const SteadyRunResult& result,
                                      const CommonOptions& options);

}  // namespace zel
