#pragma once

#include <string>

#include "platform/platform_error.h"

namespace zel {

/// Input from outside that cannot be taken: an unreadable file, an unknown key, a value of the
/// wrong kind. `what()` names the place (file, key, row) and the limit. Nothing was calculated or
/// written.
class InputError : public PlatformError {
public:
    explicit InputError(const std::string& reason, PlatformFault fault = PlatformFault::Unforeseen,
                        std::string subject = {})
        : PlatformError(fault, reason, std::move(subject)) {}
};

}  // namespace zel
