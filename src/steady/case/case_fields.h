#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "steady/case/calc_case.h"
#include "steady/case/state_change.h"

namespace zel {

/// A field of a case by its type.
using FieldRef = std::variant<std::string*, Entry*, std::int16_t*, bool*>;

/// A field of a case by its member, the key that ties all tables over fields together.
using FieldKey = std::variant<std::string CalcCase::*, Entry CalcCase::*, std::int16_t CalcCase::*,
                              bool CalcCase::*>;

struct CaseField {
    std::string_view name;
    FieldKey key;
    bool of_record;  // comes with the record of a conductor and is not typed into the form
    bool whole;      // a numeric field that holds whole numbers only
};

/// Every field of a case but the six changes of state, each with its name.
[[nodiscard]] const std::vector<CaseField>& case_fields();

/// The names of all fields, the numbered ones of the changes of state (`Z3_TEMP_db`) among them.
[[nodiscard]] std::vector<std::string> all_field_names();

/// The row of the field `name`, or null where it is none or one of a change of state.
[[nodiscard]] const CaseField* find_case_field(std::string_view name);

/// Whether the numeric field `key` holds whole numbers only, to which what is entered is rounded,
/// ties to even: the calendar and the clock. A null `key` has no row and holds any number.
[[nodiscard]] bool holds_whole_numbers(Entry CalcCase::*key);

/// Brings the doubles of `c` into line with the texts: a field without text is no input, and its
/// double, which may still be a former value, becomes that of a new case. (The changes of state are
/// left alone.)
void forget_emptied(CalcCase& c);

/// The field `name` of `c`; the changes of state have their numbered names here (`Z3_TEMP_db`).
/// Nothing where no field bears the name.
[[nodiscard]] std::optional<FieldRef> find_field(CalcCase& c, std::string_view name);

/// A cell of a change of state.
struct StateCellPlace {
    std::size_t row;  // 0 to 5
    StateCell cell;
};

/// The cell that bears the numbered name `name` (`Z3_TEMP_db`: row 2).
[[nodiscard]] std::optional<StateCellPlace> find_state_cell(std::string_view name);

/// The numbered name of a cell, or of the kind of row `row` (0 to 5) for a null `cell`.
[[nodiscard]] std::string name_of(std::size_t row, StateCell cell);

/// The name of a field of any type; empty where it is none of a case.
[[nodiscard]] std::string_view name_of(const FieldKey& key);

}  // namespace zel
