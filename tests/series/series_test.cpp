#include "series/series.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <numeric>
#include <random>

#include "fakes/scripted_dialogs.h"
#include "fakes/tb601_cases.h"
#include "platform/errors.h"
#include "workflow/run/tatl.h"

namespace zel {
namespace {

constexpr std::size_t count = 300;

/// What is drawn for the elements of a series: inputs by name, each from `low` to `high`.
struct Drawn {
    const char* input;
    double low, high;
    bool whole = false;
};

// Two sets: of weather and place alone, where few checks are walked, and of the conductor too.
constexpr Drawn weather[] = {
    {"wind_speed", 0, 20},         {"wind_angle_to_north", 0, 359}, {"air_temperature", -30, 75},
    {"global_radiation", 0, 1200}, {"emissivity", 0.1, 1},          {"day", 0, 33, true},
    {"month", 0, 13, true},        {"hour", 0, 23, true},           {"clearness_ratio", 0, 1}};
constexpr Drawn anything[] = {{"wind_speed", 0, 90},          {"diameter", 5, 60},
                              {"layers", 0, 4, true},         {"conductor_type", 1, 4, true},
                              {"dc_resistance", 0, 1},        {"frequency", 40, 70},
                              {"conductor_current", 0, 3000}, {"conductor_temperature", 20, 200},
                              {"sub_conductors", 1, 4, true}, {"latitude", -60, 60}};

/// Columns of random numbers; one in thirty is none.
struct RandomSeries {
    explicit RandomSeries(std::span<const Drawn> what, unsigned seed) : inputs(what) {
        std::mt19937 generator(seed);
        for (const Drawn& drawn : what) {
            std::vector<double>& column = columns.emplace_back();
            std::uniform_real_distribution<> number(drawn.low, drawn.high);
            for (std::size_t i = 0; i < count; ++i) {
                const double n = number(generator);
                column.push_back(generator() % 30 == 0 ? no_number
                                 : drawn.whole         ? std::round(n)
                                                       : n);
            }
        }
    }
    [[nodiscard]] SeriesInputs of(const CalcCase& base) const {
        std::vector<SeriesColumn> taken;
        for (std::size_t k = 0; k < columns.size(); ++k)
            taken.push_back({SeriesInput(inputs[k].input), {columns[k].data()}});
        return {base, std::move(taken), count};
    }

    std::span<const Drawn> inputs;
    std::vector<std::vector<double>> columns;
};

struct Rated {
    std::vector<double> current = std::vector<double>(count);
    std::vector<double> temperature = std::vector<double>(count);
    std::vector<double> angle = std::vector<double>(count);
    std::vector<std::int32_t> code = std::vector<std::int32_t>(count, 99);

    Rated(const SeriesInputs& inputs, Method method, unsigned threads = 0) {
        rate_steady(inputs, method, {threads},
                    {{}, {current.data()}, {temperature.data()}, {angle.data()}, {code.data()}});
    }
};

std::uint64_t bits(double number) { return std::bit_cast<std::uint64_t>(number); }

/// The steady run of the page, of a case with the numbers of element `i`.
std::optional<SteadyResult> by_the_page(const SeriesInputs& inputs, std::size_t i, Method method) {
    SeriesElement element{prepared_for(inputs.base, method)};
    if (inputs.put(element, i, method, Radiation::AsItStands) != RatingCode::Rated)
        return std::nullopt;
    ScriptedDialogs none;
    const Session session = {{}, RunMode::Silent, none};
    SteadyRunResult result;
    try {
        RunSteady(element.c, session, result);
    } catch (const ProgramEnd&) {
        return std::nullopt;
    }
    if (!result.input_valid || !result.methods.front().outcome.sound()) return std::nullopt;
    const auto& outcome = result.methods.front().outcome;
    // The page shows where the search of Webs and Kirn has ended, also where nothing was found.
    const bool searched = method == Method::Webs || method == Method::Kirn;
    if (searched && !element.c.Leitertemp_Merker_db &&
        std::abs(*outcome.current_A - element.c.Stromstaerke_db.value) > 10)
        return std::nullopt;
    return outcome;
}

TEST(Series, rates_each_element_bit_for_bit_as_the_page_does) {
    std::size_t values = 0;
    std::size_t failures = 0;
    for (const bool of_current : {true, false})
        for (const std::span<const Drawn> drawn :
             {std::span<const Drawn>(weather), std::span<const Drawn>(anything)})
            for (const Method method : all_methods) {
                CalcCase base = method == Method::TBB ? tube() : of_all_methods();
                if (method == Method::TBB) static_cast<GeoData&>(base) = of_all_methods();
                base.Leitertemp_Merker_db = of_current;
                base.Stromstaerke_Merker_db = !of_current;
                base.Stromstaerke_db = typed(500);
                const RandomSeries series(drawn, 7);
                const SeriesInputs inputs = series.of(base);
                const Rated rated(inputs, method);
                for (std::size_t i = 0; i < count; ++i) {
                    const auto expected = by_the_page(inputs, i, method);
                    ASSERT_EQ(has_value(static_cast<RatingCode>(rated.code[i])),
                              expected.has_value())
                        << key_of(method) << " " << i << " code " << rated.code[i] << " "
                        << refusal_of(inputs, method, {}, i, LangId::English);
                    ASSERT_EQ(std::isnan(rated.current[i]), !expected);
                    if (!expected) {
                        ++failures;
                        continue;
                    }
                    ++values;
                    ASSERT_EQ(bits(rated.current[i]), bits(*expected->current_A));
                    ASSERT_EQ(bits(rated.temperature[i]), bits(*expected->temperature_C));
                }
            }
    EXPECT_GT(values, 1500U);
    EXPECT_GT(failures, 1000U);
}

TEST(Series, gives_an_element_the_same_bits_in_any_order_and_by_any_number_of_threads) {
    RandomSeries drawn(weather, 11);
    const CalcCase base = of_all_methods();
    for (const Method method : {Method::TB601, Method::TB207, Method::Webs, Method::Kirn}) {
        const Rated alone(drawn.of(base), method, 1);
        std::vector<std::size_t> order(count);
        std::iota(order.begin(), order.end(), 0U);
        std::shuffle(order.begin(), order.end(), std::mt19937(3));
        RandomSeries shuffled = drawn;
        for (std::size_t k = 0; k < drawn.columns.size(); ++k)
            for (std::size_t i = 0; i < count; ++i)
                shuffled.columns[k][i] = drawn.columns[k][order[i]];
        const Rated again(shuffled.of(base), method, 4);
        for (std::size_t i = 0; i < count; ++i) {
            ASSERT_EQ(again.code[i], alone.code[order[i]]);
            ASSERT_EQ(bits(again.current[i]), bits(alone.current[order[i]]));
        }
    }
}

TEST(Series, takes_the_acute_angle_of_the_wind_wherever_it_comes_from) {
    CalcCase base = of_all_methods();
    std::mt19937 generator(5);
    std::uniform_real_distribution<> any(0, 90);
    for (int i = 0; i < 300; ++i) {
        const double azimuth = std::round(any(generator) * 40) / 10;
        const double angle = i % 9 == 0 ? 90 : std::round(any(generator) * 10) / 10;
        base.Winkel_S_S_db = typed(azimuth);
        const double turned[] = {azimuth + angle, azimuth - angle, azimuth + 180 + angle,
                                 azimuth + 180 - angle, azimuth - 180 + angle};
        std::vector<double> directions;
        for (const double each : turned) directions.push_back(std::remainder(each, 360));
        std::vector<double> current(5), angles(5);
        rate_steady({base, {{SeriesInput("wind_from_direction"), {directions.data()}}}, 5},
                    Method::TB207, {}, {{}, {current.data()}, {}, {angles.data()}, {}});
        for (std::size_t k = 0; k < 5; ++k) {
            ASSERT_NEAR(angles[k], angle, 1e-9) << azimuth << " " << directions[k];
            ASSERT_EQ(bits(current[k]), bits(current[0]));
        }
    }
}

TEST(Series, counts_longitudes_east_and_time_in_UTC) {
    const double east[] = {11.6};
    const double time[] = {1782050399};  // 2026-06-21 13:59:59
    SeriesElement element{prepared_for(of_all_methods(), Method::Webs)};
    ASSERT_EQ(SeriesInput("longitude").put(element, east[0]), RatingCode::Rated);
    ASSERT_EQ(SeriesInput("time").put(element, time[0]), RatingCode::Rated);
    EXPECT_EQ(element.c.geo_laeng_db.value, -11.6);
    EXPECT_EQ(element.c.geo_laeng_zeit_db.value, 0);
    EXPECT_EQ(element.c.Tag_db.value, 21);
    EXPECT_EQ(element.c.Monat_db.value, 6);
    EXPECT_EQ(element.c.Stunden_db.value, 13);
    EXPECT_EQ(element.c.Minuten_db.value, 59);
}

TEST(Series, refuses_unknown_inputs_and_two_that_set_one_field) {
    EXPECT_THROW(SeriesInput("wind"), InputError);
    EXPECT_THROW(SeriesInput("designation"), InputError);
    const double number[] = {1};
    EXPECT_THROW(SeriesInputs({},
                              {{SeriesInput("wind_angle"), {number}},
                               {SeriesInput("wind_from_direction"), {number}}},
                              1),
                 InputError);
}

TEST(Series, rates_for_a_time_as_one_case_does_and_tells_why_not) {
    CalcCase base = line_264_34();
    base.Dichte_Leiterwerkstoff1_db = typed(2703);
    base.c_leiter20_db = typed(897);
    const double preloads[] = {0, 50, 80, 100, 120, no_number};
    const double duration[] = {60};
    double patl[6], tatl[6];
    std::int32_t code[6];
    rate_tatl(
        {base,
         {{SeriesInput("preload_percent"), {preloads}}, {SeriesInput("duration"), {duration, 0}}},
         6},
        {}, {{patl}, {tatl}, {}, {}, {code}});
    ScriptedDialogs none;
    for (std::size_t i = 0; i < 3; ++i) {
        CalcCase c = base;
        TatlRating rating(c, 60, {{}, RunMode::Silent, none});
        const double permanent = *rating.permanent().current_A;
        EXPECT_EQ(bits(patl[i]), bits(2 * permanent));
        const float expected = rating.after(permanent * preloads[i] / 100, permanent).value;
        EXPECT_EQ(bits(tatl[i]), bits(2 * static_cast<double>(expected)));
        EXPECT_GT(tatl[i], patl[i]);
        EXPECT_LT(tatl[i], i == 0 ? 1e9 : tatl[i - 1]);
    }
    EXPECT_EQ(code[4], static_cast<int>(RatingCode::OutsideLimits));
    EXPECT_EQ(code[5], static_cast<int>(RatingCode::MissingInput));
    base.Dichte_Leiterwerkstoff1_db = base.Dichte_traegerwerkstoff1_db = {};
    rate_tatl({base, {}, 1}, {}, {{patl}, {tatl}, {}, {}, {code}});
    EXPECT_EQ(code[0], static_cast<int>(RatingCode::ConductorUnfit));
    EXPECT_TRUE(std::isnan(tatl[0]));
}

TEST(Series, follows_changes_of_state_as_the_page_does) {
    CalcCase base = line_264_34();
    base.Dichte_Leiterwerkstoff1_db = typed(2703);
    base.c_leiter20_db = typed(897);
    base.Z[0].merker = seeks_temperature;
    base.Z[0].Strom = typed(900);
    base.Z[0].min = typed(10);
    base.Z[0].sec = typed(0);
    base.Z[1].merker = seeks_time;
    base.Z[1].Strom = typed(900);
    base.Z[1].TEMP = typed(100);
    const double currents[] = {800, 900, 9000, no_number};
    double temperature[4];
    std::int32_t code[4], code2[4];
    std::array<StateSeries, state_change_count> out;
    out[0] = {{}, {temperature}, {}, {code}};
    out[1] = {{}, {}, {}, {code2}};
    rate_transient({base, {{SeriesInput("Z1_Strom_db"), {currents}}}, 4}, Method::TB601, {}, out);
    ScriptedDialogs none;
    for (std::size_t i = 0; i < 2; ++i) {
        MethodMemory memory;
        const Session session = {{}, RunMode::Silent, none, &memory};
        CalcCase c = base;
        c.Z[0].Strom = typed(currents[i]);
        TransientBasis basis;
        take_over(basis, RunSteady(c, session), c);
        TransientResult result;
        RunTransient(c, basis, session, {}, result);
        EXPECT_EQ(bits(temperature[i]), bits(result.rows[0].Temp));
        EXPECT_EQ(code[i], 0);
        EXPECT_EQ(has_value(static_cast<RatingCode>(code2[i])), result.rows[1].Failed == 0);
    }
    EXPECT_EQ(code[2], static_cast<int>(RatingCode::TooHot));
    EXPECT_EQ(code[3], static_cast<int>(RatingCode::MissingInput));
    EXPECT_TRUE(std::isnan(temperature[3]));
}

}  // namespace
}  // namespace zel
