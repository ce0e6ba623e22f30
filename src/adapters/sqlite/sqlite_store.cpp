#include "adapters/sqlite/sqlite_store.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "platform/errors.h"
#include "platform/text/number_text.h"
#include "platform/text/text.h"

namespace zel {
namespace {

constexpr int patience = 200;  // ms that another program may hold the file
/// Marks a file as ours for tools that tell kinds of files apart: "ZELC".
constexpr int application_id = 0x5A454C43;
constexpr int format = 1;

constexpr Text row_is_gone = {"{0}: die Zeile gibt es nicht mehr",
                              "{0}: the row is not there any more"};
constexpr Text table_is_there = {"es gibt schon eine Tabelle {0}", "there is a table {0}"};
constexpr Text no_table = {"es gibt keine Tabelle {0}", "there is no table {0}"};

bool exists(const std::string& path) {
    struct stat facts {};
    return ::stat(path.c_str(), &facts) == 0;
}

PlatformFault fault_of(int code, const std::string& path) {
    switch (code & 0xFF) {
        case SQLITE_NOMEM: return PlatformFault::OutOfMemory;
        case SQLITE_IOERR: return PlatformFault::DeviceFailed;
        case SQLITE_FULL: return PlatformFault::DiskFull;
        case SQLITE_LOCKED: return PlatformFault::TableExclusive;
        case SQLITE_BUSY: return PlatformFault::DatabaseExclusive;
        case SQLITE_CANTOPEN:
            return exists(path) ? PlatformFault::DatabaseDenied : PlatformFault::DatabaseMissing;
        case SQLITE_READONLY:
        case SQLITE_PERM: return PlatformFault::DatabaseDenied;
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT: return PlatformFault::NotADatabase;
        default: return PlatformFault::Unforeseen;
    }
}

/// Runs `body`; what SQLite reports becomes the failure of the file at `path`.
template <class Body>
auto told(const std::string& path, const Body& body) {
    try {
        return body();
    } catch (const SQLite::Exception& error) {
        throw InputError(path + ": " + error.what(), fault_of(error.getExtendedErrorCode(), path));
    }
}

/// A name as it stands in a statement. One in double quotes would count as a text where nothing
/// bears it.
std::string in_statement(std::string_view name) {
    std::string text = "`";
    for (const char c : name) text += c == '`' ? "``" : std::string(1, c);
    return text + "`";
}

std::string declared(const TableColumn& column) {
    switch (column.type) {
        case ColumnType::Text: return "Text(" + std::to_string(column.length) + ")";
        case ColumnType::Integer: return "Integer";
        case ColumnType::Single: return "Single";
        default: return "Double";
    }
}

std::optional<std::string> text_of(const SQLite::Column& value, bool single) {
    if (value.isNull()) return std::nullopt;
    if (!value.isFloat()) return value.getString();
    return single ? exact_number(static_cast<float>(value.getDouble()))
                  : exact_number(value.getDouble());
}

void bind(SQLite::Statement& statement, int place, const ColumnValue& value) {
    std::visit(
        [&](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>)
                statement.bind(place);
            else if constexpr (std::is_same_v<Held, float>)
                statement.bind(place, static_cast<double>(held));
            else
                statement.bind(place, held);
        },
        value);
}

class SqliteDatabase : public Database {
public:
    explicit SqliteDatabase(const std::string& path)
        : path_(path), file_(path, SQLite::OPEN_READWRITE, patience) {
        // Opening reads nothing; whether this is a database shows at the first question.
        (void)file_.execAndGet("SELECT count(*) FROM sqlite_schema");
    }

    [[nodiscard]] bool writable() const override {
        return sqlite3_db_readonly(file_.getHandle(), "main") == 0;
    }

    [[nodiscard]] std::vector<TableInfo> tables() override {
        return told(path_, [&] {
            std::vector<TableInfo> found;
            SQLite::Statement names(file_,
                                    "SELECT name FROM sqlite_schema WHERE type = 'table' AND name "
                                    "NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY rowid");
            while (names.executeStep()) found.push_back({names.getColumn(0).getString(), {}});
            for (TableInfo& table : found)
                for (const auto& [name, single] : columns_of(table.name))
                    table.columns.push_back(name);
            return found;
        });
    }

    [[nodiscard]] std::vector<RowKey> rows(const std::string& table) override {
        return told(path_, [&] {
            SQLite::Statement keys(file_,
                                   "SELECT _rowid_ FROM " + known(table) + " ORDER BY _rowid_");
            std::vector<RowKey> found;
            while (keys.executeStep()) found.push_back(keys.getColumn(0).getInt64());
            return found;
        });
    }

    [[nodiscard]] TableRow row(const std::string& table, RowKey key) override {
        return told(path_, [&] {
            SQLite::Statement one(file_, "SELECT * FROM " + known(table) + " WHERE _rowid_ = ?");
            one.bind(1, key);
            if (!one.executeStep())
                throw InputError(at(path_, Reason(row_is_gone, {table})),
                                 PlatformFault::NoCurrentRecord);
            return read(one, columns_of(table), 0);
        });
    }

    void each_row(const std::string& table, std::span<const std::string> columns,
                  const std::function<bool(RowKey, const TableRow&)>& take) override {
        told(path_, [&] {
            std::vector<ColumnFacts> wanted;
            std::string list = "_rowid_";
            const auto all = columns_of(table);
            for (const std::string& column : columns) {
                const auto found =
                    std::find_if(all.begin(), all.end(), [&](const ColumnFacts& candidate) {
                        return same_name(candidate.name, column);
                    });
                // A column that the table lacks is Null in every row.
                wanted.push_back(found == all.end() ? ColumnFacts{column, false} : *found);
                list += found == all.end() ? ", NULL" : ", " + in_statement(found->name);
            }
            SQLite::Statement each(file_, "SELECT " + list + " FROM " + known(table) +
                                              " ORDER BY _rowid_");
            while (each.executeStep())
                if (!take(each.getColumn(0).getInt64(), read(each, wanted, 1))) break;
        });
    }

    void create_table(const std::string& table, std::span<const TableColumn> columns) override {
        told(path_, [&] {
            if (is_there(table))
                throw InputError(at(path_, Reason(table_is_there, {table})),
                                 PlatformFault::TableExists, table);
            std::string list;
            for (const TableColumn& column : columns)
                list +=
                    (list.empty() ? "" : ", ") + in_statement(column.name) + " " + declared(column);
            file_.exec("CREATE TABLE " + in_statement(table) + " (" + list + ")");
        });
    }

    void add_row(const std::string& table, std::span<const NamedValue> values) override {
        told(path_, [&] {
            const std::string name = known(table);
            const auto same = [](const NamedValue& value, const std::string& column) {
                return value.first == column;
            };
            // Rows come in series: all but the first find their statement made. One that fails is
            // not used again.
            auto adding = std::move(adding_);
            if (!adding || adding->table != name ||
                !std::equal(values.begin(), values.end(), adding->columns.begin(),
                            adding->columns.end(), same))
                adding = std::make_unique<Adding>(file_, name, values);
            for (int place = 0; const auto& [column, value] : values)
                bind(adding->row, ++place, value);
            adding->row.exec();
            adding->row.reset();
            adding_ = std::move(adding);
        });
    }

    void delete_row(const std::string& table, RowKey key) override {
        told(path_, [&] {
            SQLite::Statement gone(file_, "DELETE FROM " + known(table) + " WHERE _rowid_ = ?");
            gone.bind(1, key);
            gone.exec();
        });
    }

    void drop_table(const std::string& table) override {
        told(path_, [&] { file_.exec("DROP TABLE " + known(table)); });
    }

    void whole(const std::function<void()>& body) override {
        told(path_, [&] {
            SQLite::Transaction transaction(file_, SQLite::TransactionBehavior::IMMEDIATE);
            body();
            transaction.commit();
        });
    }

private:
    struct ColumnFacts {
        std::string name;
        bool single;  // held at 32 bits
    };

    /// What adds a row with values in certain columns.
    struct Adding {
        Adding(SQLite::Database& file, const std::string& to, std::span<const NamedValue> values)
            : table(to), row(file, statement(to, values)) {
            for (const auto& [column, value] : values) columns.push_back(column);
        }

        static std::string statement(const std::string& table, std::span<const NamedValue> values) {
            if (values.empty()) return "INSERT INTO " + table + " DEFAULT VALUES";
            std::string names;
            std::string places;
            for (const auto& [column, value] : values) {
                names += (names.empty() ? "" : ", ") + in_statement(column);
                places += places.empty() ? "?" : ", ?";
            }
            return "INSERT INTO " + table + " (" + names + ") VALUES (" + places + ")";
        }

        std::string table;
        std::vector<std::string> columns;
        SQLite::Statement row;
    };

    [[nodiscard]] bool is_there(const std::string& table) const {
        SQLite::Statement names(file_, "SELECT count(*) FROM sqlite_schema WHERE type = 'table' "
                                       "AND name = ? COLLATE NOCASE");
        names.bind(1, table);
        return names.executeStep() && names.getColumn(0).getInt() > 0;
    }

    /// The name of a table as it stands in a statement.
    [[nodiscard]] std::string known(const std::string& table) const {
        if (!is_there(table))
            throw InputError(at(path_, Reason(no_table, {table})), PlatformFault::NoRecords, table);
        return in_statement(table);
    }

    [[nodiscard]] std::vector<ColumnFacts> columns_of(const std::string& table) const {
        SQLite::Statement facts(file_, "SELECT name, type FROM pragma_table_info(?)");
        facts.bind(1, table);
        std::vector<ColumnFacts> columns;
        while (facts.executeStep())
            columns.push_back({facts.getColumn(0).getString(),
                               same_name(facts.getColumn(1).getString(), "Single")});
        return columns;
    }

    static TableRow read(const SQLite::Statement& statement,
                         const std::vector<ColumnFacts>& columns, int first) {
        TableRow row;
        for (int place = first; const ColumnFacts& column : columns)
            row.push_back(text_of(statement.getColumn(place++), column.single));
        return row;
    }

    std::string path_;
    mutable SQLite::Database file_;
    std::unique_ptr<Adding> adding_;  // the last one
};

/// An empty file that nobody else made.
void make_file(const std::string& path) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file >= 0) {
        ::close(file);
        return;
    }
    const int why = errno;
    const PlatformFault fault = why == EEXIST   ? PlatformFault::DatabaseExists
                                : why == ENOENT ? PlatformFault::PathMissing
                                : why == ENOSPC ? PlatformFault::DiskFull
                                                : PlatformFault::DatabaseDenied;
    throw InputError(path + ": " + std::strerror(why), fault, path);
}

}  // namespace

std::unique_ptr<Database> SqliteStore::open(const std::string& path) {
    return told(path, [&] { return std::make_unique<SqliteDatabase>(path); });
}

std::unique_ptr<Database> SqliteStore::create(const std::string& path) {
    make_file(path);
    try {
        return told(path, [&] {
            SQLite::Database file(path, SQLite::OPEN_READWRITE, patience);
            file.exec("PRAGMA application_id = " + std::to_string(application_id));
            file.exec("PRAGMA user_version = " + std::to_string(format));
            return std::make_unique<SqliteDatabase>(path);
        });
    } catch (const PlatformError&) {
        ::unlink(path.c_str());
        throw;
    }
}

}  // namespace zel
