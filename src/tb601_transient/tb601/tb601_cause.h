#pragma once

#include <cstdint>

#include "platform/arithmetic_fault.h"

namespace zel {

/// Why an evaluation or a search by Cigre TB 601 gave no result.
enum class Tb601Cause : std::uint8_t {
    None,
    // of one evaluation of the heat balance
    Fault,                   // a floating-point fault, in the procedure named beside it
    SingleLayer,             // steel-cored with one layer, at alternating current
    SmoothReynolds,          // smooth, Re above 200 000
    StrandedReynolds,        // stranded, roughness up to 0.05, Re above 50 000
    RoughReynolds,           // stranded, roughness above 0.05, Re above 50 000
    GrashofPrandtlTooLarge,  // Gr·Pr above 10^12
    // of the search
    ModeUndefined,          // neither or both of current and temperature are given
    CurrentAllAbove,        // 001: hotter without current than the temperature asked for
    CurrentAllBelow,        // 002: above 99999 A
    CurrentNotReached,      // 003: 50 rounds left a bracket of 1 A or more
    TemperatureAllAbove,    // 004: above 500 °C
    TemperatureAllBelow,    // 005: below the ambient temperature
    TemperatureNotReached,  // 006: 50 rounds left 0.1 W/m or more
};

/// The procedures in which a floating-point fault can arise.
enum class Tb601Procedure : std::uint8_t {
    SteadyState,
    JouleHeating,
    Resistance,
    SkinEffect,
    MagneticHeating,
    SolarHeating,
    SurfaceTemperature,
    Convection,
    Radiation,
};

struct Tb601Failure {
    Tb601Cause cause = Tb601Cause::None;
    Tb601Procedure procedure = Tb601Procedure::SteadyState;  // set for a fault
    ArithmeticFault fault = ArithmeticFault::None;           // set for a fault

    explicit operator bool() const { return cause != Tb601Cause::None; }
    friend bool operator==(const Tb601Failure&, const Tb601Failure&) = default;
};

/// A heat term in W/m. It stands only where there is no failure.
struct Tb601Term {
    double value = 0;
    Tb601Failure failure;
};

/// The fault that `arithmetic` has met by now, charged to `procedure`.
[[nodiscard]] inline Tb601Failure fault_in(Tb601Procedure procedure,
                                           const ArithmeticScope& arithmetic) {
    const ArithmeticFault fault = arithmetic.fault();
    if (fault == ArithmeticFault::None) return {};
    return {Tb601Cause::Fault, procedure, fault};
}

}  // namespace zel
