#pragma once

#include <optional>
#include <string>

namespace zel {

/// Who asks for the path of a case file: a window, or the script of a test. Nothing is given back
/// where the user wants none. The question starts at the path `present`, which may be empty.
class FileChooser {
public:
    virtual ~FileChooser() = default;
    [[nodiscard]] virtual std::optional<std::string> file_to_open(const std::string& present) = 0;
    [[nodiscard]] virtual std::optional<std::string> file_to_save(const std::string& present) = 0;
};

}  // namespace zel
