#include "tb601_transient/tb601/skin_effect.h"

#include <array>
#include <cmath>

#include "platform/rounding.h"
#include "steady/constants.h"
#include "tb601_transient/tb601/math_module.h"

namespace zel {
namespace {

using MathModule::Complex;

// The permeability of free space is contained in 503.3.
constexpr double penetration = 503.3;  // sqrt(m·Hz/ohm)

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

/// The real part of the series, multiplied out: on the diagonal the complex numbers fall away, and
/// with s = |w|² what is left is the DC resistance times a ratio of sums without a negative term.
double multiplied_out(double De, double Rho, double F) {
    const double s = De * De * F / (8 * penetration * penetration * Rho);
    const double s2 = s * s;
    const double s6 = s2 * s2 * s2;
    const double Rdc = 4 * Rho / (pi * (De * De));
    return Rdc * ((20736 + 3456 * s2 + 4 * s6) / (20736 + 1728 * s2 + s6));
}

/// The conductors for which the bound of the error is shown; no step of theirs can overflow.
bool is_ordinary(double De, double Rho, double F) {
    return De > 1e-4 && De < 1 && Rho > 1e-9 && Rho < 1e-3 && F > 0.1 && F < 100;
}

/// Above the relative distance of the two ways: 2^-44 at most.
constexpr double relative_distance = 0x1p-40;

}  // namespace

double equivalent_diameter(const TB601Params& params) {
    switch (params.ConductorType) {
        case homogeneous_conductor:
        case steel_cored_conductor:
        case composite_core_conductor:
            if (params.GMRMerker == 1) return 2 * static_cast<double>(params.GMR);
            return narrowed_to_single(2 * (params.D * 0.7788 / 2));
        case tubular_busbar: return narrowed_to_single(params.D);
        default: return 0;
    }
}

double series_resistance(double De, double Rho, double F) {
    const double delta = penetration * std::sqrt(Rho / F);  // m, depth of penetration
    const double x = De / (2 * delta);
    const double scale = Rho / (pi * De * delta);
    const Complex Z = MathModule::product({scale, -scale}, bessel_ratio_on_diagonal(x));  // ohm/m
    return narrowed_to_single(Z.re);
}

double solid_conductor_resistance(double De, double Rho, double F) {
    if (is_ordinary(De, Rho, F)) {
        const double R = multiplied_out(De, Rho, F);
        const double least = narrowed_to_single(R * (1 - relative_distance));
        // Where all that is near has the same 32 bits, so has the series.
        if (least == narrowed_to_single(R * (1 + relative_distance))) return least;
    }
    return series_resistance(De, Rho, F);
}

}  // namespace zel
