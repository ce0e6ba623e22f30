#include "platform/workbook_design.h"

#include <utility>

namespace zel {

void add_cell(SheetDesign& sheet, int row, int column,
              std::variant<std::monostate, double, std::string> content, CellLook look) {
    DesignCell& cell = sheet.cells.emplace_back();
    cell.row = row;
    cell.column = column;
    cell.content = std::move(content);
    cell.look = look;
}

}  // namespace zel
