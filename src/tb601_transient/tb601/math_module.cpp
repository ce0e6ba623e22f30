#include "tb601_transient/tb601/math_module.h"

#include <cmath>

#include "steady/constants.h"

namespace zel::MathModule {
namespace {

constexpr double half_pi = 1.570796327;

}  // namespace

Complex sum(Complex x, Complex y) { return {x.re + y.re, x.im + y.im}; }

Complex difference(Complex x, Complex y) { return {x.re - y.re, x.im - y.im}; }

Complex product(Complex x, Complex y) {
    return {x.re * y.re - x.im * y.im, x.im * y.re + x.re * y.im};
}

Complex quotient(Complex x, Complex y) {
    const double square = y.re * y.re + y.im * y.im;
    return {(x.re * y.re + x.im * y.im) / square, (x.im * y.re - x.re * y.im) / square};
}

Complex power(Complex x, int n) {
    const double r = std::pow(modulus(x), n);
    const double angle = n * argument(x);
    return {r * std::cos(angle), r * std::sin(angle)};
}

double modulus(Complex x) { return std::sqrt(x.re * x.re + x.im * x.im); }

double argument(Complex x) {
    if (x.im == 0) return x.re < 0 ? pi : 0;
    if (x.re == 0) return x.im < 0 ? -half_pi : half_pi;
    const double angle = std::atan(x.im / x.re);
    if (x.re > 0) return angle;
    return x.im > 0 ? angle + pi : angle - pi;
}

Complex real_minus_complex(double real, Complex x) { return {real - x.re, -x.im}; }

Complex complex_by_real(Complex x, double divisor) {
    const double square = divisor * divisor;
    return {x.re * divisor / square, x.im * divisor / square};
}

}  // namespace zel::MathModule
