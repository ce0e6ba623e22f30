#pragma once

#include <QIcon>

namespace zel {

/// The program's icon, zel.svg, in the usual sizes. An installation has the same file for menus.
[[nodiscard]] QIcon window_icon();

}  // namespace zel
