#include <benchmark/benchmark.h>

#include "compare/live_rating.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/steady_cases.h"
#include "fakes/tb601_cases.h"
#include "forms/line_form.h"
#include "steady/case/case_fields.h"

// What a key press costs while all results are shown, and what follows after a pause.

namespace zel {
namespace {

CalcCase four_methods() {
    CalcCase c = sunny_264_34();
    static_cast<ConductorData&>(c) = line_264_34();
    c.ACDC_R_Option_Merker_db = resistance_by_formula;
    c.rechnung_cigre601_merker_db = 1;
    c.rechnung_webs_merker_db = 1;
    c.rechnung_kirn_merker_db = 1;
    return c;
}

void live_result_by_four_methods(benchmark::State& state) {
    ScriptedDialogs dialogs;
    MethodMemory memory;
    const Session session{{}, RunMode::Messages, dialogs, &memory};
    const CalcCase c = four_methods();
    const auto* row =
        forms::row_of(forms::line_sections(), field_of(&CalcCase::Windgeschwindigkeit_db));
    LiveRating rating;
    int tenths = 0;
    for (auto _ : state) {
        const forms::PendingText typed{row,
                                       plain_number(0.5 + 0.1 * (tenths++ % 9), session.separator)};
        rating.update(c, {&typed, 1}, session);
        benchmark::DoNotOptimize(rating.run());
    }
    if (!rating.reason().empty()) state.SkipWithError(rating.reason().c_str());
}
BENCHMARK(live_result_by_four_methods)->Unit(benchmark::kMicrosecond);

void outlook_of_four_methods(benchmark::State& state) {
    ScriptedDialogs dialogs;
    MethodMemory memory;
    const Session session{{}, RunMode::Messages, dialogs, &memory};
    LiveRating rating;
    rating.update(four_methods(), {}, session);
    for (auto _ : state)
        benchmark::DoNotOptimize(outlook(*rating.run(), session, [] { return true; }));
}
BENCHMARK(outlook_of_four_methods)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zel
