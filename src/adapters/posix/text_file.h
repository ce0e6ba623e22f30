#pragma once

#include <string>
#include <string_view>

namespace zel {

/// Whether something stands at `path`.
[[nodiscard]] bool file_exists(const std::string& path);

/// The content of the file at `path`, or of standard input where `path` is "-".
/// Throws `InputError` with path and reason where it cannot be read, or is larger than 16 MiB.
[[nodiscard]] std::string read_text_file(const std::string& path);

/// Makes `text` the content of the file at `path`, whole or not at all: it is written beside the
/// file, put on the disk, and renamed. A link is followed, and a file that is replaced keeps its
/// mode and, where that can be, its owner, which what is written beside it has from the first byte
/// on. Clears what runs that were killed have left beside the file. Throws `OutputError` with path
/// and reason; the former file is then unchanged.
void write_text_file(const std::string& path, std::string_view text);

}  // namespace zel
