#pragma once

#include "reports/report.h"
#include "reports/report_print.h"
#include "tables_graphs/parameter_table.h"

namespace zel {

/// The active methods as titles name them: "Cigre TB 601 / Cigre TB 207".
[[nodiscard]] std::string methods_line(const CalcCase& c);

/// The sheets of a parameter table: one table for each of its methods.
void add_tables(Report& report, const ParameterTable& table, const CalcCase& c, LabelWriter& say,
                const ReportPrint& print, bool busbar);

}  // namespace zel
