#pragma once

#include <string>

#include "platform/platform_error.h"

namespace zel {

/// A file that cannot be written. `what()` names it and the reason; what stood there before stands
/// there still.
class OutputError : public PlatformError {
public:
    explicit OutputError(const std::string& reason, PlatformFault fault = PlatformFault::Unforeseen)
        : PlatformError(fault, reason) {}
};

}  // namespace zel
