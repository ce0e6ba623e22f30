#pragma once

#include <cstdint>

#include "platform/arithmetic_fault.h"

namespace zel {

/// Why a steady state by TB 207 or by the busbar method was not found.
enum class SteadyCause : std::uint8_t {
    None,
    // of one evaluation of the heat balance
    JouleBracketing,         // the effective current was not found within 0.1 %
    ReynoldsTooLarge,        // Re above 90 000
    GrashofPrandtlTooLarge,  // Gr·Pr above 10^6
    JouleFault,              // numeric faults of the four terms
    SolarFault,
    ConvectionFault,
    RadiationFault,
    BusbarFrequency,   // neither direct current nor near 50 or 60 Hz
    BusbarJouleFault,  // numeric faults of the four terms of the busbar method
    BusbarSolarFault,
    BusbarConvectionFault,
    BusbarRadiationFault,
    // of the search
    ModeUndefined,          // neither or both of current and temperature are given
    CurrentAllAbove,        // hotter without current than the temperature asked for
    CurrentAllBelow,        // above 99999 A
    CurrentNotReached,      // 50 iterations left a bracket of 1 A or more
    TemperatureAllAbove,    // above 500 °C
    TemperatureAllBelow,    // below -100 °C
    TemperatureNotReached,  // 50 iterations left 0.5 W/m or more
};

struct SteadyFailure {
    SteadyCause cause = SteadyCause::None;
    ArithmeticFault fault = ArithmeticFault::None;  // set for the numeric faults

    explicit operator bool() const { return cause != SteadyCause::None; }
    friend bool operator==(const SteadyFailure&, const SteadyFailure&) = default;
};

/// A term of the heat balance in W/m. It stands only where `failure` is `SteadyCause::None`.
struct Term {
    double value = 0;
    SteadyCause failure = SteadyCause::None;
};

}  // namespace zel
