#include "adapters/ini/profile_text.h"

#include <algorithm>
#include <stdexcept>

#include "platform/text/text.h"

namespace zel {
namespace {

constexpr std::string_view blanks = " \t\v\f";
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool quoted(std::string_view value) {
    return value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
           value.back() == value.front();
}

/// Where a key was found, or where it would have to stand.
struct Place {
    bool section_found = false;
    bool key_found = false;
    std::size_t value_begin = 0;
    std::size_t value_end = 0;
    std::size_t section_end = 0;  // behind the last line of the section that says something
};

/// One line: its bytes from `begin` to `end`, without the line end.
struct Line {
    std::size_t begin, end, next;
};

Line line_at(std::string_view text, std::size_t begin) {
    const std::size_t end = std::min(text.find_first_of("\r\n", begin), text.size());
    const bool crlf = text.substr(end).starts_with("\r\n");
    return {begin, end, std::min(end + (crlf ? 2 : 1), text.size())};
}

/// The name in "[name]"; nothing where the line is no head of a section.
std::optional<std::string_view> section_head(std::string_view line) {
    line = trimmed(line);
    if (!line.starts_with('[')) return std::nullopt;
    return trimmed(line.substr(1, line.find(']') - 1));
}

Place find(std::string_view text, std::string_view section, std::string_view key) {
    Place place;
    bool inside = false;
    std::size_t at = text.starts_with(byte_order_mark) ? byte_order_mark.size() : 0;
    while (at < text.size()) {
        const Line range = line_at(text, at);
        at = range.next;
        const std::string_view line = text.substr(range.begin, range.end - range.begin);
        if (const auto name = section_head(line)) {
            if (place.section_found) return place;  // a second one of the name does not count
            inside = place.section_found = same_name(*name, section);
            place.section_end = range.next;
            continue;
        }
        if (!inside || trimmed(line).empty()) continue;
        place.section_end = range.next;
        const std::size_t sign = line.find('=');
        if (sign == std::string_view::npos || trimmed(line).starts_with(';')) continue;
        if (!same_name(trimmed(line.substr(0, sign)), key)) continue;
        place.key_found = true;
        const std::string_view value = trimmed(line.substr(sign + 1));
        place.value_begin = value.empty() ? range.begin + sign + 1
                                          : static_cast<std::size_t>(value.data() - text.data());
        place.value_end = place.value_begin + value.size();
        return place;
    }
    return place;
}

std::string_view line_end_of(std::string_view text) {
    const std::size_t end = text.find('\n');
    return end != std::string_view::npos && end > 0 && text[end - 1] == '\r' ? "\r\n" : "\n";
}

void check(std::string_view section, std::string_view key, std::string_view value) {
    const auto refuse_unless = [](bool sound) {
        if (!sound) throw std::invalid_argument("no name or value of a profile file");
    };
    constexpr std::string_view line_ends("\r\n\0", 3);
    for (const std::string_view part : {section, key, value})
        refuse_unless(part.find_first_of(line_ends) == std::string_view::npos);
    // Blanks around a name are none of it in the file: it would not be found again.
    for (const std::string_view name : {section, key})
        refuse_unless(!name.empty() && trimmed(name) == name);
    refuse_unless(section.find(']') == std::string_view::npos);
    refuse_unless(key.find('=') == std::string_view::npos);
    refuse_unless(!key.starts_with('[') && !key.starts_with(';'));
}

/// The lines of a key that is missing, to be put in at `at`.
std::string inserted(std::string_view text, std::size_t at, const std::string& lines) {
    const bool open_line = at > 0 && text[at - 1] != '\n' && text[at - 1] != '\r';
    std::string out(text.substr(0, at));
    if (open_line && at > byte_order_mark.size() * text.starts_with(byte_order_mark))
        out += line_end_of(text);
    out += lines;
    out += text.substr(at);
    return out;
}

}  // namespace

std::optional<std::string> profile_value(std::string_view text, std::string_view section,
                                         std::string_view key) {
    const Place place = find(text, section, key);
    if (!place.key_found) return std::nullopt;
    std::string_view value = text.substr(place.value_begin, place.value_end - place.value_begin);
    if (quoted(value)) value = value.substr(1, value.size() - 2);
    return std::string(value);
}

std::string with_profile_value(std::string_view text, std::string_view section,
                               std::string_view key, std::string_view value) {
    check(section, key, value);
    std::string written(trimmed(value));
    if (quoted(written) || written.size() != value.size()) written = '"' + std::string(value) + '"';
    const Place place = find(text, section, key);
    if (place.key_found)
        return std::string(text.substr(0, place.value_begin)) + written +
               std::string(text.substr(place.value_end));
    const std::string end(line_end_of(text));
    const std::string line = std::string(key) + "=" + written + end;
    if (place.section_found) return inserted(text, place.section_end, line);
    return inserted(text, text.size(), "[" + std::string(section) + "]" + end + line);
}

}  // namespace zel
