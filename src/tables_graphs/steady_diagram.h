#pragma once

#include "tables_graphs/diagram.h"
#include "tables_graphs/parameter_table.h"

namespace zel {

inline constexpr Text steady_diagram_title = {"Graphische Darstellung",
                                              "Diagram Steady-State-Calculation "};

/// The diagram of `curves`, which `calculate_curves` found for `c`: the temperature that is stepped
/// or found over the current of the bundle, a curve for each method and wind speed. Each method has
/// a colour and a line style, each wind speed a sign. The axes hold the ranges of the case and all
/// that was found.
[[nodiscard]] Diagram steady_diagram(const ParameterTable& curves, const CalcCase& c,
                                     const Locale& locale);

}  // namespace zel
