#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zel {

/// Lines of a label and a value, the values below each other, as plain text.
class Listing {
public:
    void add(std::string_view label, std::string value);

    /// A line of its own, followed by the rows that belong to it.
    void add_caption(std::string_view caption);

    [[nodiscard]] std::string text() const;

private:
    std::vector<std::pair<std::string, std::string>> rows_;
};

}  // namespace zel
