#pragma once

#include <cstdint>

#include "steady/sun.h"

// The parts of the empirical heat balance by Kirn (1987), each a function of numbers. SI units,
// temperatures in K, angles in radians where not told.

namespace zel {

/// Seasonal term of the month, 5 at least.
[[nodiscard]] double kirn_season(std::int16_t month);

/// Air mass: 40 for a sun up to 1.5° high and below the horizon.
[[nodiscard]] double kirn_air_mass(double hs);

/// Sky term of the air mass `m`, the seasonal term `W` and the clearness ratio `c`.
[[nodiscard]] double kirn_sky(double m, double W, double c);

/// Slope angle of a span of the slope `s`, its height difference over its length. A fall of -1 or
/// steeper is a numeric fault; a rise is not.
[[nodiscard]] double kirn_slope_angle(double s);

/// Angle between conductor and sun at the sun height `hs`, 0 at night, of the azimuth `Sz` and the
/// slope angle `beta` of the conductor.
[[nodiscard]] double kirn_sun_angle(const SunPosition& sun, double hs, double Sz, double beta);

/// What the solar heating reads beside sky and sun.
struct KirnGround {
    double S = 0;        // W/m², global radiation
    double epsilon = 0;  // emissivity, for absorptivity too
    double D = 0;        // m
    double albedo = 0;
    double Tg = 0;  // K, of the ground
};

/// Solar heating with the heat from ground and sky, W/m: `Fg` is the sky term, `i` the angle
/// between conductor and sun.
[[nodiscard]] double kirn_solar_heating(const KirnGround& ground, double hs, double Fg, double i);

/// The folded angle `delta` (degrees), mirrored above 90.
[[nodiscard]] double kirn_mirrored(double delta);

/// Divisor of the convection by the wind `V` (m/s) at the mirrored angle `delta` (degrees).
[[nodiscard]] double kirn_wind_divisor(double V, double delta);

/// Age of the surface by its emissivity, and the surface factor by this. An emissivity of 0.9 is a
/// numeric fault.
[[nodiscard]] double kirn_ageing(double epsilon);
[[nodiscard]] double kirn_surface(double u);

/// Convective cooling in W/m: conductor and air temperature, diameter, wind speed, surface factor
/// and divisor by the wind.
[[nodiscard]] double kirn_convective_cooling(double T, double Ta, double D, double V, double w,
                                             double Rw);

/// Radiation of the conductor in W/m. What comes back stands in the solar heating.
[[nodiscard]] double kirn_radiation(double D, double T, double epsilon);

}  // namespace zel
