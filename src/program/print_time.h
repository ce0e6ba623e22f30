#pragma once

#include "platform/clock.h"

namespace zel {

/// When a report is printed: now, in local time, or the moment that SOURCE_DATE_EPOCH gives in UTC.
[[nodiscard]] CalendarTime print_time();

}  // namespace zel
