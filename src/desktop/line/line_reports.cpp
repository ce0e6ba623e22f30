#include "desktop/line/line_reports.h"

#include "reports/steady_report.h"
#include "reports/transient_report.h"
#include "shell/program_texts.h"

namespace zel {
namespace {

constexpr BoxText inputs_changed = {
    Icon::Stop,
    short_name,
    {"Die Eingabedaten haben sich geändert, bitte führen Sie eine neue instationäre Berechnung "
     "durch !",
     "There has been a change of input data, please run a new Unsteady-State-Calculation !"}};

}  // namespace

PrintOrder steady_table_order(const CalcCase& c, const SteadyRunResult& run,
                              const ParameterTable* table) {
    std::optional<ParameterTable> kept;
    if (table != nullptr) kept = *table;
    return {ReportKind::SteadyTable, steady_procedure(c), [c, run, kept](const ReportPrint& print) {
                return print_tab_stat({c, run, kept ? &*kept : nullptr}, print);
            }};
}

PrintOrder steady_graph_order(const CalcCase& c, const ParameterTable& curves,
                              const Session& session) {
    return {ReportKind::SteadyGraph, "S02_Print_Graph_Steady",
            [c, curves, &session](const ReportPrint& print) {
                for (const Box& box : failures_of_graph(curves, session.lang)) session.tell(box);
                return S02_Print_Graph_Steady(c, curves, print);
            }};
}

bool transient_is_current(const LineCase& line, const Session& session) {
    if (!line.transient.result_is_stale(line.c, session)) return true;
    session.tell(box_in(session.lang, inputs_changed));
    return false;
}

std::optional<PrintOrder> transient_table_order(const LineCase& line, const Session& session) {
    if (!transient_is_current(line, session)) return std::nullopt;
    const TransientResult& result = *line.transient.result();
    return PrintOrder{ReportKind::TransientTable, "S03_Print_Tab_transient_Cigre207_601_TBB",
                      [c = line.c, result](const ReportPrint& print) {
                          return S03_Print_Tab_transient_Cigre207_601_TBB(c, result, print);
                      }};
}

PrintOrder transient_graph_order(const CalcCase& c, const TransientResult& result,
                                 const std::vector<RowSeries>& series) {
    return {ReportKind::TransientGraph, "S04_Print_Graph_transient_Cigre207_601_TBB",
            [c, result, series](const ReportPrint& print) {
                return S04_Print_Graph_transient_Cigre207_601_TBB(c, result, series, print);
            }};
}

}  // namespace zel
