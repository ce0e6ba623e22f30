#pragma once

#include <cstdint>

#include "steady/case/calc_case.h"

// The height of the sun as Webs and Kirn find it. They differ in what they make of the clock.

namespace zel {

/// Date, clock and place. Longitudes count east as negative.
struct SunInput {
    double day = 0;            // of the month
    std::int16_t month = 0;    // 1 to 12
    double clock = 0;          // hours
    double longitude = 0;      // degrees, of the line
    double time_meridian = 0;  // degrees, to which the local standard time refers
    double latitude = 0;       // degrees
};

[[nodiscard]] SunInput sun_input(const CalcCase& c);

/// Day of the year without leap years. Outside the months 1 to 12 no days are added.
[[nodiscard]] double day_of_year(double day, std::int16_t month);

/// Whether the day of the year lies in the months of summer time: 85 to 265.
[[nodiscard]] bool in_summer_time(double N);

/// Angles of the sun in radians.
struct SunPosition {
    double hour_angle = 0;
    double declination = 0;
    double height = 0;  // negative below the horizon
};

/// The sun at the standard time `clock` (hours), the summer hour taken off, on the day `N` of the
/// year. A sun straight overhead is a numeric fault.
[[nodiscard]] SunPosition sun_position(const SunInput& in, double N, double clock);

}  // namespace zel
