#include "weather/weather_time.h"

#include <algorithm>
#include <array>

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
    const bool second =
        moments.count == 2 && std::ranges::any_of(std::array{line, of_all_lines}, [&](int of) {
            const auto seen = seen_.find(of);
            return seen != seen_.end() && seen->second.last >= moments.first &&
                   seen->second.last < moments.second;
        });
    return second ? moments.second : moments.first;
}

void TimeSequence::follow(std::int64_t moment, int line, std::int64_t interval) {
    const auto of_all = seen_.find(of_all_lines);
    const bool for_all =
        line != of_all_lines && of_all != seen_.end() && of_all->second.holds(moment);
    const auto [place, is_first] = seen_.try_emplace(line);
    Seen& seen = place->second;
    if (is_first) seen.earliest = seen.last = seen.latest = moment;
    const bool known = seen.holds(moment);
    if (for_all || known) count(twice_, moment);
    if (moment < seen.last) count(disordered_, moment);
    const bool was_missing = moment > seen.earliest && moment < seen.latest && !known &&
                             (seen.latest - moment) % interval == 0;
    if (was_missing) --missing_.count;
    if (was_missing) std::erase(missing_.first, moment);
    if (moment > seen.latest && moment < seen.latest + interval) count(closer_, moment);
    if (moment > seen.latest + interval)
        count(missing_, seen.latest + interval,
              static_cast<std::uint64_t>((moment - seen.latest - 1) / interval));
    if (!known) keep(seen, moment);
    seen.last = moment;
    seen.latest = std::max(seen.latest, moment);
}

void TimeSequence::keep(Seen& seen, std::int64_t moment) {
    constexpr std::size_t most_kept = 100000;
    const std::size_t before = seen.runs.size() + seen.behind.size();
    if (seen.runs.empty() || moment > seen.latest)
        seen.go_on(moment);
    else if (kept_ < most_kept)
        seen.behind.insert(moment);
    kept_ += seen.runs.size() + seen.behind.size() - before;
    if (kept_ <= most_kept) return;
    const auto half = static_cast<std::ptrdiff_t>(seen.runs.size() / 2);
    seen.runs.erase(seen.runs.begin(), seen.runs.begin() + half);
    kept_ -= static_cast<std::size_t>(half);
}

bool TimeSequence::Seen::holds(std::int64_t moment) const {
    const auto later = std::ranges::upper_bound(runs, moment, {}, &Run::first);
    if (later != runs.begin()) {
        const Run& run = *std::prev(later);
        if (moment == run.first ||
            (moment <= run.last && run.step > 0 && (moment - run.first) % run.step == 0))
            return true;
    }
    return behind.contains(moment);
}

/// Behind all others.
void TimeSequence::Seen::go_on(std::int64_t moment) {
    if (runs.empty()) return runs.push_back({moment, moment, 0});
    Run& run = runs.back();
    if (run.step == 0) run.step = moment - run.last;
    if (moment == run.last + run.step)
        run.last = moment;
    else
        runs.push_back({moment, moment, 0});
}

}  // namespace zel::weather
