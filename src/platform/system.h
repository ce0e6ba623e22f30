#pragma once

#include <string>

// The system that the program runs on, and what else runs there.

namespace zel {

/// What start-up asks of the system that the program runs on.
struct SystemFacts {
    std::string major_version;  // of the operating system, as a number in text
    std::string minor_version;
    std::string build_number;
    std::string data_folder;    // where programs keep data, without a separator at its end
    std::string config_folder;  // where programs keep what a user has chosen
};

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
