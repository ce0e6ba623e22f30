#pragma once

#include <cstdint>
#include <vector>

#include "platform/canvas.h"
#include "tb601_transient/transient/transient_series.h"

// The curves of a transient on a canvas: temperature and current against time.

namespace zel {

/// The two layouts of the diagram.
enum class PlotMode : std::int16_t { Screen = 1, Print = 2, PrintAgain = 3 };

/// The box of a layout that holds 10000 units of time and 8000 of the other quantities.
[[nodiscard]] CanvasBox plot_frame(PlotMode mode);

/// From the quantities of a transient to units of drawing.
struct TransientScale {
    double time = 0;         // units per second
    double temperature = 0;  // units per degree
    double current = 0;      // units per ampere
    double TempMin = 0;      // °C, lowest on the axis
    double CurrentMin = 0;   // A of the bundle, lowest on the axis
};

/// Draws one line of width 1, cut off at the frame of the layout. `x` counts to the right from the
/// origin of the axes, `y` upwards. Print draws in the colour of window text whatever `colour` is;
/// an unknown mode draws nothing.
void TS_Plot_Segment(Canvas& target, PlotMode mode, double x1, double y1, double x2, double y2,
                     Colour colour, LineStyle style = LineStyle::Solid);

/// The temperature against time. A row at rest has one point and draws nothing.
void TS_Temperature_Curve(Canvas& target, PlotMode mode, const std::vector<RowSeries>& series,
                          const TransientScale& scale, Colour colour);

/// The current against time, in red dots: the start level up to time 0, then a horizontal line for
/// each step, with a vertical one before it from the second on.
void TS_Current_Curve(Canvas& target, PlotMode mode, const std::vector<CurrentStep>& steps,
                      const TransientScale& scale);

}  // namespace zel
