#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/text/text.h"
#include "platform/time_zone.h"
#include "weather/time_text.h"

// From the times of a weather table to the periods that its rows are for.

namespace zel::weather {

/// Which moment of its period a time is.
enum class Stamp : std::uint8_t { Start, Middle, End };

struct Period {
    std::int64_t start = 0;  // s since 1970 in UTC
    std::int64_t end = 0;

    [[nodiscard]] std::int64_t middle() const { return start + (end - start) / 2; }
};

[[nodiscard]] Period period_of(std::int64_t time, Stamp stamp, std::int64_t interval);

/// Why a time cannot be taken: its place then stays empty.
extern const Text no_time;       // {0} is none
extern const Text no_zone;       // {0} has no zone, and none is given
extern const Text time_skipped;  // {0} is left out by the clock that goes over to summer time

/// Where a sequence of times is not as it should be. What comes late is not missing.
struct TimeFault {
    std::uint64_t count = 0;
    std::vector<std::int64_t> first{};  // places, some of the first; s since 1970 in UTC
};

/// In place of the index of a line.
inline constexpr int of_all_lines = -1;

/// Follows the times of one table, those of each line and those of all lines apart. The
/// first of two moments that a clock shows alike is taken, unless the row before was that or later.
/// Of a table without any order or step, only some hundred thousand times are known again.
class TimeSequence {
public:
    /// `zone` is null where times have to name their own.
    explicit TimeSequence(const TimeZone* zone) : zone_(zone) {}

    /// The moment of `text` in s since 1970. Throws `InputError`.
    [[nodiscard]] std::int64_t moment(std::string_view text, int line) const;
    /// Takes a moment into the sequence; `interval` in s.
    void follow(std::int64_t moment, int line, std::int64_t interval);

    [[nodiscard]] const TimeFault& twice() const { return twice_; }
    [[nodiscard]] const TimeFault& missing() const { return missing_; }
    [[nodiscard]] const TimeFault& disordered() const { return disordered_; }
    /// Less than an interval behind the latest one before.
    [[nodiscard]] const TimeFault& closer() const { return closer_; }

private:
    /// The moments of one line. Those that stand equally far apart are kept as one run, so that an
    /// ordered table needs no memory for its rows.
    struct Seen {
        struct Run {
            std::int64_t first, last, step;  // a step of 0 while it is one moment
        };
        std::int64_t earliest = 0, last = 0, latest = 0;
        std::vector<Run> runs{};          // in their order
        std::set<std::int64_t> behind{};  // that stand behind later ones, and in no run

        [[nodiscard]] bool holds(std::int64_t moment) const;
        void go_on(std::int64_t moment);
    };

    void keep(Seen& seen, std::int64_t moment);

    const TimeZone* zone_;
    std::unordered_map<int, Seen> seen_;
    std::size_t kept_ = 0;  // runs and moments, of all lines
    TimeFault twice_, missing_, disordered_, closer_;
};

}  // namespace zel::weather
