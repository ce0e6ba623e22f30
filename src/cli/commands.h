#pragma once

#include <string>

#include "cli/options.h"

// One function per command, each giving the exit status. They throw `InputError` where the input
// cannot be read.

namespace zel {

int steady_command(const std::string& case_path, const CommonOptions& options);

/// With `series` the course of the temperature is told too.
int transient_command(const std::string& case_path, bool series, const CommonOptions& options);

int short_circuit_command(const std::string& case_path, const CommonOptions& options);

int settings_list_command(const CommonOptions& options);
int settings_get_command(const std::string& key, const CommonOptions& options);
int settings_set_command(const std::string& key, const std::string& value,
                         const CommonOptions& options);

/// `case_path` may be empty: the windows then open without a case.
int desktop_command(int& argc, char** argv, const std::string& case_path,
                    const CommonOptions& options);

}  // namespace zel
