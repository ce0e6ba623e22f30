#include "adapters/time_zone/named_zone.h"

#include <date/tz.h>

#include "platform/errors.h"

namespace zel {
namespace {

constexpr Text no_such_zone = {"keine Zeitzone heißt {0}; Beispiele: Europe/Berlin, UTC, +01:00",
                               "no time zone is called {0}; examples: Europe/Berlin, UTC, +01:00"};

class NamedZone : public TimeZone {
public:
    explicit NamedZone(const date::time_zone& zone) : zone_(zone) {}

    [[nodiscard]] Moments moments(std::int64_t shown) const override {
        const date::local_info found =
            zone_.get_info(date::local_seconds(std::chrono::seconds(shown)));
        const auto before = [&](const date::sys_info& rule) { return shown - rule.offset.count(); };
        switch (found.result) {
            case date::local_info::nonexistent: return {0};
            case date::local_info::ambiguous: return {2, before(found.first), before(found.second)};
            default: return {1, before(found.first)};
        }
    }

private:
    const date::time_zone& zone_;
};

}  // namespace

std::unique_ptr<TimeZone> named_zone(const std::string& name) {
    try {
        return std::make_unique<NamedZone>(*date::locate_zone(name));
    } catch (const std::runtime_error&) {
        throw InputError(Reason(no_such_zone, {in_quotes(name)}));
    }
}

}  // namespace zel
