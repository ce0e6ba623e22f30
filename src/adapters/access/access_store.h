#pragma once

#include <chrono>

#include "platform/table_store.h"

namespace zel {

/// Access files (Jet 3, Jet 4 and .accdb), with a password or without, which are read and never
/// written. They are read by a process of their own, which ends with the `Database`; what is wrong
/// with a file is told, naming it as damaged, and ends nothing else. A change is refused by a text
/// that names a new database as the way.
///
/// Numbers are texts as those of `TableRow`; yes is -1 and no 0; a date is "2026-06-21 12:20:00",
/// without its time where that is midnight. Pictures and other bytes are Null. Rows stand in the
/// order of the pages of the file.
class AccessStore : public TableStore {
public:
    /// `reader` is the path of the reading program. All that is asked of a database may take
    /// `limit`.
    explicit AccessStore(std::string reader,
                         std::chrono::milliseconds limit = std::chrono::seconds(20))
        : reader_(std::move(reader)), limit_(limit) {}

    [[nodiscard]] std::unique_ptr<Database> open(const std::string& path) override;
    /// Always refused.
    [[nodiscard]] std::unique_ptr<Database> create(const std::string& path) override;

private:
    std::string reader_;
    std::chrono::milliseconds limit_;
};

/// Whether the first bytes of a file are those of an Access file.
[[nodiscard]] bool begins_as_access_file(std::string_view bytes);
/// How many bytes that takes.
constexpr std::size_t access_beginning = 19;

}  // namespace zel
