#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Names that somebody may have meant.

namespace zel {

/// The fewest letters to put in, take out or replace that make `a` of `b`.
[[nodiscard]] std::size_t letters_apart(std::string_view a, std::string_view b);

/// Those of `names` that are near to `wanted`, the nearest first, at most `most`: they hold it, or
/// at most half of its letters differ. Where some hold it, those that are only alike are left out.
[[nodiscard]] std::vector<std::string> names_near(std::string_view wanted,
                                                  const std::vector<std::string>& names,
                                                  std::size_t most);

}  // namespace zel
