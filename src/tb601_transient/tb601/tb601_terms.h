#pragma once

#include <cstdint>

#include "tb601_transient/tb601/tb601_cause.h"
#include "tb601_transient/tb601/tb601_params.h"

// Solar heating, convective and radiative cooling per metre of one conductor by Cigre TB 601
// (2014), SI units throughout. Both coolings start from the surface of the conductor.

namespace zel {

/// Solar heating, W/m. The global radiation enters as it stands.
[[nodiscard]] double ST_F02_CigreTB601_PS_steady(const TB601Params& params);

/// Convective cooling, W/m: the larger of forced and natural convection, never both. Fails with
/// `SmoothReynolds`, `StrandedReynolds`, `RoughReynolds` or `GrashofPrandtlTooLarge`; faults are
/// left to the caller. Speeds in m/s, temperatures in °C, lengths in m, Delta in degrees.
[[nodiscard]] Tb601Term ST_F03_CigreTB601_PC_steady(double V, double Delta, double TSurface,
                                                    double Ta, double Y, double D, double DWire,
                                                    double G, std::int16_t ConductorType,
                                                    std::int16_t ConductorShape);

/// Radiative cooling at `TSurface` of the state, W/m; negative where the conductor is the colder.
[[nodiscard]] double ST_F04_CigreTB601_PR_steady(const TB601Params& params,
                                                 const TB601State& state);

/// Air at the film temperature and altitude.
struct FilmAir {
    double lambda = 0;  // W/(m·K), thermal conductivity
    double mu = 0;      // kg/(m·s), dynamic viscosity
    double nu = 0;      // m²/s, kinematic viscosity
    double Pr = 0;      // Prandtl number
};

/// What the convective cooling reads, as the arguments of `ST_F03_CigreTB601_PC_steady`.
struct Tb601Flow {
    double V, Delta, TSurface, Ta, Y, D, DWire, G;
    std::int16_t ConductorType, ConductorShape;
};

/// The steps of the convective cooling. After a refusal the later ones are 0.
struct Tb601Convection {
    FilmAir air;
    double Re = 0;       // Reynolds number
    double Gr = 0;       // Grashof number, by magnitude
    double Nu90 = 0;     // Nusselt number of a wind across
    double Nu = 0;       // of the wind as it blows
    double Pforced = 0;  // W/m
    double Pnat = 0;     // W/m
    Tb601Cause refusal = Tb601Cause::None;
};

[[nodiscard]] Tb601Convection tb601_convection(const Tb601Flow& flow);

/// The cooling that these steps come to.
[[nodiscard]] Tb601Term convective_cooling(const Tb601Convection& c);

// The same for many temperatures of the surface: what these do not change is worked out once, in
// the order of the formula, so that every result is the same to the last bit.

enum class Tb601Surface : std::uint8_t { Smooth, Stranded, Unknown };

class Tb601Cooling {
public:
    /// `TSurface` of the flow is not read.
    explicit Tb601Cooling(const Tb601Flow& flow);
    [[nodiscard]] Tb601Convection at(double TSurface) const;
    /// What these steps come to.
    [[nodiscard]] Tb601Term loss_at(double TSurface) const;

private:
    [[nodiscard]] FilmAir film_air(double Tf) const;

    double V_, Ta_, G_;
    Tb601Surface surface_;
    double density_;           // kg/m³ at this altitude and 0 °C
    double DV_;                // m²/s, diameter times wind speed
    double D3_;                // m³
    double Rf_;                // roughness
    double angle_factor_ = 0;  // by which an oblique wind cools less than one across
};

class Tb601Radiation {
public:
    explicit Tb601Radiation(const TB601Params& params);
    [[nodiscard]] double at(double TSurface) const;

private:
    double per_K4_;  // W/(m·K⁴)
    double air_K4_;
};

}  // namespace zel
