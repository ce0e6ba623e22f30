#pragma once

#include "platform/text/number_text.h"
#include "platform/text/text.h"

namespace zel {

/// How texts and numbers are written for the user: language and decimal separator.
struct Locale {
    LangId lang = LangId::English;
    DecimalSeparator separator = DecimalSeparator::Point;

    friend bool operator==(const Locale&, const Locale&) = default;
};

}  // namespace zel
