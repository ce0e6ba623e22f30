#include <benchmark/benchmark.h>

#include "adapters/qt_canvas/drawing_file.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/short_circuit_cases.h"
#include "fakes/tb601_cases.h"
#include "fakes/transient_cases.h"
#include "reports/report_file.h"
#include "reports/steady_report.h"
#include "reports/transient_report.h"
#include "short_circuit/short_circuit_report.h"
#include "short_circuit/short_circuit_run.h"
#include "workflow/run/transient_memory.h"

// What a person waits for a report as a PDF, from its results on.

namespace zel {
namespace {

const ReportPrint print = {PrintLang::German, DecimalSeparator::Comma, "22/11/2026 / 09:05"};

ScriptedDialogs dialogs;
MethodMemory methods;
const Session session = {LangId::German, print.separator, RunMode::Silent, dialogs, &methods};

void write(benchmark::State& state, const std::function<Report()>& report) {
    static const DrawingSystem system;
    for (auto _ : state)
        benchmark::DoNotOptimize(file_of(report(), print.lang, sheets_file).pdf.size());
}

/// With a parameter table of `Arg` steps for six winds.
void steady_report(benchmark::State& state) {
    CalcCase c = over_six_winds(static_cast<int>(state.range(0)));
    const SteadyRunResult run = RunSteady(c, session);
    const ParameterTable table = *calculate_table(c, session);
    write(state, [&] { return *print_tab_stat({c, run, &table}, print); });
}
BENCHMARK(steady_report)->Arg(10)->Arg(300)->Unit(benchmark::kMillisecond);

void steady_graph_report(benchmark::State& state) {
    const CalcCase c = over_six_winds(100);
    write(state, [&] { return S02_Print_Graph_Steady(c, *calculate_curves(c, session), print); });
}
BENCHMARK(steady_graph_report)->Unit(benchmark::kMillisecond);

struct RunTransientCase {
    RunTransientCase() {
        memory.keep(RunSteady(c, session), c);
        RunTransient(c, memory.basis(), session, {}, result);
    }
    CalcCase c =
        bundle_with_rows({typed_temperature_row(1800, 10, 0), typed_temperature_row(1000, 20, 0),
                          typed_temperature_row(1500, 30, 0)});
    TransientMemory memory;
    TransientResult result;
};

void transient_report(benchmark::State& state) {
    const RunTransientCase ran;
    write(state,
          [&] { return S03_Print_Tab_transient_Cigre207_601_TBB(ran.c, ran.result, print); });
}
BENCHMARK(transient_report)->Unit(benchmark::kMillisecond);

void transient_graph_report(benchmark::State& state) {
    const RunTransientCase ran;
    write(state, [&] {
        return S04_Print_Graph_transient_Cigre207_601_TBB(
            ran.c, ran.result, *transient_series(ran.c, ran.memory.basis(), ran.result, session),
            print);
    });
}
BENCHMARK(transient_graph_report)->Unit(benchmark::kMillisecond);

void short_circuit_report(benchmark::State& state) {
    const ShortCircuitForm form = aluminium_near();
    const ShortCircuitRun run = RunShortCircuit(form.content(), DecimalSeparator::Point);
    write(state, [&] { return KS10_tab_print_Kurzschluss_1(form.content(), run.result, print); });
}
BENCHMARK(short_circuit_report)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zel
