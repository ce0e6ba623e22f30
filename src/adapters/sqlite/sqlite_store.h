#pragma once

#include "platform/table_store.h"

namespace zel {

/// Databases of this program: files of SQLite, whose declared types name the columns' ("Text(100)",
/// "Single"). A change is on the disk when its call returns; a program that dies within one leaves
/// the former state. A row or a value of more than 16 MiB is refused.
class SqliteStore : public TableStore {
public:
    [[nodiscard]] std::unique_ptr<Database> open(const std::string& path) override;
    [[nodiscard]] std::unique_ptr<Database> create(const std::string& path) override;
};

}  // namespace zel
