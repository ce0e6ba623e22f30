#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zel::weather {

/// A time as it is written.
struct WrittenTime {
    std::int64_t shown = 0;               // s since the clock showed the begin of 1970
    std::optional<std::int64_t> ahead{};  // s ahead of UTC; nothing where no zone is written
};

/// A time by ISO 8601: "2024-01-15T08:30Z", "2024-01-15 08:30:00+01:00", "2024-01-15T24:00",
/// "20240115T0830Z" not. Parts of seconds are cut. Nothing where it is none, or outside the years
/// 1900 to 2199.
[[nodiscard]] std::optional<WrittenTime> read_time(std::string_view text);

/// How far "Z", "UTC", "+01", "+0100" or "-03:30" is ahead of UTC (s); nothing where the text is
/// none of them.
[[nodiscard]] std::optional<std::int64_t> read_offset(std::string_view text);

/// "2024-01-15T08:30:00Z" of the `moment`, seconds since 1970 in UTC.
[[nodiscard]] std::string time_text(std::int64_t moment);

}  // namespace zel::weather
