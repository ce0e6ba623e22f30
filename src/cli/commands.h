#pragma once

#include <string>
#include <vector>

#include "cli/options.h"

// One function per command, each giving the exit status. They throw `InputError` where the input
// cannot be read.

namespace zel {

int steady_command(const std::string& case_path, const CommonOptions& options);

struct ConductorListing {
    std::string find;  // words of the designation; empty for all
    std::string sort;  // one of `conductor_sort_keys`; empty for the order of the library
};
[[nodiscard]] std::vector<std::string> conductor_sort_keys();
int conductor_list_command(const ConductorListing& wanted, const CommonOptions& options);
/// Without a path the record goes to the exchange file of the settings.
int conductor_pick_command(const std::string& name, const std::string& record,
                           const CommonOptions& options);
int conductor_show_command(const std::string& record_or_name, const CommonOptions& options);
int conductor_write_command(const std::string& fragment_path, const std::string& record,
                            const CommonOptions& options);

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
