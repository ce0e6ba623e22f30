#pragma once

// Complex numbers as plain pairs, for the skin effect. Powers go through the polar form and an
// argument of limited precision; results stay comparable only if nothing here is replaced by
// std::complex.

namespace zel::MathModule {

struct Complex {
    double re = 0;
    double im = 0;
};

[[nodiscard]] Complex sum(Complex x, Complex y);
[[nodiscard]] Complex difference(Complex x, Complex y);
[[nodiscard]] Complex product(Complex x, Complex y);
[[nodiscard]] Complex quotient(Complex x, Complex y);

/// modulus^n · (cos(n·arg) + j sin(n·arg)).
[[nodiscard]] Complex power(Complex x, int n);

[[nodiscard]] double modulus(Complex x);

/// From -pi to pi, with `pi` of ten digits. 0 for the number 0.
[[nodiscard]] double argument(Complex x);

/// real - x
[[nodiscard]] Complex real_minus_complex(double real, Complex x);

/// Both parts times the divisor, by its square: not the same as one division in the last digit.
[[nodiscard]] Complex complex_by_real(Complex x, double divisor);

}  // namespace zel::MathModule
