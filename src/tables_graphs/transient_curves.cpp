#include "tables_graphs/transient_curves.h"

#include <algorithm>
#include <array>

namespace zel {
namespace {

/// Where a layout has its axes and its frame, in twips.
struct Layout {
    PlotMode mode;
    double x_origin, x_limit;
    double y_base, y_lowest, y_highest;  // downwards: the lowest has the largest number
};

constexpr std::array layouts = {
    Layout{PlotMode::Screen, 650, 10600, 8200, 8160, 220},
    Layout{PlotMode::Print, 1200, 11200, 9600, 9560, 1620},
    Layout{PlotMode::PrintAgain, 1200, 11200, 9600, 9560, 1620},
};

double clipped_x(const Layout& layout, double x) {
    return std::min(layout.x_origin + x, layout.x_limit);
}

double clipped_y(const Layout& layout, double y) {
    return std::clamp(layout.y_base - y, layout.y_highest, layout.y_lowest);
}

}  // namespace

CanvasBox plot_frame(PlotMode mode) {
    const Layout& layout = *std::find_if(layouts.begin(), layouts.end(),
                                         [&](const Layout& l) { return l.mode == mode; });
    return {layout.x_origin, layout.y_base - 8000, layout.x_origin + 10000, layout.y_base};
}

void TS_Plot_Segment(Canvas& target, PlotMode mode, double x1, double y1, double x2, double y2,
                     Colour colour, LineStyle style) {
    for (const Layout& layout : layouts) {
        if (layout.mode != mode) continue;
        const Colour shown = mode == PlotMode::Screen ? colour : window_text;
        target.line(clipped_x(layout, x1), clipped_y(layout, y1), clipped_x(layout, x2),
                    clipped_y(layout, y2), {shown, style, 1});
    }
}

void TS_Temperature_Curve(Canvas& target, PlotMode mode, const std::vector<RowSeries>& series,
                          const TransientScale& scale, Colour colour) {
    const auto x = [&](const SeriesPoint& p) { return p.time * scale.time; };
    const auto y = [&](const SeriesPoint& p) {
        return (p.temperature - scale.TempMin) * scale.temperature;
    };
    for (const RowSeries& row : series)
        for (std::size_t i = 1; i < row.points.size(); ++i) {
            const SeriesPoint& from = row.points[i - 1];
            const SeriesPoint& to = row.points[i];
            TS_Plot_Segment(target, mode, x(from), y(from), x(to), y(to), colour);
        }
}

void TS_Current_Curve(Canvas& target, PlotMode mode, const std::vector<CurrentStep>& steps,
                      const TransientScale& scale) {
    const auto level = [&](const CurrentStep& step) {
        return (step.current - scale.CurrentMin) * scale.current;
    };
    const auto draw = [&](double x1, double y1, double x2, double y2) {
        TS_Plot_Segment(target, mode, x1, y1, x2, y2, red, LineStyle::Dots);
    };
    constexpr std::size_t second_row = 2;  // the start level stands before the first
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const double from = steps[i].from * scale.time;
        const double y = level(steps[i]);
        if (i >= second_row) draw(from, level(steps[i - 1]), from, y);
        draw(from, y, steps[i].to * scale.time, y);
    }
}

}  // namespace zel
