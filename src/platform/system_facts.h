#pragma once

#include <string>

namespace zel {

/// What start-up asks of the system that the program runs on.
struct SystemFacts {
    std::string major_version;  // of the operating system, as a number in text
    std::string minor_version;
    std::string build_number;
    std::string data_folder;    // where programs keep data, without a separator at its end
    std::string config_folder;  // where programs keep what a user has chosen
};

}  // namespace zel
