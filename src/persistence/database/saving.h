#pragma once

#include <memory>
#include <span>
#include <string>

#include "persistence/database/record_table.h"

namespace zel {

/// A new database while it is being filled: unless it is kept in the end, there is no file.
class NewDatabase {
public:
    /// Throws `PlatformError`, `DatabaseExists` where a file has the name.
    NewDatabase(TableStore& store, const std::string& path) : database_(store.create(path)) {}

    [[nodiscard]] Database& database() { return *database_; }
    /// The last call. Throws `PlatformError` where the file cannot be put in its place.
    void keep() { database_->put_in_place(); }

private:
    std::unique_ptr<Database> database_;
};

/// Makes `table` with one row; both are there or none.
void save_in_new_table(Database& database, const TableFormat& format, const std::string& table,
                       std::span<const NamedValue> row);

/// Adds a row to a table that may lack columns. The values without a column are left out, which
/// `left_out` names where they are more than Null.
void add_to_table(Database& database, const TableInfo& table, std::vector<NamedValue> row,
                  std::vector<std::string>& left_out);

/// Tells which values were left out; nothing where none was.
[[nodiscard]] std::optional<Box> told_left_out(const TableInfo& table,
                                               const std::vector<std::string>& left_out,
                                               LangId lang);

}  // namespace zel
