#include "adapters/posix/posix_clock.h"

#include <ctime>

namespace zel {

std::chrono::milliseconds PosixClock::elapsed() const {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

CalendarTime PosixClock::now() const {
    const std::time_t seconds = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&seconds, &local);
    return {local.tm_mday, local.tm_mon + 1, local.tm_year + 1900,
            local.tm_hour, local.tm_min,     local.tm_sec};
}

}  // namespace zel
