#pragma once

#include "tb601_transient/tb601/tb601_cause.h"
#include "tb601_transient/tb601/tb601_params.h"

// Joule heating per metre of one conductor by Cigre TB 601 (2014): DC resistance with skin effect
// and magnetic heating, or a table of AC resistances.

namespace zel {

/// What the Joule heating takes from the temperature alone, remembered for the next current at the
/// same one.
struct Tb601WarmResistance {
    bool known = false;
    double T = 0;     // °C
    double R = 0;     // ohm/m, DC, or AC by the table
    double skin = 0;  // ratio of AC to DC resistance
};

/// Joule heating at `I` and `T` of the state, W/m; sets `KSkin`, `KSkinRaw` and `KMag`. 0 for a
/// frequency that is negative, exactly 0.5, or 61 Hz and above. Fails with `SingleLayer`, and with
/// a fault charged to the procedure that met it.
[[nodiscard]] Tb601Term ST_F01_CigreTB601_PJ_steady(const TB601Params& params, TB601State& state,
                                                    const ArithmeticScope& arithmetic);

/// The same, bit for bit, with what `warm` remembers of these `params` at the last temperature.
[[nodiscard]] Tb601Term ST_F01_CigreTB601_PJ_steady(const TB601Params& params, TB601State& state,
                                                    const ArithmeticScope& arithmetic,
                                                    Tb601WarmResistance& warm);

/// The AC resistance (ohm/m) at `T` (°C) on the straight line through two neighbouring points,
/// the outermost ones beyond the ends.
[[nodiscard]] float ST_F01_CigreTB601_Resistance(const ResistanceTable& table, double T);

/// The number of points before the table ends: at a temperature of 0, or one that does not rise.
/// Two points always count, since there is no line through fewer.
[[nodiscard]] std::size_t points_of(const ResistanceTable& table);

/// The ratio of AC to DC resistance at `T` of the state by the first four terms of the Bessel
/// series, those of a solid round conductor, less the share of core or bore. 0 for an unknown type.
[[nodiscard]] double ST_F06_CigreTB601_skin_effect_factor_601(const TB601Params& params,
                                                              const TB601State& state);

/// Magnetic heating of three layers over a steel core, by the current density. It is 0 at exactly
/// 1.5 A/mm².
[[nodiscard]] double ST_F08_CigreTB601_magnetic_heating_factor_einfach(const TB601Params& params,
                                                                       const TB601State& state);

}  // namespace zel
