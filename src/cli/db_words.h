#pragma once

#include <string>

#include "cli/db_area.h"

namespace zel {

struct DbWords : CommonOptions {
    bool short_circuit = false;
    std::string file{};
    std::string table{};
    std::int64_t row = 0;
    std::string case_path{};
    std::string new_file{};  // of an import
    bool new_database = false;
    bool new_table = false;
    std::string export_path{};

    [[nodiscard]] const DbArea& area() const {
        return short_circuit ? short_circuit_area() : line_area();
    }
};

/// Refuses the name of a new database that the program keeps for its own. Throws `InputError`.
void refuse_reserved(const DbWords& words, const std::string& path);

/// `zel db import`.
[[nodiscard]] int import_database(const DbWords& words, Console& console);

}  // namespace zel
