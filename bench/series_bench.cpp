#include <benchmark/benchmark.h>

#include <algorithm>

#include "fakes/tb601_cases.h"
#include "series/series.h"

// Ratings per second of an array of weather, by each method and in both modes, on one thread and on
// all. The conductor is Drake-like: two or three layers, with its AC resistances or by formula.

namespace {

using namespace zel;

constexpr std::size_t count = 4096;

struct Weather {
    Weather() {
        for (std::size_t i = 0; i < count; ++i) {
            const auto turn = static_cast<double>(i * 2654435761U % 1000) / 1000;
            wind.push_back(0.5 + 5 * turn);
            direction.push_back(360 * turn);
            air.push_back(-5 + 40 * turn);
            sun.push_back(900 * turn);
        }
    }
    [[nodiscard]] SeriesInputs of(const CalcCase& c) const {
        return {c,
                {{SeriesInput("wind_speed"), {wind.data()}},
                 {SeriesInput("wind_from_direction"), {direction.data()}},
                 {SeriesInput("air_temperature"), {air.data()}},
                 {SeriesInput("global_radiation"), {sun.data()}}},
                count};
    }
    std::vector<double> wind, direction, air, sun;
};

void steady_series(benchmark::State& state, Method method, std::int16_t layers, bool of_current,
                   std::int16_t resistance, unsigned threads) {
    CalcCase c = method == Method::TBB ? tube() : of_all_methods();
    if (method == Method::TBB) static_cast<GeoData&>(c) = of_all_methods();
    c.DrahtlagenzahlLeiter_db = layers;
    c.ACDC_R_Option_Merker_db = resistance;
    c.ACR1_db = typed(0.11);
    c.TACR1_db = typed(20);
    c.ACR2_db = typed(0.14);
    c.TACR2_db = typed(90);
    c.Leitertemp_Merker_db = of_current;
    c.Stromstaerke_Merker_db = !of_current;
    c.Stromstaerke_db = typed(600);
    const SeriesInputs inputs = Weather().of(c);
    std::vector<double> current(count);
    std::vector<std::int32_t> code(count);
    for (auto _ : state)
        rate_steady(inputs, method, {threads}, {{current.data()}, {}, {}, {}, {code.data()}});
    state.counters["rated"] = static_cast<double>(std::count(code.begin(), code.end(), 0));
    state.counters["ratings/s"] = benchmark::Counter(static_cast<double>(count),
                                                     benchmark::Counter::kIsIterationInvariantRate);
}

BENCHMARK_CAPTURE(steady_series, tb601_skin_current, Method::TB601, 2, true, 1, 1)->UseRealTime();
BENCHMARK_CAPTURE(steady_series, tb601_skin_current_all_cores, Method::TB601, 2, true, 1, 0)
    ->UseRealTime();
BENCHMARK_CAPTURE(steady_series, tb601_skin_temperature, Method::TB601, 2, false, 1, 1)
    ->UseRealTime();
BENCHMARK_CAPTURE(steady_series, tb601_table_current, Method::TB601, 2, true, 2, 1)->UseRealTime();
BENCHMARK_CAPTURE(steady_series, tb601_table_temperature, Method::TB601, 2, false, 2, 1)
    ->UseRealTime();
BENCHMARK_CAPTURE(steady_series, tb207_3_layers_current, Method::TB207, 3, true, 1, 1)
    ->UseRealTime();
BENCHMARK_CAPTURE(steady_series, tb207_3_layers_temperature, Method::TB207, 3, false, 1, 1)
    ->UseRealTime();
BENCHMARK_CAPTURE(steady_series, tb207_2_layers_current, Method::TB207, 2, true, 1, 1)
    ->UseRealTime();
BENCHMARK_CAPTURE(steady_series, tb207_2_layers_temperature, Method::TB207, 2, false, 1, 1)
    ->UseRealTime();
BENCHMARK_CAPTURE(steady_series, busbar_current, Method::TBB, 0, true, 1, 1)->UseRealTime();
BENCHMARK_CAPTURE(steady_series, busbar_temperature, Method::TBB, 0, false, 1, 1)->UseRealTime();
BENCHMARK_CAPTURE(steady_series, webs_current, Method::Webs, 2, true, 1, 1)->UseRealTime();
BENCHMARK_CAPTURE(steady_series, webs_temperature, Method::Webs, 2, false, 1, 1)->UseRealTime();
BENCHMARK_CAPTURE(steady_series, kirn_current, Method::Kirn, 2, true, 1, 1)->UseRealTime();
BENCHMARK_CAPTURE(steady_series, kirn_temperature, Method::Kirn, 2, false, 1, 1)->UseRealTime();

}  // namespace
