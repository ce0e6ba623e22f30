#include "persistence/sheet_file.h"

#include <algorithm>

#include "platform/errors.h"
#include "platform/text/csv.h"

namespace zel {
namespace {

constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";
constexpr std::string_view starts_formula = "=+-@\t\r";
constexpr int rows_of_worksheet = 1048576;
constexpr Text too_many_rows = {
    "mehr Zeilen als ein Arbeitsblatt hat ({0}); eine Datei .csv fasst sie",
    "more rows than a worksheet has ({0}); a file .csv holds them"};
constexpr Text wrong_ending = {"eine Tabelle wird als .xlsx oder .csv geschrieben",
                               "a table is written as .xlsx or .csv"};

std::string written(double number, DecimalSeparator separator) {
    std::string digits = exact_number(number);
    std::replace(digits.begin(), digits.end(), '.', character(separator));
    return digits;
}

std::string value_of(const DesignCell& cell, DecimalSeparator separator) {
    if (const auto* number = std::get_if<double>(&cell.content)) return written(*number, separator);
    const auto* text = std::get_if<std::string>(&cell.content);
    if (text == nullptr || text->empty()) return {};
    const bool is_formula = starts_formula.find(text->front()) != std::string_view::npos;
    return (is_formula ? "'" : "") + *text;
}

/// Each line of the sheet with all its values, in the order of the columns.
std::string lines_of(const SheetDesign& sheet, DecimalSeparator separator, char comma) {
    std::size_t width = 0;
    for (const DesignCell& cell : sheet.cells)
        width = std::max(width, static_cast<std::size_t>(cell.column));
    std::string lines;
    std::vector<std::string> values(width);
    int row = 1;
    const auto end_lines_before = [&](int next) {
        for (; row < next; ++row) {
            lines += csv_line(values, comma);
            values.assign(width, {});
        }
    };
    for (const DesignCell& cell : sheet.cells) {
        end_lines_before(cell.row);
        values[static_cast<std::size_t>(cell.column) - 1] = value_of(cell, separator);
    }
    end_lines_before(row + 1);
    return lines;
}

}  // namespace

std::string csv_of(const SheetDesign& sheet, DecimalSeparator separator) {
    const char comma = separator == DecimalSeparator::Comma ? ';' : ',';
    return std::string(utf8_mark) + lines_of(sheet, separator, comma);
}

std::string tab_text_of(const SheetDesign& sheet, DecimalSeparator separator) {
    return lines_of(sheet, separator, '\t');
}

void refuse_sheet_ending(const std::string& path) {
    if (!has_ending(path, ".csv") && !has_ending(path, ".xlsx"))
        throw InputError(at(path, Reason(wrong_ending)));
}

void write_sheet(const SheetDesign& sheet, const std::string& path, WorkbookStore& workbooks,
                 Files& files, DecimalSeparator separator) {
    refuse_sheet_ending(path);
    if (has_ending(path, ".csv")) return files.write(path, csv_of(sheet, separator));
    if (!sheet.cells.empty() && sheet.cells.back().row > rows_of_worksheet)
        throw InputError(at(path, Reason(too_many_rows, {std::to_string(rows_of_worksheet)})));
    workbooks.create(path, {sheet}, sheet.name);
}

}  // namespace zel
