#include "persistence/named_columns.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/errors.h"
#include "platform/text/text.h"

namespace zel {
namespace {

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

std::string number_text(double value) { return plain_number(value, DecimalSeparator::Point); }

}  // namespace

NamedColumns::NamedColumns(std::string_view text, std::string file) : file_(std::move(file)) {
    try {
        rows_ = parse_csv(text);
    } catch (const InputError& error) {
        throw InputError(file_ + ": " + error.what());
    }
    if (rows_.empty())
        throw InputError(file_ + ": the row with the names of the columns is missing");
    const CsvRow head = std::move(rows_.front());
    rows_.erase(rows_.begin());
    for (const std::string& column : head.cells) {
        if (std::find(columns_.begin(), columns_.end(), column) != columns_.end())
            refuse(head, column, "stands twice");
        columns_.push_back(column);
    }
    for (const CsvRow& row : rows_)
        if (row.cells.size() != columns_.size())
            throw InputError(file_ + ": line " + std::to_string(row.line) + ": " +
                             std::to_string(row.cells.size()) + " cells, the table has " +
                             std::to_string(columns_.size()) + " columns");
}

std::string NamedColumns::text(const CsvRow& row, std::string_view column) const {
    const auto found = std::find(columns_.begin(), columns_.end(), column);
    if (found == columns_.end()) return {};
    return without_outer_blanks(row.cells[static_cast<std::size_t>(found - columns_.begin())]);
}

std::string NamedColumns::needed_text(const CsvRow& row, std::string_view column) const {
    std::string cell = text(row, column);
    if (cell.empty()) refuse(row, column, "a text is needed");
    return cell;
}

Entry NamedColumns::number(const CsvRow& row, std::string_view column, double least,
                           DecimalSeparator separator) const {
    const std::string cell = text(row, column);
    if (cell.empty()) return {};
    const auto number = parse_number(cell, DecimalSeparator::Point);
    if (!number) refuse(row, column, "a number with a point is expected, not " + quoted(cell));
    if (*number < least) refuse(row, column, cell + " is below the limit " + number_text(least));
    return {plain_number(*number, separator), *number};
}

std::int16_t NamedColumns::whole_number(const CsvRow& row, std::string_view column, double least,
                                        double most) const {
    most = std::min<double>(most, std::numeric_limits<std::int16_t>::max());
    const Entry entry = number(row, column, -INFINITY, DecimalSeparator::Point);
    if (!entry.given()) return 0;
    if (entry.value < least || entry.value > most || entry.value != std::floor(entry.value))
        refuse(row, column,
               "a whole number from " + number_text(least) + " to " + number_text(most) +
                   " is expected, not " + quoted(text(row, column)));
    return static_cast<std::int16_t>(entry.value);
}

void NamedColumns::refuse(const CsvRow& row, std::string_view column,
                          const std::string& reason) const {
    throw InputError(file_ + ": line " + std::to_string(row.line) + ", column " +
                     std::string(column) + ": " + reason);
}

}  // namespace zel
