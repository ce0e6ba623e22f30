#pragma once

#include <string>
#include <vector>

#include "tables_graphs/parameter_table.h"
#include "tb601_transient/transient/transient_series.h"

// The points of diagrams for other programs: lines of values with a head line, parted by commas,
// numbers with a point and all their digits; a gap is an empty field.

namespace zel {

/// "method,wind_m_s,current_A,temperature_C", curve by curve. Currents are those of the bundle; the
/// temperature is the ambient one where that is stepped.
[[nodiscard]] std::string steady_points(const ParameterTable& curves, const CalcCase& c);

/// "t_s,temperature_C,current_A", from the start of a transient; where a row begins there are two
/// points of the same time.
[[nodiscard]] std::string transient_points(const std::vector<RowSeries>& series,
                                           const std::vector<CurrentStep>& steps);

}  // namespace zel
