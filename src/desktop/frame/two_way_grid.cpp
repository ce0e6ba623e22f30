#include "desktop/frame/two_way_grid.h"

#include <QEvent>
#include <QGridLayout>
#include <algorithm>
#include <numeric>

namespace zel {

TwoWayGrid::TwoWayGrid(int gap) : grid_(new QGridLayout(this)) {
    grid_->setContentsMargins(0, 0, 0, 0);
    grid_->setSpacing(gap);
}

void TwoWayGrid::place(QWidget* widget, const Cell& wide, const Cell& narrow) {
    placed_.push_back({widget, wide, narrow});
    grid_->addWidget(widget, wide.row, wide.column, wide.rows, wide.columns);
}

void TwoWayGrid::share(const std::vector<int>& wide_columns, const std::vector<int>& narrow_columns,
                       int tall_row_wide, int tall_row_narrow) {
    wide_columns_ = wide_columns;
    narrow_columns_ = narrow_columns;
    tall_row_wide_ = tall_row_wide;
    tall_row_narrow_ = tall_row_narrow;
    arrange(true);
}

/// The widest widget of each column, and what wider ones over several columns need beyond.
int TwoWayGrid::width_of(Cell Placed::*arrangement) const {
    std::vector<int> widths;
    for (const bool spans : {false, true})
        for (const Placed& placed : placed_) {
            const Cell& cell = placed.*arrangement;
            if (placed.widget->isHidden() || spans != (cell.columns > 1)) continue;
            const auto first = static_cast<std::size_t>(cell.column);
            const auto end = first + static_cast<std::size_t>(cell.columns);
            widths.resize(std::max(widths.size(), end), 0);
            const auto part = widths.begin() + cell.column;
            const int there = std::accumulate(part, part + cell.columns,
                                              (cell.columns - 1) * grid_->horizontalSpacing());
            const int needed = placed.widget->minimumSizeHint().width();
            widths[end - 1] += std::max(0, needed - there);
        }
    return std::accumulate(widths.begin(), widths.end(),
                           std::max(0, static_cast<int>(widths.size()) - 1) *
                               grid_->horizontalSpacing());
}

QSize TwoWayGrid::minimumSizeHint() const {
    return {width_of(&Placed::narrow), grid_->minimumSize().height()};
}

/// Also what the widgets need may change, as with the language.
bool TwoWayGrid::event(QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) {
        const bool wide = width() >= width_of(&Placed::wide);
        if (wide != is_wide_) arrange(wide);
    }
    return QWidget::event(event);
}

void TwoWayGrid::arrange(bool wide) {
    is_wide_ = wide;
    for (const Placed& placed : placed_) {
        const Cell& cell = wide ? placed.wide : placed.narrow;
        grid_->removeWidget(placed.widget);
        grid_->addWidget(placed.widget, cell.row, cell.column, cell.rows, cell.columns);
    }
    for (int row = 0; row < grid_->rowCount(); ++row)
        grid_->setRowStretch(row, row == (wide ? tall_row_wide_ : tall_row_narrow_) ? 1 : 0);
    const std::vector<int>& shares = wide ? wide_columns_ : narrow_columns_;
    for (int column = 0; column < grid_->columnCount(); ++column) {
        const auto place = static_cast<std::size_t>(column);
        grid_->setColumnStretch(column, place < shares.size() ? shares[place] : 0);
    }
}

}  // namespace zel
