#pragma once

#include "tables_graphs/diagram.h"
#include "tables_graphs/transient_curves.h"
#include "workflow/run/transient.h"

namespace zel {

inline constexpr Text transient_diagram_title = {"Graphische Darstellung ",
                                                 "Diagram Unsteady-State-Calculation "};

/// What a diagram of a transient is drawn from: a run of `c` that started at `start`.
struct TransientCourse {
    const CalcCase& c;
    const TransientStart& start;
    const Zustand16& rows;
    const std::vector<RowSeries>& series;
};

/// The places of the two curves in the diagram, as they are drawn.
enum TransientCurve : std::uint8_t { current_curve = 0, temperature_curve = 1 };

/// The scale of the layouts: 10000 units for `TotalTime`, 8000 for the ranges of temperature and
/// current over the rows in use. Where a range has no width it reaches from 0 to twice its value;
/// the lowest value is rounded down to a multiple of 10.
[[nodiscard]] TransientScale transient_scale(const TransientCourse& course);

/// Temperature and current over time, with a mark where each change of state begins. Nothing where
/// no time passes. The curves are those of a layout.
[[nodiscard]] std::optional<Diagram> transient_diagram(const TransientCourse& course,
                                                       const Locale& locale,
                                                       PlotMode mode = PlotMode::Screen);

/// The curves as they stand below the rows of a page: without title and header, over ranges of
/// whole steps, with a line at `limit` (°C) where there is one. Nothing where no time passes.
[[nodiscard]] std::optional<Diagram> course_diagram(const TransientCourse& course,
                                                    std::optional<double> limit,
                                                    const Locale& locale);

/// "Highest temperature 95.2 °C at 10.0 min; above 80 °C from 3.1 to 14.2 min", of the points of
/// the course. Empty where no time passes.
[[nodiscard]] std::string course_text(const TransientCourse& course, std::optional<double> limit,
                                      const Locale& locale);

}  // namespace zel
