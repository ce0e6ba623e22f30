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
    const double zero = at_run_time(0), one = at_run_time(1), huge = at_run_time(1e300);
    const struct {
        double (*arithmetic)(double zero, double one, double huge);
        ArithmeticFault fault;
    } rows[] = {
        {[](double, double one_, double) { return one_ + 0.1; }, ArithmeticFault::None},
        {[](double, double, double huge_) { return 1 / huge_ / huge_; }, ArithmeticFault::None},
        {[](double zero_, double one_, double) { return one_ / zero_; },
         ArithmeticFault::DivisionByZero},
        {[](double zero_, double, double) { return std::log(zero_); },
         ArithmeticFault::DivisionByZero},
        {[](double zero_, double, double) { return std::pow(zero_, -1); },
         ArithmeticFault::DivisionByZero},
        {[](double zero_, double, double) { return zero_ / zero_; },
         ArithmeticFault::InvalidArgument},
        {[](double, double one_, double) { return std::sqrt(-one_); },
         ArithmeticFault::InvalidArgument},
        {[](double, double one_, double) { return std::log(-one_); },
         ArithmeticFault::InvalidArgument},
        {[](double, double one_, double) { return std::pow(-one_, 0.5); },
         ArithmeticFault::InvalidArgument},
        {[](double, double, double huge_) { return huge_ * huge_; }, ArithmeticFault::Overflow},
        {[](double, double one_, double) { return std::exp(710 * one_); },
         ArithmeticFault::Overflow},
        {[](double, double, double huge_) { return narrowed_to_single(huge_); },
         ArithmeticFault::Overflow},
    };
    for (const auto& row : rows)
        EXPECT_EQ(fault_of([&] { return row.arithmetic(zero, one, huge); }), row.fault)
            << "row " << &row - rows;
}

TEST(ArithmeticScope, names_the_gravest_of_several_faults) {
    const double zero = at_run_time(0), huge = at_run_time(1e300);
    const ArithmeticScope scope;
    (void)computed(huge * huge);
    EXPECT_EQ(scope.fault(), ArithmeticFault::Overflow);
    (void)computed(1 / zero);
    EXPECT_EQ(scope.fault(), ArithmeticFault::DivisionByZero);
    (void)computed(zero / zero);
    EXPECT_EQ(scope.fault(), ArithmeticFault::InvalidArgument);
}

TEST(ArithmeticScope, starts_clean_and_puts_back_what_stood_before) {
    const double zero = at_run_time(0), huge = at_run_time(1e300);
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
