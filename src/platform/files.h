#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zel {

/// Files that several programs change, each as one text.
class TextFiles {
public:
    virtual ~TextFiles() = default;

    /// The content of the file at `path`; nothing where there is none that can be read.
    [[nodiscard]] virtual std::optional<std::string> read(const std::string& path) const = 0;

    /// Replaces the content by what `edit` makes of it (of an empty text where there is no file),
    /// whole or not at all, and makes the folder where it is missing. No other `update` of the
    /// file, in this process or another, comes between reading and writing. An unchanged text is
    /// not written. Throws `OutputError` with path and reason.
    virtual void update(const std::string& path,
                        const std::function<std::string(const std::string&)>& edit) = 0;
};

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
