#pragma once

#include <span>
#include <string_view>

#include "short_circuit/short_circuit_case.h"

namespace zel {

/// How a field gets its content.
enum class KsSort : std::uint8_t {
    Text,    // free text
    Box,     // a typed number, by its entry rule
    List,    // a choice from a list
    Record,  // comes with the record of a conductor
};

struct KsField {
    std::string_view name;
    KsKey key;
    KsSort sort;
    std::int16_t last_index = 0;  // of a list, whose indexes begin at 0
};

/// Every field, in the order in which a form is filled in; those of the record come last.
[[nodiscard]] std::span<const KsField> short_circuit_fields();

/// The field `name`, or null. Upper and lower case are alike, as in the names of columns.
[[nodiscard]] const KsField* find_short_circuit_field(std::string_view name);

/// The name of the field `key`.
[[nodiscard]] std::string_view name_of(KsKey key);

}  // namespace zel
