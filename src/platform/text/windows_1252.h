#pragma once

#include <string>
#include <string_view>

// Texts of single-byte files in the code page Windows-1252. The five bytes that it leaves open
// (81, 8D, 8F, 90, 9D) stand for the control characters of the same number, so that every byte
// survives the way there and back.

namespace zel {

/// The UTF-8 text of a Windows-1252 one.
[[nodiscard]] std::string utf8_of_windows_1252(std::string_view bytes);

/// The Windows-1252 text of an UTF-8 one. Throws `InputError` with the first character that the
/// code page does not have, or where `text` is no UTF-8.
[[nodiscard]] std::string windows_1252_of(std::string_view text);

}  // namespace zel
