#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <string>
#include <vector>

#include "forms/database_forms.h"

class QTableView;

namespace zel {

/// The rows of a table as a list by which a person finds one: its number, and the list columns. Of
/// the table nothing else is read, so that ten thousand rows come at once.
class RecordList : public QAbstractTableModel {
public:
    RecordList(const forms::DatabaseForms& forms, LangId lang) : forms_(forms), lang_(lang) {}

    /// Reads the rows of `table` anew. Throws `PlatformError`, with the list empty.
    void read(Database& database, const std::string& table);
    void clear();

    [[nodiscard]] RowKey key(int row) const { return line(row).key; }
    /// Whether a row has each of the words, in capitals or small, in whatever list column.
    [[nodiscard]] bool has(int row, const QStringList& words) const;
    /// Whether a row stands before another in the order of a column.
    [[nodiscard]] bool before(int row, int other, int column) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    struct Line {
        RowKey key;
        std::vector<std::string> texts;  // of the columns behind the number
        QString words;                   // in which is searched
    };
    [[nodiscard]] const Line& line(int row) const { return lines_[static_cast<std::size_t>(row)]; }

    const forms::DatabaseForms& forms_;
    LangId lang_;
    std::vector<Line> lines_;
};

/// The rows that have the typed words, in the order of a column. It is for the eye alone: a record
/// keeps its number.
class FoundRecords : public QSortFilterProxyModel {
public:
    explicit FoundRecords(RecordList& list) : list_(list) { setSourceModel(&list); }

    void find(const QString& typed);

protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    [[nodiscard]] bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    RecordList& list_;
    QStringList words_;
};

/// Makes `view` a list of records over `model`: whole rows, one at a time.
void make_list_view(QTableView& view, QAbstractItemModel& model);
/// Gives the columns the width of their texts, but no more than texts of the kind need; the last
/// one has the rest.
void fit_columns(QTableView& view, const forms::DatabaseForms& forms);

}  // namespace zel
