#pragma once

#include <cstdint>
#if defined(__SSE2__)
#include <xmmintrin.h>
#else
#include <cfenv>
#endif

namespace zel {

/// The flags of the processor that tell faults.
namespace fault_flags {

// On x86-64 all double arithmetic, that of libm too, leaves its flags in the SSE control register,
// which is read and cleared five times faster than by the portable way.
#if defined(__SSE2__)
inline constexpr unsigned invalid = _MM_EXCEPT_INVALID;
inline constexpr unsigned by_zero = _MM_EXCEPT_DIV_ZERO;
inline constexpr unsigned overflow = _MM_EXCEPT_OVERFLOW;
inline constexpr unsigned watched = invalid | by_zero | overflow;

[[nodiscard]] inline unsigned raised() { return _mm_getcsr() & watched; }
/// Puts `flags` in the place of those that are raised, and gives these.
inline unsigned exchange(unsigned flags) {
    const unsigned found = _mm_getcsr();
    const unsigned wanted = (found & ~watched) | flags;
    if (wanted != found) _mm_setcsr(wanted);  // writing takes ten times as long as reading
    return found & watched;
}
#else
inline constexpr unsigned invalid = FE_INVALID;
inline constexpr unsigned by_zero = FE_DIVBYZERO;
inline constexpr unsigned overflow = FE_OVERFLOW;
inline constexpr unsigned watched = invalid | by_zero | overflow;

[[nodiscard]] inline unsigned raised() {
    return static_cast<unsigned>(std::fetestexcept(static_cast<int>(watched)));
}
inline unsigned exchange(unsigned flags) {
    const unsigned found = raised();
    std::feclearexcept(static_cast<int>(watched));
    if (flags != 0) std::feraiseexcept(static_cast<int>(flags));
    return found;
}
#endif

}  // namespace fault_flags

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
    ArithmeticScope() : before_(fault_flags::exchange(0)) {}
    ~ArithmeticScope() { fault_flags::exchange(before_); }
    ArithmeticScope(const ArithmeticScope&) = delete;
    ArithmeticScope& operator=(const ArithmeticScope&) = delete;

    /// The fault met since the scope was made. Where several were met, an invalid argument is
    /// named before a division by zero, and that before an overflow.
    [[nodiscard]] ArithmeticFault fault() const {
        const unsigned flags = fault_flags::raised();
        if (flags == 0) return ArithmeticFault::None;
        if ((flags & fault_flags::invalid) != 0) return ArithmeticFault::InvalidArgument;
        if ((flags & fault_flags::by_zero) != 0) return ArithmeticFault::DivisionByZero;
        return ArithmeticFault::Overflow;
    }

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
