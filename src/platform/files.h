#pragma once

#include <string>
#include <string_view>

#include "platform/text_files.h"

namespace zel {

/// Files of bytes, each read and replaced as a whole: on a disk, or in the memory of a test.
class Files : public TextFiles {
public:
    [[nodiscard]] virtual bool exists(const std::string& path) = 0;

    /// The content of a file that has to be there. Throws `InputError` with path and reason.
    [[nodiscard]] virtual std::string content(const std::string& path) = 0;

    /// Makes `bytes` the content of the file, whole or not at all. Throws `OutputError` with path
    /// and reason; what stood there before stands there still.
    virtual void write(const std::string& path, std::string_view bytes) = 0;
};

}  // namespace zel
