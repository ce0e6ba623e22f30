#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "adapters/xlsx/xml_tree.h"

namespace zel::xlsx {

/// A cell of a row with the place of its element in the text of the row.
struct SheetCell {
    int column = 0;
    pugi::xml_node node;
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// One row of a worksheet, taken apart.
class SheetRow {
public:
    /// `element` is the text of the element of row `number`. Throws `WorkbookError` (`Damaged`).
    void parse(int number, std::string_view element);

    [[nodiscard]] std::string_view text() const { return text_; }
    [[nodiscard]] pugi::xml_node node() const { return document_.first_child(); }
    /// By rising columns. A cell without a name stands behind the one before it.
    [[nodiscard]] const std::vector<SheetCell>& cells() const { return cells_; }

private:
    pugi::xml_document document_;
    std::string_view text_;
    std::vector<SheetCell> cells_;
};

}  // namespace zel::xlsx
