#pragma once

#include <string_view>

#include "platform/arithmetic_fault.h"

// What the methods without a status text, Webs and Kirn, hand back.

namespace zel {

/// A numeric fault that ended a method, with the place that the error text names.
struct MethodFault {
    std::string_view module;
    std::string_view procedure;
    ArithmeticFault fault = ArithmeticFault::None;

    explicit operator bool() const { return fault != ArithmeticFault::None; }
};

/// Watches the arithmetic of a method. The first fault that a question finds is the one that is
/// told: what comes of an infinite quotient later is no news.
class FaultWatch {
public:
    [[nodiscard]] ArithmeticFault fault() {
        if (first_ == ArithmeticFault::None) first_ = arithmetic_.fault();
        return first_;
    }
    [[nodiscard]] bool sound() { return fault() == ArithmeticFault::None; }

private:
    const ArithmeticScope arithmetic_;
    ArithmeticFault first_ = ArithmeticFault::None;
};

/// A current in A; it stands only where there is no fault.
struct CurrentResult {
    double current = 0;
    MethodFault fault;
};

/// A temperature in °C and the current in A that belongs to it.
struct TemperatureResult {
    double temperature = 0;
    double current = 0;
    MethodFault fault;
};

}  // namespace zel
