#pragma once

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "fakes/test_data.h"
#include "platform/arithmetic_fault.h"
#include "steady/steady_cause.h"

// Formulas tested by rows of a data file: the arguments of each in their order (an array for one
// that is a record), then its value. The value of a failure is its name, that of nothing is null.

namespace zel {

using Formula = nlohmann::json (*)(const nlohmann::json& row);

inline nlohmann::json value_of(const Term& term) {
    if (term.failure != SteadyCause::None) return name_of(term.failure);
    return term.value;
}

template <class Value>
nlohmann::json value_of(const std::optional<Value>& value) {
    return value ? nlohmann::json(*value) : nlohmann::json(nullptr);
}

template <class Value>
nlohmann::json value_of(const Value& value) {
    return value;
}

/// The argument that `json` holds; a text lives as long as its row.
template <class Argument>
Argument argument_of(const nlohmann::json& json) {
    if constexpr (std::is_same_v<Argument, std::string_view>)
        return json.get_ref<const std::string&>();
    else
        return json.get<Argument>();
}

/// The value of `function` for the arguments of `row`, or the numeric fault that it meets.
template <class Result, class... Arguments>
nlohmann::json evaluated(Result (*function)(Arguments...), const nlohmann::json& row) {
    const auto call = [&]<std::size_t... i>(std::index_sequence<i...>)->nlohmann::json {
        const ArithmeticScope arithmetic;
        nlohmann::json value =
            value_of(function(argument_of<std::remove_cvref_t<Arguments>>(row[i])...));
        if (arithmetic.fault() != ArithmeticFault::None) return name_of(arithmetic.fault());
        return value;
    };
    return call(std::index_sequence_for<Arguments...>());
}

/// The row of a function in a table of formulas.
#define ZEL_FORMULA(function)                                                         \
    {                                                                                 \
#function, [](const nlohmann::json& row) { return evaluated(function, row); } \
    }

/// Expects of every row of tests/data/`data`.json what stands at its end, and a row of every
/// formula.
inline void expect_formulas(const std::string& data, const std::map<std::string, Formula>& all) {
    std::map<std::string, Formula> left = all;
    for (const auto& group : test_data(data)) {
        const std::string name = group.at("formula");
        left.erase(name);
        for (const auto& row : group.at("rows"))
            expect_part(row.back(), all.at(name)(row), closeness(group), name + row.dump());
    }
    EXPECT_TRUE(left.empty()) << left.begin()->first;
}

}  // namespace zel
