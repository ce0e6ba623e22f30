#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/console.h"
#include "platform/text/locale.h"
#include "workflow/run/transient.h"

namespace zel {

/// All that `zel transient` found. What the run did not come to is absent.
struct TransientReport {
    std::optional<Method> method;
    std::optional<TransientStart> start;
    TransientRunResult run;
    std::optional<std::vector<RowSeries>> series;
    std::string program_end;  // the reason of a run that had to end the program
};

/// The JSON document of a transient, with a line end.
[[nodiscard]] std::string transient_document(const TransientReport& report,
                                             const std::vector<Message>& messages);

/// The points of a series for a terminal.
[[nodiscard]] std::string series_text(const std::vector<RowSeries>& series, const Locale& locale);

}  // namespace zel
