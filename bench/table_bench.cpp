#include <benchmark/benchmark.h>

#include "fakes/scripted_dialogs.h"
#include "fakes/steady_cases.h"
#include "fakes/tb601_cases.h"
#include "tables_graphs/parameter_table.h"

// The largest table: four methods, six winds, a thousand steps.

namespace zel {
namespace {

void fill_table(benchmark::State& state) {
    CalcCase c = sunny_264_34();
    static_cast<ConductorData&>(c) = line_264_34();
    c.ACDC_R_Option_Merker_db = resistance_by_formula;
    c.Leitertemp_Merker_db = false;
    c.Stromstaerke_Merker_db = true;
    for (const Method method : {Method::TB601, Method::Webs, Method::Kirn}) c.*flag_of(method) = 1;
    c.Strom_min_db = typed(10);
    c.Strom_max_db = typed(10 * static_cast<double>(state.range(0)));
    c.Schrittweite_Strom_db = 10;
    const auto winds = {&CalcCase::Wind1_db, &CalcCase::Wind2_db, &CalcCase::Wind3_db,
                        &CalcCase::Wind4_db, &CalcCase::Wind5_db, &CalcCase::Wind6_db};
    for (double speed = 0; const auto wind : winds) c.*wind = typed(speed++);
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
