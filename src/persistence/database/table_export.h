#pragma once

#include <string>

#include "persistence/database/record_table.h"
#include "persistence/sheet_file.h"

// Tables on their way to a spreadsheet.

namespace zel {

/// The table as a worksheet: a head line with the names of the columns, without those that are kept
/// free, then the rows. Columns of numbers hold numbers, all else is text, Null is an empty cell.
[[nodiscard]] SheetDesign table_as_sheet(Database& database, const TableFormat& format,
                                         const TableInfo& table);

/// Writes the table by `write_sheet` and gives the number of its rows.
std::size_t export_table(Database& database, const TableFormat& format, const TableInfo& table,
                         const std::string& path, WorkbookStore& workbooks, Files& files,
                         DecimalSeparator separator);

/// Throws `InputError` where a table of the database at `path` would be written over it.
void refuse_itself(const std::string& path, const std::string& written);

}  // namespace zel
