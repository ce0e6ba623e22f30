#include "platform/text/utf8.h"

#include <algorithm>

namespace zel {
namespace {

/// The first bytes of characters, and which second bytes go with them.
struct Lead {
    unsigned first, last;
    std::size_t length;
    unsigned least_second = 0x80;
    unsigned most_second = 0xBF;
};

constexpr Lead leads[] = {
    {0x00, 0x7F, 1},       {0xC2, 0xDF, 2},
    {0xE0, 0xE0, 3, 0xA0},                               // shorter ones have two bytes
    {0xE1, 0xEC, 3},       {0xED, 0xED, 3, 0x80, 0x9F},  // no halves of pairs
    {0xEE, 0xEF, 3},       {0xF0, 0xF0, 4, 0x90},        // shorter ones have three bytes
    {0xF1, 0xF3, 4},       {0xF4, 0xF4, 4, 0x80, 0x8F},  // up to U+10FFFF
};

unsigned byte_at(std::string_view text, std::size_t index) {
    return static_cast<unsigned char>(text[index]);
}

bool is_control(std::string_view character) {
    const unsigned first = byte_at(character, 0);
    if (character.size() == 1) return (first < 0x20 && first != '\n') || first == 0x7F;
    return first == 0xC2 && byte_at(character, 1) < 0xA0;
}

}  // namespace

std::size_t character_length(std::string_view text) {
    if (text.empty()) return 0;
    const unsigned first = byte_at(text, 0);
    if (first < 0x80) return 1;
    const auto* const lead = std::find_if(std::begin(leads), std::end(leads), [&](const Lead& l) {
        return l.first <= first && first <= l.last;
    });
    if (lead == std::end(leads) || text.size() < lead->length) return 0;
    const unsigned second = byte_at(text, 1);
    if (second < lead->least_second || second > lead->most_second) return 0;
    for (std::size_t i = 2; i < lead->length; ++i)
        if ((byte_at(text, i) & 0xC0U) != 0x80U) return 0;
    return lead->length;
}

bool is_utf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = character_length(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::size_t width_of(std::string_view text) {
    std::size_t width = 0;
    for (; !text.empty(); ++width)
        text.remove_prefix(std::max<std::size_t>(character_length(text), 1));
    return width;
}

std::string first_characters(std::string_view text, std::size_t count) {
    std::size_t end = 0;
    for (; end < text.size() && count > 0; --count)
        end += std::max<std::size_t>(character_length(text.substr(end)), 1);
    return std::string(text.substr(0, end));
}

std::string printable(std::string_view text) {
    constexpr std::string_view hex = "0123456789ABCDEF";
    std::string out;
    while (!text.empty()) {
        const std::size_t length = character_length(text);
        const std::string_view character = text.substr(0, std::max<std::size_t>(length, 1));
        text.remove_prefix(character.size());
        if (length > 0 && !is_control(character)) {
            out += character;
            continue;
        }
        for (const char c : character) {
            const auto byte = static_cast<unsigned char>(c);
            out += {'\\', 'x', hex[byte >> 4U], hex[byte & 0xFU]};
        }
    }
    return out;
}

}  // namespace zel
