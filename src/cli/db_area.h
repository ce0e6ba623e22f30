#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "persistence/database/record_table.h"
#include "program/console.h"

namespace zel {

/// What `zel db` needs of a program area whose records it keeps.
struct DbArea {
    const TableFormat& tables;
    /// The record of a case file as a row. Tells what was cut. Throws `InputError`.
    std::vector<NamedValue> (*load)(const std::string& path, const CommonOptions& options,
                                    Console& console);
    /// A row as a page, or with --json as a case file.
    std::string (*show)(const StoredRow& row, const CommonOptions& options, Console& console);
};

[[nodiscard]] const DbArea& line_area();
[[nodiscard]] const DbArea& short_circuit_area();

}  // namespace zel
