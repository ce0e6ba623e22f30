#include "steady/tb207_terms.h"

#include <cmath>

#include "platform/arithmetic_fault.h"
#include "steady/case/calc_case.h"
#include "steady/constants.h"

namespace zel {
namespace {

double square(double x) { return x * x; }
double cube(double x) { return x * x * x; }

// Relative excess of the AC over the DC resistance of a steel-cored conductor, in units of 2 %,
// over the current density j in A/mm², in its two bands.
double excess_below_2_486(double j) {
    const double j2 = j * j;
    const double j3 = j2 * j;
    const double j4 = j3 * j;
    const double j5 = j4 * j;
    const double j6 = j5 * j;
    const double j7 = j6 * j;
    return 25.62 - 133.9 * j + 288.6 * j2 - 334.5 * j3 + 226.5 * j4 - 89.73 * j5 + 19.31 * j6 -
           1.744 * j7;
}

double excess_below_3_908(double j) {
    const double j2 = j * j;
    const double j3 = j2 * j;
    const double j4 = j3 * j;
    const double j5 = j4 * j;
    const double j6 = j5 * j;
    return 2.978 - 22.02 * j + 24.87 * j2 - 11.64 * j3 + 2.973 * j4 - 0.4135 * j5 + 0.02445 * j6;
}

struct EffectiveCurrent {
    double value = 0;  // A
    SteadyCause failure = SteadyCause::None;
};

/// Whether m and I differ by less than the ratio asked for. No value is remembered while m is 0.
template <class Within>
bool agrees(double m, double I, Within within) {
    return m != 0 && within(m / I) && within(I / m);
}

/// Finds x with f(x) = I by three points that close in. The result is the middle point after the
/// last move, not the point at which the remembered value was taken.
template <class Function>
EffectiveCurrent bracket(double I, Function f) {
    constexpr int iteration_limit = 50;
    double x1 = 0.98 * I;
    double x2 = 1.04 * I;
    double x3 = 1.08 * I;
    double m = 0;
    int iterations = 0;
    do {
        const double f1 = f(x1);
        const double f2 = f(x2);
        const double f3 = f(x3);
        if (f1 <= I && I <= f2) {
            m = f2;
            x3 = x2;
            x2 = (x1 + x3) / 2;
        } else if (f2 < I && I <= f3) {
            m = f2;
            x1 = x2;
            x2 = (x1 + x3) / 2;
        }
        ++iterations;
    } while (!agrees(m, I, [](double ratio) { return ratio <= 1.0001; }) &&
             iterations < iteration_limit);
    if (agrees(m, I, [](double ratio) { return ratio < 1.001; })) return {x2};
    return {0, SteadyCause::JouleBracketing};
}

EffectiveCurrent steel_cored_current(double I, std::int16_t N, double A) {
    if (N >= 3) return {I * std::sqrt(1.0123 + (1e-5 * 2.36) * I)};
    if (N < 1) return {0};
    if (A >= 175)
        return bracket(I, [](double x) { return x / std::sqrt(1.0045 + (1e-6 * 0.09) * x); });
    const double J = computed(I / A);
    if (J <= 0.742) return {I};
    if (J <= 2.486)
        return bracket(
            I, [A](double x) { return x / std::sqrt(1 + 0.02 * excess_below_2_486(x / A)); });
    if (J <= 3.908)
        return bracket(
            I, [A](double x) { return x / std::sqrt(1 + 0.02 * excess_below_3_908(x / A)); });
    return {I * std::sqrt(1.1)};
}

/// Nu90 = B · Re^n, the Nusselt number at flow across the conductor.
struct Band {
    double B = 0;
    double n = 0;
};

// The first condition that holds counts. A smooth conductor (roughness up to 0.05) has no band
// from Re 50 000 to 90 000 and so no forced cooling there: the gap is kept. So is the lower bound
// of the middle bands, 2.65³ where 2650 would be expected.
Term nusselt_across(double Re, double Rs) {
    constexpr double lower_bound = 2.65 * 2.65 * 2.65;
    Band band;
    if (Re <= 2650)
        band = {0.641, 0.471};
    else if (Re > lower_bound && Rs <= 0.05 && Re <= 50000)
        band = {0.178, 0.633};
    else if (Re > lower_bound && Rs > 0.05 && Re <= 90000)
        band = {0.048, 0.800};
    else if (Re > 90000)
        return {0, SteadyCause::ReynoldsTooLarge};
    return {band.B * std::pow(Re, band.n)};
}

/// The factor by which an oblique wind cools less than one across.
double angle_factor(double delta) {
    if (delta == 0 || delta == 180 || delta == 360) return 0.42;
    if (delta == 90 || delta == 270) return 1;
    const double sine = std::abs(std::sin(radians(delta)));
    const auto within = [delta](double low, double high) { return delta >= low && delta <= high; };
    if (within(0, 24) || within(156, 204) || within(336, 360))
        return 0.42 + 0.68 * std::pow(sine, 1.08);
    if (within(24, 156) || within(204, 336)) return 0.42 + 0.58 * std::pow(sine, 0.90);
    return 0;
}

Term nusselt_natural(double X) {
    if (X < 0) X = 0;
    if (X < 10000) return {0.85 * std::pow(X, 0.188)};
    if (X <= 1e6) return {0.48 * std::pow(X, 0.25)};
    return {0, SteadyCause::GrashofPrandtlTooLarge};
}

/// Cooling in a wind above 0 and below 0.5 m/s, where the actual angle plays no part.
double low_wind_cooling(double P45, double Pcor, double Pnat) {
    if (P45 >= Pnat && P45 >= Pcor) return P45;
    if (Pnat > P45 && Pnat >= Pcor) return Pnat;
    if (Pcor > P45 && Pcor > Pnat) return Pcor;
    return 0;
}

}  // namespace

Tb207Joule::Tb207Joule(double I, const Tb207Conductor& conductor) : a20_(conductor.a20) {
    const auto& [R20, a20, kind, N, A] = conductor;
    if (I == 0) {
        none_ = true;
    } else if (kind == homogeneous_conductor || kind == composite_core_conductor) {
        I2R_ = computed(square(I) * 1.0123 * R20);
    } else if (kind == steel_cored_conductor) {
        const auto [Ieff, failure] = steel_cored_current(I, N, A);
        I2R_ = computed(square(Ieff) * R20);
        failure_ = failure;
    } else {
        none_ = true;
    }
}

Term Tb207Joule::at(double Ts) const {
    if (none_) return {0};
    return {I2R_ * (1 + a20_ * (Ts - reference_temperature)), failure_};
}

Term ST_F01_CigreTB207_PJ_steady(double I, const Tb207Conductor& conductor, double Ts) {
    return Tb207Joule(I, conductor).at(Ts);
}

double ST_F02_CigreTB207_PS_steady(double alpha_s, double S, double D) { return alpha_s * S * D; }

Tb207Convection::Tb207Convection(const Tb207Flow& flow, double Ta)
    : V_(flow.V), Ta_(Ta), g_(flow.g) {
    const auto& [V, delta, y, D, d, g] = flow;
    const double rho_r = std::exp((1e-4 * -1.16) * y);  // relative air density
    flow_ = computed(rho_r * V * D);
    Rs_ = computed(d / (2 * (D - d)));
    D3_ = computed(cube(D));
    if (V >= 0.5)
        angle_factor_ = computed(angle_factor(delta));
    else if (V > 0)
        angle_factor_ = 0.42 + 0.58 * std::pow(std::abs(std::sin(radians(45))), 0.90);
}

Term Tb207Convection::at(double Ts) const {
    const double Tf = (Ts + Ta_) / 2;
    const double nu_f = 1e-5 * 1.32 + (1e-8 * 9.5) * Tf;      // m²/s, kinematic viscosity
    const double lambda_f = 1e-2 * 2.42 + (1e-5 * 7.2) * Tf;  // W/(m·K)
    const double Pr = 0.715 - (1e-4 * 2.5) * Tf;
    const double Re = computed(flow_ / nu_f);
    const double Gr = computed(D3_ * (Ts - Ta_) * g_ / (square(nu_f) * (Tf + kelvin)));
    const auto cooling = [&](double Nu) { return (Ts - Ta_) * lambda_f * pi * Nu; };

    double Nu90 = 0;
    if (V_ > 0) {
        const Term across = nusselt_across(Re, Rs_);
        if (across.failure != SteadyCause::None) return across;
        Nu90 = across.value;
    }
    if (V_ >= 0.5) return {cooling(Nu90 * angle_factor_)};

    const Term natural = nusselt_natural(Gr * Pr);
    if (natural.failure != SteadyCause::None) return natural;
    const double Pnat = cooling(natural.value);
    if (V_ == 0) return {Pnat};
    if (V_ < 0) return {0};
    const double Nu45 = Nu90 * angle_factor_;
    return {low_wind_cooling(cooling(Nu45), cooling(0.55 * Nu90), Pnat)};
}

Term ST_F03_CigreTB207_PC_steady(const Tb207Flow& flow, double Ts, double Ta) {
    return Tb207Convection(flow, Ta).at(Ts);
}

Tb207Radiation::Tb207Radiation(double D, double epsilon, double Ta)
    : per_K4_(computed(stefan_boltzmann * pi * D * epsilon)),
      air_K4_(computed(square(square(Ta + kelvin)))) {}

double Tb207Radiation::at(double Ts) const {
    return per_K4_ * (square(square(Ts + kelvin)) - air_K4_);
}

double ST_F04_CigreTB207_PR_steady(double D, double epsilon, double Ts, double Ta) {
    return Tb207Radiation(D, epsilon, Ta).at(Ts);
}

}  // namespace zel
