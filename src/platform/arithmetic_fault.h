#pragma once

#include <cstdint>

namespace zel {

/// What went wrong in floating-point arithmetic. The numbers are those the error texts show.
enum class ArithmeticFault : std::uint8_t {
    None = 0,
    InvalidArgument = 5,
    Overflow = 6,
    DivisionByZero = 11,
};

/// Watches the floating-point arithmetic of this thread from its making on.
///
/// Overflow, division by zero and an invalid argument (root or logarithm of a negative number)
/// count; rounding and underflow do not. The compiler does not know of this watch: hand each
/// result that must be in before the question through `computed`.
///
/// A scope starts clean and, at its end, puts back the faults that stood before it.
class ArithmeticScope {
public:
    ArithmeticScope();
    ~ArithmeticScope();
    ArithmeticScope(const ArithmeticScope&) = delete;
    ArithmeticScope& operator=(const ArithmeticScope&) = delete;

    /// The fault met since the scope was made. Where several were met, an invalid argument is
    /// named before a division by zero, and that before an overflow.
    [[nodiscard]] ArithmeticFault fault() const;

private:
    unsigned before_;
};

/// `value`, computed here and not later: keeps the compiler from moving or dropping arithmetic
/// whose faults are asked for.
[[nodiscard]] inline double computed(double value) {
#if defined(__SSE2__)
    asm volatile("" : "+x"(value) : : "memory");
    return value;
#else
    volatile double kept = value;
    return kept;
#endif
}

}  // namespace zel
