#include "steady/tbb_terms.h"

#include <algorithm>
#include <cmath>

#include "platform/arithmetic_fault.h"
#include "steady/constants.h"
#include "steady/tb207_terms.h"

namespace zel {
namespace {

/// How much less an oblique wind cools than one across.
double angle_factor(double delta) {
    const double x = radians(delta - 90);
    return 1.194 - std::abs(std::sin(x)) - 0.194 * std::abs(std::cos(2 * x)) +
           0.368 * std::abs(std::sin(2 * x));
}

}  // namespace

double tube_resistance(double rho, double Da, double Di) {
    return thousandth(4 * rho / (pi * (Da * Da - Di * Di)));
}

BusbarJoule::BusbarJoule(double I, double f, double R, double a20) : a20_(a20) {
    const bool alternating = f > 49 && f < 61;
    const bool direct = f >= 0 && f <= 1;
    const double k = alternating ? 1.006 : 1;
    if (alternating || direct)
        I2R_ = computed((I * I) * k * R);
    else
        failure_ = SteadyCause::BusbarFrequency;
}

Term BusbarJoule::at(double Ts) const {
    if (failure_ != SteadyCause::None) return {0, failure_};
    return {I2R_ * (1 + a20_ * (Ts - reference_temperature))};
}

Term ST_F01_TBB_PJ_steady(double I, double f, double R, double a20, double Ts) {
    return BusbarJoule(I, f, R, a20).at(Ts);
}

double ST_F02_CigreTBB_PS_steady(double alpha_s, double S, double D) {
    return ST_F02_CigreTB207_PS_steady(alpha_s, S, D);
}

/// The air about a tube, at the film temperature.
struct BusbarConvection::Film {
    double lambda;  // W/(m·K)
    double nu;      // m²/s, kinematic viscosity
};

BusbarConvection::BusbarConvection(const BusbarFlow& flow, double Ta)
    : V_(flow.V), Ta_(Ta), g_(flow.g) {
    const auto& [V, delta, H, D, g] = flow;
    density_ = computed(1.293 - (1e-4 * 1.525) * H + (1e-9 * 6.379) * (H * H));
    DV_ = computed(D * V);
    D3_ = computed(D * D * D);
    if (V >= 0 && V < 0.5) beta_ = computed(1 / (Ta + kelvin));
    if (V > 0) angle_factor_ = computed(angle_factor(delta));
}

BusbarConvection::Film BusbarConvection::film(double Tf) const {
    const double lambda = 1e-2 * 2.368 + (1e-5 * 7.23) * Tf - (1e-8 * 2.763) * (Tf * Tf);
    const double eta = 1e-6 * (17.239 + (1e-2 * 4.635) * Tf - (1e-5 * 2.03) * (Tf * Tf));
    const double rho = density_ / (1 + 0.00367 * Tf);
    return {lambda, eta / rho};
}

double BusbarConvection::natural_cooling(const Film& air, double Ts) const {
    const double Gr = D3_ * (Ts - Ta_) * beta_ * g_ / (air.nu * air.nu);
    const double Nu = 0.439 * std::pow(Gr, 0.25);
    return air.lambda * pi * Nu * (Ts - Ta_);
}

double BusbarConvection::forced_cooling(const Film& air, double Ts) const {
    const double Re = DV_ / air.nu;
    const double L = std::log10(Re);
    const double Nu90 = std::pow(10, -0.07043 + 0.31531 * L + 0.03553 * (L * L));
    const double Nu = Nu90 * angle_factor_;
    return air.lambda * pi * Nu * (Ts - Ta_);
}

double BusbarConvection::at(double Ts) const {
    if (V_ < 0) return 0;
    const Film air = film((Ts + Ta_) / 2);
    if (V_ == 0) return natural_cooling(air, Ts);
    if (V_ >= 0.5) return forced_cooling(air, Ts);
    return std::max(natural_cooling(air, Ts), forced_cooling(air, Ts));
}

double ST_F03_TBB_PC_steady(const BusbarFlow& flow, double Ts, double Ta) {
    return BusbarConvection(flow, Ta).at(Ts);
}

double ST_F04_TBB_PR_steady(double D, double epsilon, double Ts, double Ta) {
    return ST_F04_CigreTB207_PR_steady(D, epsilon, Ts, Ta);
}

}  // namespace zel
