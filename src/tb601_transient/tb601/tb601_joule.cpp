#include "tb601_transient/tb601/tb601_joule.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/rounding.h"
#include "steady/constants.h"
#include "tb601_transient/tb601/math_module.h"

namespace zel {
namespace {

using MathModule::Complex;

/// The growth of resistance and resistivity from 20 °C to `T`.
double temperature_factor(const TB601Params& p, double T) {
    const double rise = T - reference_temperature;
    return 1 + p.Alpha * rise + p.Beta * (rise * rise);
}

float on_line(const ResistancePoint& n, const ResistancePoint& m, float T) {
    return n.ACR + (m.ACR - n.ACR) / (m.TACR - n.TACR) * (T - n.TACR);
}

/// The diameter (m) of the solid conductor that has the same skin effect.
double equivalent_diameter(const TB601Params& p) {
    switch (p.ConductorType) {
        case homogeneous_conductor:
        case steel_cored_conductor:
        case composite_core_conductor:
            if (p.GMRMerker == 1) return 2 * static_cast<double>(p.GMR);
            return narrowed_to_single(2 * (p.D * 0.7788 / 2));
        case tubular_busbar: return narrowed_to_single(p.D);
        default: return 0;
    }
}

constexpr int highest_power = 7;

/// The direction of the first powers of a number of the argument `angle`.
struct Directions {
    explicit Directions(double angle) {
        for (int n = 0; n <= highest_power; ++n)
            unit[static_cast<std::size_t>(n)] = {std::cos(n * angle), std::sin(n * angle)};
    }
    std::array<Complex, highest_power + 1> unit{};
};

/// J0(2w) / J1(2w), each cut after the fourth term of its series, of a number in the direction
/// `toward`.
Complex bessel_ratio(Complex w, const Directions& toward) {
    using namespace MathModule;
    const double r = modulus(w);
    const auto power_of_w = [&](int n) -> Complex {  // `power` with its angles known
        const double size = std::pow(r, n);
        const Complex& unit = toward.unit[static_cast<std::size_t>(n)];
        return {size * unit.re, size * unit.im};
    };
    const Complex J0 =
        difference(sum(real_minus_complex(1, power_of_w(2)), complex_by_real(power_of_w(4), 4)),
                   complex_by_real(power_of_w(6), 36));
    const Complex J1 = difference(
        sum(difference(w, complex_by_real(power_of_w(3), 2)), complex_by_real(power_of_w(5), 12)),
        complex_by_real(power_of_w(highest_power), 144));
    return quotient(J0, J1);
}

/// The same for `x` times (1 - j), which always points the same way.
Complex bessel_ratio_on_diagonal(double x) {
    static const Directions diagonal(MathModule::argument({1, -1}));
    const Complex w = MathModule::complex_by_real({x, -x}, 2);
    if (w.re > 0 && std::isfinite(w.re)) return bessel_ratio(w, diagonal);
    return bessel_ratio(w, Directions(MathModule::argument(w)));
}

/// The ratio of AC to DC resistance of a solid round conductor.
double solid_conductor_factor(double De, double Rho, double F) {
    // The permeability of free space is contained in 503.3.
    const double delta = 503.3 * std::sqrt(Rho / F);  // m, depth of penetration
    const double x = De / (2 * delta);
    const double scale = Rho / (pi * De * delta);
    const Complex Z = MathModule::product({scale, -scale}, bessel_ratio_on_diagonal(x));  // ohm/m
    const double Rac = narrowed_to_single(Z.re);
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
