#pragma once

#include <array>
#include <string>

#include "steady/steady_cause.h"

// Names of failures in the data of tests.

namespace zel {

inline std::string name_of(ArithmeticFault fault) {
    switch (fault) {
        case ArithmeticFault::None: return "";
        case ArithmeticFault::InvalidArgument: return "InvalidArgument";
        case ArithmeticFault::Overflow: return "Overflow";
        case ArithmeticFault::DivisionByZero: return "DivisionByZero";
    }
    return "?";
}

inline constexpr std::array steady_cause_names = {"",
                                                  "JouleBracketing",
                                                  "ReynoldsTooLarge",
                                                  "GrashofPrandtlTooLarge",
                                                  "JouleFault",
                                                  "SolarFault",
                                                  "ConvectionFault",
                                                  "RadiationFault",
                                                  "BusbarFrequency",
                                                  "BusbarJouleFault",
                                                  "BusbarSolarFault",
                                                  "BusbarConvectionFault",
                                                  "BusbarRadiationFault",
                                                  "ModeUndefined",
                                                  "CurrentAllAbove",
                                                  "CurrentAllBelow",
                                                  "CurrentNotReached",
                                                  "TemperatureAllAbove",
                                                  "TemperatureAllBelow",
                                                  "TemperatureNotReached"};

inline std::string name_of(SteadyCause cause) {
    return steady_cause_names.at(static_cast<std::size_t>(cause));
}

/// The cause, and the kind of a numeric fault: "JouleFault: Overflow".
inline std::string name_of(const SteadyFailure& failure) {
    if (failure.fault == ArithmeticFault::None) return name_of(failure.cause);
    return name_of(failure.cause) + ": " + name_of(failure.fault);
}

}  // namespace zel
