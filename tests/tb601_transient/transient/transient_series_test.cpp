#include "tb601_transient/transient/transient_series.h"

#include <gtest/gtest.h>

#include "fakes/transient_cases.h"

namespace zel {
namespace {

/// Heating, more of it, cooling: run, so that each row has current, end and duration.
template <class Transient>
Transient run_of_three(const CalcCase& c) {
    Transient t(c);
    t.rows[0] = temperature_row(900, 30, 0);
    t.rows[1] = current_row(130, 10, 0);
    t.rows[2] = time_row(0, 60);
    EXPECT_EQ(t.run(), TransientEnd::Completed);
    return t;
}

void expect_curve(const std::vector<RowSeries>& curve, const Zustand16& rows, double T0,
                  double step) {
    ASSERT_EQ(curve.size(), 3U);
    double t0 = 0;
    double start = T0;
    const double interval = TotalTime(rows) / 1000;
    for (std::size_t i = 0; i < curve.size(); ++i) {
        const auto& points = curve[i].points;
        const double te = duration_s(rows[i]);
        EXPECT_EQ(curve[i].row, static_cast<int>(i) + 1);
        ASSERT_GT(points.size(), 10U);
        EXPECT_LE(static_cast<double>(points.size()), te / interval + 2);
        EXPECT_EQ(points.front().time, t0);
        EXPECT_EQ(points.front().temperature, start);
        EXPECT_EQ(points.back().time, t0 + te);
        // A second of rounding in the duration and a step of the curve.
        EXPECT_NEAR(points.back().temperature, rows[i].Temp, step + 0.1);
        // The last point may follow the one before it sooner.
        for (std::size_t k = 1; k < points.size(); ++k) {
            const double least = k + 1 < points.size() ? interval * (1 - 1e-9) : 0;
            EXPECT_GE(points[k].time - points[k - 1].time, least);
        }
        t0 += te;
        start = rows[i].Temp;
    }
}

TEST(TransientSeries, follows_the_rows_on_the_sample_interval) {
    const auto by_tb207 = run_of_three<Tb207Transient>(with_masses(twin_264_34()));
    const auto curve = temperature_series(by_tb207.rows, by_tb207.input, by_tb207.params);
    expect_curve(curve.value(), by_tb207.rows, by_tb207.input.start.temperature, 0.01);

    const auto by_tb601 = run_of_three<Tb601Transient>(with_masses(line_264_34()));
    const auto other = temperature_series(by_tb601.rows, by_tb601.input, by_tb601.records);
    expect_curve(other.value(), by_tb601.rows, by_tb601.input.start.temperature, 0.1);
}

TEST(TransientSeries, of_one_row_begins_at_the_time_it_is_given) {
    const auto t = run_of_three<Tb207Transient>(with_masses(twin_264_34()));
    const auto row = TS_S020_CigreTB207_temp_strom_transient_state_temp_graph(t.rows, 1, 100, 5,
                                                                              t.input, t.params);
    EXPECT_EQ(row->row, 2);
    EXPECT_EQ(row->points.front().time, 100);
    EXPECT_EQ(row->points.front().temperature, t.rows[0].Temp);
    EXPECT_EQ(row->points.back().time, 100 + duration_s(t.rows[1]));
}

TEST(TransientSeries, row_at_rest_has_its_start_alone) {
    Tb207Transient t(with_masses(twin_264_34()));
    t.rows[0] = temperature_row(400, 10, 0);
    t.run();
    const auto curve = temperature_series(t.rows, t.input, t.params).value();
    ASSERT_EQ(curve.size(), 1U);
    EXPECT_EQ(curve[0].points.size(), 1U);
}

TEST(TransientSeries, ends_before_a_failed_row) {
    Tb207Transient t(with_masses(twin_264_34()));
    t.rows[0] = temperature_row(900, 10, 0);
    t.rows[1] = time_row(900, 20);
    EXPECT_EQ(t.run(), TransientEnd::Failed);
    EXPECT_EQ(temperature_series(t.rows, t.input, t.params)->size(), 1U);
    EXPECT_EQ(current_steps(t.rows, t.input.start, 1).size(), 2U);
}

TEST(TransientSeries, of_no_time_is_empty) {
    Tb207Transient t(with_masses(twin_264_34()));
    t.rows[0] = temperature_row(900, 0, 0);
    t.run();
    EXPECT_EQ(TotalTime(t.rows), 0);
    EXPECT_TRUE(temperature_series(t.rows, t.input, t.params)->empty());
}

// With a step of 0.1 K a row that crosses its equilibrium ends there, level up to its end.
TEST(TransientSeries, beyond_the_equilibrium_runs_level_to_the_end) {
    Tb601Transient t(with_masses(line_264_34()));
    t.rows[0] = temperature_row(450, 600, 0);
    t.run();
    const auto curve = temperature_series(t.rows, t.input, t.records).value();
    const auto& points = curve.at(0).points;
    EXPECT_EQ(points.back().time, 36000);
    EXPECT_EQ(points.back().temperature, t.rows[0].Temp);
}

TEST(TransientSeries, can_be_cancelled) {
    Tb207Transient t(with_masses(twin_264_34()));
    t.rows[0] = temperature_row(1500, 30, 0);
    t.run();
    const auto never = [](const TransientProgress&) { return false; };
    EXPECT_FALSE(temperature_series(t.rows, t.input, t.params, never));
}

TEST(TransientSeries, currents_are_steps_of_the_bundle) {
    Zustand16 rows{};
    rows[0] = {seeks_temperature, 500, 80, 5, 0, 0, 0};
    rows[1] = {seeks_temperature, 300, 70, 1, 30, 0, 0};
    const auto steps = current_steps(rows, {400, 60}, 2);
    ASSERT_EQ(steps.size(), 3U);
    const double expected[][3] = {{0, 0, 800}, {0, 300, 1000}, {300, 390, 600}};
    for (std::size_t i = 0; i < steps.size(); ++i) {
        EXPECT_EQ(steps[i].from, expected[i][0]) << i;
        EXPECT_EQ(steps[i].to, expected[i][1]) << i;
        EXPECT_EQ(steps[i].current, expected[i][2]) << i;
    }
}

}  // namespace
}  // namespace zel
