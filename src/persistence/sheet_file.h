#pragma once

#include <string>

#include "platform/files.h"
#include "platform/text/number_text.h"
#include "platform/workbook_design.h"

// Worksheets that are made to be read in a spreadsheet, as files.

namespace zel {

/// The places of a worksheet's cells as lines of values in UTF-8, with a mark at their beginning by
/// which a spreadsheet knows the encoding. A decimal comma parts the values by semicolons, a point
/// by commas. Before a text that a spreadsheet would take for a formula stands an apostrophe. The
/// cells stand row by row.
[[nodiscard]] std::string csv_of(const SheetDesign& sheet, DecimalSeparator separator);

/// The same with tabs and without the mark, to be pasted into a spreadsheet.
[[nodiscard]] std::string tab_text_of(const SheetDesign& sheet, DecimalSeparator separator);

/// Throws `InputError` where `write_sheet` would not know the ending of `path`.
void refuse_sheet_ending(const std::string& path);

/// Writes the worksheet into the file at `path`, whole or not at all, as its ending says: .xlsx or
/// .csv. Throws `InputError` where the ending is another one, or a workbook has not enough rows,
/// and what the stores throw.
void write_sheet(const SheetDesign& sheet, const std::string& path, WorkbookStore& workbooks,
                 Files& files, DecimalSeparator separator);

}  // namespace zel
