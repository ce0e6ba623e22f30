#pragma once

#include <stdexcept>
#include <string>

namespace zel {

/// Thrown where the program must end. It is caught in one place: exit status 3 on the command
/// line, an orderly shutdown on the desktop. What is open (files, tables, a batch workbook) is
/// closed unsaved on the way out by its owner. `what()` is the reason.
class ProgramEnd : public std::runtime_error {
public:
    explicit ProgramEnd(const std::string& reason) : std::runtime_error(reason) {}
};

}  // namespace zel
