#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zel {

/// A row of a table of comma-separated values, with the line of the file where it begins.
struct CsvRow {
    int line = 0;
    std::vector<std::string> cells;
};

/// The rows of a table (RFC 4180): cells between commas; a cell in quotes may hold commas, line
/// ends and, doubled, quotes. Lines end with LF or CRLF. Empty lines and those that begin with "#"
/// are passed over, and so is a byte order mark. Throws `InputError` with the line where a quote is
/// not closed or stands inside a cell.
[[nodiscard]] std::vector<CsvRow> parse_csv(std::string_view text);

/// One line of a table with its line end; a cell is quoted where it needs to be.
[[nodiscard]] std::string csv_line(const std::vector<std::string>& cells);

}  // namespace zel
