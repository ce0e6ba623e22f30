#pragma once

#include <cstddef>
#include <functional>

namespace zel {

/// Calls `work` for 0 to `count` - 1, on `threads` threads at once (0: one for each processor), and
/// returns when all are done. The first exception comes back; calls that have not begun by then are
/// left out.
void side_by_side(std::size_t count, unsigned threads,
                  const std::function<void(std::size_t)>& work);

}  // namespace zel
