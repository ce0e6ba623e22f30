#pragma once

#include <functional>
#include <string>

#include "platform/files.h"
#include "shell/recent_files.h"
#include "shell/session.h"

class QMenu;

namespace zel {

/// What a menu of recent files works with.
struct RecentParts {
    RecentFiles& files;
    Files& disk;
    std::function<void(const std::string& path)> open;
};

/// Fills `menu` with the recent files whenever it comes up; a missing one is greyed and says so.
void keep_filled(QMenu& menu, const RecentParts& parts, const Session& session);

}  // namespace zel
