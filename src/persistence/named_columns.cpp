#include "persistence/named_columns.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/errors.h"
#include "platform/text/utf8.h"

namespace zel {
namespace {

constexpr Text no_head = {"die Zeile mit den Namen der Spalten fehlt",
                          "the row with the names of the columns is missing"};
constexpr Text stands_twice = {"steht zweimal da", "stands twice"};
constexpr Text no_utf8 = {
    "kein UTF-8; die Tabelle ist wohl als Windows-1252 gespeichert, speichern Sie sie als UTF-8",
    "no UTF-8; the table seems to be saved as Windows-1252, save it as UTF-8"};
constexpr Text wrong_length = {"{0} Zellen, die Tabelle hat {1} Spalten",
                               "{0} cells, the table has {1} columns"};
constexpr Text text_needed = {"ein Text wird gebraucht", "a text is needed"};
constexpr Text no_number = {"eine Zahl mit Punkt wird erwartet, nicht {0}",
                            "a number with a point is expected, not {0}"};
constexpr Text below_limit = {"{0} liegt unter der Grenze {1}", "{0} is below the limit {1}"};
constexpr Text no_whole_number = {"eine ganze Zahl von {0} bis {1} wird erwartet, nicht {2}",
                                  "a whole number from {0} to {1} is expected, not {2}"};

std::vector<CsvRow> rows_of(std::string_view text, const std::string& file) {
    try {
        return parse_csv(text);
    } catch (const InputError& error) {
        throw InputError(at(file, error.reason()));
    }
}

std::string number_text(double value) { return plain_number(value, DecimalSeparator::Point); }

}  // namespace

NamedColumns::NamedColumns(std::string_view text, std::string file)
    : file_(std::move(file)), rows_(rows_of(text, file_)) {
    if (rows_.empty()) throw InputError(at(file_, Reason(no_head)));
    const CsvRow head = std::move(rows_.front());
    rows_.erase(rows_.begin());
    columns_ = head.cells;
    check(head);
    for (const std::string& column : columns_)
        if (!places_.emplace(column, places_.size()).second)
            refuse(head, column, Reason(stands_twice));
}

void NamedColumns::check(const CsvRow& row) const {
    const auto refuse_line = [&](const Reason& reason) {
        const Reason line(Text{"Zeile {0}", "line {0}"}, {std::to_string(row.line)});
        throw InputError(at(file_, at(line, reason)));
    };
    if (row.damage != nullptr) refuse_line(Reason(*row.damage));
    if (!is_utf8(row.text)) {
        const auto cell = std::find_if_not(row.cells.begin(), row.cells.end(), is_utf8);
        const auto index = static_cast<std::size_t>(cell - row.cells.begin());
        if (index < columns_.size() && is_utf8(columns_[index]))
            refuse(row, columns_[index], Reason(no_utf8));
        refuse_line(Reason(no_utf8));
    }
    if (row.cells.size() != columns_.size())
        refuse_line(Reason(wrong_length,
                           {std::to_string(row.cells.size()), std::to_string(columns_.size())}));
}

std::string NamedColumns::text(const CsvRow& row, std::string_view column) const {
    const auto found = places_.find(column);
    if (found == places_.end() || found->second >= row.cells.size()) return {};
    return without_outer_blanks(row.cells[found->second]);
}

std::string NamedColumns::needed_text(const CsvRow& row, std::string_view column) const {
    std::string cell = text(row, column);
    if (cell.empty()) refuse(row, column, Reason(text_needed));
    return cell;
}

Entry NamedColumns::number(const CsvRow& row, std::string_view column, double least,
                           DecimalSeparator separator) const {
    const std::string cell = text(row, column);
    if (cell.empty()) return {};
    const auto number = parse_number(cell, DecimalSeparator::Point);
    if (!number) refuse(row, column, Reason(no_number, {in_quotes(cell)}));
    if (*number < least)
        refuse(row, column, Reason(below_limit, {shortened(cell), number_text(least)}));
    return {plain_number(*number, separator), *number};
}

std::int16_t NamedColumns::whole_number(const CsvRow& row, std::string_view column, double least,
                                        double most) const {
    most = std::min<double>(most, std::numeric_limits<std::int16_t>::max());
    const Entry entry =
        number(row, column, -std::numeric_limits<double>::infinity(), DecimalSeparator::Point);
    if (!entry.given()) return 0;
    if (entry.value < least || entry.value > most || entry.value != std::floor(entry.value))
        refuse(row, column,
               Reason(no_whole_number,
                      {number_text(least), number_text(most), in_quotes(text(row, column))}));
    return static_cast<std::int16_t>(entry.value);
}

void NamedColumns::refuse(const CsvRow& row, std::string_view column, const Reason& reason) const {
    const Reason place(Text{"Zeile {0}, Spalte {1}", "line {0}, column {1}"},
                       {std::to_string(row.line), shortened(column)});
    throw InputError(at(file_, at(place, reason)));
}

}  // namespace zel
