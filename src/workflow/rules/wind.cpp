#include "workflow/rules/wind.h"

#include <cmath>

#include "steady/constants.h"

namespace zel {

double fold_angle(double Winkel_W_S, double Winkel_S_S) {
    const double delta = std::abs(Winkel_W_S - Winkel_S_S);
    if (delta <= 90) return delta;
    if (delta <= 180) return delta - 90;
    if (delta <= 270) return delta - 180;
    if (delta <= 360) return delta - 270;
    return delta;
}

double S_Winkel_Wind_Leiter(const CalcCase& c) {
    return fold_angle(c.Winkel_W_S_db.value, c.Winkel_S_S_db.value);
}

double perpendicular_wind(double V, double delta) { return std::abs(std::sin(radians(delta)) * V); }

}  // namespace zel
