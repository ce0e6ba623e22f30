#include "adapters/xlsx/cell_edits.h"

#include <algorithm>
#include <utility>

namespace zel::xlsx {

void CellEdits::set(int row, int column, CellContent content) {
    rows_[row][column] = std::move(content);
}

void CellEdits::clear(const CellArea& area) {
    cleared_.push_back(area);
    const auto end = rows_.upper_bound(area.last_row);
    for (auto row = rows_.lower_bound(area.first_row); row != end; ++row)
        std::erase_if(row->second,
                      [&](const auto& cell) { return area.holds(row->first, cell.first); });
}

const CellEdits::Row* CellEdits::row(int row) const {
    const auto found = rows_.find(row);
    return found == rows_.end() || found->second.empty() ? nullptr : &found->second;
}

bool CellEdits::is_cleared(int row, int column) const {
    return std::any_of(cleared_.begin(), cleared_.end(),
                       [&](const CellArea& area) { return area.holds(row, column); });
}

bool CellEdits::clears(int row) const {
    return std::any_of(cleared_.begin(), cleared_.end(), [row](const CellArea& area) {
        return row >= area.first_row && row <= area.last_row;
    });
}

bool CellEdits::clears(const CellArea& area) const {
    return std::any_of(cleared_.begin(), cleared_.end(), [&](const CellArea& cleared) {
        return cleared.holds(area.first_row, area.first_column) &&
               cleared.holds(area.last_row, area.last_column);
    });
}

std::set<int> CellEdits::columns() const {
    std::set<int> columns;
    for (const auto& [number, cells] : rows_)
        for (const auto& [column, content] : cells) columns.insert(column);
    for (const CellArea& area : cleared_)
        for (int column = area.first_column; column <= area.last_column; ++column)
            columns.insert(column);
    return columns;
}

const CellContent* CellEdits::find(int row, int column) const {
    static const CellContent nothing;
    if (const Row* cells = this->row(row)) {
        const auto cell = cells->find(column);
        if (cell != cells->end()) return &cell->second;
    }
    return is_cleared(row, column) ? &nothing : nullptr;
}

}  // namespace zel::xlsx
