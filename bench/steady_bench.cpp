#include <benchmark/benchmark.h>

#include "fakes/steady_cases.h"
#include "steady/steady_solver.h"

// The times a user waits for: one evaluation of the heat balance, and one solution in each mode.

namespace {

using namespace zel;

/// `layers` chooses the way to the effective current, `section` (mm²) that of a two-layer
/// conductor.
SteadyInputBlock line(std::int16_t layers, double section) {
    SteadyInputBlock in = steady_input(twin_264_34(), 90);
    in.layers = layers;
    in.conductor_section = section;
    return in;
}

void evaluation(benchmark::State& state) {
    const SteadyInputBlock in = line(2, 263.7);
    SteadyStateBlock block{665, 80, {}};
    for (auto _ : state) benchmark::DoNotOptimize(ST_F00_heat_terms_eval(block, in));
}
BENCHMARK(evaluation);

void current_from_temperature(benchmark::State& state, std::int16_t layers, double section,
                              SearchPace pace = SearchPace::AllPoints) {
    const SteadyInputBlock in = line(layers, section);
    for (auto _ : state) benchmark::DoNotOptimize(solve_current(in, 80, pace));
}
BENCHMARK_CAPTURE(current_from_temperature, three_layers, 3, 263.7);
BENCHMARK_CAPTURE(current_from_temperature, two_layers, 2, 263.7);
BENCHMARK_CAPTURE(current_from_temperature, two_thin_layers, 2, 174);
BENCHMARK_CAPTURE(current_from_temperature, three_layers_new_points, 3, 263.7,
                  SearchPace::NewPoints);
BENCHMARK_CAPTURE(current_from_temperature, two_layers_new_points, 2, 263.7, SearchPace::NewPoints);

void temperature_from_current(benchmark::State& state, std::int16_t layers, double section,
                              SearchPace pace = SearchPace::AllPoints) {
    const SteadyInputBlock in = line(layers, section);
    for (auto _ : state) benchmark::DoNotOptimize(solve_temperature(in, 400, pace));
}
BENCHMARK_CAPTURE(temperature_from_current, three_layers, 3, 263.7);
BENCHMARK_CAPTURE(temperature_from_current, two_layers, 2, 263.7);
BENCHMARK_CAPTURE(temperature_from_current, two_thin_layers, 2, 174);
BENCHMARK_CAPTURE(temperature_from_current, two_layers_new_points, 2, 263.7, SearchPace::NewPoints);

}  // namespace
