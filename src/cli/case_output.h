#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "program/console.h"
#include "short_circuit/short_circuit_form.h"
#include "short_circuit/short_circuit_run.h"
#include "steady/case/calc_case.h"
#include "workflow/run/steady_run.h"
#include "workflow/run/transient.h"

// What the commands print: for each one a JSON document, with a line end, and a page of inputs and
// results for a terminal. `program_end` is the reason of a run that had to end the program, whose
// result is what was found up to there; empty otherwise.

namespace zel {

/// The boxes of a run as the `messages` of a document.
[[nodiscard]] nlohmann::ordered_json json_of(const std::vector<Message>& messages);
/// The remarks of the program as the `notes` of a document.
[[nodiscard]] nlohmann::ordered_json json_of(const std::vector<Note>& notes);

/// No selected method failed.
[[nodiscard]] bool sound(const SteadyRunResult& result);
[[nodiscard]] std::string steady_document(const SteadyRunResult& result,
                                          const std::vector<Message>& messages,
                                          std::string_view program_end);
[[nodiscard]] std::string steady_page(const CalcCase& c, const SteadyRunResult& result,
                                      const CommonOptions& options);

/// All that `zel transient` found. What the run did not come to is absent.
struct TransientReport {
    std::optional<Method> method;
    std::optional<TransientStart> start;
    TransientResult run;
    std::optional<std::vector<RowSeries>> series;
    std::vector<Note> notes{};  // on the steady state and on the rows
};

[[nodiscard]] std::string transient_document(const TransientReport& report,
                                             const std::vector<Message>& messages,
                                             std::string_view program_end);
/// The points of a series for a terminal.
[[nodiscard]] std::string series_text(const std::vector<RowSeries>& series, const Locale& locale);

[[nodiscard]] std::string short_circuit_document(const ShortCircuitRun& run,
                                                 const std::vector<Message>& messages);
[[nodiscard]] std::string short_circuit_page(const ShortCircuitForm& form,
                                             const ShortCircuitRun& run,
                                             const CommonOptions& options);

}  // namespace zel
