#include "tb601_transient/math_module.h"

#include <gtest/gtest.h>

namespace zel::MathModule {
namespace {

void expect_complex(Complex x, double re, double im, double tolerance = 0) {
    EXPECT_NEAR(x.re, re, tolerance);
    EXPECT_NEAR(x.im, im, tolerance);
}

TEST(MathModule, computes_with_pairs) {
    const Complex x = {3, 4};
    const Complex y = {1, -2};
    expect_complex(sum(x, y), 4, 2);
    expect_complex(difference(x, y), 2, 6);
    expect_complex(product(x, y), 11, -2);
    expect_complex(quotient(x, y), -1, 2);
    expect_complex(real_minus_complex(10, x), 7, -4);
    expect_complex(complex_by_real(x, 4), 0.75, 1);
    EXPECT_EQ(modulus(x), 5);
}

TEST(MathModule, takes_powers_by_the_polar_form) {
    expect_complex(power({1, 2}, 3), -11, -2, 1e-8);
    expect_complex(power({1, -1}, 6), 0, 8, 1e-12);
    expect_complex(power({3, 4}, 0), 1, 0);
    expect_complex(power({0, 0}, 2), 0, 0);
    // The ten digits of pi show in the imaginary part: 8 sin(3 · 3.141592654).
    const Complex cube = power({-2, 0}, 3);
    EXPECT_DOUBLE_EQ(cube.re, -8);
    EXPECT_NEAR(cube.im, -9.844964569e-9, 1e-15);
}

TEST(MathModule, finds_the_argument_in_each_quadrant) {
    struct Row {
        Complex x;
        double argument;
    };
    constexpr Row rows[] = {
        {{2, 0}, 0},
        {{0, 0}, 0},
        {{-2, 0}, 3.141592654},
        {{0, 3}, 1.570796327},
        {{0, -3}, -1.570796327},
        {{1, 1}, 0.78539816339744828},
        {{1, -1}, -0.78539816339744828},
        {{-1, 1}, 2.3561944906025517},    // 3.141592654 - pi/4
        {{-1, -1}, -2.3561944906025517},  // with the full pi: ...449
    };
    for (const auto& [x, expected] : rows)
        EXPECT_DOUBLE_EQ(argument(x), expected) << x.re << ' ' << x.im;
}

}  // namespace
}  // namespace zel::MathModule
