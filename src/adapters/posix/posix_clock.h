#pragma once

#include "platform/clock.h"

namespace zel {

/// The clocks of the system; the time of day is that of the user's time zone.
class PosixClock : public Clock {
public:
    [[nodiscard]] std::chrono::milliseconds elapsed() const override;
    [[nodiscard]] CalendarTime now() const override;
};

}  // namespace zel
