#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zel::xlsx {

/// Columns of a sheet that a formula reads. Rows do not count: this is only to find formulas that
/// a changed column may concern.
struct ColumnsRead {
    std::string sheet;  // empty: the sheet of the formula
    int first = 0;
    int last = 0;
    bool first_moves = true;  // no "$": moves with a copy of the formula
    bool last_moves = true;
};

struct FormulaReads {
    std::vector<ColumnsRead> columns;
    std::vector<std::string> names;  // that are defined in the workbook
    bool anything = false;           // what it reads cannot be told (INDIRECT, parts of tables)
};

/// What the text of a formula reads. Sheets of other workbooks do not count.
[[nodiscard]] FormulaReads reads_of_formula(std::string_view formula);

}  // namespace zel::xlsx
