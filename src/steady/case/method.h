#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "steady/case/calc_case.h"

// The methods of calculation, as a case selects them.

namespace zel {

/// In the order of the result lines.
enum class Method : std::uint8_t { TB601, TB207, TBB, Webs, Kirn };

inline constexpr std::array all_methods = {Method::TB601, Method::TB207, Method::TBB, Method::Webs,
                                           Method::Kirn};

/// "TB601", "TB207", "TBB", "Webs", "Kirn".
[[nodiscard]] std::string_view key_of(Method method);

/// The name of the method in lists: "Cigre TB 207".
[[nodiscard]] std::string_view name_of(Method method);

/// The flag of the case that selects `method`.
[[nodiscard]] std::int16_t CalcCase::*flag_of(Method method);

[[nodiscard]] inline bool is_selected(const CalcCase& c, Method method) {
    return c.*flag_of(method) == 1;
}

/// A set of methods, one bit each.
using MethodSet = unsigned;
template <class... M>
constexpr MethodSet methods(M... method) {
    return ((1U << static_cast<unsigned>(method)) | ...);
}
inline constexpr MethodSet every_method = ~0U;

}  // namespace zel
