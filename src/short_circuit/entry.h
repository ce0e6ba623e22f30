#pragma once

#include <optional>
#include <string_view>

#include "platform/message_box.h"
#include "platform/text/locale.h"
#include "short_circuit/short_circuit_case.h"
#include "workflow/rules/rule_tables.h"

namespace zel {

/// Why a typed text was refused.
struct NumberRefusal {
    Box box;
    bool text_stays = false;  // in the box, for the user to correct; otherwise the box is emptied
};

/// A typed text becomes the content of the box `box`, which `field` holds. The number is read at
/// 32-bit precision and widened. A text that is no number, and a number beyond the limits of the
/// box, is refused: the field is then empty and its number 0. An empty text is no input and keeps
/// the number. Limits are inclusive and compared at 32 bits.
std::optional<NumberRefusal> enter(Entry& field, NumberKey box, std::string_view text,
                                   const Locale& locale);

/// The limits of `box`.
[[nodiscard]] const Limits& limits_of(NumberKey box);

}  // namespace zel
