#pragma once

#include <chrono>

namespace zel {

/// Date and time of day as the user's clock shows them.
struct CalendarTime {
    int day = 1;
    int month = 1;
    int year = 2000;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// Time, from the system or from the script of a test.
class Clock {
public:
    virtual ~Clock() = default;
    /// Since some moment in the past; nobody sets this one back.
    [[nodiscard]] virtual std::chrono::milliseconds elapsed() const = 0;
    [[nodiscard]] virtual CalendarTime now() const = 0;
};

}  // namespace zel
