#include "adapters/sqlite/sqlite_store.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <filesystem>
#include <limits>

#include "adapters/posix/descriptor.h"
#include "adapters/posix/text_file.h"
#include "platform/errors.h"
#include "platform/text/number_text.h"
#include "platform/text/text.h"

namespace zel {
namespace {

constexpr int patience = 200;  // ms that another program may hold the file
/// Marks a file as ours for tools that tell kinds of files apart: "ZELC".
constexpr int application_id = 0x5A454C43;
constexpr int format = 1;

/// Bytes of a value and of a row. No column of this program holds more than a kilobyte; what
/// another one has put into its tables may make a value of any size out of a few bytes.
constexpr int largest_value = 16 << 20;

constexpr Text value_too_large = {"eine Zeile oder ein Wert ist größer als {0} MiB",
                                  "a row or a value is larger than {0} MiB"};
constexpr Text row_is_gone = {"{0}: die Zeile gibt es nicht mehr",
                              "{0}: the row is not there any more"};
constexpr Text table_is_there = {"es gibt schon eine Tabelle {0}", "there is a table {0}"};
constexpr std::string_view engine_prefix = "sqlite_";
constexpr Text name_of_engine = {"{0}: Namen, die mit {1} beginnen, braucht die Datenbank selbst",
                                 "{0}: names that begin with {1} are those of the database itself"};
constexpr Text empty_file = {"die Datei ist leer", "the file is empty"};
constexpr Text no_path = {"der Name einer Datei fehlt", "the name of a file is missing"};
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

/// What the engine reports in the words of the system, where it has some, and what can be done. The
/// engine takes back what it has begun.
Reason reason_of(int code, const char* told) {
    static constexpr Text unchanged = {"die Datenbank ist unverändert",
                                       "the database is unchanged"};
    switch (code & 0xFF) {
        case SQLITE_FULL: return write_failure(system_reason(ENOSPC), ENOSPC, unchanged);
        case SQLITE_IOERR: return write_failure(system_reason(EIO), EIO, unchanged);
        case SQLITE_READONLY:
        case SQLITE_PERM: return write_failure(system_reason(EACCES), EACCES, unchanged);
        case SQLITE_LOCKED:
        case SQLITE_BUSY: return write_failure(told, EBUSY, unchanged);
        default: return told;
    }
}

/// Runs `body`; what SQLite reports becomes the failure of the file at `path`.
template <class Body>
auto told(const std::string& path, const Body& body) {
    try {
        return body();
    } catch (const SQLite::Exception& error) {
        const int code = error.getExtendedErrorCode();
        if (error.getErrorCode() == SQLITE_TOOBIG)
            throw InputError(
                at(path, Reason(value_too_large, {std::to_string(largest_value >> 20)})));
        throw InputError(at(path, reason_of(code, error.what())), fault_of(code, path));
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
    const double number = value.getDouble();
    // Others may have put a number there that the column has no room for.
    const bool fits = std::abs(number) <= static_cast<double>(std::numeric_limits<float>::max());
    return single && fits ? exact_number(static_cast<float>(number)) : exact_number(number);
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

/// The path from the root on: some relative ones mean other things to the engine than files.
std::string path_for_engine(const std::string& path) {
    return std::filesystem::absolute(path).string();
}

class SqliteDatabase : public Database {
public:
    explicit SqliteDatabase(const std::string& path)
        : path_(path), file_(path_for_engine(path), SQLite::OPEN_READWRITE, patience) {
        limit_what_others_wrote();
        // Opening reads nothing; whether this is a database shows at the first question.
        (void)file_.execAndGet("SELECT count(*) FROM sqlite_schema");
    }

    /// A new one. Nobody else knows the file, and nobody misses what a program that dies has begun:
    /// it needs neither locks nor a journal on the disk.
    SqliteDatabase(std::string path, std::unique_ptr<NewFile> file)
        : path_(std::move(path)),
          new_file_(std::move(file)),
          file_(path_for_engine(new_file_->path()), SQLite::OPEN_READWRITE, patience, "unix-none") {
        (void)file_.execAndGet("PRAGMA journal_mode = MEMORY");
        file_.exec("PRAGMA application_id = " + std::to_string(application_id));
        file_.exec("PRAGMA user_version = " + std::to_string(format));
    }

    [[nodiscard]] bool writable() const override {
        return sqlite3_db_readonly(file_.getHandle(), "main") == 0;
    }

    [[nodiscard]] std::vector<TableInfo> tables() override {
        return told(path_, [&] {
            std::vector<TableInfo> found;
            // Tables without numbered rows, which only other programs make, cannot be browsed.
            SQLite::Statement names(
                file_,
                "SELECT s.name FROM sqlite_schema AS s JOIN pragma_table_list AS l ON l.name = "
                "s.name AND l.schema = 'main' WHERE l.type = 'table' AND l.wr = 0 AND s.type = "
                "'table' AND s.name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY s.rowid");
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
            if (same_name(table.substr(0, engine_prefix.size()), engine_prefix))
                throw InputError(at(path_, Reason(name_of_engine, {table, engine_prefix})));
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

    void put_in_place() override {
        if (new_file_) new_file_->put_in_place();
    }

private:
    /// A table may hold expressions, which are worked out where it is read.
    void limit_what_others_wrote() {
        sqlite3* const handle = file_.getHandle();
        sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
        sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
        sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, largest_value);
    }

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
        // Those that are worked out too, as a whole row has them.
        SQLite::Statement facts(file_,
                                "SELECT name, type FROM pragma_table_xinfo(?) WHERE hidden <> 1");
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
    std::unique_ptr<NewFile> new_file_;  // while it is not in its place
    mutable SQLite::Database file_;
    std::unique_ptr<Adding> adding_;  // the last one
};

}  // namespace

std::unique_ptr<Database> SqliteStore::open(const std::string& path) {
    if (path.empty()) throw InputError(Reason(no_path), PlatformFault::DatabaseMissing);
    // The engine takes it for a database without tables, but all of ours hold more.
    std::error_code failed;
    if (std::filesystem::is_regular_file(path, failed) &&
        std::filesystem::file_size(path, failed) == 0)
        throw InputError(at(path, Reason(empty_file)), PlatformFault::NotADatabase);
    return told(path, [&] { return std::make_unique<SqliteDatabase>(path); });
}

std::unique_ptr<Database> SqliteStore::create(const std::string& path) {
    if (!path.empty() && exists(path))
        throw InputError(at(path, system_reason(EEXIST)), PlatformFault::DatabaseExists, path);
    try {
        auto file = std::make_unique<NewFile>(path, NewFile::Over::Nothing);
        return told(path, [&] { return std::make_unique<SqliteDatabase>(path, std::move(file)); });
    } catch (const OutputError& error) {
        const bool denied = error.fault() == PlatformFault::AccessDenied;
        throw InputError(error.reason(), denied ? PlatformFault::DatabaseDenied : error.fault(),
                         path);
    }
}

}  // namespace zel
