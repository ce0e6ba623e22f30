#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <optional>

#include "adapters/qt_canvas/drawing_file.h"
#include "adapters/qt_canvas/qt_canvas.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/tb601_cases.h"
#include "fakes/transient_cases.h"
#include "tables_graphs/steady_diagram.h"
#include "tables_graphs/transient_diagram.h"

// What a person waits for a diagram: its points, and the drawing of each picture of it. The steady
// one has four methods and six winds over a range of `Arg` steps.

namespace zel {
namespace {

const Locale locale = {LangId::English, DecimalSeparator::Point};

/// Draws as a window does.
void draw_in_window(benchmark::State& state, const Diagram& diagram) {
    static const DrawingSystem system;
    constexpr double twips_per_pixel = 15;
    QImage image(1100, 650, QImage::Format_ARGB32_Premultiplied);
    const CanvasBox area = {0, 0, image.width() * twips_per_pixel,
                            image.height() * twips_per_pixel};
    for (auto _ : state) {
        QPainter painter(&image);
        QtCanvas canvas(painter, 1 / twips_per_pixel);
        draw(canvas, area, diagram, {}, locale.separator);
    }
}

std::optional<ParameterTable> curves_of(const CalcCase& c) {
    ScriptedDialogs dialogs;
    return calculate_curves(c, {locale, RunMode::Silent, dialogs});
}

void steady_points_found(benchmark::State& state) {
    const CalcCase c = over_six_winds(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(curves_of(c));
}
BENCHMARK(steady_points_found)->Arg(10)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();

void steady_diagram_drawn(benchmark::State& state) {
    const CalcCase c = over_six_winds(static_cast<int>(state.range(0)));
    draw_in_window(state, steady_diagram(*curves_of(c), c, locale));
}
BENCHMARK(steady_diagram_drawn)->Arg(10)->Arg(1000)->Unit(benchmark::kMillisecond);

void steady_diagram_read(benchmark::State& state) {
    const CalcCase c = over_six_winds(static_cast<int>(state.range(0)));
    const Diagram diagram = steady_diagram(*curves_of(c), c, locale);
    const DiagramFrame frame = frame_in(diagram_sheet, diagram, {});
    const CanvasPoint middle = {diagram_sheet.right / 2, diagram_sheet.bottom / 2};
    for (auto _ : state) benchmark::DoNotOptimize(read_at(diagram, {}, frame, middle, 200));
}
BENCHMARK(steady_diagram_read)->Arg(10)->Arg(1000)->Unit(benchmark::kMillisecond);

void transient_diagram_drawn(benchmark::State& state) {
    const CalcCase c = with_masses(twin_264_34());
    Tb207Transient run(c);
    for (std::size_t row = 0; row < run.rows.size(); ++row)
        run.rows[row] = temperature_row(row % 2 == 0 ? 550 : 300, 20, 0);
    run.run();
    const auto series = *temperature_series(run.rows, run.input, run.params);
    draw_in_window(state, *transient_diagram({c, run.input.start, run.rows, series}, locale));
}
BENCHMARK(transient_diagram_drawn)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zel
