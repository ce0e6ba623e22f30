#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/text/text.h"
#include "steady/steady_cause.h"
#include "tb601_transient/tb601/tb601_cause.h"
#include "tb601_transient/transient/transient_excel.h"

// What stands beside each number of a series.

namespace zel {

/// Programs keep these numbers: they never change. Below 0 the value stands and something is to be
/// said of it; above 0 there is no value.
enum class RatingCode : std::int32_t {
    TooHot = -6,           // a change of state that ends above 500 °C
    WindFolded = -5,       // the angle of a case is folded and not the acute one
    TargetMissed = -4,     // the current of a change of state leads elsewhere than asked
    TatlRises = -3,        // above that of a shorter time
    TatlBelowPatl = -2,    // a rating for a short time below the permanent one
    CurrentNegative = -1,  // Webs, Kirn: hotter than asked for without any current
    Rated = 0,
    MissingInput = 1,
    OutsideLimits = 2,
    ConductorUnfit = 3,  // the method is not one for this conductor, or lacks data of it
    ModeUndefined = 4,   // neither or both of current and temperature are given
    HotterWithoutCurrent = 10,
    CurrentTooLarge = 11,
    TemperatureTooHigh = 12,
    TemperatureTooLow = 13,
    NotConverged = 14,
    OutsideCorrelation = 20,  // Reynolds, Grashof or Prandtl number beyond the correlation
    FrequencyImpossible = 21,
    Fault = 30,
    TooManySteps = 40,  // of a transient
    TargetOutOfReach = 41,
    PreloadTooHigh = 42,
    TransientFailed = 43,
    Ended = 50,  // the method would have to end the program
};

/// What a code is called by programs ("missing_input"), and what it says.
struct RatingCodeText {
    RatingCode code;
    std::string_view name;
    Text text;
};

[[nodiscard]] std::span<const RatingCodeText> rating_codes();

/// The row of `code`, or null where no such code exists.
[[nodiscard]] const RatingCodeText* find_code(std::int32_t code);
[[nodiscard]] std::string_view name_of(RatingCode code);

[[nodiscard]] constexpr bool has_value(RatingCode code) {
    return static_cast<std::int32_t>(code) <= 0;
}

[[nodiscard]] RatingCode code_of(const SteadyFailure& failure);
[[nodiscard]] RatingCode code_of(const Tb601Failure& failure);
[[nodiscard]] RatingCode code_of(TransientExcelEnd end);

}  // namespace zel
