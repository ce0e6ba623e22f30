#pragma once

#include <cstdint>
#include <optional>

namespace zel {

/// `value` rounded to a whole number, ties to the even neighbour (2.5 to 2, 3.5 to 4). No number
/// and the infinite stay as they are.
[[nodiscard]] double round_half_even(double value);

/// `value` rounded to a 16-bit integer, ties to the even neighbour (2.5 to 2, 3.5 to 4); nothing
/// where the rounded value is below -32768 or above 32767, or is no number.
[[nodiscard]] std::optional<std::int16_t> round_to_int16(double value);

/// `value` as held in 32 bits, widened again. Beyond the range of a float it is infinite and an
/// overflow fault.
[[nodiscard]] inline double narrowed_to_single(double value) {
    return static_cast<double>(static_cast<float>(value));
}

}  // namespace zel
