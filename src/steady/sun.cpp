#include "steady/sun.h"

#include <array>
#include <cmath>

#include "platform/rounding.h"
#include "steady/constants.h"

namespace zel {

SunInput sun_input(const CalcCase& c) {
    SunInput in;
    in.day = c.Tag_db.value;
    in.month = round_to_int16(c.Monat_db.value).value_or(0);
    in.clock = c.Stunden_db.value + c.Minuten_db.value / 60;
    in.longitude = c.geo_laeng_db.value;
    in.time_meridian = c.geo_laeng_zeit_db.value;
    in.latitude = c.geogr_Breite_db.value;
    return in;
}

double day_of_year(double day, std::int16_t month) {
    constexpr std::array days_before = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    if (month < 1 || month > 12) return day;
    return day + days_before[static_cast<std::size_t>(month - 1)];
}

bool in_summer_time(double N) { return N > 84 && N < 266; }

SunPosition sun_position(const SunInput& in, double N, double clock) {
    const double solar_time = clock + (4.0 / 60) * (in.time_meridian - in.longitude);
    const double omega = radians((solar_time - 12) * (360.0 / 24));
    const double d = radians(23.45 * std::sin(radians((N + 284) * (360.0 / 365))));
    const double phi = radians(in.latitude);
    const double x = std::sin(phi) * std::sin(d) + std::cos(phi) * std::cos(d) * std::cos(omega);
    return {omega, d, std::atan(x / std::sqrt(1 - x * x))};
}

}  // namespace zel
