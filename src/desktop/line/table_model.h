#pragma once

#include <QAbstractTableModel>

#include "tables_graphs/parameter_table.h"

class QItemSelection;

namespace zel {

/// The cells of a parameter table: a row for each step, which stands at its head, and a column for
/// each wind of each method. The columns of every second method have another ground.
class TableModel : public QAbstractTableModel {
public:
    /// The language and the separator are those of `locale` at the time.
    explicit TableModel(const Locale& locale) : locale_(locale) {}

    void show(ParameterTable table);
    void clear() { show({}); }
    [[nodiscard]] const ParameterTable& table() const { return table_; }
    /// The heads in the language as it is now.
    void retell();

    /// The selected cells for a spreadsheet, lines of values with tabs; the whole table with its
    /// heads where all cells are selected, or none.
    [[nodiscard]] std::string text_of(const QItemSelection& selection) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    [[nodiscard]] std::size_t method_of(int column) const;
    [[nodiscard]] std::size_t wind_of(int column) const;

    const Locale& locale_;
    ParameterTable table_;
};

}  // namespace zel
