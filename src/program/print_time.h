#pragma once

#include <ctime>

namespace zel {

/// When a report is printed: now, in local time, or the moment that SOURCE_DATE_EPOCH gives in UTC.
[[nodiscard]] std::tm print_time();

}  // namespace zel
