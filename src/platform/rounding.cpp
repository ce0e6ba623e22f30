#include "platform/rounding.h"

#include <cmath>
#include <limits>

namespace zel {

double round_half_even(double value) {
    if (!std::isfinite(value)) return value;
    // nearbyint would follow the rounding mode of the process; this does not.
    const double below = std::floor(value);
    const double rest = value - below;
    const bool up = rest > 0.5 || (rest == 0.5 && std::fmod(below, 2) != 0);
    return up ? below + 1 : below;
}

std::optional<std::int16_t> round_to_int16(double value) {
    using Limits = std::numeric_limits<std::int16_t>;
    const double rounded = round_half_even(value);
    if (!(rounded >= Limits::min() && rounded <= Limits::max())) return std::nullopt;
    return static_cast<std::int16_t>(rounded);
}

}  // namespace zel
