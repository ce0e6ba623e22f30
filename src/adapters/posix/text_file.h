#pragma once

#include <string>

namespace zel {

/// The content of the file at `path`, or of standard input where `path` is "-".
/// Throws `InputError` with path and reason where it cannot be read, or is larger than 16 MiB.
[[nodiscard]] std::string read_text_file(const std::string& path);

}  // namespace zel
