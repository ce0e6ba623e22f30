#include <unistd.h>

#include <filesystem>

#include "adapters/sqlite/sqlite_store.h"
#include "fakes/memory_stores.h"
#include "fakes/scripted_dialogs.h"
#include "fuzz.h"
#include "measuring/measuring_table.h"
#include "persistence/database/case_table.h"
#include "platform/errors.h"
#include "platform/text/text.h"
#include "short_circuit/short_circuit_table.h"

// A byte for the kind of record and the separator, and lines "column=text": a row as any program
// may have written it. The record that is read of it goes through a table of a database.

namespace zel::fuzz {
namespace {

constexpr const char* table_name = "T";

/// A database with a table of each kind, which stays as it is: what is added is taken back.
class Tables {
public:
    Tables() {
        const TableFormat* const formats[] = {&case_tables(), &short_circuit_tables(),
                                              &measuring::measuring_tables()};
        for (const TableFormat* format : formats) {
            const std::string path = folder_ / std::to_string(databases_.size());
            databases_.push_back(SqliteStore().create(path));
            format->create(*databases_.back(), table_name);
            formats_.push_back(format);
        }
    }
    ~Tables() { std::filesystem::remove_all(folder_); }
    Tables(const Tables&) = delete;
    Tables& operator=(const Tables&) = delete;

    /// `row` as it is read again.
    StoredRow stored(std::size_t kind, const std::vector<NamedValue>& row) {
        Database& database = *databases_[kind];
        std::optional<StoredRow> found;
        try {
            database.whole([&] {
                database.add_row(table_name, row);
                const TableInfo table = record_table(database, *formats_[kind], table_name);
                found = stored_row(database, table, database.rows(table_name).back());
                throw TakeBack();
            });
        } catch (const TakeBack&) {
        }
        return *found;
    }

private:
    struct TakeBack {};

    static std::filesystem::path made() {
        std::string name = (std::filesystem::temp_directory_path() / "zel_rows_XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) std::abort();
        return name;
    }

    const std::filesystem::path folder_ = made();
    std::vector<std::unique_ptr<Database>> databases_;
    std::vector<const TableFormat*> formats_;
};

StoredRow row_in(Input& input) {
    TableInfo table{table_name, {}};
    TableRow values;
    while (!input.empty()) {
        const std::string line = input.line();
        const std::size_t sign = std::min(line.find('='), line.size());
        table.columns.push_back(line.substr(0, sign));
        values.emplace_back(line.substr(std::min(sign + 1, line.size())));
    }
    return {table, values};
}

/// A text that was cut may end in blanks, which are no part of it when it is read.
ColumnValue as_read(const ColumnValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    if (text == nullptr || text->empty()) return value;
    std::string read = without_outer_blanks(*text);
    return read.empty() ? " " : read;
}

/// The row of the record of `row`. The record that a table gives back makes the same row again.
template <class RowOfRecordOf>
void through_table(std::size_t kind, const StoredRow& row, const RowOfRecordOf& written) {
    static Tables tables;
    std::vector<NamedValue> first;
    try {
        first = written(row);
    } catch (const InputError&) {
        return;  // a number beyond its column
    }
    const std::vector<NamedValue> second = written(tables.stored(kind, first));
    require(first.size() == second.size(), "a record has the same columns again");
    for (std::size_t i = 0; i < first.size(); ++i)
        require(first[i] == second[i] || as_read(first[i].second) == second[i].second,
                "a value comes back:", first[i].first);
}

std::vector<NamedValue> case_row(const StoredRow& row, DecimalSeparator separator) {
    MemorySettings shared;
    MemorySettings user;
    Settings settings(shared, user, "/data");
    ScriptedDialogs dialogs;
    const Session session = {{LangId::English, separator}, RunMode::Messages, dialogs};
    CalcCase c;
    S30_Access_Daten_einlesen(row, c, settings, session);
    std::vector<CutText> cut;
    return S30_Access_Daten_speichern(c, cut);
}

}  // namespace
}  // namespace zel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zel;
    fuzz::Input input(data, size);
    const std::uint8_t kind = input.byte();
    const auto separator = (kind & 1U) != 0 ? DecimalSeparator::Point : DecimalSeparator::Comma;
    const StoredRow row = fuzz::row_in(input);
    std::vector<CutText> cut;
    switch (kind / 2 % 3) {
        case 0:
            fuzz::through_table(
                0, row, [&](const StoredRow& stored) { return fuzz::case_row(stored, separator); });
            break;
        case 1:
            fuzz::through_table(1, row, [&](const StoredRow& stored) {
                const auto file = KS72_Daten_einlesen(stored, {LangId::English, separator});
                return KS82_Tabellendaten_speichern(file.form.content(), cut);
            });
            break;
        default:
            fuzz::through_table(2, row, [&](const StoredRow& stored) {
                return measuring::row_of(measuring::measured_record(stored, separator), cut);
            });
    }
    return 0;
}
