#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "short_circuit/short_circuit_case.h"

namespace zel {

using ShortCircuitField = Field<ShortCircuitCase>;

/// Every field, in the order in which a form is filled in; those of the record come last. The
/// labels are German in every language, as the texts of the checks that name them are.
[[nodiscard]] std::span<const ShortCircuitField> short_circuit_fields();

/// All fields of `c`.
[[nodiscard]] std::vector<FieldOf> fields_of(ShortCircuitCase& c);

/// The field `name`, or null. Upper and lower case are alike, as in the names of columns.
[[nodiscard]] const ShortCircuitField* find_short_circuit_field(std::string_view name);
/// The same by its English name too, which programs use.
[[nodiscard]] const ShortCircuitField* find_short_circuit_by_any_name(std::string_view name);

/// The row of a field.
[[nodiscard]] const ShortCircuitField& field_of(const ShortCircuitKey& key);
[[nodiscard]] inline std::string_view name_of(const ShortCircuitKey& key) {
    return field_of(key).name;
}

}  // namespace zel
