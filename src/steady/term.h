#pragma once

#include "steady/steady_cause.h"

namespace zel {

/// A term of the heat balance in W/m. It stands only where `failure` is `SteadyCause::None`.
struct Term {
    double value = 0;
    SteadyCause failure = SteadyCause::None;
};

}  // namespace zel
