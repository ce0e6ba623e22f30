#pragma once

#include <cstdint>

// Constants shared by the steady methods. Powers of ten are formed first and then multiplied by
// the mantissa, in this order everywhere.

namespace zel {

/// pi as all thermal formulas use it: this literal, not the full-precision constant.
inline constexpr double pi = 3.141592654;

/// 0 °C in K.
inline constexpr double kelvin = 273.15;

/// Stefan-Boltzmann constant of TB 207 and the tubular busbar, W/(m²·K⁴).
inline constexpr double stefan_boltzmann = 1e-8 * 5.670367;

/// Reference temperature of resistances and of their temperature coefficients, °C.
inline constexpr double reference_temperature = 20;

/// Standard gravity in m/s² by `Gravi_merker1_db` (1, 2, 3); 0 for any other value, which leaves
/// natural convection without drive.
[[nodiscard]] constexpr double gravity(std::int16_t Gravi_merker1) {
    switch (Gravi_merker1) {
        case 1: return 9.80665;
        case 2: return 9.78;
        case 3: return 9.83;
        default: return 0;
    }
}

/// Millimetres to metres, ohm per kilometre to ohm per metre, per thousand to one.
[[nodiscard]] constexpr double thousandth(double value) { return value / 1000; }

/// Degrees to radians with the `pi` of the thermal formulas.
[[nodiscard]] constexpr double radians(double degrees) { return degrees * pi / 180; }

/// `cigre_TKW_merker`: whether the specific heats of a composite conductor follow its temperature.
/// A homogeneous conductor and a tube always do.
enum class HeatCapacityOption : std::int16_t { WithTemperature = 1, At20Degrees = 2 };

}  // namespace zel
