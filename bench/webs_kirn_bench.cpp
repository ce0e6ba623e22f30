#include <benchmark/benchmark.h>

#include "fakes/steady_cases.h"
#include "steady/kirn.h"
#include "steady/steady_solver.h"
#include "steady/webs.h"

// One solution in each mode by Webs, by Kirn and for a tubular busbar.

namespace {

using namespace zel;

struct Quiet {
    RecordingDialogs dialogs;
    WebsQuestions questions{{{RunMode::Silent, LangId::English, dialogs}}};
};

void webs_current(benchmark::State& state) {
    Quiet quiet;
    const WebsInput in = webs_input(sunny_264_34(), 90);
    for (auto _ : state) benchmark::DoNotOptimize(S1_Rechnung_strom_webs(in, 80, quiet.questions));
}
BENCHMARK(webs_current);

void webs_temperature(benchmark::State& state) {
    Quiet quiet;
    const WebsInput in = webs_input(sunny_264_34(), 90);
    for (auto _ : state) benchmark::DoNotOptimize(S2_Rechnung_temp_webs(in, 600, quiet.questions));
}
BENCHMARK(webs_temperature);

void kirn_current(benchmark::State& state) {
    const KirnInput in = kirn_input(sunny_264_34(), 90);
    for (auto _ : state) benchmark::DoNotOptimize(S1_Rechnung_strom_kirn(in, 80));
}
BENCHMARK(kirn_current);

void kirn_temperature(benchmark::State& state) {
    const KirnInput in = kirn_input(sunny_264_34(), 90);
    for (auto _ : state) benchmark::DoNotOptimize(S2_Rechnung_temp_kirn(in, 600));
}
BENCHMARK(kirn_temperature);

void busbar_current(benchmark::State& state) {
    const SteadyInputBlock in = steady_input(tube(), 90);
    for (auto _ : state) benchmark::DoNotOptimize(solve_current(in, 80));
}
BENCHMARK(busbar_current);

void busbar_temperature(benchmark::State& state) {
    const SteadyInputBlock in = steady_input(tube(), 90);
    for (auto _ : state) benchmark::DoNotOptimize(solve_temperature(in, 2500));
}
BENCHMARK(busbar_temperature);

}  // namespace
