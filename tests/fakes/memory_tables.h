#pragma once

#include <algorithm>
#include <map>

#include "platform/errors.h"
#include "platform/table_store.h"
#include "platform/text/number_text.h"
#include "platform/text/text.h"

// Databases in memory.

namespace zel {

struct MemoryTable {
    std::string name;
    std::vector<std::string> columns;
    std::map<RowKey, TableRow> rows{};
};
using MemoryTables = std::vector<MemoryTable>;

class MemoryDatabase : public Database {
public:
    explicit MemoryDatabase(MemoryTables& tables, bool writable = true)
        : tables_(tables), writable_(writable) {}

    bool writable() const override { return writable_; }
    std::vector<TableInfo> tables() override {
        std::vector<TableInfo> found;
        for (const MemoryTable& table : tables_) found.push_back({table.name, table.columns});
        return found;
    }
    std::vector<RowKey> rows(const std::string& table) override {
        std::vector<RowKey> keys;
        for (const auto& [key, row] : find(table).rows) keys.push_back(key);
        return keys;
    }
    TableRow row(const std::string& table, RowKey key) override {
        const auto& rows = find(table).rows;
        if (!rows.contains(key)) throw InputError(table, PlatformFault::NoCurrentRecord);
        return rows.at(key);
    }
    void each_row(const std::string& table, std::span<const std::string> columns,
                  const std::function<bool(RowKey, const TableRow&)>& take) override {
        const MemoryTable& from = find(table);
        for (const auto& [key, all] : from.rows) {
            TableRow row;
            for (const std::string& column : columns) {
                const auto place = place_of(from.columns, column);
                row.push_back(place ? all[*place] : std::nullopt);
            }
            if (!take(key, row)) return;
        }
    }
    void create_table(const std::string& table, std::span<const TableColumn> columns) override {
        if (place(table) != tables_.end()) throw InputError(table, PlatformFault::TableExists);
        MemoryTable& made = tables_.emplace_back(MemoryTable{table, {}});
        for (const TableColumn& column : columns) made.columns.push_back(column.name);
    }
    void add_row(const std::string& table, std::span<const NamedValue> values) override {
        MemoryTable& to = find(table);
        TableRow row(to.columns.size());
        for (const auto& [name, value] : values)
            row.at(place_of(to.columns, name).value()) = text_of(value);
        to.rows.emplace(to.rows.empty() ? 1 : to.rows.rbegin()->first + 1, std::move(row));
    }
    void delete_row(const std::string& table, RowKey key) override { find(table).rows.erase(key); }
    void drop_table(const std::string& table) override {
        (void)find(table);
        tables_.erase(place(table));
    }
    void whole(const std::function<void()>& body) override {
        if (!writable_) throw InputError("read only", PlatformFault::DatabaseDenied);
        const MemoryTables before = tables_;
        try {
            body();
        } catch (...) {
            tables_ = before;
            throw;
        }
    }

private:
    static std::optional<std::string> text_of(const ColumnValue& value) {
        if (const auto* text = std::get_if<std::string>(&value)) return *text;
        if (const auto* whole = std::get_if<std::int16_t>(&value)) return std::to_string(*whole);
        if (const auto* single = std::get_if<float>(&value)) return exact_number(*single);
        if (const auto* number = std::get_if<double>(&value)) return exact_number(*number);
        return std::nullopt;
    }
    MemoryTables::iterator place(const std::string& name) {
        return std::find_if(tables_.begin(), tables_.end(),
                            [&](const MemoryTable& table) { return same_name(table.name, name); });
    }
    MemoryTable& find(const std::string& name) {
        const auto found = place(name);
        if (found == tables_.end()) throw InputError(name, PlatformFault::NoRecords);
        return *found;
    }

    MemoryTables& tables_;
    bool writable_;
};

/// What is open is the database itself. A path that begins with "/locked/" is only read.
class MemoryTableStore : public TableStore {
public:
    std::unique_ptr<Database> open(const std::string& path) override {
        const auto found = files.find(path);
        if (found == files.end()) throw InputError(path, PlatformFault::DatabaseMissing);
        return std::make_unique<MemoryDatabase>(found->second, !path.starts_with("/locked/"));
    }
    std::unique_ptr<Database> create(const std::string& path) override {
        if (!files.emplace(path, MemoryTables{}).second)
            throw InputError(path, PlatformFault::DatabaseExists);
        return open(path);
    }

    std::map<std::string, MemoryTables> files;
};

}  // namespace zel
