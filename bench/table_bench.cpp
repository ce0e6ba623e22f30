#include <benchmark/benchmark.h>

#include "fakes/scripted_dialogs.h"
#include "fakes/tb601_cases.h"
#include "tables_graphs/parameter_table.h"

// The largest table: four methods, six winds, a thousand steps.

namespace zel {
namespace {

void fill_table(benchmark::State& state) {
    const CalcCase c = over_six_winds(static_cast<int>(state.range(0)));
    ScriptedDialogs dialogs;
    const Session session = {{}, RunMode::Silent, dialogs};
    for (auto _ : state) benchmark::DoNotOptimize(calculate_table(c, session));
    state.counters["us_a_cell"] = benchmark::Counter(
        static_cast<double>(state.iterations()) * 24e-6 * static_cast<double>(state.range(0)),
        benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(fill_table)->Arg(10)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace zel
