#pragma once

#include <span>

#include "shell/program_settings.h"

namespace zel {

/// One of the paths that the user may set, each by its own menu entry.
struct PathRole {
    const char* menu_entry;
    Text menu_caption;
    Text window_caption;
    Text line;  // over the path
    TextMember path;
    std::string_view filters;  // see `PathQuestion`
    std::string_view suffix;
};

/// Roles 1 to 4 in their order.
[[nodiscard]] std::span<const PathRole> path_roles();

/// The folder where the question for a path starts: that of the present path, and the root of the
/// file system where that has none.
[[nodiscard]] std::string start_folder(const std::string& path);

}  // namespace zel
