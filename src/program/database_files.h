#pragma once

#include "adapters/access/access_store.h"
#include "adapters/sqlite/sqlite_store.h"

namespace zel {

/// The databases of the disk, whatever they are called: files that begin as Access files are opened
/// as such and only read, all others are databases of this program. Those are made too.
class DatabaseFiles : public TableStore {
public:
    DatabaseFiles();

    [[nodiscard]] std::unique_ptr<Database> open(const std::string& path) override;
    [[nodiscard]] std::unique_ptr<Database> create(const std::string& path) override;

private:
    SqliteStore own_;
    AccessStore access_;
};

}  // namespace zel
