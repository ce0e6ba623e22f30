#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

// Databases: files of tables whose rows stand in the order of their insertion. A table has no key,
// no index and no relation to another.

namespace zel {

/// The type of a column: numbers lose what it has no room for.
enum class ColumnType : std::uint8_t { None, Text, Integer, Single, Double };

struct TableColumn {
    std::string name;
    ColumnType type = ColumnType::Text;
    std::int16_t length = 0;  // characters of a text
};

/// A value for a column, of its type; `monostate` is Null.
using ColumnValue = std::variant<std::monostate, std::string, std::int16_t, float, double>;
using NamedValue = std::pair<std::string, ColumnValue>;

/// The values of a row as text, in the order of the columns; nothing for Null. A number has the
/// fewest digits that give it back in the precision of its column, behind a decimal point.
using TableRow = std::vector<std::optional<std::string>>;

/// What finds a row again as long as it is there, whatever is added and deleted beside it.
using RowKey = std::int64_t;

struct TableInfo {
    std::string name;
    std::vector<std::string> columns;
    /// The rows that a file of another program counts in its books; nothing where there are none.
    std::optional<std::size_t> counted_rows{};
};

/// An open database. Whatever fails throws `PlatformError` with the number of the failure (docs/
/// errors.md); `what()` names the file.
class Database {
public:
    Database() = default;
    virtual ~Database() = default;
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Whether anything can be written.
    [[nodiscard]] virtual bool writable() const = 0;
    /// The tables of the user in the order of their creation, without hidden ones and those of the
    /// engine.
    [[nodiscard]] virtual std::vector<TableInfo> tables() = 0;
    /// The rows in the order of their insertion.
    [[nodiscard]] virtual std::vector<RowKey> rows(const std::string& table) = 0;
    /// One row. `NoCurrentRecord` where it is gone.
    [[nodiscard]] virtual TableRow row(const std::string& table, RowKey key) = 0;
    /// Shows `take` each row, of it only `columns`, until it answers false.
    virtual void each_row(const std::string& table, std::span<const std::string> columns,
                          const std::function<bool(RowKey, const TableRow&)>& take) = 0;

    /// `TableExists` where there is one of the name, in capitals or small.
    virtual void create_table(const std::string& table, std::span<const TableColumn> columns) = 0;
    /// Adds a row; columns that are not named are Null.
    virtual void add_row(const std::string& table, std::span<const NamedValue> values) = 0;
    virtual void delete_row(const std::string& table, RowKey key) = 0;
    virtual void drop_table(const std::string& table) = 0;
    /// What `body` changes is there whole or, where it throws, not at all.
    virtual void whole(const std::function<void()>& body) = 0;
    /// The last call for one that was made anew: until then no file has its name.
    virtual void put_in_place() {}
};

/// Opens and creates databases by their paths.
class TableStore {
public:
    TableStore() = default;
    virtual ~TableStore() = default;
    TableStore(const TableStore&) = delete;
    TableStore& operator=(const TableStore&) = delete;

    [[nodiscard]] virtual std::unique_ptr<Database> open(const std::string& path) = 0;
    /// A new database without tables, which is gone again unless it is put in its place in the end.
    /// `DatabaseExists` where a file has the name.
    [[nodiscard]] virtual std::unique_ptr<Database> create(const std::string& path) = 0;
};

/// The place of the column `name` among `columns`, in capitals or small; nothing where there is
/// none.
[[nodiscard]] std::optional<std::size_t> place_of(std::span<const std::string> columns,
                                                  std::string_view name);

}  // namespace zel
