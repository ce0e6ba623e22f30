#pragma once

#include <cstdint>

#include "tb601_transient/tb601/tb601_cause.h"
#include "tb601_transient/tb601/tb601_params.h"

namespace zel {

/// The radial drop of a conductor for many states: the share of the core is worked out once.
class Tb601RadialDrop {
public:
    explicit Tb601RadialDrop(const TB601Params& p);

    /// The drop from core to surface, K, at the mean temperature `T` and a heating of `P` W/m.
    [[nodiscard]] double at(double T, double P) const;

private:
    std::int16_t type_;
    double Tknee_, Lambda1_, Lambda2_;
    double A_ = 0;  // of a composite conductor
};

/// Surface and core temperature, half of the drop `dT` below and above the mean temperature. Below
/// 0 °C the surface is given the mean temperature while the core keeps its half. Changes nothing
/// where it fails.
Tb601Failure set_radial_temperatures(TB601State& state, double dT,
                                     const ArithmeticScope& arithmetic);

/// Surface and core temperature, half a radial drop below and above the mean temperature `T`, where
/// the conductor is heated by `P` W/m, its Joule heating at the `I` and `T` of the state (Cigre
/// TB 601, 2014). Below 0 °C the surface is given the mean temperature while the core keeps its
/// half of the drop. Changes nothing where it fails.
Tb601Failure ST_S09_CigreTB601_Tsurface_conductor_temperature_distribution(
    const TB601Params& params, TB601State& state, double P, const ArithmeticScope& arithmetic);

}  // namespace zel
