#pragma once

#include <string>
#include <string_view>

#include "platform/case_store.h"

namespace zel {

/// The named values of a JSON text that is one object of numbers, texts and booleans.
///
/// Throws `InputError` where the text is no JSON (with line and column), where it is no object,
/// and, naming the key, where a value is an object, an array or null, where a number is beyond the
/// range of a double, where a key stands twice, and where there are more than 10 000 values.
[[nodiscard]] FlatObject parse_flat_json(std::string_view text);

/// The JSON text of one object with a line per value, which `parse_flat_json` reads back to the
/// same values, numbers to the last bit. Numbers must be finite.
[[nodiscard]] std::string print_flat_json(const FlatObject& object);

/// A printed JSON text with its control characters beyond ASCII's first 32 escaped, as JSON allows
/// in texts: a terminal obeys them.
[[nodiscard]] std::string terminal_safe(std::string_view json);

}  // namespace zel
