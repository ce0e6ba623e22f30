#pragma once

#include <cstdint>

#include "steady/steady_cause.h"

// The four terms of the heat balance per metre of one sub-conductor by Cigre TB 207 (Thermal
// behaviour of overhead conductors, 2002), SI units throughout. Each is one evaluation of numbers:
// it keeps nothing, allocates nothing and knows of no iteration.

namespace zel {

/// What the Joule heating reads of the conductor.
struct Tb207Conductor {
    double R20 = 0;         // ohm/m, DC resistance at 20 °C
    double a20 = 0;         // 1/K, linear temperature coefficient
    std::int16_t kind = 0;  // ConductorType
    std::int16_t N = 0;     // layers
    double A = 0;           // mm², cross-section of the conductor layers
};

/// Joule heating at the current `I` (A) and the conductor temperature `Ts` (°C), with the
/// allowance for skin effect and for the magnetic heating of a steel core. 0 for a tube and for a
/// steel-cored conductor of no layer. Fails with `JouleBracketing`.
[[nodiscard]] Term ST_F01_CigreTB207_PJ_steady(double I, const Tb207Conductor& conductor,
                                               double Ts);

// The same for many temperatures: what the temperature does not change is worked out once, in the
// order of the formula, so that every result is the same to the last bit.

class Tb207Joule {
public:
    Tb207Joule(double I, const Tb207Conductor& conductor);
    [[nodiscard]] Term at(double Ts) const;

private:
    bool none_ = false;  // no current, or a conductor without Joule heating by this method
    double I2R_ = 0;     // W/m at 20 °C
    double a20_ = 0;
    SteadyCause failure_ = SteadyCause::None;
};

/// Solar heating: absorptivity, global radiation (W/m²), outer diameter (m).
[[nodiscard]] double ST_F02_CigreTB207_PS_steady(double alpha_s, double S, double D);

/// What the convective cooling reads of wind and conductor.
struct Tb207Flow {
    double V = 0;      // m/s, wind speed
    double delta = 0;  // degrees, folded angle between wind and conductor
    double y = 0;      // m, altitude
    double D = 0;      // m, outer diameter
    double d = 0;      // m, diameter of an outer wire
    double g = 0;      // m/s²
};

/// Convective cooling between the conductor at `Ts` and the air at `Ta` (°C); negative where the
/// conductor is the colder. Fails with `ReynoldsTooLarge` above Re 90 000 and with
/// `GrashofPrandtlTooLarge` above Gr·Pr 10^6.
[[nodiscard]] Term ST_F03_CigreTB207_PC_steady(const Tb207Flow& flow, double Ts, double Ta);

/// The same for many temperatures.
class Tb207Convection {
public:
    Tb207Convection(const Tb207Flow& flow, double Ta);
    [[nodiscard]] Term at(double Ts) const;

private:
    double V_, Ta_, g_;
    double flow_;              // m²/s, relative air density times wind speed times diameter
    double Rs_;                // roughness
    double D3_;                // m³
    double angle_factor_ = 0;  // of the wind as it blows; below 0.5 m/s of one at 45 degrees
};

/// Radiative cooling: outer diameter (m), emissivity, conductor and air temperature (°C);
/// negative where the conductor is the colder.
[[nodiscard]] double ST_F04_CigreTB207_PR_steady(double D, double epsilon, double Ts, double Ta);

/// The same for many temperatures.
class Tb207Radiation {
public:
    Tb207Radiation(double D, double epsilon, double Ta);
    [[nodiscard]] double at(double Ts) const;

private:
    double per_K4_;  // W/(m·K⁴)
    double air_K4_;
};

}  // namespace zel
