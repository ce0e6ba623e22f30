#include "persistence/database/table_export.h"

#include <algorithm>
#include <functional>

#include "platform/errors.h"
#include "platform/text/utf8.h"

namespace zel {
namespace {

constexpr int rows_of_worksheet = 1048576;
constexpr std::size_t longest_sheet_name = 31;
constexpr std::string_view not_in_sheet_names = "[]:*?/\\";
constexpr double widest_column = 40;  // in characters
constexpr double narrowest_column = 10;
constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";
constexpr std::string_view starts_formula = "=+-@\t\r";

constexpr Text too_many_rows = {
    "die Tabelle hat mehr Zeilen als ein Arbeitsblatt ({0}); eine Datei .csv fasst sie",
    "the table has more rows than a worksheet ({0}); a file .csv holds them"};
constexpr Text wrong_ending = {"eine Tabelle wird als .xlsx oder .csv geschrieben",
                               "a table is written as .xlsx or .csv"};

struct ExportColumn {
    std::string name;
    bool number = false;
};

std::vector<ExportColumn> exported_columns(const TableFormat& format, const TableInfo& table) {
    std::vector<ExportColumn> columns;
    for (const std::string& name : table.columns) {
        if (name.starts_with("Reserve_")) continue;
        const auto known =
            std::find_if(format.columns.begin(), format.columns.end(),
                         [&](const TableColumn& column) { return same_name(column.name, name); });
        columns.push_back({name, known != format.columns.end() && known->type != ColumnType::Text});
    }
    return columns;
}

/// Shows `take` each row's values, of a column of numbers with the number that the text is.
void each_exported_row(
    Database& database, const TableInfo& table, const std::vector<ExportColumn>& columns,
    const std::function<void(std::span<const std::string> texts,
                             std::span<const std::optional<double>> numbers)>& take) {
    std::vector<std::string> names;
    for (const ExportColumn& column : columns) names.push_back(column.name);
    std::vector<std::string> texts(columns.size());
    std::vector<std::optional<double>> numbers(columns.size());
    database.each_row(table.name, names, [&](RowKey /*key*/, const TableRow& row) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            texts[i] = without_outer_blanks(row[i].value_or(""));
            if (!is_utf8(texts[i])) texts[i] = printable(texts[i]);
            numbers[i] = columns[i].number ? stored_number(texts[i]) : std::nullopt;
        }
        take(texts, numbers);
        return true;
    });
}

/// A worksheet may have fewer names than a table.
std::string sheet_name(const std::string& table) {
    std::string name;
    for (const char character : table)
        name += not_in_sheet_names.find(character) == std::string_view::npos ? character : '_';
    while (name.starts_with('\'')) name.erase(0, 1);
    name = first_characters(name, longest_sheet_name);
    while (name.ends_with('\'')) name.pop_back();
    return name.empty() ? "_" : name;
}

std::string csv_value(std::string text, char comma) {
    if (!text.empty() && starts_formula.find(text.front()) != std::string_view::npos)
        text.insert(0, 1, '\'');
    if (text.find_first_of(std::string("\"\r\n") + comma) == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char character : text)
        quoted += character == '"' ? "\"\"" : std::string(1, character);
    return quoted + "\"";
}

}  // namespace

WorkbookDesign table_as_workbook(Database& database, const TableFormat& format,
                                 const TableInfo& table) {
    SheetDesign sheet;
    sheet.name = sheet_name(table.name);
    sheet.fixed_rows = 1;
    const auto columns = exported_columns(format, table);
    for (int column = 1; const auto& [name, number] : columns) {
        const auto width = static_cast<double>(name.size() + 2);
        sheet.columns.push_back(
            {column, column, std::clamp(width, narrowest_column, widest_column)});
        sheet.cells.push_back({1, column, name, CellLook::ColumnHead});
        ++column;
    }
    int row = 1;
    each_exported_row(database, table, columns, [&](const auto& texts, const auto& numbers) {
        if (++row > rows_of_worksheet)
            throw InputError(Reason(too_many_rows, {std::to_string(rows_of_worksheet)}));
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const int column = static_cast<int>(i) + 1;
            if (numbers[i])
                sheet.cells.push_back({row, column, *numbers[i]});
            else if (!texts[i].empty())
                sheet.cells.push_back({row, column, texts[i]});
        }
    });
    return {std::move(sheet)};
}

std::string table_as_csv(Database& database, const TableFormat& format, const TableInfo& table,
                         DecimalSeparator separator) {
    const char comma = separator == DecimalSeparator::Comma ? ';' : ',';
    const auto columns = exported_columns(format, table);
    std::string csv{utf8_mark};
    const auto add = [&](std::size_t column, const std::string& value) {
        if (column > 0) csv += comma;
        csv += value;
        if (column + 1 == columns.size()) csv += "\r\n";
    };
    for (std::size_t i = 0; i < columns.size(); ++i) add(i, csv_value(columns[i].name, comma));
    each_exported_row(database, table, columns, [&](const auto& texts, const auto& numbers) {
        for (std::size_t i = 0; i < texts.size(); ++i) {
            std::string value = texts[i];
            if (!numbers[i])
                value = csv_value(value, comma);
            else
                std::replace(value.begin(), value.end(), '.', character(separator));
            add(i, value);
        }
    });
    return csv;
}

std::size_t export_table(Database& database, const TableFormat& format, const TableInfo& table,
                         const std::string& path, WorkbookStore& workbooks, Files& files,
                         DecimalSeparator separator) {
    const auto ends_in = [&](std::string_view ending) {
        return path.size() > ending.size() &&
               same_name(std::string_view(path).substr(path.size() - ending.size()), ending);
    };
    if (ends_in(".xlsx"))
        workbooks.create(path, table_as_workbook(database, format, table), table.name);
    else if (ends_in(".csv"))
        files.write(path, table_as_csv(database, format, table, separator));
    else
        throw InputError(at(path, Reason(wrong_ending)));
    return database.rows(table.name).size();
}

}  // namespace zel
