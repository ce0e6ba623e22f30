#pragma once

#include <cstdint>

namespace zel {

/// The moments, in seconds since 1970 in UTC, at which a clock shows a time. There is none in the
/// hour that the begin of summer time leaves out, and there are two in the one that its end
/// repeats.
struct Moments {
    int count = 1;
    std::int64_t first = 0;
    std::int64_t second = 0;  // of two
};

/// The clock of a place.
class TimeZone {
public:
    virtual ~TimeZone() = default;

    /// `shown` is what the clock shows, as seconds since it showed the begin of 1970.
    [[nodiscard]] virtual Moments moments(std::int64_t shown) const = 0;
};

/// A clock that is always as far ahead of UTC (s).
class FixedZone : public TimeZone {
public:
    explicit FixedZone(std::int64_t ahead) : ahead_(ahead) {}
    [[nodiscard]] Moments moments(std::int64_t shown) const override {
        return {1, shown - ahead_, 0};
    }

private:
    std::int64_t ahead_;
};

}  // namespace zel
