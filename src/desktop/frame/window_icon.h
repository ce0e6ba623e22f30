#pragma once

#include <QIcon>

namespace zel {

/// The program's icon: a line sagging between two towers under the sun.
[[nodiscard]] QIcon window_icon();

}  // namespace zel
