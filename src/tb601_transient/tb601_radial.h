#pragma once

#include "tb601_transient/tb601_cause.h"
#include "tb601_transient/tb601_params.h"

namespace zel {

/// Surface and core temperature, half a radial drop below and above the mean temperature `T`, where
/// the conductor is heated by `P` W/m, its Joule heating at the `I` and `T` of the state (Cigre
/// TB 601, 2014). Below 0 °C the surface is given the mean temperature while the core keeps its
/// half of the drop. Changes nothing where it fails.
Tb601Failure ST_S09_CigreTB601_Tsurface_conductor_temperature_distribution(
    const TB601Params& params, TB601State& state, double P, const ArithmeticScope& arithmetic);

}  // namespace zel
