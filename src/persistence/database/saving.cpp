#include "persistence/database/saving.h"

#include "shell/program_texts.h"

namespace zel {
namespace {

constexpr BoxText values_left_out = {
    Icon::Warning,
    short_name,
    {"Die Tabelle {0} hat diese Spalten nicht, ihre Werte sind nicht gespeichert:\n{1}",
     "The table {0} lacks these columns, their values have not been saved:\n{1}"}};

}  // namespace

void save_in_new_table(Database& database, const TableFormat& format, const std::string& table,
                       std::span<const NamedValue> row) {
    database.whole([&] {
        format.create(database, table);
        database.add_row(table, row);
    });
}

void add_to_table(Database& database, const TableInfo& table, std::vector<NamedValue> row,
                  std::vector<std::string>& left_out) {
    std::erase_if(row, [&](const NamedValue& value) {
        if (place_of(table.columns, value.first)) return false;
        if (!std::holds_alternative<std::monostate>(value.second)) left_out.push_back(value.first);
        return true;
    });
    database.add_row(table.name, row);
}

std::optional<Box> told_left_out(const TableInfo& table, const std::vector<std::string>& left_out,
                                 LangId lang) {
    if (left_out.empty()) return std::nullopt;
    return box_in(lang, values_left_out, {table.name, joined(left_out, ", ")});
}

}  // namespace zel
