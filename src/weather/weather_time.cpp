#include "weather/weather_time.h"

#include "platform/errors.h"

namespace zel::weather {
namespace {

void count(TimeFault& fault, std::int64_t moment, std::uint64_t times = 1) {
    constexpr std::size_t most_places = 10;
    if (fault.first.size() < most_places) fault.first.push_back(moment);
    fault.count += times;
}

}  // namespace

const Text no_time = {"{0} ist keine Zeit wie 2024-01-15T08:30Z",
                      "{0} is no time such as 2024-01-15T08:30Z"};
const Text no_zone = {
    "die Zeit {0} hat keine Zone; nennen Sie sie mit --timezone (Europe/Berlin, UTC, +01:00)",
    "the time {0} has no zone; name it by --timezone (Europe/Berlin, UTC, +01:00)"};
const Text time_skipped = {"die Zeit {0} läßt die Umstellung auf Sommerzeit aus",
                           "the time {0} is left out by the change to summer time"};

Period period_of(std::int64_t time, Stamp stamp, std::int64_t interval) {
    const std::int64_t before = stamp == Stamp::Start    ? 0
                                : stamp == Stamp::Middle ? interval / 2
                                                         : interval;
    return {time - before, time - before + interval};
}

std::int64_t TimeSequence::moment(std::string_view text, int line) const {
    const auto written = read_time(text);
    if (!written) throw InputError(Reason(no_time, {in_quotes(text)}));
    if (written->ahead) return written->shown - *written->ahead;
    if (zone_ == nullptr) throw InputError(Reason(no_zone, {in_quotes(text)}));
    const Moments moments = zone_->moments(written->shown);
    if (moments.count == 0) throw InputError(Reason(time_skipped, {in_quotes(text)}));
    const auto last = last_.find(line);
    const bool second = moments.count == 2 && last != last_.end() &&
                        last->second >= moments.first && last->second < moments.second;
    return second ? moments.second : moments.first;
}

void TimeSequence::follow(std::int64_t moment, int line, std::int64_t interval) {
    const auto of_all = last_.find(of_all_lines);
    if (line != of_all_lines && of_all != last_.end() && of_all->second == moment)
        count(twice_, moment);
    const auto [last, is_first] = last_.try_emplace(line, moment);
    if (is_first) return;
    const std::int64_t step = moment - last->second;
    if (step == 0) count(twice_, moment);
    if (step < 0) count(disordered_, moment);
    if (step > interval)
        count(missing_, last->second + interval, static_cast<std::uint64_t>((step - 1) / interval));
    last->second = moment;
}

}  // namespace zel::weather
