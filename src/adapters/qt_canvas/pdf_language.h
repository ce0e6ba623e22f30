#pragma once

#include <string>
#include <string_view>

namespace zel {

/// The document `pdf` with its language ("de"), by which screen readers and searches go and which
/// Qt does not write. Empty where there is no memory for it.
[[nodiscard]] std::string with_language(std::string_view pdf, std::string_view language);

}  // namespace zel
