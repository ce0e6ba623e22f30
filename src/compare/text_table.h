#pragma once

#include <string>
#include <vector>

namespace zel {

/// Lines of cells below each other, for a terminal: the first column to the left, the others to the
/// right. A line of one cell is as wide as it is.
[[nodiscard]] std::string text_table(const std::vector<std::vector<std::string>>& lines);

}  // namespace zel
