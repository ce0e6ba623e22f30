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
    const auto seen = seen_.find(line);
    const bool second = moments.count == 2 && seen != seen_.end() &&
                        seen->second.last >= moments.first && seen->second.last < moments.second;
    return second ? moments.second : moments.first;
}

void TimeSequence::follow(std::int64_t moment, int line, std::int64_t interval) {
    const auto of_all = seen_.find(of_all_lines);
    const bool for_all =
        line != of_all_lines && of_all != seen_.end() && of_all->second.holds(moment, interval);
    const auto [place, is_first] = seen_.try_emplace(line);
    Seen& seen = place->second;
    if (for_all || seen.holds(moment, interval)) count(twice_, moment);
    const std::int64_t step = is_first ? 0 : moment - seen.last;
    if (step < 0) count(disordered_, moment);
    if (step > interval)
        count(missing_, seen.last + interval, static_cast<std::uint64_t>((step - 1) / interval));
    seen.add(moment, interval);
    seen.last = moment;
}

bool TimeSequence::Seen::holds(std::int64_t moment, std::int64_t interval) const {
    const Place place(moment % interval, moment);
    const auto behind = runs_.upper_bound(place);
    if (behind == runs_.begin()) return false;
    const auto& [first, end] = *std::prev(behind);
    return first.first == place.first && moment <= end;
}

void TimeSequence::Seen::add(std::int64_t moment, std::int64_t interval) {
    if (holds(moment, interval)) return;
    const Place place(moment % interval, moment);
    const auto behind = runs_.upper_bound(place);
    const bool goes_on = holds(moment - interval, interval);
    const auto run = goes_on ? std::prev(behind) : runs_.emplace_hint(behind, place, moment);
    run->second = moment;
    if (behind == runs_.end() || behind->first != Place(place.first, moment + interval)) return;
    run->second = behind->second;
    runs_.erase(behind);
}

}  // namespace zel::weather
