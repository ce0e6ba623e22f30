#pragma once

#include <optional>

#include "pictures/picture.h"
#include "platform/text/locale.h"
#include "workflow/run/steady_run.h"

namespace zel {

/// How far the results of the methods lie apart: A of the bundle, or °C.
struct ResultSpread {
    double low = 0;
    double high = 0;
};

/// Nothing where fewer than two methods have a result.
[[nodiscard]] std::optional<ResultSpread> spread_of(const SteadyRunResult& result);

/// A bar a method with its result, the spread, and what is known of the conductor: its rated
/// current, as that of the bundle, or its highest temperature. Nothing where no method ran.
[[nodiscard]] std::optional<Picture> methods_picture(const CalcCase& c,
                                                     const SteadyRunResult& result,
                                                     const Locale& locale);

}  // namespace zel
