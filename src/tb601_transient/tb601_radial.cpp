#include "tb601_transient/tb601_radial.h"

#include <cmath>

namespace zel {
namespace {

// As the formulas print them, not as multiples of pi.
constexpr double two_pi = 6.283185308;
constexpr double four_pi = 12.566370616;

/// The drop from core to surface, K.
double radial_drop(const TB601Params& p, double T, double P) {
    switch (p.ConductorType) {
        case homogeneous_conductor: return P / (p.Lambda1 * four_pi);
        case steel_cored_conductor:
        case composite_core_conductor: {
            const double core = p.DCore * p.DCore;
            const double A = 0.5 - (core / (p.D * p.D - core)) * std::log(p.D / p.DCore);
            const double lambda = T < p.Tknee ? p.Lambda1 : p.Lambda2;
            return P / (lambda * two_pi) * A;
        }
        default: return 0;
    }
}

}  // namespace

Tb601Failure ST_S09_CigreTB601_Tsurface_conductor_temperature_distribution(
    const TB601Params& params, TB601State& state, double P, const ArithmeticScope& arithmetic) {
    const double dT = radial_drop(params, state.T, P);
    const double TCore = computed(state.T + 0.5 * dT);
    const double TSurface = computed(state.T - 0.5 * dT);
    if (const auto failure = fault_in(Tb601Procedure::SurfaceTemperature, arithmetic))
        return failure;
    state.TCore = TCore;
    state.TSurface = TSurface < 0 ? state.T : TSurface;
    return {};
}

}  // namespace zel
