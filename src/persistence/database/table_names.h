#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/message_box.h"

// Which names tables and databases may have.

namespace zel {

/// The first character of a table's name that it may not have: most signs, umlauts, and the small
/// k. Nothing where all may stand.
[[nodiscard]] std::optional<std::string> refused_character(std::string_view name);

/// Throws `InputError` where a new table cannot have the name.
void refuse_table_name(const std::string& name);

/// What is told of a name of a new database.
struct ReservedName {
    bool refused = false;
    std::optional<Box> box{};  // nothing where it is refused without a word
};

/// Whether `path` is that of a database of the program: one of the three names in the
/// `calculation_folder`, in capitals or small.
[[nodiscard]] ReservedName reserved_case_database(std::string_view path,
                                                  std::string_view calculation_folder, LangId lang);

/// The same of the short-circuit area: a path that ends in one of the three names, in any folder.
/// The text is German in both languages.
[[nodiscard]] ReservedName reserved_short_circuit_database(std::string_view path);

}  // namespace zel
