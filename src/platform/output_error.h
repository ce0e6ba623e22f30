#pragma once

#include <stdexcept>
#include <string>

namespace zel {

/// A file that cannot be written. `what()` names it and the reason; what stood there before stands
/// there still.
class OutputError : public std::runtime_error {
public:
    explicit OutputError(const std::string& reason) : std::runtime_error(reason) {}
};

}  // namespace zel
