#pragma once

#include <string>

#include "persistence/database/record_table.h"
#include "platform/files.h"
#include "platform/text/locale.h"
#include "platform/workbook_design.h"

// Tables on their way to a spreadsheet: a head line with the names of the columns, then the rows.
// Columns that are kept free stay out.

namespace zel {

/// The table as a worksheet: columns of numbers hold numbers, all else is text, Null is an empty
/// cell. Throws `InputError` where a worksheet has not enough rows.
[[nodiscard]] WorkbookDesign table_as_workbook(Database& database, const TableFormat& format,
                                               const TableInfo& table);

/// The table as lines of values in UTF-8 with a mark at their beginning, by which a spreadsheet
/// knows the encoding. A decimal comma parts the values by semicolons, a point by commas. Before a
/// text that a spreadsheet would take for a formula stands an apostrophe.
[[nodiscard]] std::string table_as_csv(Database& database, const TableFormat& format,
                                       const TableInfo& table, DecimalSeparator separator);

/// Writes the table into the file at `path`, whole or not at all, as its ending says: .xlsx or
/// .csv. Gives the number of rows. Throws `InputError` where the ending is another one, and what
/// the stores throw.
std::size_t export_table(Database& database, const TableFormat& format, const TableInfo& table,
                         const std::string& path, WorkbookStore& workbooks, Files& files,
                         DecimalSeparator separator);

}  // namespace zel
