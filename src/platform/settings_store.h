#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zel {

/// A file of named values in sections, which other programs read and write too.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// The value of the first `key` in `section`, both without regard to case, without the blanks
    /// around it; nothing where it is missing. A file that cannot be read is an empty file.
    [[nodiscard]] virtual std::optional<std::string> read(std::string_view section,
                                                          std::string_view key) const = 0;

    /// Sets one value and leaves everything else as it is, whole or not at all, also where others
    /// write at the same time. A key that is there keeps its spelling. Throws `OutputError`.
    virtual void write(std::string_view section, std::string_view key, std::string_view value) = 0;
};

}  // namespace zel
