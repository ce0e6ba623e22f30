#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/workbook.h"

namespace zel::xlsx {

/// What a cell is to hold: nothing, a number or a text.
using CellContent = std::variant<std::monostate, double, std::string>;

/// What is set and cleared on a worksheet, until it is written. The last word counts.
class CellEdits {
public:
    using Row = std::map<int, CellContent>;  // by column

    void set(int row, int column, CellContent content);
    void clear(const CellArea& area);

    /// The new content of a cell, or null where it keeps its own.
    [[nodiscard]] const CellContent* find(int row, int column) const;

    /// The cells of `row` that were set, or null.
    [[nodiscard]] const Row* row(int row) const;

    [[nodiscard]] bool is_cleared(int row, int column) const;
    /// Whether a cell of `row` is cleared.
    [[nodiscard]] bool clears(int row) const;

    /// Whether one clearing took the whole area.
    [[nodiscard]] bool clears(const CellArea& area) const;

    /// The columns in which cells are set or cleared.
    [[nodiscard]] std::set<int> columns() const;

    [[nodiscard]] const std::map<int, Row>& rows() const { return rows_; }
    [[nodiscard]] bool empty() const { return rows_.empty() && cleared_.empty(); }

private:
    std::map<int, Row> rows_;
    std::vector<CellArea> cleared_;
};

}  // namespace zel::xlsx
