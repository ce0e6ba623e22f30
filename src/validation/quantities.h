#pragma once

#include <optional>
#include <string_view>
#include <variant>

#include "series/series_run.h"
#include "short_circuit/short_circuit_run.h"
#include "workflow/run/steady_run.h"
#include "workflow/run/transient.h"

// What is told of a calculation and compared: each quantity by its name in the tables.

namespace zel {

/// A steady state that a method has found.
struct SteadyFound {
    CalcCase c;
    Method method = Method::TB207;
    double angle = 0;  // degrees, folded
    double I = 0;      // A, of one sub-conductor
    double T = 0;      // °C
    HeatTerms terms;   // W/m
    Tb601Details tb601;
};

/// The first row of a transient.
struct TransientFound {
    TransientRow row;
    std::optional<CurrentCheck> check;
};

struct ShortCircuitFound {
    ShortCircuitCase c;
    ShortCircuitResult result;
};

struct Quantity {
    std::string_view key;
    Text name;
    std::string_view unit;
    /// Of a steady state, of a row of a transient of the kind beside it, or of a short circuit. A
    /// number that the calculation does not have is none.
    using OfSteady = std::optional<double> (*)(const SteadyFound&);
    struct OfTransient {
        TransientKind kind;
        std::optional<double> (*of)(const TransientFound&);
    };
    using OfShortCircuit = std::optional<double> (*)(const ShortCircuitFound&);
    std::variant<OfSteady, OfTransient, OfShortCircuit> of;
};

/// The row of a quantity, or null.
[[nodiscard]] const Quantity* find_quantity(std::string_view key);

}  // namespace zel
