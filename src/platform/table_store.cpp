#include "platform/table_store.h"

#include <algorithm>

#include "platform/text/text.h"

namespace zel {

std::optional<std::size_t> place_of(std::span<const std::string> columns, std::string_view name) {
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const std::string& column) {
        return same_name(column, name);
    });
    if (found == columns.end()) return std::nullopt;
    return static_cast<std::size_t>(found - columns.begin());
}

}  // namespace zel
