#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "steady/case/case_fields.h"
#include "workflow/rules/rule_tables.h"
#include "workflow/rules/steady_check.h"

// The input cells of the workbooks: which cell becomes which field of the case, and its limits.

namespace zel::excel_batch {

inline constexpr Text limit_title = {" Fehlerhafte Eingabe", "Incorrect input value"};

/// How the text of a cell becomes the content of a field.
enum class CellKind : std::uint8_t {
    Number,  // a decimal number; in a field of whole numbers it is rounded, halves to even
    Whole,   // a whole number
};

/// The refusal of a number that depends on the active methods, bits as in `steady_check`.
using NumberCheck = std::optional<Box> (*)(double number, unsigned methods, LangId lang);

/// One input cell; a place is 0 where the cell is not on that sheet. Begins with its field and its
/// places, and is made more precise by what is called on it.
struct InputCell {
    FieldKey field;
    int fixed_row = 0;  // of `fixed_input`, in its column C
    int column = 0;     // of `variable_input_result`
    /// In the wordings {0} is "Maximal" or "Minimal" ("Maximum", "Minimum"), {1} the bound. Limits
    /// without a wording are those of a code: one outside them is no correct input at all.
    Limits limits{};
    CellKind kind = CellKind::Number;
    unsigned methods = steady_check::always;  // read where one of them is active
    bool required = true;                     // otherwise an empty cell leaves the field as it was
    NumberCheck check = nullptr;              // what the limits cannot tell

    template <class Value>
    [[nodiscard]] constexpr InputCell with(Value InputCell::*fact, Value value) const {
        InputCell made = *this;
        made.*fact = value;
        return made;
    }
    [[nodiscard]] constexpr InputCell within(const Limits& bounds) const {
        return with(&InputCell::limits, bounds);
    }
    [[nodiscard]] constexpr InputCell whole() const {
        return with(&InputCell::kind, CellKind::Whole);
    }
    [[nodiscard]] constexpr InputCell read_by(unsigned readers) const {
        return with(&InputCell::methods, readers);
    }
    [[nodiscard]] constexpr InputCell if_filled() const {
        return with(&InputCell::required, false);
    }
    [[nodiscard]] constexpr InputCell checked_by(NumberCheck refusal) const {
        return with(&InputCell::check, refusal);
    }
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

/// The preloads of a transient workbook in percent of the PATL.
inline constexpr Text percent_title = {"PATL EingabeProzent", "PATL EingabeProzent"};
extern const Limits percent_limits;

/// The time of the TATL, s, as the array form and as the form cell by cell tell it.
extern const Limits time_limits;
extern const Limits time_limits_by_cell;

/// The cell of `field` in a table that has it.
[[nodiscard]] const InputCell& cell_of(std::span<const InputCell> cells, const FieldKey& field);

}  // namespace zel::excel_batch
