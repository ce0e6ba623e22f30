#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/text/text.h"

namespace zel {

/// A row of a table of comma-separated values, with the line of the file where it begins.
struct CsvRow {
    int line = 0;
    std::vector<std::string> cells;
    std::string_view text;         // as it stands in the table, without its line end
    const Text* damage = nullptr;  // why it cannot be taken apart; its cells then mean nothing
};

/// The rows of a table (RFC 4180): cells between commas, or what `comma` is; a cell in quotes may
/// hold commas, line ends and, doubled, quotes. Lines end with LF or CRLF. Empty lines and those
/// that begin with "#" are passed over, and so is a byte order mark. A row where a quote is not
/// closed or stands inside a cell is damaged, up to the end of its first line. The rows refer to
/// `text`. Throws `InputError` where there are more than a million cells.
[[nodiscard]] std::vector<CsvRow> parse_csv(std::string_view text, char comma = ',');

/// One line of a table with its line end; `comma` parts the cells, and one is quoted where it needs
/// to be.
[[nodiscard]] std::string csv_line(const std::vector<std::string>& cells, char comma = ',');

}  // namespace zel
