#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/text/number_text.h"

namespace zel {

/// What a number can mean that was written elsewhere, with the other decimal separator or with its
/// digits in groups of three: each reading as a text with `separator`, and without groups.
///
/// "0.6" and "1.234,5" have one reading with a comma as the separator; "1.000" has two, "1,000" and
/// "1000", in this order, whichever separator stands in it. Empty where the text is a number
/// already and nothing else, or has no reading at all.
[[nodiscard]] std::vector<std::string> readings_of(std::string_view text,
                                                   DecimalSeparator separator);

}  // namespace zel
