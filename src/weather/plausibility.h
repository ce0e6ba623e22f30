#pragma once

#include <cstdint>
#include <string_view>

#include "platform/text/text.h"

// Numbers that hardly have the unit that they should have.

namespace zel::weather {

/// The positive numbers of a column.
struct ColumnLook {
    std::uint64_t count = 0;
    double sum = 0;
    double greatest = 0;
    double first = 0;

    void take(double number);
};

/// What a `number` for the input `input` may be instead; null where it is plausible.
[[nodiscard]] const Text* likely_instead(std::string_view input, double number);

/// The same of a whole column whose numbers are plausible one by one.
[[nodiscard]] const Text* likely_instead(std::string_view input, const ColumnLook& column);

}  // namespace zel::weather
