#pragma once

#include <string>

#include "workflow/run/steady_run.h"

namespace zel {

/// What the result page shows of a valid run, as plain text: for a terminal and the clipboard.
[[nodiscard]] std::string result_text(const SteadyRunResult& result, LangId lang);

}  // namespace zel
