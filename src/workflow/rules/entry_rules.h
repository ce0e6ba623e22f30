#pragma once

#include <optional>
#include <string_view>

#include "platform/message_box.h"
#include "platform/text/locale.h"
#include "steady/case/calc_case.h"
#include "workflow/rules/rule_tables.h"

namespace zel {

/// A typed text becomes the content of the numeric field `key` of `c`. A text that is no number,
/// and a number beyond the field's limits, is refused: the box that says so is given back, the
/// field's text is emptied and its double keeps the former value. An empty text is no input and
/// keeps the double too. Where the field holds whole numbers only, the number is rounded, and its
/// text says so. A measured value has no rule: it takes any text.
std::optional<Box> enter(CalcCase& c, Entry CalcCase::*key, std::string_view text,
                         const Locale& locale);

/// The same for a field that stands elsewhere. Without a `key` (null) the text must be a number,
/// and there is no limit.
std::optional<Box> enter(Entry& field, Entry CalcCase::*key, std::string_view text,
                         const Locale& locale);

/// The limits of the numeric field `key`; null where it takes any text.
[[nodiscard]] const Limits* limits_of(Entry CalcCase::*key);

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
