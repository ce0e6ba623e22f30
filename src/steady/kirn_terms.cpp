#include "steady/kirn_terms.h"

#include <algorithm>
#include <cmath>

#include "steady/constants.h"

namespace zel {
namespace {

constexpr double radiation_constant = 5.67 / 1e8;  // W/(m²·K⁴)

double fourth_power(double x) { return x * x * x * x; }

/// Arc sine as the method forms it; a numeric fault at ±1 and beyond.
double arc_sine(double x) { return std::atan(x / std::sqrt(1 - x * x)); }

}  // namespace

double kirn_season(std::int16_t month) {
    const double M = month;
    const double W = 4.8 - 1.25 * std::cos(radians(30 * M)) +
                     0.2 * std::sin(radians(60 * (M - 1))) + 0.3 * std::cos(radians(15 * (M - 2)));
    return W < 5 ? 5 : W;
}

double kirn_air_mass(double hs) {
    const double hd = hs * 180 / pi;
    return hd <= 1.5 ? 40 : 1 / std::sin(hs);
}

double kirn_sky(double m, double W, double c) {
    const double L = 0.9 + 0.007 * std::pow(m, 0.8);
    const double B = -0.477 - 0.01 * W + 1.55 * L;
    const double b = std::pow((B + 0.0001) / std::pow(L + 0.0001, W), m);
    return 2 * c / (1 + b);
}

double kirn_slope_angle(double s) {
    if (s == 1) s = 0.999995;
    return std::atan(s / std::sqrt(s > 1 ? s * s - 1 : 1 - s * s));
}

double kirn_sun_angle(const SunPosition& sun, double hs, double Sz, double beta) {
    const double z = std::sin(sun.hour_angle) * std::cos(sun.declination) / std::cos(hs);
    const double Az = arc_sine(std::clamp(z, -0.99999, 0.99999));
    if (!(hs > 0)) return 0;
    const double x = std::cos(Sz) * std::cos(hs) * std::cos(Az) * std::cos(beta) +
                     std::sin(Sz) * std::cos(hs) * std::sin(Az) * std::cos(beta) +
                     std::sin(hs) * std::sin(beta);
    const double i = pi / 2 - arc_sine(x);
    return i > pi / 2 ? pi - i : i;
}

// E compares the sun height in radians with 1.5, so that only a sun above 86° is without it. The
// limit is kept.
double kirn_solar_heating(const KirnGround& ground, double hs, double Fg, double i) {
    const double S = ground.S + 0.1;
    const double Q0 = S * ground.epsilon * ground.D * pi / 2;
    const double Hg = 1.35 * radiation_constant * fourth_power(ground.Tg) / S;
    const double E = hs <= 1.5 ? 60 / S : 0;
    const double Fs = Fg * (2 * std::sin(i) / pi - 1);
    return (1 + ground.albedo + E + Hg + Fs) * Q0;
}

double kirn_mirrored(double delta) { return delta > 90 ? 180 - delta : delta; }

double kirn_wind_divisor(double V, double delta) {
    const double f1 = 1 - 0.4 * std::pow(std::abs(std::cos(radians(delta))), 2.8);
    const double f2 = std::exp(0.0242 * V * (delta - 90) / (115.7 - delta));
    return 11000 / (f1 * f2);
}

double kirn_ageing(double epsilon) { return (epsilon - 0.3) / (0.9 - epsilon); }

double kirn_surface(double u) { return 4.5 - 0.1 * u / (1.3 + u); }

double kirn_convective_cooling(double T, double Ta, double D, double V, double w, double Rw) {
    const double sum = T + Ta - 264.61;
    const double vf =
        146 * std::pow(std::abs((D * D * D) * std::abs(T - Ta) / ((sum * sum) * Ta)), 0.25);
    const double v = std::sqrt(V * V + vf * vf);
    const double C = 4500 * std::pow(std::abs(v * D * w), 0.75);
    return (T - Ta) * (T + Ta + 124.78) * (C / std::pow(sum, 0.6175 - 0.00035 * (T - Ta)) + 1) / Rw;
}

double kirn_radiation(double D, double T, double epsilon) {
    return radiation_constant * D * pi * fourth_power(T) * epsilon;
}

}  // namespace zel
