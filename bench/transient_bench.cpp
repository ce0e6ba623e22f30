#include <benchmark/benchmark.h>

#include "fakes/transient_cases.h"
#include "tb601_transient/transient/transient_excel.h"
#include "tb601_transient/transient/transient_series.h"

// Transients of 264-AL1/34-ST1A from its steady state at 400 A: a row of each kind by each method,
// the worst row whose current is sought, one cell of the batch, and a series.

namespace {

using namespace zel;

CalcCase by_tb207() { return with_masses(twin_264_34()); }
CalcCase by_tb601() { return with_masses(line_264_34()); }

template <class Transient>
void run(benchmark::State& state, const CalcCase& c, const TransientRow& row) {
    const Transient start(c);
    for (auto _ : state) {
        Transient t = start;
        t.mode = RunMode::Silent;
        t.rows[0] = row;
        benchmark::DoNotOptimize(t.run());
    }
}

void tb207_current_sought(benchmark::State& s) {
    run<Tb207Transient>(s, by_tb207(), current_row(90, 15, 0));
}
BENCHMARK(tb207_current_sought)->Unit(benchmark::kMicrosecond);

void tb207_temperature_sought(benchmark::State& s) {
    run<Tb207Transient>(s, by_tb207(), temperature_row(900, 15, 0));
}
BENCHMARK(tb207_temperature_sought)->Unit(benchmark::kMicrosecond);

void tb207_time_sought(benchmark::State& s) {
    run<Tb207Transient>(s, by_tb207(), time_row(900, 95));
}
BENCHMARK(tb207_time_sought)->Unit(benchmark::kMicrosecond);

void tb601_current_sought(benchmark::State& s) {
    run<Tb601Transient>(s, by_tb601(), current_row(90, 15, 0));
}
BENCHMARK(tb601_current_sought)->Unit(benchmark::kMicrosecond);

void tb601_temperature_sought(benchmark::State& s) {
    run<Tb601Transient>(s, by_tb601(), temperature_row(900, 15, 0));
}
BENCHMARK(tb601_temperature_sought)->Unit(benchmark::kMicrosecond);

void tb601_time_sought(benchmark::State& s) {
    run<Tb601Transient>(s, by_tb601(), time_row(900, 95));
}
BENCHMARK(tb601_time_sought)->Unit(benchmark::kMicrosecond);

/// A strong current that heats by thousands of kelvin without running into the limit of steps.
void tb207_worst_current_sought(benchmark::State& s) {
    run<Tb207Transient>(s, by_tb207(), current_row(350, 0, 49));
}
BENCHMARK(tb207_worst_current_sought)->Unit(benchmark::kMillisecond);

void tb601_worst_current_sought(benchmark::State& s) {
    run<Tb601Transient>(s, by_tb601(), current_row(350, 0, 49));
}
BENCHMARK(tb601_worst_current_sought)->Unit(benchmark::kMillisecond);

/// Each of 100 rounds runs three trials up to the limit of steps: what no row can exceed.
void tb601_bound_of_current_sought(benchmark::State& s) {
    const Tb601Transient start(by_tb601());
    TB601State state = start.records.state;
    state.I = 5000;
    const Tb601Balance balance(start.records.params);
    for (auto _ : s)
        for (int step = 0; step < 100 * 3 * 30000; ++step) {
            state.T = 60 + 0.001 * (step % 100000);
            benchmark::DoNotOptimize(balance.evaluate(state));
        }
}
BENCHMARK(tb601_bound_of_current_sought)->Unit(benchmark::kSecond)->Iterations(1);

void excel_cell(benchmark::State& s) {
    const Tb601Transient start(by_tb601());
    TransientExcelInput input;
    input.duration = static_cast<float>(s.range(0));
    input.start_temperature = 55;
    input.target = 80;
    input.I1 = 650;
    input.mass = start.input.mass;
    TB601Records records = start.records;
    TransientSlots slots{};
    for (auto _ : s)
        benchmark::DoNotOptimize(
            TS_S01_CigreTB601_temp_strom_transient_state_Excel(input, records, slots));
}
BENCHMARK(excel_cell)->Arg(1)->Arg(60)->Arg(900)->Arg(3600)->Unit(benchmark::kMicrosecond);

void series_of_a_row(benchmark::State& s) {
    Tb207Transient t(by_tb207());
    t.rows[0] = temperature_row(900, 30, 0);
    t.run();
    for (auto _ : s) benchmark::DoNotOptimize(temperature_series(t.rows, t.input, t.params));
}
BENCHMARK(series_of_a_row)->Unit(benchmark::kMicrosecond);

}  // namespace
