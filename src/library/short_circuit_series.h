#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "library/named_case.h"
#include "short_circuit/modul_iec865.h"

namespace zel::library {

/// A number of the result of a short circuit, by its name in documents ("I_th").
struct ShortCircuitNumber {
    std::string_view name;
    double (*of)(const ShortCircuitResult&);
};

[[nodiscard]] std::span<const ShortCircuitNumber> short_circuit_numbers();

struct NamedColumn {
    std::string name;  // of a field
    Strided<const double> numbers;
};

/// Short-circuit strength of `count` elements, by IEC 60865-1. `out` has a place for each of
/// `short_circuit_numbers`. Throws `InputError` where the values of the case cannot be taken.
void rate_short_circuit(const NamedCase& named, std::span<const NamedColumn> columns,
                        std::size_t count, unsigned threads, std::span<const Strided<double>> out,
                        const Strided<std::int32_t>& code);

/// The input of element `i` that is refused, and why; empty where none is. The texts of the checks
/// are German in every language.
[[nodiscard]] std::string why_no_short_circuit(const NamedCase& named,
                                               std::span<const NamedColumn> columns, std::size_t i);

}  // namespace zel::library
