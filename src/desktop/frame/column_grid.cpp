#include "desktop/frame/column_grid.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGridLayout>
#include <QScrollArea>
#include <algorithm>
#include <numeric>

#include "desktop/frame/form_panel.h"

namespace zel {

void need_anew(QWidget& part) {
    for (QWidget* at = &part; at != nullptr && !at->isWindow(); at = at->parentWidget()) {
        if (at->layout() != nullptr) at->layout()->invalidate();
        at->updateGeometry();
        if (qobject_cast<QScrollArea*>(at) == nullptr) continue;
        return QCoreApplication::postEvent(at, new QEvent(QEvent::LayoutRequest));
    }
}

ColumnGrid::ColumnGrid(int gap) : grid_(new QGridLayout(this)) {
    grid_->setContentsMargins(0, 0, 0, 0);
    grid_->setSpacing(gap);
}

void ColumnGrid::place(QWidget* widget, const Cell& wide, const Cell& narrow) {
    const Cell single = {static_cast<int>(placed_.size()), 0};
    placed_.push_back({widget, {wide, narrow, single}});
    grid_->addWidget(widget, wide.row, wide.column, wide.rows, wide.columns);
}

void ColumnGrid::share(const std::vector<int>& wide_columns, const std::vector<int>& narrow_columns,
                       int tall_row_wide, int tall_row_narrow) {
    columns_ = {wide_columns, narrow_columns, {1}};
    tall_rows_ = {tall_row_wide, tall_row_narrow, static_cast<int>(placed_.size())};
    arrange(Wide);
}

void ColumnGrid::place_row(const std::vector<QWidget*>& widgets, int narrow_columns, int spring) {
    std::vector<int> shares(widgets.size() + 1, 0);
    shares[static_cast<std::size_t>(spring) + 1] = 1;
    int index = 0;
    for (QWidget* widget : widgets) {
        const int wide_column = index > spring ? index + 1 : index;
        place(widget, {0, wide_column}, {index / narrow_columns, index % narrow_columns});
        ++index;
    }
    share(shares, {}, 1, index);
}

/// What a widget needs in the arrangement; only in a single column a panel of rows gives way.
int ColumnGrid::need_of(const QWidget& widget, Arrangement arrangement) {
    const auto* panel = dynamic_cast<const FormPanel*>(&widget);
    return arrangement != Single && panel != nullptr ? panel->full_width()
                                                     : widget.minimumSizeHint().width();
}

/// The widest widget of each column, and what wider ones over several columns need beyond.
int ColumnGrid::width_of(Arrangement arrangement) const {
    std::vector<int> widths;
    for (const bool spans : {false, true})
        for (const Placed& placed : placed_) {
            const Cell& cell = placed.cells[arrangement];
            if (placed.widget->isHidden() || spans != (cell.columns > 1)) continue;
            const auto first = static_cast<std::size_t>(cell.column);
            const auto end = first + static_cast<std::size_t>(cell.columns);
            widths.resize(std::max(widths.size(), end), 0);
            const auto part = widths.begin() + cell.column;
            const int there = std::accumulate(part, part + cell.columns,
                                              (cell.columns - 1) * grid_->horizontalSpacing());
            const int needed = need_of(*placed.widget, arrangement);
            widths[end - 1] += std::max(0, needed - there);
        }
    return std::accumulate(widths.begin(), widths.end(),
                           std::max(0, static_cast<int>(widths.size()) - 1) *
                               grid_->horizontalSpacing());
}

QSize ColumnGrid::sizeHint() const { return {width_of(Wide), grid_->sizeHint().height()}; }

QSize ColumnGrid::minimumSizeHint() const {
    return {width_of(Single), grid_->minimumSize().height()};
}

ColumnGrid::Arrangement ColumnGrid::fitting() const {
    for (const Arrangement arrangement : {Wide, Narrow})
        if (width() >= width_of(arrangement)) return arrangement;
    return Single;
}

/// Also what the widgets need may change, as with the language.
bool ColumnGrid::event(QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest)
        if (const Arrangement best = fitting(); best != arrangement_) arrange(best);
    return QWidget::event(event);
}

void ColumnGrid::arrange(Arrangement arrangement) {
    arrangement_ = arrangement;
    for (const Placed& placed : placed_) {
        const Cell& cell = placed.cells[arrangement];
        grid_->removeWidget(placed.widget);
        grid_->addWidget(placed.widget, cell.row, cell.column, cell.rows, cell.columns);
    }
    for (int row = 0; row < grid_->rowCount(); ++row)
        grid_->setRowStretch(row, row == tall_rows_[arrangement] ? 1 : 0);
    const std::vector<int>& shares = columns_[arrangement];
    for (int column = 0; column < grid_->columnCount(); ++column) {
        const auto place = static_cast<std::size_t>(column);
        grid_->setColumnStretch(column, place < shares.size() ? shares[place] : 0);
    }
    need_anew(*this);
}

}  // namespace zel
