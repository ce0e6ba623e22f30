#include "tb601_transient/tb601_terms.h"

#include <algorithm>
#include <cmath>

#include "steady/constants.h"

namespace zel {
namespace {

// The last digits differ from those of TB 207.
constexpr double sigma = 1e-8 * 5.66697;  // W/(m²·K⁴)

double square(double x) { return x * x; }
double cube(double x) { return x * x * x; }

enum class Surface { Smooth, Stranded, Unknown };

Surface surface_of(std::int16_t type, std::int16_t shape) {
    if (type == tubular_busbar || shape == smooth_surface) return Surface::Smooth;
    const bool stranded = type == homogeneous_conductor || type == steel_cored_conductor ||
                          type == composite_core_conductor;
    return stranded && shape == round_wires ? Surface::Stranded : Surface::Unknown;
}

FilmAir film_air(double Tf, double Y) {
    FilmAir air;
    air.lambda = 1e-2 * 2.368 + (1e-5 * 7.23) * Tf - (1e-8 * 2.763) * square(Tf);
    air.mu = 1e-6 * (17.239 + (1e-2 * 4.635) * Tf - (1e-5 * 2.03) * square(Tf));
    const double gamma =  // kg/m³
        (1.293 - (1e-4 * 1.525) * Y + (1e-9 * 6.379) * square(Y)) / (1 + 0.00367 * Tf);
    air.nu = computed(air.mu / gamma);
    air.Pr = computed(air.mu * 1005 / air.lambda);
    return air;
}

/// A Nusselt number, or why it is refused.
struct Nusselt {
    double value = 0;
    Tb601Cause refusal = Tb601Cause::None;
};

// A smooth conductor has no band at exactly Re 200 000 and so no forced cooling there.
Nusselt smooth_nusselt(double Re) {
    if (Re < 5000) return {0.583 * std::pow(Re, 0.471)};
    if (Re < 50000) return {0.148 * std::pow(Re, 0.633)};
    if (Re < 200000) return {0.0208 * std::pow(Re, 0.814)};
    if (Re > 200000) return {0, Tb601Cause::SmoothReynolds};
    return {0};
}

Nusselt stranded_nusselt(double Re, double Rf) {
    const bool rough = Rf > 0.05;
    if (Re < 2650) return {0.641 * std::pow(Re, 0.471)};
    if (Re > 50000) return {0, rough ? Tb601Cause::RoughReynolds : Tb601Cause::StrandedReynolds};
    return {rough ? 0.048 * std::pow(Re, 0.800) : 0.178 * std::pow(Re, 0.633)};
}

Nusselt nusselt_across(Surface surface, double Re, double Rf) {
    switch (surface) {
        case Surface::Smooth: return smooth_nusselt(Re);
        case Surface::Stranded: return stranded_nusselt(Re, Rf);
        case Surface::Unknown: break;
    }
    return {0};
}

/// The factor by which an oblique wind cools less than one across.
double angle_factor(Surface surface, double Delta) {
    if (Delta == 90 || Delta == 270) return 1;
    const double sine = std::abs(std::sin(radians(Delta)));
    const double cosine = std::abs(std::cos(radians(Delta)));
    if (surface == Surface::Smooth) return std::pow(square(sine) + 0.0169 * square(cosine), 0.225);
    const auto within = [Delta](double low, double high) { return Delta >= low && Delta <= high; };
    if (within(0, 24) || within(156, 204) || within(336, 360))
        return 0.42 + 0.68 * std::pow(sine, 1.08);
    return 0.42 + 0.58 * std::pow(sine, 0.90);
}

Nusselt natural_nusselt(double X) {
    if (X < 100) return {1.02 * std::pow(std::abs(X), 0.148)};
    if (X < 1e4) return {0.85 * std::pow(X, 0.188)};
    if (X <= 1e7) return {0.48 * std::pow(X, 0.25)};
    if (X <= 1e12) return {0.125 * std::pow(X, 0.333)};
    return {0, Tb601Cause::GrashofPrandtlTooLarge};
}

}  // namespace

double ST_F02_CigreTB601_PS_steady(const TB601Params& params) {
    return params.AlphaS * params.Ig * params.D;
}

Tb601Convection tb601_convection(const Tb601Flow& flow) {
    const auto& [V, Delta, Ts, Ta, Y, D, DWire, G, type, shape] = flow;
    Tb601Convection c;
    const double Tf = (Ts + Ta) * 0.5;
    c.air = film_air(Tf, Y);
    c.Re = computed(D * V / c.air.nu);
    c.Gr = std::abs(computed(cube(D) * (Ts - Ta) * G / (square(c.air.nu) * (Tf + kelvin))));
    // A massive wire of the whole diameter divides by zero here, whatever its surface is.
    const double Rf = computed(DWire / (2 * (D - DWire)));
    const double per_nusselt = pi * c.air.lambda * (Ts - Ta);

    if (V > 0) {
        const Surface surface = surface_of(type, shape);
        const Nusselt across = nusselt_across(surface, c.Re, Rf);
        c.refusal = across.refusal;
        if (c.refusal != Tb601Cause::None) return c;
        c.Nu90 = across.value;
        c.Nu = c.Nu90 * angle_factor(surface, Delta);
        c.Pforced = per_nusselt * c.Nu;
    }
    if (V <= 1) {
        const Nusselt natural = natural_nusselt(c.Gr * c.air.Pr);
        c.refusal = natural.refusal;
        if (c.refusal != Tb601Cause::None) return c;
        c.Pnat = per_nusselt * natural.value;
    }
    return c;
}

Tb601Term ST_F03_CigreTB601_PC_steady(double V, double Delta, double TSurface, double Ta, double Y,
                                      double D, double DWire, double G, std::int16_t ConductorType,
                                      std::int16_t ConductorShape) {
    const auto c =
        tb601_convection({V, Delta, TSurface, Ta, Y, D, DWire, G, ConductorType, ConductorShape});
    return {std::max(c.Pforced, c.Pnat), {c.refusal, Tb601Procedure::Convection}};
}

double ST_F04_CigreTB601_PR_steady(const TB601Params& params, const TB601State& state) {
    return pi * params.D * params.Eps * sigma *
           (square(square(state.TSurface + kelvin)) - square(square(params.Ta + kelvin)));
}

}  // namespace zel
