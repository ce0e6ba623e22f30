#pragma once

#include <optional>

#include "platform/message_box.h"
#include "platform/text/locale.h"

namespace zel {

/// What becomes of a key that is pressed in a numeric field.
struct FilteredKey {
    bool passes = false;
    std::optional<Box> refusal;  // told where the key is dropped with a word
};

/// Digits, the minus sign, the backspace and `separator` pass; the other separator is refused with
/// a box, every other character is dropped in silence. An exponent can thus be pasted but not
/// typed. With a number format that is neither comma nor point every key passes.
[[nodiscard]] FilteredKey filter_key(char32_t key, const Locale& locale);

}  // namespace zel
