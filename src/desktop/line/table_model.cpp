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
    QRect area;
    for (const QItemSelectionRange& range : selection)
        area |= QRect(range.left(), range.top(), range.width(), range.height());
    if (area.isEmpty() || area == QRect(0, 0, columnCount(), rowCount()))
        return tab_text_of(table_sheet(table_, locale_), locale_.separator);
    std::string text;
    for (int row = area.top(); row <= area.bottom(); ++row)
        for (int column = area.left(); column <= area.right(); ++column)
            text += data(index(row, column), Qt::DisplayRole).toString().toStdString() +
                    (column < area.right() ? '\t' : '\n');
    return text;
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
