#pragma once

#include "reports/report.h"
#include "reports/report_print.h"
#include "tables_graphs/transient_diagram.h"
#include "workflow/run/notes.h"
#include "workflow/run/transient.h"

namespace zel {

/// The table of the transient that a run of `c` found, on one sheet, with the notes on it. What was
/// found is marked; a row that failed says so and is the last one.
[[nodiscard]] Report S03_Print_Tab_transient_Cigre207_601_TBB(const CalcCase& c,
                                                              const TransientResult& result,
                                                              const ReportPrint& print);

/// The diagram of the same, on one sheet: `series` is the course that was stepped anew.
[[nodiscard]] Report S04_Print_Graph_transient_Cigre207_601_TBB(
    const CalcCase& c, const TransientResult& result, const std::vector<RowSeries>& series,
    const ReportPrint& print);

}  // namespace zel
