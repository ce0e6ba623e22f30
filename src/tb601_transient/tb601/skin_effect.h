#pragma once

#include "tb601_transient/tb601/tb601_params.h"

// The skin effect by Cigre TB 601 (2014): the AC resistance of a solid round conductor by the
// Bessel series of complex numbers, each cut after its fourth term.

namespace zel {

/// The diameter (m) of the solid conductor that has the same skin effect, held in 32 bits; 0 for an
/// unknown type.
[[nodiscard]] double equivalent_diameter(const TB601Params& params);

/// AC resistance (ohm/m, held in 32 bits) of a solid conductor of the diameter `De` (m) and the
/// resistivity `Rho` (ohm·m) at `F` (Hz). Gives the bits of `series_resistance` in a tenth of its
/// time (docs/numerics.md).
[[nodiscard]] double solid_conductor_resistance(double De, double Rho, double F);

/// The same by the series as they are told, in complex numbers. Numeric faults are left to the
/// caller.
[[nodiscard]] double series_resistance(double De, double Rho, double F);

}  // namespace zel
