#pragma once

#include <stdexcept>
#include <string>

namespace zel {

/// Input from outside that cannot be taken: an unreadable file, an unknown key, a value of the
/// wrong kind. `what()` names the place (file, key, row) and the limit. Nothing was calculated or
/// written.
class InputError : public std::runtime_error {
public:
    explicit InputError(const std::string& reason) : std::runtime_error(reason) {}
};

}  // namespace zel
