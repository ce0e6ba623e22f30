#pragma once

#include <span>
#include <string_view>
#include <variant>

#include "reports/print_text.h"
#include "steady/case/calc_case.h"

// The rows of the steady reports: what they print of a case, in its order.

namespace zel {

/// What a row prints that is no single field, or is none of the case.
enum class PrintedValue : std::uint8_t {
    DateAndTime,
    CurrentOfOne,  // the two currents and the temperature: given or found
    CurrentOfBundle,
    Temperature,
    BundleName,
    ConductorType,
    ConductorShape,
    ResistanceMode,  // a line without a value
};

using PrintedSource = std::variant<Entry CalcCase::*, std::int16_t CalcCase::*,
                                   std::string CalcCase::*, PrintedValue>;

struct PrintedRow {
    PrintText label;
    PrintedSource source;
    std::string_view mask = {};
    std::string_view unit = {};
};

/// Rows under a head.
struct PrintedSection {
    PrintText head;
    std::span<const PrintedRow> rows;
    int columns;
};

/// Sheet 1 of the method report, and of the busbar report.
[[nodiscard]] std::span<const PrintedSection> method_inputs();
[[nodiscard]] std::span<const PrintedSection> busbar_inputs();
/// Sheet 2: conductor and layer; the core of a composite conductor; the radial conductivities.
[[nodiscard]] std::span<const PrintedSection> method_conductor();
[[nodiscard]] const PrintedSection& method_core();
[[nodiscard]] const PrintedSection& method_radial();
[[nodiscard]] std::span<const PrintedSection> busbar_conductor();

/// The texts of `conductor_type_db` and `conductor_shape_db`, by their number.
[[nodiscard]] const PrintText& printed_type(std::int16_t conductor_type);
[[nodiscard]] const PrintText& printed_shape(std::int16_t conductor_shape);

}  // namespace zel
