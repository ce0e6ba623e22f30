#pragma once

#include "platform/errors.h"

namespace zel {

/// What a number of `errno` means to the program.
[[nodiscard]] PlatformFault posix_fault(int error_number);

}  // namespace zel
