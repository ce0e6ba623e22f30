#pragma once

#include <cstdint>
#include <optional>

// The parts of the heat balance by Webs (1963), each a function of numbers. The air data are in the
// technical units of the source (viscosity in kp·s/m², conductivity in kcal/(m·h·K)), which is why
// g stands in the Grashof and Reynolds numbers and a factor 1.163 in the convection.

namespace zel {

/// AC over DC resistance by the skin effect: frequency (Hz), conductivity (m/(ohm·mm²)) and
/// outer diameter (mm). Formula 1 is that of ABB, any other `Formel_merker1` that of Kiessling.
/// Formula 1 at conductivity 0 is a numeric fault.
[[nodiscard]] double webs_skin_factor(std::int16_t Formel_merker1, double f, double kappa,
                                      double Dmm);

/// Global radiation (W/m²) at the altitude `H` (m).
[[nodiscard]] double webs_radiation_at_altitude(double S, double H);

/// Angle in radians between conductor and sun, of the sun height `hs` and the conductor azimuth `s`
/// alone; 0 at night. The azimuth of the sun plays no part.
[[nodiscard]] double webs_sun_angle(double hs, double s);

/// Radiative cooling in W/m: a quarter of it to a sky of 217 K. Temperatures in K.
[[nodiscard]] double webs_radiative_cooling(double D, double epsilon, double TK, double TaK);

/// Dynamic viscosity at `t` (°C), of the polynomial and of the forced branch, which is straight
/// below 0 °C.
[[nodiscard]] double webs_viscosity(double t);
[[nodiscard]] double webs_viscosity_in_wind(double t);
/// Thermal conductivity at `t` (°C).
[[nodiscard]] double webs_conductivity(double t);
/// Expansion coefficient in 1/K at `t` (°C).
[[nodiscard]] double webs_expansion(double t);
/// Air pressure in Pa at the altitude `H` (m).
[[nodiscard]] double webs_pressure(double H, double g);
/// Air density in kg/m³ at `t` (°C) and the pressure `p` (Pa).
[[nodiscard]] double webs_density(double t, double p);

/// Nusselt number of free convection. Above a Grashof number of 10^7 its accuracy is in doubt.
[[nodiscard]] double webs_nusselt_free(double Gr);

/// Nusselt number of forced convection; nothing below a Reynolds number of 0.1.
[[nodiscard]] std::optional<double> webs_nusselt_forced(double Re);

/// Convective cooling in W/m: conductivity in technical units, temperature difference in K.
[[nodiscard]] double webs_convective_cooling(double lambda, double difference, double Nu);

}  // namespace zel
