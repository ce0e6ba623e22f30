#pragma once

#include <optional>

#include "pictures/picture.h"
#include "platform/text/locale.h"
#include "steady/case/calc_case.h"

namespace zel {

/// Line and wind as their angles were typed, degrees.
struct WindSituation {
    double line = 0;        // direction to north
    double wind = 0;        // direction to north from which it comes
    double difference = 0;  // of the two
    double acute = 0;       // between wind and line
    double counted = 0;     // with which the methods calculate

    /// The methods calculate with another angle than the one between wind and line.
    [[nodiscard]] bool folded_otherwise() const;
};

/// Nothing where one of the two angles is not given.
[[nodiscard]] std::optional<WindSituation> wind_situation(const CalcCase& c);

/// Where the sun stands, degrees.
struct SunPlace {
    double direction = 0;  // to north, clockwise
    double height = 0;     // negative below the horizon
};

/// By the clock of Webs, or of Kirn where Webs is not selected. Nothing where place and time are
/// not given, or where neither method reads them.
[[nodiscard]] std::optional<SunPlace> sun_place(const CalcCase& c);

/// North, line, wind and sun from above, by what is typed so far: it needs no result.
[[nodiscard]] Picture situation_picture(const CalcCase& c, const Locale& locale);

}  // namespace zel
