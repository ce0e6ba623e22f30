#include "platform/arithmetic_fault.h"

#include <gtest/gtest.h>

#include <cmath>
#include <thread>

#include "platform/rounding.h"

namespace zel {
namespace {

/// `value`, unknown to the compiler, so that nothing is computed before the program runs.
double at_run_time(double value) {
    volatile double hidden = value;
    return hidden;
}

// Each result is dropped: only `computed` keeps the arithmetic in front of the question.
template <class Arithmetic>
ArithmeticFault fault_of(Arithmetic arithmetic) {
    const ArithmeticScope scope;
    (void)computed(arithmetic());
    return scope.fault();
}

TEST(ArithmeticScope, names_the_fault_of_the_arithmetic_before_the_question) {
    using enum ArithmeticFault;
    const struct {
        double x;
        double (*arithmetic)(double x);
        ArithmeticFault fault;
    } rows[] = {{1, [](double x) { return x / 3; }, None},
                {1e-300, [](double x) { return x * x; }, None},
                {0, [](double x) { return 1 / x; }, DivisionByZero},
                {0, [](double x) { return std::log(x); }, DivisionByZero},
                {0, [](double x) { return std::pow(x, -1); }, DivisionByZero},
                {0, [](double x) { return x / x; }, InvalidArgument},
                {-1, [](double x) { return std::sqrt(x); }, InvalidArgument},
                {-1, [](double x) { return std::log(x); }, InvalidArgument},
                {-1, [](double x) { return std::pow(x, 0.5); }, InvalidArgument},
                {1e300, [](double x) { return x * x; }, Overflow},
                {710, [](double x) { return std::exp(x); }, Overflow},
                {1e300, [](double x) { return narrowed_to_single(x); }, Overflow}};
    for (const auto& [x, arithmetic, fault] : rows) {
        const double at = at_run_time(x);
        EXPECT_EQ(fault_of([at, &arithmetic = arithmetic] { return arithmetic(at); }), fault)
            << "at " << x;
    }
}

TEST(ArithmeticScope, names_the_gravest_of_several_faults) {
    const double zero = at_run_time(0);
    const double huge = at_run_time(1e300);
    const ArithmeticScope scope;
    (void)computed(huge * huge);
    EXPECT_EQ(scope.fault(), ArithmeticFault::Overflow);
    (void)computed(1 / zero);
    EXPECT_EQ(scope.fault(), ArithmeticFault::DivisionByZero);
    (void)computed(zero / zero);
    EXPECT_EQ(scope.fault(), ArithmeticFault::InvalidArgument);
}

TEST(ArithmeticScope, starts_clean_and_puts_back_what_stood_before) {
    const double zero = at_run_time(0);
    const double huge = at_run_time(1e300);
    const ArithmeticScope outer;
    (void)computed(1 / zero);
    {
        const ArithmeticScope inner;
        EXPECT_EQ(inner.fault(), ArithmeticFault::None);
        (void)computed(huge * huge);
        EXPECT_EQ(inner.fault(), ArithmeticFault::Overflow);
    }
    EXPECT_EQ(outer.fault(), ArithmeticFault::DivisionByZero);
    {
        const ArithmeticScope clean;
        EXPECT_EQ(clean.fault(), ArithmeticFault::None);
    }
}

TEST(ArithmeticScope, of_one_thread_does_not_see_the_faults_of_another) {
    const double zero = at_run_time(0);
    const ArithmeticScope here;
    ArithmeticFault there = ArithmeticFault::None;
    std::thread([&] { there = fault_of([&] { return 1 / zero; }); }).join();
    EXPECT_EQ(there, ArithmeticFault::DivisionByZero);
    EXPECT_EQ(here.fault(), ArithmeticFault::None);
}

TEST(Computed, hands_its_value_through) {
    EXPECT_EQ(computed(2.5), 2.5);
    EXPECT_EQ(static_cast<int>(ArithmeticFault::InvalidArgument), 5);
    EXPECT_EQ(static_cast<int>(ArithmeticFault::Overflow), 6);
    EXPECT_EQ(static_cast<int>(ArithmeticFault::DivisionByZero), 11);
}

}  // namespace
}  // namespace zel
