#include "adapters/access/access_store.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>

#include "adapters/access/reader_process.h"
#include "adapters/access/wire.h"
#include "platform/errors.h"
#include "platform/text/utf8.h"

namespace zel {
namespace {

using namespace access;

constexpr Text damaged = {"die Access-Datei ist beschädigt und kann nicht gelesen werden",
                          "the Access file is damaged and cannot be read"};
constexpr Text takes_too_long = {
    "die Access-Datei läßt sich nicht in {0} s lesen; vermutlich ist sie beschädigt",
    "the Access file cannot be read within {0} s; it is probably damaged"};
constexpr Text encrypted = {
    "die Access-Datei ist verschlüsselt; heben Sie die Verschlüsselung in Access auf",
    "the Access file is encrypted; take the encryption away in Access"};
constexpr Text only_read = {
    "eine Access-Datei wird nur gelesen; übernehmen Sie ihre Tabellen in eine neue Datenbank "
    "(zel db import ALT.mdb NEU.mdb) und speichern Sie dort",
    "an Access file is only read; import its tables into a new database "
    "(zel db import OLD.mdb NEW.mdb) and save there"};
constexpr Text no_reader = {"Access-Dateien können nicht gelesen werden, es fehlt {0}",
                            "Access files cannot be read, {0} is missing"};
constexpr Text row_is_gone = {"{0}: die Zeile gibt es nicht mehr",
                              "{0}: the row is not there any more"};
constexpr Text no_table = {"es gibt keine Tabelle {0}", "there is no table {0}"};

/// More than a file of the largest size can hold.
constexpr std::uint64_t most_tables = 32'768;
constexpr std::size_t most_rows = 100'000'000;
constexpr auto all_rows = std::numeric_limits<std::uint64_t>::max();

/// A file that is open for reading.
class OpenFile {
public:
    explicit OpenFile(const std::string& path)
        : number_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
        if (number_ >= 0) return;
        const PlatformFault fault = errno == ENOENT || errno == ENOTDIR
                                        ? PlatformFault::DatabaseMissing
                                        : PlatformFault::DatabaseDenied;
        throw InputError(path + ": " + std::strerror(errno), fault);
    }
    ~OpenFile() { ::close(number_); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    [[nodiscard]] int number() const { return number_; }

private:
    int number_;
};

Message question_of(Question kind) { return Message().number(static_cast<std::uint64_t>(kind)); }

std::string checked(std::string text) {
    if (!is_utf8(text)) throw Nonsense();
    return text;
}

std::optional<std::string> checked(std::optional<std::string> cell) {
    if (cell && !is_utf8(*cell)) throw Nonsense();
    return cell;
}

/// The reader of one file.
class FileReader {
    /// What becomes of the reader in `body` is told as the failure of the file.
    template <class Body>
    auto told(const Body& body) const {
        try {
            return body();
        } catch (const Nonsense&) {
            throw InputError(at(path_, Reason(damaged)));
        } catch (const Outcome& failure) {
            throw InputError(
                at(path_, Reason(failure == Outcome::Encrypted ? encrypted : damaged)));
        } catch (const ReaderProcess::End& end) {
            if (end == ReaderProcess::End::NotStarted)
                throw InputError(at(path_, Reason(no_reader, {program_})));
            const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(limit_).count();
            throw InputError(at(path_, end == ReaderProcess::End::Broken
                                           ? Reason(damaged)
                                           : Reason(takes_too_long, {std::to_string(seconds)})));
        }
    }

public:
    FileReader(const std::string& path, const std::string& program, std::chrono::milliseconds limit)
        : path_(path), program_(program), limit_(limit) {
        told([&] { process_.emplace(program, OpenFile(path).number(), limit); });
    }

    /// What the reader answers behind `Done`, taken apart by `read` to its end.
    template <class Read>
    auto ask(const Message& question, const Read& read) {
        return told([&] {
            const std::string bytes = process_->ask(question);
            MessageParts parts(bytes);
            const auto kind = static_cast<Outcome>(parts.number());
            if (kind != Outcome::Done) throw kind;
            auto result = read(parts);
            parts.end();
            return result;
        });
    }

private:
    std::string path_;
    std::string program_;
    std::chrono::milliseconds limit_;
    std::optional<ReaderProcess> process_;
};

class AccessDatabase : public Database {
public:
    AccessDatabase(const std::string& path, const std::string& program,
                   std::chrono::milliseconds limit)
        : path_(path), reader_(path, program, limit) {
        read_tables();
    }

    [[nodiscard]] bool writable() const override { return false; }
    [[nodiscard]] std::vector<TableInfo> tables() override { return tables_; }

    [[nodiscard]] std::vector<RowKey> rows(const std::string& table) override {
        std::vector<RowKey> keys;
        each_row(table, {}, [&](RowKey key, const TableRow&) {
            keys.push_back(key);
            return true;
        });
        return keys;
    }

    [[nodiscard]] TableRow row(const std::string& table, RowKey key) override {
        const std::size_t place = known(table);
        const Rows found = read_rows(place, static_cast<std::uint64_t>(key), 1,
                                     wanted(place, tables_[place].columns));
        if (found.rows.empty() || found.rows.front().first != key)
            throw InputError(at(path_, Reason(row_is_gone, {table})),
                             PlatformFault::NoCurrentRecord);
        return found.rows.front().second;
    }

    void each_row(const std::string& table, std::span<const std::string> columns,
                  const std::function<bool(RowKey, const TableRow&)>& take) override {
        const std::size_t place = known(table);
        const Columns places = wanted(place, columns);
        std::uint64_t from = 0;
        for (Rows found; found.more;
             from = static_cast<std::uint64_t>(found.rows.back().first) + 1) {
            found = read_rows(place, from, all_rows, places);
            for (const auto& [key, values] : found.rows)
                if (!take(key, values)) return;
            if (found.rows.empty()) return;
        }
    }

    void create_table(const std::string& /*table*/,
                      std::span<const TableColumn> /*columns*/) override {
        refuse();
    }
    void add_row(const std::string& /*table*/, std::span<const NamedValue> /*values*/) override {
        refuse();
    }
    void delete_row(const std::string& /*table*/, RowKey /*key*/) override { refuse(); }
    void drop_table(const std::string& /*table*/) override { refuse(); }
    void whole(const std::function<void()>& /*body*/) override { refuse(); }

private:
    using Columns = std::vector<std::optional<std::size_t>>;
    struct Rows {
        bool more = true;
        std::vector<std::pair<RowKey, TableRow>> rows;
    };

    [[noreturn]] void refuse() const { throw InputError(at(path_, Reason(only_read))); }

    void read_tables() {
        tables_ = reader_.ask(question_of(Question::Tables), [](MessageParts& parts) {
            std::vector<TableInfo> tables(parts.number(most_tables));
            for (TableInfo& table : tables) {
                table.name = checked(parts.text());
                table.counted_rows = parts.number(most_rows);
                table.columns.resize(parts.number(most_columns));
                for (std::string& column : table.columns) column = checked(parts.text());
            }
            return tables;
        });
    }

    /// The place of `table` among the tables.
    [[nodiscard]] std::size_t known(const std::string& table) const {
        for (std::size_t place = 0; place < tables_.size(); ++place)
            if (same_name(tables_[place].name, table)) return place;
        throw InputError(at(path_, Reason(no_table, {table})), PlatformFault::NoRecords, table);
    }

    /// The places of `columns`; a column that the table lacks is Null in every row.
    [[nodiscard]] Columns wanted(std::size_t table, std::span<const std::string> columns) const {
        Columns places;
        for (const std::string& column : columns)
            places.push_back(place_of(tables_[table].columns, column));
        return places;
    }

    /// The first rows from `from` on, `most` or as many as one answer holds.
    Rows read_rows(std::size_t table, std::uint64_t from, std::uint64_t most,
                   const Columns& columns) {
        const auto there = static_cast<std::uint64_t>(
            std::count_if(columns.begin(), columns.end(), [](const auto& c) { return c; }));
        Message question = question_of(Question::Rows);
        question.number(table).number(from).number(most).number(there);
        for (const auto& column : columns)
            if (column) question.number(*column);
        return reader_.ask(question, [&](MessageParts& parts) {
            Rows found;
            found.more = parts.number(1) == 1;
            const std::uint64_t count = parts.number(most_rows);
            if (found.more && count == 0) throw Nonsense();
            for (std::uint64_t row = 0; row < count; ++row) {
                const std::uint64_t key = parts.number(std::numeric_limits<RowKey>::max() - 1);
                if (key < from) throw Nonsense();
                from = key + 1;
                TableRow values;
                for (const auto& column : columns)
                    values.push_back(column ? checked(parts.cell()) : std::nullopt);
                found.rows.emplace_back(static_cast<RowKey>(key), std::move(values));
            }
            return found;
        });
    }

    std::string path_;
    FileReader reader_;
    std::vector<TableInfo> tables_;
};

}  // namespace

std::unique_ptr<Database> AccessStore::open(const std::string& path) {
    return std::make_unique<AccessDatabase>(path, reader_, limit_);
}

std::unique_ptr<Database> AccessStore::create(const std::string& path) {
    throw InputError(at(path, Reason(only_read)));
}

bool begins_as_access_file(std::string_view bytes) {
    constexpr std::string_view marks[] = {"Standard Jet DB", "Standard ACE DB"};
    constexpr std::size_t place = 4;
    for (const std::string_view mark : marks)
        if (bytes.size() >= place && bytes.substr(place).starts_with(mark)) return true;
    return false;
}

}  // namespace zel
