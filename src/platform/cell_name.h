#pragma once

#include <string>

namespace zel {

/// "AH" of 34.
[[nodiscard]] std::string column_letters(int column);

/// "AH5": how a spreadsheet program calls a cell. Rows and columns count from 1.
[[nodiscard]] std::string cell_name(int row, int column);

}  // namespace zel
