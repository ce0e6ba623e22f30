#include "platform/number_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace zel {
namespace {

constexpr auto comma = DecimalSeparator::Comma;
constexpr auto point = DecimalSeparator::Point;
constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double no_number = std::numeric_limits<double>::quiet_NaN();

TEST(ParseNumber, takes_sign_digits_separator_and_exponent) {
    const std::pair<double, std::vector<std::string>> rows[] = {
        {0, {"0", "-0", "0e999", "1e-999", "-1e-999"}},
        {5, {"5", "5.", "5.e0", "+5", "005"}},
        {12.5, {"12.5", "+12.5", "1.25e1", " 12.5", "12.5 ", "\t12.5\r\n", "012.50"}},
        {-12.5, {"-12.5", "  -12.5  ", "-1.25E+1", "-125e-1"}},
        {0.5, {".5", "+.5", "5e-1", ".05e1"}},
        {0.1, {"0.1", "1E-1"}},
        {std::numeric_limits<double>::max(), {"1.7976931348623157e308"}},
        {std::numeric_limits<double>::denorm_min(), {"4.9406564584124654e-324"}}};
    for (const auto& [value, texts] : rows) {
        for (const std::string& text : texts) {
            EXPECT_EQ(parse_number(text, point), value) << text;
            std::string with_comma = text;
            std::replace(with_comma.begin(), with_comma.end(), '.', ',');
            EXPECT_EQ(parse_number(with_comma, comma), value) << with_comma;
        }
    }
}

TEST(ParseNumber, refuses_what_is_no_number) {
    for (const char* text :
         {"",     " ",     "\n",      "-",     "+",    ".",   "-.",       "e5",  ".e5",
          "1e",   "1e+",   "1e1.5",   "1.2.3", "1 2",  "- 5", "--5",      "+-5", "5-",
          "1,5",  "1,000", "1.000,5", "inf",   "-inf", "INF", "infinity", "nan", "NaN",
          "0x10", "1f",    "1_000",   "1'000", "five", "5 m", "1d3"})
        EXPECT_EQ(parse_number(text, point), std::nullopt) << text;
    for (const char* text : {",", "-,", "1.5", "1,2,3", "1.000", "1.000,5"})
        EXPECT_EQ(parse_number(text, comma), std::nullopt) << text;
    EXPECT_EQ(parse_number(std::string_view("5\0", 2), point), std::nullopt);
}

TEST(ParseNumber, beyond_the_range_of_a_double_is_none_and_too_small_is_zero) {
    const std::string zeros(400, '0');
    for (const std::string& text : {std::string("1e999"), std::string("-1e999"), "1" + zeros,
                                    "1" + zeros + "e-5", std::string("1e99999999999999999999")})
        EXPECT_EQ(parse_number(text, point), std::nullopt) << text;
    for (const std::string& text :
         {"0." + zeros + "1", "0." + zeros + "1e5", std::string("1e-99999999999999999999")})
        EXPECT_EQ(parse_number(text, point), 0) << text;
}

TEST(ParseSingle, rounds_once_from_the_digits) {
    EXPECT_EQ(parse_single("0.1", point), 0.1F);
    EXPECT_EQ(parse_single(" -2,5e1 ", comma), -25.0F);
    EXPECT_EQ(parse_single("16777217", point), 16777216.0F);
    // A little above the middle of two floats, but the middle itself when rounded to a double.
    EXPECT_EQ(parse_single("1.0000000596046447754", point), 1.00000011920928955F);
}

TEST(ParseSingle, beyond_the_range_of_a_float_is_infinite_and_too_small_is_zero) {
    constexpr float beyond = std::numeric_limits<float>::infinity();
    EXPECT_EQ(parse_single("1e39", point), beyond);
    EXPECT_EQ(parse_single("-1e999", point), -beyond);
    EXPECT_EQ(parse_single("3.4028234e38", point), std::numeric_limits<float>::max());
    EXPECT_EQ(parse_single("1e-60", point), 0.0F);
    for (const char* text : {"", "-", "1,5", "abc", "1e", "inf"})
        EXPECT_EQ(parse_single(text, point), std::nullopt) << text;
}

TEST(Masked, shows_as_many_digits_as_each_mask_asks_for) {
    const struct {
        std::vector<const char*> masks;
        const char* of_zero;
        const char* of_minus_0_85;
        const char* of_1234_56789;
    } rows[] = {{{"##0", "####0", "#####0", "###0", "0", "#0", "######0"}, "0", "-1", "1235"},
                {{"###0.0", "##0.0", "####0.0", "#0.0"}, "0.0", "-0.9", "1234.6"},
                {{"###0.0#", "##0.0#", "####0.0#", "0.0#", "#####0.0#", "#0.0#", "######0.0#"},
                 "0.0",
                 "-0.85",
                 "1234.57"},
                {{"####0.0###", "###0.0###", "#####0.0###", "######0.0###", "#0.0###", "##0.0###"},
                 "0.0",
                 "-0.85",
                 "1234.5679"},
                {{"###0.00#", "##0.00#"}, "0.00", "-0.85", "1234.568"},
                {{"####0.0##", "#0.0##"}, "0.0", "-0.85", "1234.568"},
                {{"00", "####00"}, "00", "-01", "1235"},
                {{"0000"}, "0000", "-0001", "1235"},
                {{"######0.00", "0.00", "##0.00", "####0.00"}, "0.00", "-0.85", "1234.57"},
                {{"##0.0####", "#0.0####", "0.0####"}, "0.0", "-0.85", "1234.56789"},
                {{"#0.00###"}, "0.00", "-0.85", "1234.56789"},
                {{"#####", "####"}, "", "-1", "1235"},
                {{"####0.##"}, "0.", "-0.85", "1234.57"}};
    for (const auto& [masks, of_zero, of_minus_0_85, of_1234_56789] : rows) {
        for (const char* mask : masks) {
            EXPECT_EQ(masked(0, mask, point), of_zero) << mask;
            EXPECT_EQ(masked(-0.85, mask, point), of_minus_0_85) << mask;
            EXPECT_EQ(masked(1234.56789, mask, point), of_1234_56789) << mask;
        }
    }
}

TEST(Masked, rounds_half_away_from_zero_on_fifteen_significant_digits) {
    const struct {
        double value;
        const char* mask;
        const char* text;
    } rows[] = {{80.05, "##0.0", "80.1"}, {0.05, "##0.0", "0.1"},    {-0.05, "##0.0", "-0.1"},
                {0.5, "0", "1"},          {1.5, "0", "2"},           {2.5, "0", "3"},
                {-2.5, "0", "-3"},        {999.95, "0.0", "1000.0"}, {9.995, "0.00", "10.00"},
                {99999.5, "0", "100000"}, {1.005, "0.00", "1.01"},   {2.675, "0.00", "2.68"},
                {0.049999, "0.0", "0.0"}, {0.04, "0", "0"},          {1e-20, "0.0#", "0.0"},
                {5e-324, "0.0", "0.0"}};
    for (const auto& [value, mask, text] : rows) EXPECT_EQ(masked(value, mask, point), text);
    EXPECT_EQ(masked(0.1 + 0.2, "0.0####", point), "0.3");
    EXPECT_EQ(masked(0.4999999999999, "0", point), "0");
    EXPECT_EQ(masked(0.49999999999999994, "0", point), "1");
    EXPECT_EQ(masked(0.0949999999999999, "0.0#", point), "0.09");
    EXPECT_EQ(masked(1e15, "##0.0", point), "1000000000000000.0");
    EXPECT_EQ(masked(1e22, "##0.0", point), "10000000000000000000000.0");
    EXPECT_EQ(masked(1.2345678901234568e17, "0", point), "123456789012346000");
}

TEST(Masked, has_no_minus_sign_where_only_zeros_are_left) {
    EXPECT_EQ(masked(-0.04, "##0.0", point), "0.0");
    EXPECT_EQ(masked(-0.0, "##0.0#", point), "0.0");
    EXPECT_EQ(masked(-0.4, "####", point), "");
    EXPECT_EQ(masked(-0.06, "##0.0", point), "-0.1");
}

TEST(Masked, keeps_the_text_around_the_places_and_writes_the_separator_of_the_session) {
    EXPECT_EQ(masked(80.05, " = ##0.0 °C", comma), " = 80,1 °C");
    EXPECT_EQ(masked(-80.05, "  ##0.0 ", point), "-  80.1 ");
    EXPECT_EQ(masked(12, "0 of 0", point), "12 of 0");
    EXPECT_EQ(masked(5, "####0.##", comma), "5,");
    EXPECT_EQ(masked(0.5, "##.0", point), ".5");
    EXPECT_EQ(masked(5, "no place", point), "no place");
    EXPECT_EQ(masked(5, "", point), "");
}

TEST(Masked, shows_nothing_of_a_value_that_is_no_number) {
    for (const double value : {infinite, -infinite, no_number})
        EXPECT_EQ(masked(value, "##0.0 A", point), "");
}

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

        const std::string shown = masked(x, masks[places], point);
        ASSERT_EQ(shown, expected) << x;
        EXPECT_LE(std::abs(*parse_number(shown, point) - x), 0.5 / scale + 1e-14 * std::abs(x));
    }
}

TEST(PlainNumber, has_at_most_fifteen_significant_digits) {
    const std::pair<double, const char*> rows[] = {{0, "0"},           {1500, "1500"},
                                                   {0.1, "0.1"},       {-12.5, "-12.5"},
                                                   {0.1 + 0.2, "0.3"}, {1e20, "1E+20"}};
    for (const auto& [value, text] : rows) EXPECT_EQ(plain_number(value, point), text);
    EXPECT_EQ(plain_number(1000 / 3.0, point), "333.333333333333");
    EXPECT_EQ(plain_number(123456789012345, point), "123456789012345");
    EXPECT_EQ(plain_number(-12.5, comma), "-12,5");
}

}  // namespace
}  // namespace zel
