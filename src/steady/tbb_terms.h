#pragma once

#include "steady/steady_cause.h"

// The four terms of the heat balance per metre of a tubular busbar (RWTH Aachen / Puffer, 2018),
// SI units where not told. Each is one evaluation of numbers.

namespace zel {

/// DC resistance at 20 °C in ohm/m of a tube: resistivity (ohm·mm²/km), outer and inner diameter
/// (mm). A tube without wall is a numeric fault.
[[nodiscard]] double tube_resistance(double rho, double Da, double Di);

/// Joule heating at the current `I` (A), the frequency `f` (Hz) and the tube temperature `Ts` (°C):
/// DC resistance at 20 °C (ohm/m) with its temperature coefficient (1/K) and the allowance for skin
/// effect. Fails with `BusbarFrequency` outside 0 to 1 Hz and the open band from 49 to 61 Hz.
[[nodiscard]] Term ST_F01_TBB_PJ_steady(double I, double f, double R, double a20, double Ts);

/// The same for many temperatures: what the temperature does not change is worked out once, in the
/// order of the formula, so that every result is the same to the last bit.
class BusbarJoule {
public:
    BusbarJoule(double I, double f, double R, double a20);
    [[nodiscard]] Term at(double Ts) const;

private:
    double I2R_ = 0;  // W/m at 20 °C
    double a20_ = 0;
    SteadyCause failure_ = SteadyCause::None;
};

/// Solar heating: absorptivity, global radiation (W/m²), outer diameter (m).
[[nodiscard]] double ST_F02_CigreTBB_PS_steady(double alpha_s, double S, double D);

/// What the convective cooling reads of wind and tube.
struct BusbarFlow {
    double V = 0;      // m/s, wind speed
    double delta = 0;  // degrees, folded angle between wind and tube
    double H = 0;      // m, altitude
    double D = 0;      // m, outer diameter
    double g = 0;      // m/s²
};

/// Convective cooling between the tube at `Ts` and the air at `Ta` (°C). Below 0.5 m/s a tube that
/// is colder than the air is a numeric fault.
[[nodiscard]] double ST_F03_TBB_PC_steady(const BusbarFlow& flow, double Ts, double Ta);

/// The same for many temperatures.
class BusbarConvection {
public:
    BusbarConvection(const BusbarFlow& flow, double Ta);
    [[nodiscard]] double at(double Ts) const;

private:
    struct Film;
    [[nodiscard]] Film film(double Tf) const;
    [[nodiscard]] double natural_cooling(const Film& air, double Ts) const;
    [[nodiscard]] double forced_cooling(const Film& air, double Ts) const;

    double V_, Ta_, g_;
    double density_;           // kg/m³ at this altitude and 0 °C
    double DV_;                // m²/s, diameter times wind speed
    double D3_;                // m³
    double beta_ = 0;          // 1/K, expansion coefficient of the surrounding air, not of the film
    double angle_factor_ = 0;  // how much less an oblique wind cools than one across
};

/// Radiative cooling: outer diameter (m), emissivity, tube and air temperature (°C); negative where
/// the tube is the colder.
[[nodiscard]] double ST_F04_TBB_PR_steady(double D, double epsilon, double Ts, double Ta);

}  // namespace zel
