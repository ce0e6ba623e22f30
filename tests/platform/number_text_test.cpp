#include "platform/text/number_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace zel {
namespace {

// The expected digits come from printf and integers: 15 digits d · 10^e, then a division by the
// unit of the last place shown.
TEST(Masked, agrees_with_integer_arithmetic_and_is_read_back_within_half_a_place) {
    const char* const masks[] = {"0", "0.0", "0.00", "0.000", "0.0000"};
    std::mt19937_64 random(207);
    std::uniform_real_distribution<double> exponent(-6, 7);
    std::uniform_int_distribution<int> coin(0, 1);
    for (int i = 0; i < 20000; ++i) {
        const int places = i % 5;
        const double scale = std::pow(10, places);
        double x = std::pow(10, exponent(random)) * (coin(random) == 0 ? 1 : -1);
        if (i % 2 == 0) x = (std::trunc(x * scale) + 0.5) / scale;  // a tie in decimal digits

        char buffer[40];
        std::snprintf(buffer, sizeof buffer, "%.14e", std::abs(x));
        long long digits = (buffer[0] - '0') * 100000000000000LL + std::atoll(buffer + 2);
        for (int e = std::atoi(buffer + 17) - 14 + places; e < 0; ++e)
            digits = e == -1 ? (digits + 5) / 10 : digits / 10;
        const auto unit = static_cast<long long>(scale);
        std::string expected = x < 0 && digits != 0 ? "-" : "";
        expected += std::to_string(digits / unit);
        if (places > 0) expected += "." + std::to_string(unit + digits % unit).substr(1);

        const std::string shown = masked(x, masks[places], DecimalSeparator::Point);
        ASSERT_EQ(shown, expected) << x;
        EXPECT_LE(std::abs(*parse_number(shown, DecimalSeparator::Point) - x),
                  0.5 / scale + 1e-14 * std::abs(x));
    }
}

// As printf writes it, of doubles of any bits, of whole numbers and of those that a workbook holds.
TEST(PlainNumber, has_the_digits_of_printf) {
    std::mt19937_64 random(601);
    std::vector<double> numbers = {
        0.0,    -0.0,  1e15,   1e-5,   123456789012345.6,   999999999999999.5,
        5e-324, 1e308, 1e-308, 0.0001, 9.999999999999995e-5};
    for (int i = 0; i < 100'000; ++i) {
        const std::uint64_t bits = random();
        numbers.push_back(std::bit_cast<double>(bits));
        numbers.push_back(static_cast<double>(bits >> (bits % 64)));
        numbers.push_back(static_cast<double>(bits >> 40) / 1000);
    }
    for (const double x : numbers) {
        char expected[40];
        std::snprintf(expected, sizeof expected, "%.15G", x == 0 ? 0.0 : x);
        ASSERT_EQ(plain_number(x, DecimalSeparator::Point), std::isfinite(x) ? expected : "");
    }
    EXPECT_EQ(plain_number(-1.5e-7, DecimalSeparator::Comma), "-1,5E-07");
}

}  // namespace
}  // namespace zel
