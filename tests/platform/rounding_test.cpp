#include "platform/rounding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

namespace zel {
namespace {

TEST(RoundToInt16, takes_ties_to_the_even_neighbour) {
    const std::pair<double, std::int16_t> rows[] = {
        {0, 0},    {0.4999, 0},   {0.5, 0},   {0.5001, 1}, {1.5, 2},   {2.5, 2}, {3.5, 4},
        {-0.5, 0}, {-0.5001, -1}, {-1.5, -2}, {-2.5, -2},  {-3.5, -4}, {7, 7}};
    for (const auto& [value, rounded] : rows) EXPECT_EQ(round_to_int16(value), rounded) << value;
    EXPECT_EQ(round_to_int16(0.49999999999999994), 0);
    EXPECT_EQ(round_to_int16(32767.49), 32767);
    EXPECT_EQ(round_to_int16(-32768.5), -32768);
}

TEST(RoundToInt16, gives_nothing_beyond_sixteen_bits) {
    constexpr double infinite = std::numeric_limits<double>::infinity();
    for (const double value :
         {32767.5, -32768.51, 1e300, -1e300, infinite, -infinite, std::nan("")})
        EXPECT_EQ(round_to_int16(value), std::nullopt) << value;
}

TEST(RoundHalfEven, keeps_on_beyond_sixteen_bits) {
    EXPECT_EQ(round_half_even(40000.5), 40000);
    EXPECT_EQ(round_half_even(-40001.5), -40002);
    EXPECT_EQ(round_half_even(9007199254740993.0), 9007199254740993.0);
    EXPECT_EQ(round_half_even(1e300), 1e300);
    EXPECT_EQ(round_half_even(-INFINITY), -INFINITY);
    EXPECT_TRUE(std::isnan(round_half_even(NAN)));
    EXPECT_FALSE(std::signbit(round_half_even(-0.25)));
}

TEST(NarrowedToSingle, keeps_what_a_32_bit_float_holds) {
    EXPECT_EQ(narrowed_to_single(4.03), 4.03000020980834961);
    EXPECT_EQ(narrowed_to_single(0.1), 0.100000001490116119);
    EXPECT_EQ(narrowed_to_single(-2.5), -2.5);
    EXPECT_EQ(narrowed_to_single(16777217), 16777216);
    EXPECT_EQ(narrowed_to_single(1e-60), 0);
}

struct Pair {
    double first, second;
};
[[gnu::noinline]] void narrow_both(Pair& pair, double first, double second) {
    pair.first = narrowed_to_single(first);
    pair.second = narrowed_to_single(second);
}

TEST(NarrowedToSingle, narrows_two_neighbours) {
    Pair pair{};
    narrow_both(pair, 4.03, 0.1);
    EXPECT_EQ(pair.first, 4.03000020980834961);
    EXPECT_EQ(pair.second, 0.100000001490116119);
}

}  // namespace
}  // namespace zel
