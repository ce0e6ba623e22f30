#pragma once

#include <string>
#include <vector>

#include "platform/workbook_design.h"

namespace zel {

/// Lines of cells below each other, for a terminal: the first column to the left, the others to the
/// right. A line of one cell is as wide as it is.
[[nodiscard]] std::string text_table(const std::vector<std::vector<std::string>>& lines);

/// A cell of a sheet, set field by field: g++ 12 takes the aggregate for partly uninitialised.
void add_cell(SheetDesign& sheet, int row, int column,
              std::variant<std::monostate, double, std::string> content,
              CellLook look = CellLook::Plain);

}  // namespace zel
