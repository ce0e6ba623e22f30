#pragma once

#include <string>
#include <vector>

namespace zel {

/// What a run of the program left behind.
struct ProcessResult {
    int exit_status = -1;
    std::string output;  // standard output
    std::string errors;  // standard error
};

/// Runs the built program, or `program`, with `arguments`, `input` on its standard input, in the
/// folder `directory`, without a display. The home is `home`, or where that is empty a folder that
/// is not there.
[[nodiscard]] ProcessResult run_zel(const std::vector<std::string>& arguments,
                                    const std::string& directory, const std::string& input = {},
                                    const std::string& home = {},
                                    const std::string& program = ZEL_PROGRAM);

}  // namespace zel
