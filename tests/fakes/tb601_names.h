#pragma once

#include "fakes/names.h"
#include "tb601_transient/tb601/tb601_cause.h"

namespace zel {

inline constexpr std::array tb601_cause_names = {"",
                                                 "Fault",
                                                 "SingleLayer",
                                                 "SmoothReynolds",
                                                 "StrandedReynolds",
                                                 "RoughReynolds",
                                                 "GrashofPrandtlTooLarge",
                                                 "ModeUndefined",
                                                 "CurrentAllAbove",
                                                 "CurrentAllBelow",
                                                 "CurrentNotReached",
                                                 "TemperatureAllAbove",
                                                 "TemperatureAllBelow",
                                                 "TemperatureNotReached"};

inline constexpr std::array tb601_procedure_names = {
    "SteadyState",  "JouleHeating",       "Resistance", "SkinEffect", "MagneticHeating",
    "SolarHeating", "SurfaceTemperature", "Convection", "Radiation"};

/// The cause, or of a fault its procedure and kind: "Convection: Overflow".
inline std::string name_of(const Tb601Failure& failure) {
    if (failure.cause != Tb601Cause::Fault)
        return tb601_cause_names.at(static_cast<std::size_t>(failure.cause));
    return std::string(tb601_procedure_names.at(static_cast<std::size_t>(failure.procedure))) +
           ": " + name_of(failure.fault);
}

}  // namespace zel
