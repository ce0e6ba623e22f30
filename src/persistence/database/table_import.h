#pragma once

#include <functional>

#include "persistence/database/record_table.h"
#include "platform/text/text.h"

namespace zel {

struct ImportedTable {
    std::string name;
    std::size_t rows = 0;
};

/// What was not taken over as it was.
struct LeftOut {
    std::string table;
    std::size_t row = 0;  // from 1; 0 where it is about the whole table
    std::string column{};
    Reason reason;
};

struct ImportResult {
    std::vector<ImportedTable> tables;
    std::vector<LeftOut> left_out;  // of rows `most_told` at the most
    std::size_t untold = 0;         // how many more there are

    static constexpr std::size_t most_told = 1000;
};

/// What an import did, in lines; of what was left out the first `most` are named.
[[nodiscard]] std::string listing_of(const ImportResult& result, LangId lang,
                                     std::size_t most = ImportResult::most_told);

/// Told behind each row how many of all are done; false ends the import.
using ImportProgress = std::function<bool(std::size_t done, std::size_t of)>;

/// Copies the tables of `from` that hold records of the format into a new database at `path`: with
/// all columns of the format, Null where the old table has none, texts cut to their columns, and
/// Null for numbers that are none or beyond their columns. The new database is there whole or,
/// where anything fails, not at all. Throws `PlatformError`: `NoRecords` where no table fits,
/// `DialogCancelled` where `progress` ended it.
[[nodiscard]] ImportResult import_tables(Database& from, const TableFormat& format,
                                         TableStore& store, const std::string& path,
                                         const ImportProgress& progress);

}  // namespace zel
