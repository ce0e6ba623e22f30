#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "platform/text/number_text.h"
#include "steady/steady_report.h"

// What Webs asks and tells while it computes.

namespace zel {

/// How Webs meets the user. `title` is that of its boxes, which bear the program's name.
struct WebsReporting {
    Reporting reporting;
    DecimalSeparator separator = DecimalSeparator::Point;
    bool wi_v_wi_merker = true;  // ask where the wind across the conductor is below 0.2 m/s
    Text title;
};

/// The questions of Webs. One object serves a run: it remembers the answer on low wind, so that a
/// search asks once. It asks in message mode 1 only and is otherwise without effect, but each
/// thread needs one of its own.
class WebsQuestions {
public:
    explicit WebsQuestions(WebsReporting reporting) : told_(std::move(reporting)) {}

    /// Whether a wind across the conductor of `w`, below 0.2 m/s, is to be taken as 0.2 m/s. So it
    /// is where nothing is asked. `V` in m/s, `delta` in degrees.
    [[nodiscard]] bool raises_low_wind(double V, double delta, double w);

    /// Asks whether to go on with a Grashof number above 10^7; throws `ProgramEnd` after a No. In
    /// other message modes the calculation goes on. Temperatures in °C.
    void Grashof_too_large(double V, double Ta, double T) const;

    /// Tells that the Reynolds number is below 0.1 and throws `ProgramEnd`, in every message mode.
    [[noreturn]] void Reynolds_too_small() const;

private:
    enum class LowWindAnswer : std::int16_t { NotAsked = 0, Yes = 1, No = 2 };

    [[nodiscard]] bool speaks() const {
        return told_.reporting.Meldung_merker == RunMode::Messages;
    }
    /// Shows `text` with the title at its place {0} and the values from {1} on.
    Answer show(const BoxText& text, std::string_view value1 = {}, std::string_view value2 = {},
                std::string_view value3 = {}) const;

    WebsReporting told_;
    LowWindAnswer low_wind_ = LowWindAnswer::NotAsked;
};

}  // namespace zel
