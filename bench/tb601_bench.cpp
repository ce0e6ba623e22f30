#include <benchmark/benchmark.h>

#include "fakes/tb601_cases.h"
#include "tb601_transient/tb601/tb601_solver.h"

// Cigre TB 601: one evaluation of the heat balance, and one solution in each mode.

namespace {

using namespace zel;

void tb601_evaluation(benchmark::State& state) {
    const TB601Params params = records_of(line_264_34()).params;
    TB601State s;
    s.I = 650;
    s.T = 80;
    for (auto _ : state) benchmark::DoNotOptimize(ST_CigreTB601_Heat_Balance(params, s));
}
BENCHMARK(tb601_evaluation);

void tb601_current_from_temperature(benchmark::State& state, SearchPace pace) {
    const TB601Params params = records_of(line_264_34()).params;
    TB601State s;
    for (auto _ : state) benchmark::DoNotOptimize(solve_current(params, s, 80, pace));
}
BENCHMARK_CAPTURE(tb601_current_from_temperature, all_points, SearchPace::AllPoints);
BENCHMARK_CAPTURE(tb601_current_from_temperature, new_points, SearchPace::NewPoints);

void tb601_temperature_from_current(benchmark::State& state, SearchPace pace) {
    const TB601Params params = records_of(line_264_34()).params;
    TB601State s;
    for (auto _ : state) benchmark::DoNotOptimize(solve_temperature(params, s, 400, pace));
}
BENCHMARK_CAPTURE(tb601_temperature_from_current, all_points, SearchPace::AllPoints);
BENCHMARK_CAPTURE(tb601_temperature_from_current, new_points, SearchPace::NewPoints);

}  // namespace
