#pragma once

#include <optional>
#include <string_view>

#include "platform/message_box.h"
#include "platform/number_text.h"
#include "steady/calc_case.h"

namespace zel {

/// A typed text becomes the content of a numeric field. A text that is no number is refused: the
/// box that says so is given back, the field's text is emptied and its double keeps the former
/// value. An empty text is no input and keeps the double too.
std::optional<Box> enter(Entry& field, std::string_view text, DecimalSeparator separator,
                         LangId lang);

}  // namespace zel
