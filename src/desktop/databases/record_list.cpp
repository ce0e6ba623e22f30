#include "desktop/databases/record_list.h"

#include <QHeaderView>
#include <QTableView>
#include <algorithm>

#include "desktop/frame/widgets.h"
#include "persistence/library_conductor.h"

namespace zel {
namespace {

constexpr Text number_head = {"Nr.", "No."};
constexpr int least_rest = 40;   // pixels, for the last column
constexpr int line_height = 24;  // pixels
constexpr int padding = 12;      // pixels, around the text of a cell

const forms::ListColumn& column_at(const forms::DatabaseForms& forms, int column) {
    return forms.list[static_cast<std::size_t>(column - 1)];
}

}  // namespace

void RecordList::clear() {
    beginResetModel();
    lines_.clear();
    endResetModel();
}

void RecordList::read(Database& database, const std::string& table) {
    beginResetModel();
    lines_.clear();
    try {
        std::vector<std::string> values;
        database.each_row(
            table, forms_.format().list_columns, [&](RowKey key, const TableRow& row) {
                values.clear();
                for (const auto& value : row)
                    values.push_back(value ? without_outer_blanks(*value) : std::string());
                Line line = {key, {}, qt(joined(values, "\n")).toLower()};
                for (const forms::ListColumn& column : forms_.list)
                    line.texts.push_back(column.text(values, lang_));
                line.words += "\n" + qt(joined(line.texts, "\n")).toLower();
                lines_.push_back(std::move(line));
                return true;
            });
    } catch (...) {
        lines_.clear();
        endResetModel();
        throw;
    }
    endResetModel();
}

bool RecordList::has(int row, const QStringList& words) const {
    return std::all_of(words.begin(), words.end(),
                       [&](const QString& word) { return line(row).words.contains(word); });
}

bool RecordList::before(int row, int other, int column) const {
    if (column == 0) return row < other;
    const auto place = static_cast<std::size_t>(column - 1);
    const std::string& a = line(row).texts[place];
    const std::string& b = line(other).texts[place];
    if (column_at(forms_, column).is_date) return forms::date_order(a) < forms::date_order(b);
    return text_before(a, b);
}

int RecordList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

int RecordList::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(forms_.list.size()) + 1;
}

QVariant RecordList::data(const QModelIndex& index, int role) const {
    const bool number = index.column() == 0;
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(Qt::AlignVCenter | (number ? Qt::AlignRight : Qt::AlignLeft));
    if (role != Qt::DisplayRole && (role != Qt::ToolTipRole || number)) return {};
    if (number) return index.row() + 1;
    return qt(line(index.row()).texts[static_cast<std::size_t>(index.column() - 1)]);
}

QVariant RecordList::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return qt(section == 0 ? number_head : column_at(forms_, section).head, lang_);
}

void FoundRecords::find(const QString& typed) {
    words_ = typed.toLower().split(' ', Qt::SkipEmptyParts);
    invalidateFilter();
}

bool FoundRecords::filterAcceptsRow(int row, const QModelIndex& /*parent*/) const {
    return list_.has(row, words_);
}

bool FoundRecords::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    return list_.before(left.row(), right.row(), left.column());
}

void make_list_view(QTableView& view, QAbstractItemModel& model) {
    view.setModel(&model);
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.setTabKeyNavigation(false);
    view.setAlternatingRowColors(true);
    view.setShowGrid(false);
    view.setWordWrap(false);
    view.verticalHeader()->hide();
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.verticalHeader()->setDefaultSectionSize(line_height);
    view.horizontalHeader()->setHighlightSections(false);
    view.horizontalHeader()->setStretchLastSection(false);  // a list too narrow for it scrolls
}

void fit_columns(QTableView& view, const forms::DatabaseForms& forms) {
    QHeaderView& head = *view.horizontalHeader();
    const bool sorts = head.isSortIndicatorShown();
    const int last = view.model()->columnCount() - 1;
    view.resizeColumnToContents(0);
    const QString highest = QString::number(view.model()->rowCount());
    view.setColumnWidth(
        0, std::max(view.columnWidth(0), view.fontMetrics().horizontalAdvance(highest) + padding));
    head.setSortIndicatorShown(false);  // in the other columns the arrow needs no room at first
    for (int column = 1; column < last; ++column) {
        const int most =
            column_at(forms, column).characters * view.fontMetrics().averageCharWidth();
        view.resizeColumnToContents(column);
        view.setColumnWidth(column, std::min(view.columnWidth(column), most + padding));
    }
    view.resizeColumnToContents(last);
    view.setColumnWidth(last, std::max(view.columnWidth(last), least_rest));
    head.setSortIndicatorShown(sorts);
}

}  // namespace zel
