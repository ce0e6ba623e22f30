#include "platform/text/pasted_number.h"

#include <algorithm>

namespace zel {
namespace {

constexpr std::size_t group = 3;  // digits

bool is_digit(char c) { return c >= '0' && c <= '9'; }

/// Without blanks, of which some are more than one byte; those inside group digits.
std::string without_blanks(std::string_view text) {
    constexpr std::string_view blanks[] = {" ", "\t", "\n", "\r", "\u00a0", "\u2009", "\u202f"};
    std::string kept;
    while (!text.empty()) {
        const auto* const blank =
            std::find_if(std::begin(blanks), std::end(blanks),
                         [&](std::string_view b) { return text.substr(0, b.size()) == b; });
        if (blank == std::end(blanks)) kept += text.front();
        text.remove_prefix(blank == std::end(blanks) ? 1 : blank->size());
    }
    return kept;
}

/// The digits of "1.234.567" with `mark` between its groups; empty where these are not of three.
std::string ungrouped(std::string_view digits, char mark) {
    std::string joined;
    for (std::size_t place = 0; place <= digits.size();) {
        const std::size_t end = std::min(digits.find(mark, place), digits.size());
        const std::string_view part = digits.substr(place, end - place);
        const bool fits = joined.empty() ? !part.empty() && part.size() <= group && part[0] != '0'
                                         : part.size() == group;
        if (!fits || !std::all_of(part.begin(), part.end(), is_digit)) return {};
        joined += part;
        place = end + 1;
    }
    return joined;
}

}  // namespace

std::vector<std::string> readings_of(std::string_view text, DecimalSeparator separator) {
    const bool is_number = parse_number(text, separator).has_value();
    const char own = character(separator);
    const char other = own == ',' ? '.' : ',';
    const std::string number = without_blanks(text);
    const std::size_t first = number.find_first_not_of("+-");
    const std::size_t end = std::min(number.find_first_of("eE"), number.size());
    if (first == std::string::npos || first > 1 || first >= end) return {};
    const std::string body = number.substr(first, end - first);
    std::vector<std::string> readings;
    const auto read_as = [&](const std::string& meant) {
        const std::string reading = number.substr(0, first) + meant + number.substr(end);
        if (!meant.empty() && parse_number(reading, separator)) readings.push_back(reading);
    };
    // The last mark parts the fraction, if it comes once; any other parts groups.
    const std::size_t last = body.find_last_of(".,");
    if (is_number) {
        const std::string whole = last == std::string::npos ? "" : ungrouped(body, own);
        if (!whole.empty()) readings.push_back(number);
        read_as(whole);
        return readings;
    }
    if (last == std::string::npos) {
        read_as(body);
        return readings;
    }
    const char mark = body[last];
    const std::string before = body.substr(0, last);
    const std::string fraction = body.substr(last + 1);
    const char grouping = mark == own ? other : own;
    if (before.find(mark) != std::string::npos) {
        read_as(ungrouped(body, mark));
    } else if (before.find(grouping) != std::string::npos) {
        const std::string whole = ungrouped(before, grouping);
        if (!whole.empty()) read_as(whole + own + fraction);
    } else {
        read_as(before + own + fraction);
        if (mark == other) read_as(ungrouped(body, mark));
    }
    return readings;
}

}  // namespace zel
