#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/message_box.h"
#include "platform/table_store.h"
#include "steady/case/field.h"

// Tables of records: a row holds one record, its columns bear the names of the record's fields.

namespace zel {

/// What the tables of one kind of record have in common.
struct TableFormat {
    std::vector<TableColumn> columns;       // of a new table
    std::vector<std::string> list_columns;  // by which a person finds a row again
    void (*create)(Database& database, const std::string& table);  // a new table
    /// By these columns a table is known as one of such records.
    std::vector<std::string_view> markers;
    bool markers_lead = true;        // they stand first, in this order; otherwise anywhere
    std::size_t fewest_columns = 0;  // of a table that takes rows
};

/// Whether `table` holds records of the format.
[[nodiscard]] bool holds_records(const TableFormat& format, const TableInfo& table);

/// Why no row can be added to `table`: it is of an earlier program, with fewer columns.
[[nodiscard]] std::optional<Box> refused_table(const TableFormat& format, const TableInfo& table,
                                               LangId lang);

/// The table `name` of `database`, which holds records of the format. Throws `InputError` where it
/// does not, with `NoRecords` where it is not there.
[[nodiscard]] TableInfo record_table(Database& database, const TableFormat& format,
                                     const std::string& name);

/// The tables of `database` that hold records of the format; with `to_save` those that take rows.
[[nodiscard]] std::vector<TableInfo> record_tables(Database& database, const TableFormat& format,
                                                   bool to_save = false);

/// Tells that other `rows` of a table could be read than its file counts; nothing where they agree,
/// and where the file does not count.
[[nodiscard]] std::optional<Reason> miscounted(const TableInfo& table, std::size_t rows);

/// The column of a field: Text(100), Single, ...
[[nodiscard]] TableColumn column_of(const FieldOf& field);

/// A number as a column of the type holds it; nothing where it is beyond its range.
[[nodiscard]] std::optional<ColumnValue> in_column(ColumnType type, double value);

/// A text that is longer than its column, and was cut.
struct CutText {
    std::string field;
    std::int16_t length = 0;  // of the column
};

/// The values of `fields` for a row; those without a column are left out. An empty text is one
/// blank; a number without input is Null; yes is -1. Numbers lose what their columns have no room
/// for: those of a Single the digits behind the seventh. Texts are cut to the length of their
/// columns, which `cut` tells. Throws `InputError` naming field and limit where a number is beyond
/// the range of its column.
[[nodiscard]] std::vector<NamedValue> column_values(const std::vector<FieldOf>& fields,
                                                    std::vector<CutText>& cut);

/// Tells which texts were cut; nothing where none was.
[[nodiscard]] std::optional<Box> told(const std::vector<CutText>& cut, LangId lang);

/// The number that the text of a column is; nothing where it is none.
[[nodiscard]] std::optional<double> stored_number(std::string_view text);

/// A row as it was read, by the names of its columns.
class StoredRow {
public:
    StoredRow(const TableInfo& table, TableRow values)
        : columns_(table.columns), values_(std::move(values)) {}

    /// `Modul01_GetField$`: the value of a column as text; empty for Null, and for a column that
    /// the table lacks.
    [[nodiscard]] std::string text(std::string_view column) const;
    /// The text without the blanks around it.
    [[nodiscard]] std::string trimmed(std::string_view column) const;
    [[nodiscard]] std::optional<double> number(std::string_view column) const {
        return stored_number(text(column));
    }
    /// Yes is stored as -1.
    [[nodiscard]] bool flag(std::string_view column) const { return trimmed(column) == "-1"; }
    /// The number as one of 16 bits; `otherwise` where there is none.
    [[nodiscard]] std::int16_t whole(std::string_view column, std::int16_t otherwise = 0) const;

private:
    std::vector<std::string> columns_;
    TableRow values_;
};

/// A stored number on its way into a field: unrounded, with the text that its mask shows. No input
/// where there is no number.
[[nodiscard]] Entry stored_entry(const StoredRow& row, std::string_view column,
                                 const FieldInfo& field, DecimalSeparator separator);

/// The row `key` of `table`.
[[nodiscard]] StoredRow stored_row(Database& database, const TableInfo& table, RowKey key);

}  // namespace zel
