#pragma once

#include <limits>
#include <span>
#include <vector>

#include "series/series_input.h"
#include "shell/session.h"
#include "steady/case/method.h"
#include "tb601_transient/tb601/tb601_params.h"
#include "workflow/rules/steady_check.h"

namespace zel {

inline constexpr double no_number = std::numeric_limits<double>::quiet_NaN();

/// What a rating found; numbers without a value are no numbers.
struct RatedNumber {
    RatingCode code = RatingCode::Rated;
    double current = no_number;      // A, of one sub-conductor
    double temperature = no_number;  // °C
    double angle = no_number;        // degrees, folded angle between wind and line
};

/// Rates the element that it holds, over and over, by one method: bit for bit what the steady run
/// of the same case gives, without its texts.
class CaseRater {
public:
    /// Starts with `base`, of which the fields `varying` will change from one rating to the next.
    CaseRater(const CalcCase& base, Method method, std::span<const FieldKey> varying,
              const Session& session);

    [[nodiscard]] SeriesElement& element() { return element_; }

    [[nodiscard]] RatedNumber rate();

    /// The first check that refuses the element, or null.
    [[nodiscard]] const steady_check::Check* refusal() const;

private:
    [[nodiscard]] RatedNumber run(double angle) const;
    [[nodiscard]] RatedNumber by_heat_balance(double angle) const;
    [[nodiscard]] RatedNumber by_tb601(double angle) const;
    [[nodiscard]] RatedNumber by_webs(double angle) const;
    [[nodiscard]] RatedNumber by_kirn(double angle) const;

    SeriesElement element_;
    Method method_;
    std::vector<const steady_check::Check*> checks_;  // that may refuse an element
    const Session& session_;
};

/// `base` with `method` alone selected, and no number where there is no input.
[[nodiscard]] CalcCase prepared_for(const CalcCase& base, Method method);

[[nodiscard]] RatingCode code_of(const steady_check::Check& refusal);

}  // namespace zel
