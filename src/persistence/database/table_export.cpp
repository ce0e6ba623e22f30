#include "persistence/database/table_export.h"

#include <algorithm>
#include <filesystem>

#include "platform/errors.h"
#include "platform/text/utf8.h"

namespace zel {
namespace {

constexpr std::size_t longest_sheet_name = 31;
constexpr std::string_view not_in_sheet_names = "[]:*?/\\";
constexpr double widest_column = 40;  // in characters
constexpr double narrowest_column = 10;

constexpr Text database_itself = {"das ist die Datenbank selbst", "that is the database itself"};

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

/// What a cell holds: the number of a column of numbers, otherwise text.
std::variant<std::monostate, double, std::string> content_of(
    const ExportColumn& column, const std::optional<std::string>& value) {
    std::string text = without_outer_blanks(value.value_or(""));
    if (text.empty()) return std::monostate{};
    const auto number = column.number ? stored_number(text) : std::nullopt;
    if (number) return *number;
    return is_utf8(text) ? text : printable(text);
}

}  // namespace

SheetDesign table_as_sheet(Database& database, const TableFormat& format, const TableInfo& table) {
    SheetDesign sheet;
    sheet.name = sheet_name(table.name);
    sheet.fixed_rows = 1;
    const auto columns = exported_columns(format, table);
    std::vector<std::string> names;
    for (const ExportColumn& column : columns) {
        names.push_back(column.name);
        const int place = static_cast<int>(names.size());
        const auto width = static_cast<double>(column.name.size() + 2);
        sheet.columns.push_back({place, place, std::clamp(width, narrowest_column, widest_column)});
        sheet.cells.push_back({1, place, column.name, CellLook::ColumnHead});
    }
    int row = 1;
    database.each_row(table.name, names, [&](RowKey /*key*/, const TableRow& values) {
        ++row;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            auto content = content_of(columns[i], values[i]);
            if (!std::holds_alternative<std::monostate>(content))
                sheet.cells.push_back({row, static_cast<int>(i) + 1, std::move(content)});
        }
        return true;
    });
    return sheet;
}

std::size_t export_table(Database& database, const TableFormat& format, const TableInfo& table,
                         const std::string& path, WorkbookStore& workbooks, Files& files,
                         DecimalSeparator separator) {
    write_sheet(table_as_sheet(database, format, table), path, workbooks, files, separator);
    return database.rows(table.name).size();
}

void refuse_itself(const std::string& path, const std::string& written) {
    std::error_code not_there;
    if (std::filesystem::equivalent(path, written, not_there))
        throw InputError(at(written, Reason(database_itself)));
}

}  // namespace zel
