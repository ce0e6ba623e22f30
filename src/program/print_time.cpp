#include "program/print_time.h"

#include <cstdlib>
#include <ctime>

#include "adapters/posix/posix_clock.h"

namespace zel {

CalendarTime print_time() {
    const char* epoch = std::getenv("SOURCE_DATE_EPOCH");
    if (epoch == nullptr) return PosixClock().now();
    const std::time_t given = std::strtoll(epoch, nullptr, 10);
    std::tm utc{};
    ::gmtime_r(&given, &utc);
    return {utc.tm_mday, utc.tm_mon + 1, utc.tm_year + 1900, utc.tm_hour, utc.tm_min, utc.tm_sec};
}

}  // namespace zel
