#include "steady/tbb_terms.h"

#include <algorithm>
#include <cmath>

#include "steady/constants.h"
#include "steady/tb207_terms.h"

namespace zel {
namespace {

/// The air about a tube, at the film temperature.
struct Film {
    double lambda;  // W/(m·K)
    double nu;      // m²/s, kinematic viscosity
};

Film film(double Tf, double H) {
    const double lambda = 1e-2 * 2.368 + (1e-5 * 7.23) * Tf - (1e-8 * 2.763) * (Tf * Tf);
    const double eta = 1e-6 * (17.239 + (1e-2 * 4.635) * Tf - (1e-5 * 2.03) * (Tf * Tf));
    const double rho = (1.293 - (1e-4 * 1.525) * H + (1e-9 * 6.379) * (H * H)) / (1 + 0.00367 * Tf);
    return {lambda, eta / rho};
}

/// How much less an oblique wind cools than one across.
double angle_factor(double delta) {
    const double x = radians(delta - 90);
    return 1.194 - std::abs(std::sin(x)) - 0.194 * std::abs(std::cos(2 * x)) +
           0.368 * std::abs(std::sin(2 * x));
}

// The expansion coefficient is that of the surrounding air and not of the film.
double natural_cooling(const BusbarFlow& flow, const Film& air, double Ts, double Ta) {
    const double beta = 1 / (Ta + kelvin);
    const double Gr = (flow.D * flow.D * flow.D) * (Ts - Ta) * beta * flow.g / (air.nu * air.nu);
    const double Nu = 0.439 * std::pow(Gr, 0.25);
    return air.lambda * pi * Nu * (Ts - Ta);
}

double forced_cooling(const BusbarFlow& flow, const Film& air, double Ts, double Ta) {
    const double Re = flow.D * flow.V / air.nu;
    const double L = std::log10(Re);
    const double Nu90 = std::pow(10, -0.07043 + 0.31531 * L + 0.03553 * (L * L));
    const double Nu = Nu90 * angle_factor(flow.delta);
    return air.lambda * pi * Nu * (Ts - Ta);
}

}  // namespace

double tube_resistance(double rho, double Da, double Di) {
    return thousandth(4 * rho / (pi * (Da * Da - Di * Di)));
}

Term ST_F01_TBB_PJ_steady(double I, double f, double R, double a20, double Ts) {
    const bool alternating = f > 49 && f < 61;
    const bool direct = f >= 0 && f <= 1;
    if (!alternating && !direct) return {0, SteadyCause::BusbarFrequency};
    const double k = alternating ? 1.006 : 1;
    return {(I * I) * k * R * (1 + a20 * (Ts - reference_temperature))};
}

double ST_F02_CigreTBB_PS_steady(double alpha_s, double S, double D) {
    return ST_F02_CigreTB207_PS_steady(alpha_s, S, D);
}

double ST_F03_TBB_PC_steady(const BusbarFlow& flow, double Ts, double Ta) {
    if (flow.V < 0) return 0;
    const Film air = film((Ts + Ta) / 2, flow.H);
    if (flow.V == 0) return natural_cooling(flow, air, Ts, Ta);
    if (flow.V >= 0.5) return forced_cooling(flow, air, Ts, Ta);
    return std::max(natural_cooling(flow, air, Ts, Ta), forced_cooling(flow, air, Ts, Ta));
}

double ST_F04_TBB_PR_steady(double D, double epsilon, double Ts, double Ta) {
    return ST_F04_CigreTB207_PR_steady(D, epsilon, Ts, Ta);
}

}  // namespace zel
