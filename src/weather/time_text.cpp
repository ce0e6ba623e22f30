#include "weather/time_text.h"

#include <charconv>
#include <chrono>
#include <cstdio>

namespace zel::weather {
namespace {

using namespace std::chrono;

constexpr int first_year = 1900;
constexpr int last_year = 2199;
constexpr int seconds_of_minute = 60;
constexpr int seconds_of_hour = 3600;
constexpr int hours_of_day = 24;

/// Takes a text apart from its begin.
class Pieces {
public:
    explicit Pieces(std::string_view text) : text_(text) {}

    /// A number of exactly so many digits; below 0 where there are none.
    int number(std::size_t digits) {
        int value = 0;
        const char* const end = text_.data() + std::min(digits, text_.size());
        const bool sound = text_.size() >= digits && text_[0] != '-' &&
                           std::from_chars(text_.data(), end, value).ptr == end;
        if (sound) text_.remove_prefix(digits);
        return sound ? value : -1;
    }
    bool one_of(std::string_view characters) {
        if (text_.empty() || characters.find(text_.front()) == std::string_view::npos) return false;
        text_.remove_prefix(1);
        return true;
    }
    void pass_digits() {
        text_.remove_prefix(std::min(text_.find_first_not_of("0123456789"), text_.size()));
    }
    void pass_blanks() {
        text_.remove_prefix(std::min(text_.find_first_not_of(' '), text_.size()));
    }
    [[nodiscard]] std::string_view rest() const { return text_; }

private:
    std::string_view text_;
};

std::optional<std::int64_t> read_date(Pieces& text) {
    const int y = text.number(4);
    if (!text.one_of("-")) return std::nullopt;
    const int m = text.number(2);
    if (!text.one_of("-")) return std::nullopt;
    const int d = text.number(2);
    if (y < first_year || y > last_year || m < 0 || d < 0) return std::nullopt;
    const year_month_day date{year(y), month(static_cast<unsigned>(m)),
                              day(static_cast<unsigned>(d))};
    if (!date.ok()) return std::nullopt;
    return duration_cast<seconds>(sys_days(date).time_since_epoch()).count();
}

/// Seconds since midnight.
std::optional<std::int64_t> read_clock(Pieces& text) {
    const int h = text.number(2);
    if (!text.one_of(":")) return std::nullopt;
    const int m = text.number(2);
    int s = 0;
    if (text.one_of(":")) {
        s = text.number(2);
        if (text.one_of(".,")) text.pass_digits();
    }
    const bool end_of_day = h == hours_of_day && m == 0 && s == 0;
    const bool usual = h >= 0 && h < hours_of_day && m >= 0 && m < seconds_of_minute && s >= 0 &&
                       s < seconds_of_minute;
    if (!usual && !end_of_day) return std::nullopt;
    return h * seconds_of_hour + m * seconds_of_minute + s;
}

}  // namespace

std::optional<WrittenTime> read_time(std::string_view text) {
    Pieces pieces(text);
    pieces.pass_blanks();
    const auto midnight = read_date(pieces);
    if (!midnight || !pieces.one_of("Tt ")) return std::nullopt;
    const auto clock = read_clock(pieces);
    if (!clock) return std::nullopt;
    pieces.pass_blanks();
    WrittenTime time{*midnight + *clock, std::nullopt};
    if (pieces.rest().empty()) return time;
    time.ahead = read_offset(pieces.rest());
    if (!time.ahead) return std::nullopt;
    return time;
}

std::optional<std::int64_t> read_offset(std::string_view text) {
    while (text.ends_with(' ')) text.remove_suffix(1);
    if (text == "Z" || text == "z" || text == "UTC") return 0;
    if (text.empty()) return std::nullopt;
    const int sign = text.front() == '-' ? -1 : 1;
    Pieces pieces(text);
    if (!pieces.one_of("+-")) return std::nullopt;
    const int h = pieces.number(2);
    const bool whole = pieces.rest().empty();
    (void)pieces.one_of(":");
    const int m = whole ? 0 : pieces.number(2);
    if (h < 0 || h > hours_of_day || m < 0 || m >= seconds_of_minute || !pieces.rest().empty())
        return std::nullopt;
    return sign * (h * seconds_of_hour + m * seconds_of_minute);
}

std::string time_text(std::int64_t moment) {
    const sys_seconds time{seconds(moment)};
    const auto midnight = floor<days>(time);
    const year_month_day date{midnight};
    const hh_mm_ss<seconds> clock{time - midnight};
    char text[40];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ",
                  static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                  static_cast<unsigned>(date.day()), static_cast<int>(clock.hours().count()),
                  static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    return text;
}

}  // namespace zel::weather
