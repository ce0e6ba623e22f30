#include "reports/text_lines.h"

#include "platform/text/text.h"

namespace zel {
namespace {

/// The first byte of the character behind the one at `at`.
std::size_t next_character(std::string_view text, std::size_t at) {
    do ++at;
    while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U);
    return at;
}

/// How much of the beginning of `text` fits into a line: whole words, at least one character.
std::size_t fitting_length(const Canvas& canvas, std::string_view text, const Font& font,
                           double width) {
    if (canvas.text_width(text, font) <= width) return text.size();
    std::size_t fitting = 0;
    std::size_t words = 0;
    for (std::size_t end = next_character(text, 0); end <= text.size();
         end = next_character(text, end)) {
        if (canvas.text_width(text.substr(0, end), font) > width) break;
        fitting = end;
        if (end < text.size() && text[end] == ' ') words = end;
        if (end == text.size()) break;
    }
    if (words > 0) return words;
    return fitting > 0 ? fitting : next_character(text, 0);
}

}  // namespace

std::vector<std::string> broken_lines(const Canvas& canvas, std::string_view text, const Font& font,
                                      double width) {
    std::vector<std::string> lines;
    if (text.empty()) return lines;
    for (const std::string& whole : lines_of(text)) {
        std::string_view rest = whole;
        do {
            const std::size_t length = fitting_length(canvas, rest, font, width);
            lines.emplace_back(rest.substr(0, length));
            rest.remove_prefix(length);
            while (!rest.empty() && rest.front() == ' ') rest.remove_prefix(1);
        } while (!rest.empty());
    }
    return lines;
}

FittedLines fitted_lines(const Canvas& canvas, std::string_view text, const Font& font,
                         double width, double height) {
    constexpr int smallest = 4;  // points
    FittedLines fitted;
    for (fitted.font = font;; --fitted.font.size) {
        fitted.lines = broken_lines(canvas, text, fitted.font, width);
        const double needed =
            static_cast<double>(fitted.lines.size()) * canvas.text_height(fitted.font);
        if (needed <= height || fitted.font.size <= smallest) return fitted;
    }
}

}  // namespace zel
