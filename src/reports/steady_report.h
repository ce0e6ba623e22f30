#pragma once

#include <optional>
#include <vector>

#include "platform/message_box.h"
#include "reports/report.h"
#include "reports/report_print.h"
#include "tables_graphs/parameter_table.h"
#include "workflow/run/steady_run.h"

namespace zel {

/// What a steady report is printed from: a valid run of a case, and the parameter table where one
/// was calculated for it.
struct SteadyPrint {
    const CalcCase& c;
    const SteadyRunResult& run;
    const ParameterTable* table = nullptr;
};

/// The report of kind 1: `S01_print_tab_stat_cigrewebskirn_1` where a method other than that of the
/// busbar is active, `S01_print_tab_stat_TBB_1` where that one alone is. Nothing without a method.
[[nodiscard]] std::optional<Report> print_tab_stat(const SteadyPrint& steady,
                                                   const ReportPrint& print);

/// The procedure that makes it.
[[nodiscard]] std::string_view steady_procedure(const CalcCase& c);

/// Inputs on the first sheet, conductor and results on the second, then the parameter tables.
[[nodiscard]] Report S01_print_tab_stat_cigrewebskirn_1(const SteadyPrint& steady,
                                                        const ReportPrint& print);
/// The same of a tubular busbar.
[[nodiscard]] Report S01_print_tab_stat_TBB_1(const SteadyPrint& steady, const ReportPrint& print);

/// The diagram of `curves` on one sheet.
[[nodiscard]] Report S02_Print_Graph_Steady(const CalcCase& c, const ParameterTable& curves,
                                            const ReportPrint& print);

/// What is told where methods found no result in a part of a diagram.
[[nodiscard]] std::vector<Box> failures_of_graph(const ParameterTable& curves, LangId lang);

}  // namespace zel
