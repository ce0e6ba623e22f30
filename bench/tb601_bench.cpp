#include <benchmark/benchmark.h>

#include "tb601_transient/tb601_solver.h"

// Cigre TB 601: one evaluation of the heat balance, and one solution in each mode.

namespace {

using namespace zel;

/// 264-AL1/34-ST1A at 35 °C, 0.6 m/s across, 900 W/m², by its DC resistance.
TB601Params line() {
    TB601Params p;
    p.Ta = 35;
    p.V = 0.6;
    p.Delta = 90;
    p.Ig = 900;
    p.G = 9.80665;
    p.Eps = 0.6;
    p.AlphaS = 0.6;
    p.F = 50;
    p.ConductorType = steel_cored_conductor;
    p.ConductorShape = round_wires;
    p.AluLayers = 2;
    p.AreaOuter = 263.7;
    p.D = 0.0224;
    p.DCore = 0.00747;
    p.DWire = 0.00374;
    p.ROption = resistance_by_formula;
    p.R20 = 0.1095e-3;
    p.Rho20 = 28.264e-9;
    p.Alpha = 0.00403;
    p.Tknee = 100;
    p.Lambda1 = 1.5;
    p.Lambda2 = 1.5;
    return p;
}

void tb601_evaluation(benchmark::State& state) {
    const TB601Params params = line();
    TB601State s;
    s.I = 650;
    s.T = 80;
    for (auto _ : state) benchmark::DoNotOptimize(ST_CigreTB601_Heat_Balance(params, s));
}
BENCHMARK(tb601_evaluation);

void tb601_current_from_temperature(benchmark::State& state) {
    const TB601Params params = line();
    TB601State s;
    for (auto _ : state) benchmark::DoNotOptimize(solve_current(params, s, 80));
}
BENCHMARK(tb601_current_from_temperature);

void tb601_temperature_from_current(benchmark::State& state) {
    const TB601Params params = line();
    TB601State s;
    for (auto _ : state) benchmark::DoNotOptimize(solve_temperature(params, s, 400));
}
BENCHMARK(tb601_temperature_from_current);

}  // namespace
