#pragma once

#include <cmath>

#include "fakes/access_file.h"
#include "persistence/database/record_table.h"

namespace zel {

/// A table of the first `columns` columns of a format in an Access file, with Nulls and umlauts.
inline access_file::Table access_table(const TableFormat& format, const std::string& name, int rows,
                                       std::size_t columns = SIZE_MAX) {
    using access_file::Cell;
    using access_file::Type;
    constexpr Type types[] = {Type::Text, Type::Text, Type::Integer, Type::Single, Type::Double};
    access_file::Table table{name};
    for (const TableColumn& column : format.columns)
        if (table.columns.size() < columns)
            table.columns.push_back({column.name, types[static_cast<std::size_t>(column.type)],
                                     static_cast<std::uint16_t>(column.length)});
    for (int row = 0; row < rows; ++row) {
        auto& cells = table.rows.emplace_back();
        for (int column = 0; const access_file::Column& kind : table.columns) {
            ++column;
            if ((row + column) % 11 == 5)
                cells.emplace_back();
            else if (kind.type == Type::Text)
                cells.emplace_back("Zeile " + std::to_string(row) + " äöüÄÖÜß");
            else if (kind.type == Type::Integer)
                cells.emplace_back(double(row - column));
            else if (kind.type == Type::Single)
                cells.emplace_back(double{static_cast<float>(row * 0.1 + column)});
            else
                cells.emplace_back(std::sqrt(row * 1e-9 + column));
        }
    }
    return table;
}

}  // namespace zel
