#include "persistence/database/saving.h"

#include <filesystem>

namespace zel {

NewDatabase::~NewDatabase() {
    database_.reset();
    std::error_code gone_already;
    if (!kept_) std::filesystem::remove(path_, gone_already);
}

void save_in_new_table(Database& database, const TableFormat& format, const std::string& table,
                       std::span<const NamedValue> row) {
    database.whole([&] {
        format.create(database, table);
        database.add_row(table, row);
    });
}

}  // namespace zel
