#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zel {

/// What a question for the path of another file shows. A filter has its wording and, behind it in
/// brackets, the patterns that this system knows: "Programs (*.exe) (*)".
struct PathQuestion {
    std::string title;
    std::string folder;        // where it starts; empty for the present one
    std::string_view filters;  // one a line
    std::string_view suffix;   // of a typed name without one; may be empty
    bool existing = false;     // only a file that is there may be chosen
    std::string name{};        // preset; may be a pattern, which is no name yet
};

/// Whether `path` is still the pattern that a question was preset with.
[[nodiscard]] inline bool is_pattern(std::string_view path) {
    return path.find_first_of("*?") != std::string_view::npos;
}

/// Who asks for the path of a case file: a window, or the script of a test. Nothing is given back
/// where the user wants none. The question starts at the path `present`, which may be empty.
class FileChooser {
public:
    virtual ~FileChooser() = default;
    [[nodiscard]] virtual std::optional<std::string> file_to_open(const std::string& present) = 0;
    [[nodiscard]] virtual std::optional<std::string> file_to_save(const std::string& present) = 0;
    /// The path may be of a file that is not there yet, unless the question wants one that is.
    [[nodiscard]] virtual std::optional<std::string> path_to_select(
        const PathQuestion& question) = 0;
};

}  // namespace zel
