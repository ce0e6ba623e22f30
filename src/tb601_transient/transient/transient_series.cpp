#include "tb601_transient/transient/transient_series.h"

#include "tb601_transient/transient/method_rules.h"
#include "tb601_transient/transient/transient_models.h"
#include "tb601_transient/transient/transient_stepping.h"
#include "tb601_transient/transient/transient_watch.h"

namespace zel {
namespace {

bool in_use(const TransientRow& row) { return row.Merker != row_unused; }

/// Collects the points of a row as it is stepped.
class Sampler {
public:
    Sampler(RowSeries& series, double t0, double te, double interval)
        : points_(series.points), t0_(t0), te_(te), interval_(interval) {}

    void add(double t, double T) { points_.push_back({t0_ + std::min(t, te_), T}); }
    void step(double t, double T, double dt) {
        clock_ += dt;
        last_ = {t, T};
        sampled_ = clock_ >= interval_;
        if (!sampled_) return;
        clock_ = 0;
        add(t, T);
    }
    /// The end of the row, where the sample clock was not due in its last step.
    void finish() {
        if (!sampled_) add(last_.time, last_.temperature);
    }

private:
    std::vector<SeriesPoint>& points_;
    double t0_, te_, interval_;
    double clock_ = 0;
    SeriesPoint last_;
    bool sampled_ = true;  // the start stands already
};

template <class Model>
std::optional<RowSeries> row_series(Model& model, const WalkRule& rule, const Zustand16& rows,
                                    std::size_t index, double t0, double interval,
                                    const TransientInput& input, TransientWatch& watch) {
    const TransientRow& row = rows[index];
    const double te = duration_s(row);
    const double T0 = start_temperature(rows, index, input.start);
    RowSeries series{static_cast<int>(index) + 1, {}};
    Sampler sampler(series, t0, te, interval);
    sampler.add(0, T0);
    watch.begin_row(series.row);
    model.set_current(row.Strom);
    try {
        walk(model, T0, te, rule, [&](double t, double T, double dt) {
            sampler.step(t, T, dt);
            watch.step([&] { return t / te; });
        });
    } catch (const TransientCancelled&) {
        return std::nullopt;
    } catch (const UnknownConductorType&) {
        return series;  // the run before it has told of this
    }
    sampler.finish();
    return series;
}

template <class Model>
std::optional<std::vector<RowSeries>> all_rows(Model& model, const WalkRule& rule,
                                               const Zustand16& rows, const TransientInput& input,
                                               const TransientObserver& observer) {
    const ArithmeticScope arithmetic;
    std::vector<RowSeries> curve;
    const double interval = sample_interval(rows);
    if (interval <= 0) return curve;
    TransientWatch watch(observer);
    double t0 = 0;
    for (std::size_t i = 0; i < rows.size() && rows[i].Failed == 0; ++i) {
        if (!in_use(rows[i])) continue;
        auto series = row_series(model, rule, rows, i, t0, interval, input, watch);
        if (!series) return std::nullopt;
        curve.push_back(std::move(*series));
        t0 += duration_s(rows[i]);
    }
    return curve;
}

}  // namespace

double TotalTime(const Zustand16& rows) {
    double total = 0;
    for (const TransientRow& row : rows)
        if (in_use(row)) total += duration_s(row);
    return total;
}

double sample_interval(const Zustand16& rows) { return TotalTime(rows) / 1000; }

std::optional<RowSeries> TS_S020_CigreTB207_temp_strom_transient_state_temp_graph(
    const Zustand16& rows, std::size_t index, double t0, double interval,
    const TransientInput& input, const SteadyInputBlock& params,
    const TransientObserver& observer) {
    const ArithmeticScope arithmetic;
    Tb207Model model(params, input.mass, input.cigre_TKW_merker, nullptr);
    TransientWatch watch(observer);
    return row_series(model, tb207_rules.walk, rows, index, t0, interval, input, watch);
}

std::optional<RowSeries> TS_S020_cigreTB601_temp_strom_transient_state_temp_graph(
    const Zustand16& rows, std::size_t index, double t0, double interval,
    const TransientInput& input, TB601Records records, const TransientObserver& observer) {
    const ArithmeticScope arithmetic;
    Tb601Model model(records, input.mass, input.cigre_TKW_merker, nullptr);
    TransientWatch watch(observer);
    return row_series(model, tb601_rules.walk, rows, index, t0, interval, input, watch);
}

std::optional<std::vector<RowSeries>> temperature_series(const Zustand16& rows,
                                                         const TransientInput& input,
                                                         const SteadyInputBlock& params,
                                                         const TransientObserver& observer) {
    Tb207Model model(params, input.mass, input.cigre_TKW_merker, nullptr);
    return all_rows(model, tb207_rules.walk, rows, input, observer);
}

std::optional<std::vector<RowSeries>> temperature_series(const Zustand16& rows,
                                                         const TransientInput& input,
                                                         const TB601Records& records,
                                                         const TransientObserver& observer) {
    TB601Records copy = records;
    Tb601Model model(copy, input.mass, input.cigre_TKW_merker, nullptr);
    return all_rows(model, tb601_rules.walk, rows, input, observer);
}

std::vector<CurrentStep> current_steps(const Zustand16& rows, const TransientStart& start,
                                       int Anzahl_Teilleiter) {
    std::vector<CurrentStep> steps = {{0, 0, start.current * Anzahl_Teilleiter}};
    double t0 = 0;
    for (std::size_t i = 0; i < rows.size() && rows[i].Failed == 0; ++i) {
        if (!in_use(rows[i])) continue;
        const double end = t0 + duration_s(rows[i]);
        steps.push_back({t0, end, rows[i].Strom * Anzahl_Teilleiter});
        t0 = end;
    }
    return steps;
}

}  // namespace zel
