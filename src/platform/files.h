#pragma once

#include <string>
#include <string_view>

namespace zel {

/// Files of bytes: on a disk, or in the memory of a test.
class Files {
public:
    virtual ~Files() = default;

    [[nodiscard]] virtual bool exists(const std::string& path) = 0;

    /// The content of a file. Throws `InputError` with path and reason.
    [[nodiscard]] virtual std::string read(const std::string& path) = 0;

    /// Makes `bytes` the content of the file, whole or not at all. Throws `OutputError` with path
    /// and reason; what stood there before stands there still.
    virtual void write(const std::string& path, std::string_view bytes) = 0;

    /// Makes the folder and those above it, where they are missing. Throws `OutputError`.
    virtual void make_folder(const std::string& path) = 0;
};

}  // namespace zel
