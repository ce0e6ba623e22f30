#include <benchmark/benchmark.h>

#include "fakes/tb601_cases.h"
#include "tb601_transient/tb601/tb601_solver.h"

// Cigre TB 601: one evaluation of the heat balance, and one solution in each mode, with skin effect
// and with a table of AC resistances.

namespace {

using namespace zel;

/// 264-AL1/34-ST1A with the resistance by formula, and so with skin effect, or by a table.
TB601Records line(ResistanceOption option) {
    CalcCase c = line_264_34();
    c.ACDC_R_Option_Merker_db = option;
    c.ACR1_db = typed(0.11);
    c.TACR1_db = typed(20);
    c.ACR2_db = typed(0.136);
    c.TACR2_db = typed(80);
    return records_of(c);
}

void tb601_evaluation(benchmark::State& state) {
    const TB601Params params = records_of(line_264_34()).params;
    TB601State s;
    s.I = 650;
    s.T = 80;
    for (auto _ : state) benchmark::DoNotOptimize(ST_CigreTB601_Heat_Balance(params, s));
}
BENCHMARK(tb601_evaluation);

void tb601_current_from_temperature(benchmark::State& state, SearchPace pace,
                                    ResistanceOption option = resistance_by_formula) {
    auto [params, s] = line(option);
    for (auto _ : state) benchmark::DoNotOptimize(solve_current(params, s, 80, pace));
}
BENCHMARK_CAPTURE(tb601_current_from_temperature, all_points, SearchPace::AllPoints);
BENCHMARK_CAPTURE(tb601_current_from_temperature, new_points, SearchPace::NewPoints);
BENCHMARK_CAPTURE(tb601_current_from_temperature, by_table_all_points, SearchPace::AllPoints,
                  resistance_by_table);
BENCHMARK_CAPTURE(tb601_current_from_temperature, by_table_new_points, SearchPace::NewPoints,
                  resistance_by_table);

void tb601_temperature_from_current(benchmark::State& state, SearchPace pace,
                                    ResistanceOption option = resistance_by_formula) {
    auto [params, s] = line(option);
    for (auto _ : state) benchmark::DoNotOptimize(solve_temperature(params, s, 400, pace));
}
BENCHMARK_CAPTURE(tb601_temperature_from_current, all_points, SearchPace::AllPoints);
BENCHMARK_CAPTURE(tb601_temperature_from_current, new_points, SearchPace::NewPoints);
BENCHMARK_CAPTURE(tb601_temperature_from_current, by_table_all_points, SearchPace::AllPoints,
                  resistance_by_table);
BENCHMARK_CAPTURE(tb601_temperature_from_current, by_table_new_points, SearchPace::NewPoints,
                  resistance_by_table);

}  // namespace
