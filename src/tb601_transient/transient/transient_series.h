#pragma once

#include <optional>
#include <vector>

#include "tb601_transient/transient/transient_run.h"

// The course of a transient over time, stepped anew from its rows: a run leaves only their ends.
// Every row is stepped as one whose temperature is sought, so that the curve of a row whose time
// was sought can differ a little from its result. The series ends before a row that failed.

namespace zel {

/// The sum of the durations of the rows in use, s.
[[nodiscard]] double TotalTime(const Zustand16& rows);

/// The time between two points of a series, s: a thousandth of `TotalTime`.
[[nodiscard]] double sample_interval(const Zustand16& rows);

struct SeriesPoint {
    double time = 0;         // s from the start of the transient
    double temperature = 0;  // °C
};

/// The points of one row: its start, one whenever the sample clock is due, and its end. A row at
/// rest has its start alone.
struct RowSeries {
    int row = 0;  // 1 to 6
    std::vector<SeriesPoint> points;
};

/// One row (`index` from 0) that begins at `t0` seconds, by TB 207 or the busbar method.
/// Nothing where the observer cancelled.
[[nodiscard]] std::optional<RowSeries> TS_S020_CigreTB207_temp_strom_transient_state_temp_graph(
    const Zustand16& rows, std::size_t index, double t0, double interval,
    const TransientInput& input, const SteadyInputBlock& params,
    const TransientObserver& observer = {});

/// The same by TB 601. The records are a copy: drawing changes nothing.
[[nodiscard]] std::optional<RowSeries> TS_S020_cigreTB601_temp_strom_transient_state_temp_graph(
    const Zustand16& rows, std::size_t index, double t0, double interval,
    const TransientInput& input, TB601Records records, const TransientObserver& observer = {});

/// All rows in use, each from the end of the one before it, on the sample interval. Nothing where
/// the observer cancelled; empty where `TotalTime` is 0.
[[nodiscard]] std::optional<std::vector<RowSeries>> temperature_series(
    const Zustand16& rows, const TransientInput& input, const SteadyInputBlock& params,
    const TransientObserver& observer = {});
[[nodiscard]] std::optional<std::vector<RowSeries>> temperature_series(
    const Zustand16& rows, const TransientInput& input, const TB601Records& records,
    const TransientObserver& observer = {});

/// The current of the bundle over a stretch of time.
struct CurrentStep {
    double from = 0;     // s
    double to = 0;       // s
    double current = 0;  // A, of the bundle
};

/// The start level, which ends at time 0, and then a step for each row in use.
[[nodiscard]] std::vector<CurrentStep> current_steps(const Zustand16& rows,
                                                     const TransientStart& start,
                                                     int Anzahl_Teilleiter);

}  // namespace zel
