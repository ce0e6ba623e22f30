#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "steady/case/field.h"
#include "steady/case/state_change.h"

namespace zel {

using CaseField = Field<CalcCase>;
using FieldKey = CaseField::Key;

/// Every field of a case but the six changes of state, in the order of the columns.
[[nodiscard]] std::span<const CaseField> case_fields();

/// The fields of one change of state. In a case they bear the number of their row before their
/// name: `Z3_TEMP_db`.
[[nodiscard]] std::span<const Field<StateChange>> state_fields();

/// All fields of `c`, those of the changes of state among them.
[[nodiscard]] std::vector<FieldOf> fields_of(CalcCase& c);

/// The field `name` of `c` (also `Z3_TEMP_db`); nothing where no field bears the name.
[[nodiscard]] std::optional<FieldOf> find_field(CalcCase& c, std::string_view name);

/// The row of the field `name`, or null where it is none or one of a change of state.
[[nodiscard]] const CaseField* find_case_field(std::string_view name);

/// The same by the field's name or its English one.
[[nodiscard]] const CaseField* find_by_any_name(std::string_view name);

/// The row of a field.
[[nodiscard]] const CaseField& field_of(const FieldKey& key);
[[nodiscard]] inline std::string_view name_of(const FieldKey& key) { return field_of(key).name; }

/// Brings the doubles of `c` into line with the texts: a field without text is no input, and its
/// double, which may still be a former value, becomes that of a new case. (The changes of state are
/// left alone.)
void forget_emptied(CalcCase& c);

/// Writes every number of `c` that was typed with the separator `from` with the separator `to`. A
/// text that is no number stays as it is; the doubles do not change.
void respell(CalcCase& c, DecimalSeparator from, DecimalSeparator to);

/// A cell of a change of state.
struct StateCellPlace {
    std::size_t row;  // 0 to 5
    StateCell cell;
};

/// The cell that bears the numbered name `name` (`Z3_TEMP_db`: row 2).
[[nodiscard]] std::optional<StateCellPlace> find_state_cell(std::string_view name);

/// The numbered name of a cell, or of the kind of row `row` (0 to 5) for a null `cell`.
[[nodiscard]] std::string name_of(std::size_t row, StateCell cell);

}  // namespace zel
