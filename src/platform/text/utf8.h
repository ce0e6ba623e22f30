#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// UTF-8 as it may come from outside: well-formed or not.

namespace zel {

/// Bytes of the first character of `text`; 0 where none stands there: at the end, and where the
/// bytes are no character, one written longer than it is, half of a pair, or beyond U+10FFFF.
[[nodiscard]] std::size_t character_length(std::string_view text);

[[nodiscard]] bool is_utf8(std::string_view text);

/// How many characters a text has; each byte that belongs to none counts as one.
[[nodiscard]] std::size_t width_of(std::string_view text);

/// The first `count` characters of `text`, or all of it.
[[nodiscard]] std::string first_characters(std::string_view text, std::size_t count);

/// `text` with its control characters, but line feeds, and what is no UTF-8 as "\x1B": what comes
/// from outside must not steer a terminal.
[[nodiscard]] std::string printable(std::string_view text);

}  // namespace zel
