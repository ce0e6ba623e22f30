#pragma once

#include <optional>

#include "desktop/line/line_case.h"
#include "reports/printing.h"
#include "tables_graphs/parameter_table.h"
#include "workflow/run/steady_run.h"

// What the form of the thermal rating prints. An order keeps what it is made from.

namespace zel {

/// The steady report of `run`, with the parameter table where there is one.
[[nodiscard]] PrintOrder steady_table_order(const CalcCase& c, const SteadyRunResult& run,
                                            const ParameterTable* table);

/// The diagram of `curves`; parts of it without a result are told when it is made.
[[nodiscard]] PrintOrder steady_graph_order(const CalcCase& c, const ParameterTable& curves,
                                            const Session& session);

/// The last transient; nothing where its inputs have changed since, which is told.
[[nodiscard]] std::optional<PrintOrder> transient_table_order(const LineCase& line,
                                                              const Session& session);

/// The course of a transient.
[[nodiscard]] PrintOrder transient_graph_order(const CalcCase& c, const TransientResult& result,
                                               const std::vector<RowSeries>& series);

/// False where the inputs of the last transient have changed since, which is told.
[[nodiscard]] bool transient_is_current(const LineCase& line, const Session& session);

}  // namespace zel
