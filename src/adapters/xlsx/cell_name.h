#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/cell_name.h"
#include "platform/workbook.h"

namespace zel::xlsx {

// Of a worksheet, as the file format has it.
inline constexpr int largest_column = 16384;
inline constexpr int largest_row = 1048576;

struct CellPlace {
    int row;
    int column;
};

/// The place of "AH5", or of "$AH$5"; nothing for another text.
[[nodiscard]] std::optional<CellPlace> cell_place(std::string_view name);

/// The area of "A1:AH5", or of a single cell; nothing for another text.
[[nodiscard]] std::optional<CellArea> cell_area(std::string_view reference);

[[nodiscard]] std::string area_name(const CellArea& area);

}  // namespace zel::xlsx
