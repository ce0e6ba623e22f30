#include "tb601_transient/tb601/tb601_radial.h"

#include <cmath>

namespace zel {
namespace {

// As the formulas print them, not as multiples of pi.
constexpr double two_pi = 6.283185308;
constexpr double four_pi = 12.566370616;

}  // namespace

Tb601RadialDrop::Tb601RadialDrop(const TB601Params& p)
    : type_(p.ConductorType), Tknee_(p.Tknee), Lambda1_(p.Lambda1), Lambda2_(p.Lambda2) {
    if (type_ != steel_cored_conductor && type_ != composite_core_conductor) return;
    const double core = p.DCore * p.DCore;
    A_ = computed(0.5 - (core / (p.D * p.D - core)) * std::log(p.D / p.DCore));
}

double Tb601RadialDrop::at(double T, double P) const {
    switch (type_) {
        case homogeneous_conductor: return P / (Lambda1_ * four_pi);
        case steel_cored_conductor:
        case composite_core_conductor: {
            const double lambda = T < Tknee_ ? Lambda1_ : Lambda2_;
            return P / (lambda * two_pi) * A_;
        }
        default: return 0;
    }
}

Tb601Failure set_radial_temperatures(TB601State& state, double dT,
                                     const ArithmeticScope& arithmetic) {
    const double TCore = computed(state.T + 0.5 * dT);
    const double TSurface = computed(state.T - 0.5 * dT);
    if (const auto failure = fault_in(Tb601Procedure::SurfaceTemperature, arithmetic))
        return failure;
    state.TCore = TCore;
    state.TSurface = TSurface < 0 ? state.T : TSurface;
    return {};
}

Tb601Failure ST_S09_CigreTB601_Tsurface_conductor_temperature_distribution(
    const TB601Params& params, TB601State& state, double P, const ArithmeticScope& arithmetic) {
    return set_radial_temperatures(state, Tb601RadialDrop(params).at(state.T, P), arithmetic);
}

}  // namespace zel
