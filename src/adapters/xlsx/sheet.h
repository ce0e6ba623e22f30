#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/xlsx/cell_texts.h"
#include "adapters/xlsx/sheet_row.h"
#include "adapters/xlsx/xml_tags.h"
#include "platform/workbook.h"

namespace zel::xlsx {

/// Where the parts of a worksheet stand in its XML text.
struct SheetIndex {
    struct Row {
        int number = 0;
        Stretch element;
    };

    std::string prefix;     // of all element names, with its colon
    Stretch dimension;      // the element; empty where there is none
    Stretch data;           // the sheetData element
    Stretch rows_part;      // what is between its tags; empty where it is one empty tag
    std::vector<Row> rows;  // by rising numbers
    std::map<int, std::string> column_styles;  // by column
    std::vector<CellArea> merged;              // of two cells and more

    /// The row of that number, or null.
    [[nodiscard]] const Row* find(int number) const;

    /// The style of the cells of a column that are not there yet; empty for none.
    [[nodiscard]] std::string_view style_of(int column) const;
};

/// Throws `WorkbookError` (`Damaged`).
[[nodiscard]] SheetIndex index_of_sheet(std::string_view xml);

/// A worksheet as its XML text with an index of its rows. Only rows that are read are taken apart,
/// one at a time: a sheet of a million cells would not fit in memory as a tree.
class Sheet {
public:
    /// `texts` must outlive the sheet. Throws `WorkbookError` (`Damaged`).
    Sheet(std::string xml, const CellTexts& texts);

    /// Of a text beyond `longest_text` only the beginning, and "..." behind it.
    [[nodiscard]] std::string text(int row, int column);

    [[nodiscard]] const std::string& xml() const { return xml_; }
    [[nodiscard]] const SheetIndex& index() const { return index_; }

private:
    std::string xml_;
    SheetIndex index_;
    const CellTexts& texts_;
    SheetRow parsed_;
    int parsed_row_ = 0;
};

}  // namespace zel::xlsx
