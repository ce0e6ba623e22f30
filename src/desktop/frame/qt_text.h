#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "platform/text/text.h"

// Texts of the program are UTF-8.

namespace zel {

[[nodiscard]] inline QString qt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline QString qt(const Text& text, LangId lang) { return qt(text.in(lang)); }

}  // namespace zel
