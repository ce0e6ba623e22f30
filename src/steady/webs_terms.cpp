#include "steady/webs_terms.h"

#include <cmath>

#include "steady/constants.h"

namespace zel {
namespace {

constexpr double normal_pressure = 1013.25 * 100;        // Pa
constexpr double normal_density = 1.2929;                // kg/m³
constexpr double permeability = 1e-6 * 1.25664;          // V·s/(A·m)
constexpr double sky_temperature = 217;                  // K
constexpr double radiation_constant = 5.7;               // W/(m²·(100 K)⁴)
constexpr double watts_per_kilocalorie_an_hour = 1.163;  // W/(kcal/h)

double fourth_power(double x) { return x * x * x * x; }

/// (K / 100)⁴
double hundreds(double K) { return fourth_power(K / 100); }

double skin_factor_abb(double f, double kappa, double Dmm) {
    return 1 + (fourth_power(pi) / 48 * (f * f) * fourth_power(Dmm)) / (1e14 * (1 / kappa));
}

// The last term would be divided by x in the book. It multiplies here and is kept.
double skin_factor_kiessling(double f, double kappa, double Dmm) {
    const double x = (0.5 * Dmm / 2) * std::sqrt(pi * f * kappa * permeability);
    if (x <= 1) return 1 + fourth_power(x) / 3;
    return 0.25 + x + (3.0 / 64) * x;
}

}  // namespace

double webs_skin_factor(std::int16_t Formel_merker1, double f, double kappa, double Dmm) {
    return Formel_merker1 == 1 ? skin_factor_abb(f, kappa, Dmm)
                               : skin_factor_kiessling(f, kappa, Dmm);
}

double webs_radiation_at_altitude(double S, double H) {
    return (1 + (1e-4 * 1.26667) * H + (1e-12 * 1.4815) * (H * H * H) - (1e-8 * 2) * (H * H)) * S;
}

double webs_sun_angle(double hs, double s) {
    return hs != 0 ? std::acos(std::cos(pi - s) * std::cos(hs)) : 0;
}

double webs_radiative_cooling(double D, double epsilon, double TK, double TaK) {
    return pi * D * epsilon * radiation_constant *
           (0.75 * (hundreds(TK) - hundreds(TaK)) +
            0.25 * (hundreds(TK) - hundreds(sky_temperature)));
}

double webs_viscosity(double t) {
    return 1e-6 * (1.75 + (1e-3 * 5.13375) * t - (1e-6 * 4.081667) * (t * t) -
                   (1e-8 * 1.2558) * (t * t * t));
}

double webs_viscosity_in_wind(double t) {
    return t < 0 ? 1e-6 * 1.75 + (1e-9 * 4.7) * t : webs_viscosity(t);
}

double webs_conductivity(double t) { return 1e-2 * (2.0864 + 0.00636363 * t); }

double webs_expansion(double t) {
    return 1e-3 *
           (3.67 - (1e-2 * 1.282) * t + (1e-5 * 2.5) * (t * t) + (1e-8 * 4.1677) * (t * t * t));
}

double webs_pressure(double H, double g) {
    return normal_pressure * std::exp(-normal_density * g * H / normal_pressure);
}

double webs_density(double t, double p) {
    return normal_density * kelvin * p / ((t + kelvin) * normal_pressure);
}

double webs_nusselt_free(double Gr) {
    if (Gr < 1) return 0.436;
    if (Gr < 10000) return 0.436 + 0.55 * std::pow(Gr, 0.217);
    return 0.55 * std::pow(Gr, 0.228);
}

std::optional<double> webs_nusselt_forced(double Re) {
    if (Re < 0.1) return std::nullopt;
    if (Re < 950) return 0.32 + 0.43 * std::pow(Re, 0.52);
    if (Re < 1050) return 14.843235 + 0.0007139 * Re;  // joins the two laws
    return 0.24 * std::pow(Re, 0.6);
}

double webs_convective_cooling(double lambda, double difference, double Nu) {
    return watts_per_kilocalorie_an_hour * pi * lambda * difference * Nu;
}

}  // namespace zel
