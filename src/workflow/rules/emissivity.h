#pragma once

#include <optional>

namespace zel {

/// The emissivity of a bare conductor that has hung in the span for `age` years:
/// 0.3 + 0.6 · age / (1 + age), from 0.3 when new towards 0.9. Not valid for coated conductors.
/// Nothing for a negative age.
[[nodiscard]] std::optional<double> emissivity_from_age(double age);

}  // namespace zel
