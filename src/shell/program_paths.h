#pragma once

#include <string>

#include "platform/system_facts.h"

namespace zel {

/// Where the program's files lie.
struct ProgramPaths {
    std::string companion_folder;      // of the conductor application, and of the shared settings
    std::string shared_settings_file;  // "flb_8261.ini"
    std::string data_folder;           // databases
    std::string user_settings_file;    // what belongs to the user alone: the languages
};

[[nodiscard]] ProgramPaths program_paths(const SystemFacts& system);

/// `path` cut back to, and including, its last separator; empty where it has none.
[[nodiscard]] std::string folder_of(const std::string& path);

}  // namespace zel
