#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <vector>

#include "persistence/library_conductor.h"
#include "shell/session.h"

namespace zel {

/// The conductors of the library as rows of a table.
class ConductorTable : public QAbstractTableModel {
public:
    explicit ConductorTable(const Session& session) : session_(session) {}

    void show(std::vector<LibraryConductor> conductors);
    /// Heads and texts in the language of the session.
    void recaption();
    [[nodiscard]] const LibraryConductor& conductor(int row) const {
        return conductors_[static_cast<std::size_t>(row)];
    }

    /// The value by which a column is sorted: a number, or a text.
    static constexpr int sort_role = Qt::UserRole;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    const Session& session_;
    std::vector<LibraryConductor> conductors_;
};

/// The rows of a `ConductorTable` that have the typed words, in the order of a column.
class FoundConductors : public QSortFilterProxyModel {
public:
    explicit FoundConductors(ConductorTable& table);

    void find(const std::string& typed);
    [[nodiscard]] const LibraryConductor& conductor(const QModelIndex& index) const;

protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    [[nodiscard]] bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    ConductorTable& table_;
    std::string typed_;
};

}  // namespace zel
