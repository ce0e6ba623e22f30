#include "tb601_transient/tb601/tb601_terms.h"

#include <algorithm>
#include <cmath>

#include "steady/constants.h"

namespace zel {
namespace {

// The last digits differ from those of TB 207.
constexpr double sigma = 1e-8 * 5.66697;  // W/(m²·K⁴)

double square(double x) { return x * x; }
double cube(double x) { return x * x * x; }

using Surface = Tb601Surface;

Surface surface_of(std::int16_t type, std::int16_t shape) {
    if (type == tubular_busbar || shape == smooth_surface) return Surface::Smooth;
    const bool stranded = type == homogeneous_conductor || type == steel_cored_conductor ||
                          type == composite_core_conductor;
    return stranded && shape == round_wires ? Surface::Stranded : Surface::Unknown;
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

Tb601Cooling::Tb601Cooling(const Tb601Flow& flow)
    : V_(flow.V),
      Ta_(flow.Ta),
      G_(flow.G),
      surface_(surface_of(flow.ConductorType, flow.ConductorShape)) {
    const auto& [V, Delta, TSurface, Ta, Y, D, DWire, G, type, shape] = flow;
    density_ = computed(1.293 - (1e-4 * 1.525) * Y + (1e-9 * 6.379) * square(Y));
    DV_ = computed(D * V);
    D3_ = computed(cube(D));
    // A massive wire of the whole diameter divides by zero here, whatever its surface is.
    Rf_ = computed(DWire / (2 * (D - DWire)));
    if (V > 0) angle_factor_ = computed(angle_factor(surface_, Delta));
}

FilmAir Tb601Cooling::film_air(double Tf) const {
    FilmAir air;
    air.lambda = 1e-2 * 2.368 + (1e-5 * 7.23) * Tf - (1e-8 * 2.763) * square(Tf);
    air.mu = 1e-6 * (17.239 + (1e-2 * 4.635) * Tf - (1e-5 * 2.03) * square(Tf));
    const double gamma = density_ / (1 + 0.00367 * Tf);  // kg/m³
    air.nu = computed(air.mu / gamma);
    air.Pr = computed(air.mu * 1005 / air.lambda);
    return air;
}

Tb601Convection Tb601Cooling::at(double TSurface) const {
    Tb601Convection c;
    const double Tf = (TSurface + Ta_) * 0.5;
    c.air = film_air(Tf);
    c.Re = computed(DV_ / c.air.nu);
    c.Gr = std::abs(computed(D3_ * (TSurface - Ta_) * G_ / (square(c.air.nu) * (Tf + kelvin))));
    const double per_nusselt = pi * c.air.lambda * (TSurface - Ta_);

    if (V_ > 0) {
        const Nusselt across = nusselt_across(surface_, c.Re, Rf_);
        c.refusal = across.refusal;
        if (c.refusal != Tb601Cause::None) return c;
        c.Nu90 = across.value;
        c.Nu = c.Nu90 * angle_factor_;
        c.Pforced = per_nusselt * c.Nu;
    }
    if (V_ <= 1) {
        const Nusselt natural = natural_nusselt(c.Gr * c.air.Pr);
        c.refusal = natural.refusal;
        if (c.refusal != Tb601Cause::None) return c;
        c.Pnat = per_nusselt * natural.value;
    }
    return c;
}

Tb601Convection tb601_convection(const Tb601Flow& flow) {
    return Tb601Cooling(flow).at(flow.TSurface);
}

Tb601Term convective_cooling(const Tb601Convection& c) {
    return {std::max(c.Pforced, c.Pnat), {c.refusal, Tb601Procedure::Convection}};
}

Tb601Term Tb601Cooling::loss_at(double TSurface) const { return convective_cooling(at(TSurface)); }

Tb601Term ST_F03_CigreTB601_PC_steady(double V, double Delta, double TSurface, double Ta, double Y,
                                      double D, double DWire, double G, std::int16_t ConductorType,
                                      std::int16_t ConductorShape) {
    return convective_cooling(
        tb601_convection({V, Delta, TSurface, Ta, Y, D, DWire, G, ConductorType, ConductorShape}));
}

Tb601Radiation::Tb601Radiation(const TB601Params& params)
    : per_K4_(computed(pi * params.D * params.Eps * sigma)),
      air_K4_(computed(square(square(params.Ta + kelvin)))) {}

double Tb601Radiation::at(double TSurface) const {
    return per_K4_ * (square(square(TSurface + kelvin)) - air_K4_);
}

double ST_F04_CigreTB601_PR_steady(const TB601Params& params, const TB601State& state) {
    return Tb601Radiation(params).at(state.TSurface);
}

}  // namespace zel
