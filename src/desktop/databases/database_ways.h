#pragma once

#include <optional>
#include <string>

#include "desktop/databases/save_dialogs.h"

namespace zel {

/// A record that the user took over, and its table.
struct TakenRecord {
    StoredRow row;
    std::string table;
};

/// Lets the user take over a record of the database at `path`; of the table `fixed` alone where it
/// is given. Nothing where he wants none, or a failure, which is told, kept him from it.
[[nodiscard]] std::optional<TakenRecord> browse_records(const DatabaseWindowParts& parts,
                                                        TableStore& tables, const std::string& path,
                                                        const forms::FixedTable* fixed = nullptr);

/// Lets the user save `row` in a table of the database at `path`, or of a new one; gives the table,
/// an empty name where nothing was saved.
[[nodiscard]] std::string save_in_existing(const DatabaseWindowParts& parts, TableStore& tables,
                                           const std::string& path, RowToSave row);
[[nodiscard]] std::string save_in_new(const DatabaseWindowParts& parts, TableStore& tables,
                                      const std::string& path, RowToSave row);

}  // namespace zel
