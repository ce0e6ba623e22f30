#pragma once

#include <string>

#include "platform/text/locale.h"
#include "validation/validation.h"

namespace zel {

/// The validation as a page of Markdown, which a terminal shows well too. Of two validations that
/// agree the pages are the same.
[[nodiscard]] std::string validation_text(const Validation& validation, const Locale& locale);

}  // namespace zel
