#include "tb601_transient/tb601/skin_effect.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdlib>
#include <limits>
#include <random>

#include "platform/arithmetic_fault.h"

// The skin effect by its quick way against the series in complex numbers: equal to the bit, and
// with the same faults. ZEL_EVALUATIONS sets how many are compared.

namespace zel {
namespace {

int evaluations() {
    const char* wanted = std::getenv("ZEL_EVALUATIONS");
    return wanted == nullptr ? 100'000 : std::atoi(wanted);
}

std::mt19937_64 generator{601};
double between(double low, double high) {
    return std::uniform_real_distribution<>(low, high)(generator);
}

struct Seen {
    std::uint64_t bits;
    ArithmeticFault fault;
    friend bool operator==(const Seen&, const Seen&) = default;
};
Seen seen(double (*resistance)(double, double, double), double De, double Rho, double F) {
    const ArithmeticScope arithmetic;
    const double R = computed(resistance(De, Rho, F));
    return {std::bit_cast<std::uint64_t>(R), arithmetic.fault()};
}

void expect_same(double De, double Rho, double F) {
    ASSERT_EQ(seen(solid_conductor_resistance, De, Rho, F), seen(series_resistance, De, Rho, F))
        << De << " m, " << Rho << " ohm·m, " << F << " Hz";
}

TEST(SkinEffect, has_the_bits_of_the_series) {
    for (int i = 0; i < evaluations() && !HasFatalFailure(); ++i) {
        TB601Params p;
        p.ConductorType = static_cast<std::int16_t>(1 + i % 4);
        p.GMRMerker = static_cast<std::int16_t>(i / 4 % 2);
        p.D = between(0.003, 0.3);
        p.GMR = static_cast<float>(p.D * between(0.37, 0.5));
        const double rise = between(-100, 500) - 20;
        const double Rho20 = between(0, 1) < 0.9 ? between(17e-9, 60e-9) : between(60e-9, 1e-6);
        const double Rho = Rho20 * (1 + between(0.003, 0.006) * rise + 8e-7 * (rise * rise));
        expect_same(equivalent_diameter(p), Rho, i % 8 == 0 ? 50 : between(0.5, 61));
    }
}

TEST(SkinEffect, has_the_bits_and_faults_of_the_series_where_no_conductor_is) {
    constexpr double odd[] = {0,    -1e-8, 1e-310, 1e-300,
                              1e-9, 0.02,  1,      50,
                              1e20, 1e150, 1e300,  std::numeric_limits<double>::infinity()};
    for (const double De : odd)
        for (const double Rho : odd)
            for (const double F : odd) expect_same(De, Rho, F);
}

}  // namespace
}  // namespace zel
