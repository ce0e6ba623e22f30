#pragma once

#include <string>

namespace zel {

/// Starts what runs outside this program.
class Launcher {
public:
    virtual ~Launcher() = default;

    /// Opens a document with the program that the user has for it; false where there is none.
    [[nodiscard]] virtual bool open_document(const std::string& path) = 0;

    /// Starts a program without waiting for it; false where it cannot be started.
    [[nodiscard]] virtual bool start_program(const std::string& path) = 0;
};

}  // namespace zel
