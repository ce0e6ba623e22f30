#pragma once

#include <cstddef>

namespace zel {

/// How often this thread asked for memory so far.
[[nodiscard]] std::size_t allocation_count();

}  // namespace zel
