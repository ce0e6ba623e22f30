#include "platform/text/text.h"

#include <algorithm>

namespace zel {

std::string fill(std::string_view pattern, std::initializer_list<std::string_view> values) {
    std::string out;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const bool place = pattern[i] == '{' && i + 2 < pattern.size() && pattern[i + 2] == '}' &&
                           pattern[i + 1] >= '0' && pattern[i + 1] <= '9';
        const std::size_t index = place ? static_cast<std::size_t>(pattern[i + 1] - '0') : 0;
        if (place && index < values.size()) {
            out += *(values.begin() + index);
            i += 2;
        } else {
            out += pattern[i];
        }
    }
    return out;
}

std::vector<std::string> lines_of(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        lines.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
        if (text.empty()) lines.emplace_back();
    }
    return lines;
}

std::string joined(const std::vector<std::string>& lines, std::string_view separator) {
    std::string out;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i > 0) out += separator;
        out += lines[i];
    }
    return out;
}

std::string without_outer_blanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

bool same_name(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char x, char y) { return lower(x) == lower(y); });
}

}  // namespace zel
