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
    auto single = static_cast<float>(value);
    // Where two values are narrowed side by side, g++ 12 drops both conversions at -O2 (it takes a
    // pair of them for a move of a vector), unless it cannot see through one of them.
#if defined(__SSE2__)
    asm("" : "+x"(single));
#else
    volatile float kept = single;
    single = kept;
#endif
    return static_cast<double>(single);
}

}  // namespace zel
