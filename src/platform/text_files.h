#pragma once

#include <functional>
#include <optional>
#include <string>

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

}  // namespace zel
