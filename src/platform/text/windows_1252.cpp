#include "platform/text/windows_1252.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/errors.h"

namespace zel {
namespace {

// The characters of the bytes 80 to 9F; every other byte has the number of its character.
constexpr std::array<char32_t, 32> special = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr unsigned first_special = 0x80;

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

/// How many bytes the character has that begins with `lead`; 0 for a byte that begins none.
std::size_t length_of(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

/// Takes the first character off `text`.
char32_t take_character(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = length_of(lead);
    if (length == 0 || length > text.size()) throw InputError("the text is no UTF-8");
    char32_t character = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (const char c : text.substr(1, length - 1)) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0U) != 0x80U) throw InputError("the text is no UTF-8");
        character = (character << 6U) | (byte & 0x3FU);
    }
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
            throw InputError("the character \"" +
                             std::string(rest.substr(0, rest.size() - text.size())) +
                             "\" is not in the code page Windows-1252");
        }
    }
    return out;
}

}  // namespace zel
