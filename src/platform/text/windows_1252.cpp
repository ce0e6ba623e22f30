#include "platform/text/windows_1252.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/errors.h"
#include "platform/text/utf8.h"

namespace zel {
namespace {

// The characters of the bytes 80 to 9F; every other byte has the number of its character.
constexpr std::array<char32_t, 32> special = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr unsigned first_special = 0x80;

constexpr Text no_utf8 = {"der Text ist kein UTF-8", "the text is no UTF-8"};
constexpr Text no_such_character = {"das Zeichen \"{0}\" gibt es im Zeichensatz Windows-1252 nicht",
                                    "the character \"{0}\" is not in the code page Windows-1252"};

void append_utf8(std::string& out, char32_t character) {
    const auto tail = [&](unsigned shift) {
        out += static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
    };
    if (character < 0x80) {
        out += static_cast<char>(character);
    } else if (character < 0x800) {
        out += static_cast<char>(0xC0U | (character >> 6U));
        tail(0);
    } else {  // no character of the code page is beyond 16 bits
        out += static_cast<char>(0xE0U | (character >> 12U));
        tail(6);
        tail(0);
    }
}

/// Takes the first character off `text`.
char32_t take_character(std::string_view& text) {
    const std::size_t length = character_length(text);
    if (length == 0) throw InputError(Reason(no_utf8));
    const auto lead = static_cast<unsigned char>(text.front());
    char32_t character = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (const char c : text.substr(1, length - 1))
        character = (character << 6U) | (static_cast<unsigned char>(c) & 0x3FU);
    text.remove_prefix(length);
    return character;
}

}  // namespace

std::string utf8_of_windows_1252(std::string_view bytes) {
    std::string out;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const bool is_special = byte >= first_special && byte < first_special + special.size();
        append_utf8(out, is_special ? special[byte - first_special] : byte);
    }
    return out;
}

std::string windows_1252_of(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::string_view rest = text;
        const char32_t character = take_character(text);
        const auto* const found = std::find(special.begin(), special.end(), character);
        if (found != special.end()) {
            out +=
                static_cast<char>(first_special + static_cast<unsigned>(found - special.begin()));
        } else if (character < first_special || (character >= 0xA0 && character <= 0xFF)) {
            out += static_cast<char>(character);
        } else {
            throw InputError(
                Reason(no_such_character, {rest.substr(0, rest.size() - text.size())}));
        }
    }
    return out;
}

}  // namespace zel
