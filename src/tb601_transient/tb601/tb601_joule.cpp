#include "tb601_transient/tb601/tb601_joule.h"

#include <algorithm>
#include <cmath>

#include "platform/rounding.h"
#include "steady/constants.h"
#include "tb601_transient/tb601/skin_effect.h"

namespace zel {
namespace {

/// The growth of resistance and resistivity from 20 °C to `T`.
double temperature_factor(const TB601Params& p, double T) {
    const double rise = T - reference_temperature;
    return 1 + p.Alpha * rise + p.Beta * (rise * rise);
}

float on_line(const ResistancePoint& n, const ResistancePoint& m, float T) {
    return n.ACR + (m.ACR - n.ACR) / (m.TACR - n.TACR) * (T - n.TACR);
}

/// The ratio of AC to DC resistance of a solid round conductor.
double solid_conductor_factor(double De, double Rho, double F) {
    const double Rac = solid_conductor_resistance(De, Rho, F);
    return narrowed_to_single(De * De * pi * Rac / (4 * Rho));
}

Tb601Term by_table(const TB601State& state, const ArithmeticScope& arithmetic,
                   Tb601WarmResistance& warm) {
    if (!warm.known || warm.T != state.T) {
        const double R =
            computed(static_cast<double>(ST_F01_CigreTB601_Resistance(state.table, state.T)));
        if (const auto failure = fault_in(Tb601Procedure::Resistance, arithmetic))
            return {0, failure};
        warm = {true, state.T, R, 0};
    }
    return {state.I * state.I * warm.R};
}

/// DC resistance and skin effect at `T` of the state; a fault is not remembered.
Tb601Failure warm_up(const TB601Params& p, const TB601State& state,
                     const ArithmeticScope& arithmetic, Tb601WarmResistance& warm) {
    if (warm.known && warm.T == state.T) return {};
    warm.known = false;
    const double Rdc = computed(p.R20 * temperature_factor(p, state.T));
    if (const auto failure = fault_in(Tb601Procedure::JouleHeating, arithmetic)) return failure;
    const double skin = computed(ST_F06_CigreTB601_skin_effect_factor_601(p, state));
    if (const auto failure = fault_in(Tb601Procedure::SkinEffect, arithmetic)) return failure;
    warm = {true, state.T, Rdc, skin};
    return {};
}

Tb601Term by_formula(const TB601Params& p, TB601State& state, const ArithmeticScope& arithmetic,
                     Tb601WarmResistance& warm) {
    if (const auto failure = warm_up(p, state, arithmetic, warm)) return {0, failure};
    state.KSkinRaw = warm.skin;
    state.KSkin = state.KSkinRaw;

    double magnetic = 1;
    if (p.ConductorType == steel_cored_conductor) {
        if (p.AluLayers == 1) return {0, {Tb601Cause::SingleLayer, Tb601Procedure::JouleHeating}};
        if (p.AluLayers == 3)
            magnetic = computed(ST_F08_CigreTB601_magnetic_heating_factor_einfach(p, state));
    }
    if (const auto failure = fault_in(Tb601Procedure::MagneticHeating, arithmetic))
        return {0, failure};
    state.KMag = magnetic;
    return {state.I * state.I * state.KSkin * state.KMag * warm.R};
}

Tb601Term joule_heating(const TB601Params& p, TB601State& state, const ArithmeticScope& arithmetic,
                        Tb601WarmResistance& warm) {
    if (p.F > 0.5 && p.F < 61) {
        if (p.ROption == resistance_by_table) return by_table(state, arithmetic, warm);
        if (p.ROption == resistance_by_formula) return by_formula(p, state, arithmetic, warm);
        return {0};
    }
    if (p.F >= 0 && p.F < 0.5)
        return {state.I * state.I * (p.R20 * temperature_factor(p, state.T))};
    return {0};
}

}  // namespace

Tb601Term ST_F01_CigreTB601_PJ_steady(const TB601Params& params, TB601State& state,
                                      const ArithmeticScope& arithmetic) {
    Tb601WarmResistance warm;
    return ST_F01_CigreTB601_PJ_steady(params, state, arithmetic, warm);
}

Tb601Term ST_F01_CigreTB601_PJ_steady(const TB601Params& params, TB601State& state,
                                      const ArithmeticScope& arithmetic,
                                      Tb601WarmResistance& warm) {
    state.KSkin = 0;
    if (state.I == 0) return {0};
    Tb601Term PJ = joule_heating(params, state, arithmetic, warm);
    PJ.value = computed(PJ.value);
    if (!PJ.failure) PJ.failure = fault_in(Tb601Procedure::JouleHeating, arithmetic);
    return PJ;
}

std::size_t points_of(const ResistanceTable& table) {
    std::size_t count = 1;
    while (count < table.size() && table[count].TACR != 0 &&
           table[count].TACR > table[count - 1].TACR)
        ++count;
    return std::max<std::size_t>(count, 2);
}

float ST_F01_CigreTB601_Resistance(const ResistanceTable& table, double T) {
    const auto t = static_cast<float>(T);
    const auto segment = [&](std::size_t n) { return on_line(table[n], table[n + 1], t); };
    const std::size_t count = points_of(table);
    if (count == 2 || t < table[1].TACR || t <= table[0].TACR) return segment(0);
    for (std::size_t n = 1; n + 1 < count; ++n)
        if (t < table[n + 1].TACR) return segment(n);
    // A given point 6 that does not rise makes the result 0 instead of ending the table.
    if (count == 5 && table[5].TACR != 0) return 0;
    return segment(count - 2);
}

double ST_F06_CigreTB601_skin_effect_factor_601(const TB601Params& params,
                                                const TB601State& state) {
    const double Rho = params.Rho20 * temperature_factor(params, state.T);
    const double De = equivalent_diameter(params);
    const double k = computed(solid_conductor_factor(De, Rho, params.F));
    switch (params.ConductorType) {
        case homogeneous_conductor: return k;
        case steel_cored_conductor:
        case composite_core_conductor: return 1 + (1 - params.DCore / De) * (k - 1);
        case tubular_busbar: return 1 + (1 - params.DCore / params.D) * (k - 1);
        default: return 0;
    }
}

double ST_F08_CigreTB601_magnetic_heating_factor_einfach(const TB601Params& params,
                                                         const TB601State& state) {
    const double J = computed(state.I / params.AreaOuter);  // A/mm²
    if (J < 1.5) return 1;
    if (J > 1.5 && J <= 4) return 1 + 0.05 * (J - 1.5) / 2.5;
    if (J > 4) return 1.05;
    return 0;  // the gap at exactly 1.5 is kept
}

}  // namespace zel
