#pragma once

#include <optional>
#include <string>
#include <string_view>

// The text of a profile file: lines "[section]" and "key=value", and lines from ";" on that say
// nothing. Sections and keys are told without regard to the case of ASCII letters; of duplicates
// the first counts. Bytes that are not asked for are never touched: encoding, line ends, comments,
// order and lines of no known form stay.

namespace zel {

/// The value of `key` in `section`, without the blanks around it and one pair of quotes around it.
/// Nothing where it is missing.
[[nodiscard]] std::optional<std::string> profile_value(std::string_view text,
                                                       std::string_view section,
                                                       std::string_view key);

/// `text` with the value of `key` in `section` replaced. A missing key comes to the end of its
/// section, a missing section to the end of the text, with the line ends of the text. A value that
/// stands in quotes itself is put in quotes, so that it is read back as it is.
/// Throws `std::invalid_argument` where a name or the value has a line end, or a name is empty,
/// has blanks around it, or a character that would end it.
[[nodiscard]] std::string with_profile_value(std::string_view text, std::string_view section,
                                             std::string_view key, std::string_view value);

}  // namespace zel
