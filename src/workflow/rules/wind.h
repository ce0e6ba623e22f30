#pragma once

#include "steady/case/calc_case.h"

namespace zel {

/// `S_Winkel_Wind_Leiter`: the angle between wind and conductor in degrees, from the two azimuths
/// to north. It is folded into 0 to 90 by subtraction and not by reflection, so that 150 becomes
/// 60 and 100 becomes 10; a difference above 360 stays as it is.
[[nodiscard]] double fold_angle(double Winkel_W_S, double Winkel_S_S);

[[nodiscard]] double S_Winkel_Wind_Leiter(const CalcCase& c);

/// The part of the wind speed `V` (m/s) across the conductor at the folded angle `delta`
/// (degrees), m/s.
[[nodiscard]] double perpendicular_wind(double V, double delta);

}  // namespace zel
