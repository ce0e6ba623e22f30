#pragma once

#include "fakes/short_circuit_cases.h"
#include "fakes/test_data.h"
#include "short_circuit/short_circuit_fields.h"

// Cases of the short-circuit area by rows of tests/data/.

namespace zel {

inline NumberKey box_of(const std::string& name) {
    return std::get<NumberKey>(find_short_circuit_field(name)->key);
}

/// Types the texts and chooses the numbers of the row's "set".
inline void change(ShortCircuitTyping& typing, const nlohmann::json& row) {
    for (const auto& [name, value] : row["set"].items())
        if (value.is_string())
            typing.type(box_of(name), value);
        else
            typing.choose(std::get<ListKey>(find_short_circuit_field(name)->key), value);
}

/// The case that the row's "base" names.
inline ShortCircuitTyping base_of(const nlohmann::json& row) {
    if (row["base"] == "copper_far") return {copper_far()};
    return {row["base"] == "aluminium_near" ? aluminium_near() : limited_equipment()};
}

}  // namespace zel
