#include "desktop/line/table_model.h"

#include <QGuiApplication>
#include <QItemSelection>
#include <QPalette>

#include "desktop/frame/widgets.h"
#include "persistence/sheet_file.h"

namespace zel {
namespace {

constexpr Text no_result = {"Das Verfahren fand hier kein Ergebnis.",
                            "The method found no result here."};

/// The cells of `sheet` that stand in an area, as a sheet of their own.
SheetDesign part_of(const SheetDesign& sheet, const CellArea& area) {
    SheetDesign part;
    for (DesignCell cell : sheet.cells) {
        if (!area.holds(cell.row, cell.column)) continue;
        cell.row -= area.first_row - 1;
        cell.column -= area.first_column - 1;
        part.cells.push_back(std::move(cell));
    }
    return part;
}

}  // namespace

void TableModel::show(ParameterTable table) {
    beginResetModel();
    table_ = std::move(table);
    endResetModel();
}

void TableModel::retell() {
    if (rowCount() == 0) return;
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    emit headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

std::string TableModel::text_of(const QItemSelection& selection) const {
    const SheetDesign sheet = table_sheet(table_, locale_.lang);
    QRect area;
    for (const QItemSelectionRange& range : selection)
        area |= QRect(range.left(), range.top(), range.width(), range.height());
    if (area.isEmpty() || area == QRect(0, 0, columnCount(), rowCount()))
        return tab_text_of(sheet, locale_.separator);
    constexpr int first = 2;  // of the sheet, behind its heads
    return tab_text_of(part_of(sheet, {area.top() + first, area.left() + first,
                                       area.bottom() + first, area.right() + first}),
                       locale_.separator);
}

int TableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(table_.steps.size());
}

int TableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(table_.methods.size() * table_.winds.size());
}

std::size_t TableModel::method_of(int column) const {
    return static_cast<std::size_t>(column) / table_.winds.size();
}

std::size_t TableModel::wind_of(int column) const {
    return static_cast<std::size_t>(column) % table_.winds.size();
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
    const std::size_t method = method_of(index.column());
    const auto& cell =
        table_.at(static_cast<std::size_t>(index.row()), wind_of(index.column()), method);
    switch (role) {
        case Qt::DisplayRole: return qt(cell_text(cell, table_.stepped, locale_.separator));
        case Qt::ToolTipRole: return cell ? QVariant() : qt(no_result, locale_.lang);
        case Qt::TextAlignmentRole: return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
        case Qt::BackgroundRole:
            return method % 2 == 0 ? QVariant()
                                   : QGuiApplication::palette().brush(QPalette::AlternateBase);
        default: return {};
    }
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) return {};
    if (orientation == Qt::Vertical)
        return qt(plain_number(table_.steps[static_cast<std::size_t>(section)], locale_.separator));
    const double wind = table_.winds[wind_of(section)];
    // The name in two lines, which keeps the column narrow.
    return qt(name_of(table_.methods[method_of(section)])).replace("Cigre ", "Cigre\n") + "\n" +
           qt(plain_number(wind, locale_.separator)) + " m/s";
}

}  // namespace zel
