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

Reason::Reason(const Text& text, std::initializer_list<std::string_view> values)
    : de(fill(text.in(LangId::German), values)), en(fill(text.in(LangId::English), values)) {}

Reason filled(const Text& text, const Reason& value) {
    Reason reason(text, {value.de});
    reason.en = fill(text.in(LangId::English), {value.en});
    return reason;
}

Reason at(const Reason& place, const Reason& reason) {
    Reason both = place;
    both.de += ": " + reason.de;
    both.en += ": " + reason.en;
    return both;
}

std::string shortened(std::string_view text, std::size_t most) {
    if (text.size() <= most) return std::string(text);
    std::size_t end = most;
    // UTF-8: further bytes of a character begin with the bits 10.
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
    return std::string(text.substr(0, end)) + "...";
}

std::string in_quotes(std::string_view text) { return "\"" + shortened(text) + "\""; }

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

std::string in_one_line(std::string_view lines) {
    std::string text;
    for (const std::string& line : lines_of(lines)) {
        if (!text.empty()) text += ' ';
        text += without_outer_blanks(line);
    }
    return text;
}

bool same_name(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char x, char y) { return lower(x) == lower(y); });
}

bool has_ending(std::string_view name, std::string_view ending) {
    return name.size() > ending.size() &&
           same_name(name.substr(name.size() - ending.size()), ending);
}

}  // namespace zel
