#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "excel_batch/cell_limits.h"
#include "steady/case/case_fields.h"
#include "workflow/rules/steady_check.h"

// The input cells of the workbooks: which cell becomes which field of the case.

namespace zel::excel_batch {

/// How the text of a cell becomes the content of a field.
enum class CellKind : std::uint8_t {
    Number,  // a decimal number; in a field of whole numbers it is rounded, halves to even
    Whole,   // a whole number
};

using NumberCheck = std::optional<Box> (*)(double number, unsigned methods, LangId lang);

/// One input cell; a place is 0 where the cell is not on that sheet.
struct InputCell {
    FieldKey field;
    int fixed_row;                   // of `fixed_input`, in its column C
    int column;                      // of `variable_input_result`
    const Limits* limits = nullptr;  // null: every number
    CellKind kind = CellKind::Number;
    unsigned methods = steady_check::always;  // read where one of them is active
    bool required = true;                     // otherwise an empty cell leaves the field as it was
    NumberCheck check = nullptr;              // what the limits cannot tell
};

/// Place, weather and line of a steady calculation, up to the number of sub-conductors.
[[nodiscard]] std::span<const InputCell> line_cells();

/// Currents of a sub-conductor and of the bundle, one of which is given. In rows of the form with
/// conductor columns the two columns have changed places.
[[nodiscard]] const InputCell& single_current_cell();
[[nodiscard]] const InputCell& bundle_current_cell();

[[nodiscard]] const InputCell& temperature_cell();

/// The conductor of a steady calculation. In rows they stand in the form with conductor columns.
[[nodiscard]] std::span<const InputCell> conductor_cells();

/// The sheet `fixed_input` of a transient workbook, up to the percent values.
[[nodiscard]] std::span<const InputCell> transient_fixed_cells();

/// The row of a transient workbook, up to the conductor temperature.
[[nodiscard]] std::span<const InputCell> transient_row_cells();

}  // namespace zel::excel_batch
