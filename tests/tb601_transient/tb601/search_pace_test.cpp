#include <gtest/gtest.h>

#include <bit>
#include <cstdlib>
#include <random>

#include "fakes/tb601_cases.h"
#include "steady/steady_solver.h"
#include "tb601_transient/tb601/tb601_solver.h"

// A search that remembers its points, and balances that work out once what stays the same, against
// the plain search over evaluations from nothing: equal to the bit, also in what a failure leaves
// behind. ZEL_SEARCHES sets how many random searches of each kind are compared.

namespace zel {
namespace {

int searches() {
    const char* wanted = std::getenv("ZEL_SEARCHES");
    return wanted == nullptr ? 1500 : std::atoi(wanted);
}

class Random {
public:
    double between(double low, double high) {
        return std::uniform_real_distribution<>(low, high)(generator_);
    }
    int whole(int low, int high) { return std::uniform_int_distribution<>(low, high)(generator_); }
    bool one_in(int many) { return whole(1, many) == 1; }
    /// Seldom a number that no line has.
    double odd(double low, double high) {
        if (!one_in(60)) return between(low, high);
        const double odd[] = {0, -1, 1e-300, 1e300, 1e5, -273.15, low, high};
        return odd[static_cast<std::size_t>(whole(0, 7))];
    }

private:
    std::mt19937 generator_{207};
};

template <class... Values>
std::vector<std::uint64_t> bits_of(Values... values) {
    return {std::bit_cast<std::uint64_t>(static_cast<double>(values))...};
}
std::vector<std::uint64_t> bits(const SteadyStateBlock& s) {
    return bits_of(s.current, s.temperature, s.terms.PJ, s.terms.PS, s.terms.PC, s.terms.PR);
}
std::vector<std::uint64_t> bits(const TB601State& s) {
    return bits_of(s.I, s.T, s.terms.PJ, s.terms.PS, s.terms.PC, s.terms.PR, s.TSurface, s.TCore,
                   s.KSkinRaw, s.KSkin, s.KMag);
}

CalcCase random_case(Random& random, CalcCase c) {
    c.Windgeschwindigkeit_db = typed(random.one_in(5) ? 0 : random.odd(0, 20));
    c.Umgebungstemperatur_db = typed(random.odd(-40, 60));
    c.Hoehe_ueber_NN_db = typed(random.odd(0, 4500));
    c.Globalstrahlung_db = typed(random.odd(0, 1400));
    c.Emissionsverhaeltnis_db = typed(random.odd(0.1, 1));
    c.Absorptionsverhaeltnis_db = typed(random.odd(0.1, 1));
    c.Seildurchmesser_db = typed(random.odd(5, 60));
    c.DrahtdurchmesserLeiter_db = typed(random.odd(1, 6));
    c.Mantelquerschnitt_db = typed(random.odd(20, 900));
    c.DrahtlagenzahlLeiter_db = static_cast<std::int16_t>(random.whole(0, 4));
    c.conductor_type_db = static_cast<std::int16_t>(random.whole(1, 4));
    c.conductor_shape_db = static_cast<std::int16_t>(random.whole(1, 2));
    c.DCR_20_db = typed(random.odd(0.01, 1));
    c.Netzfrequenz_db = typed(random.one_in(8) ? 0 : random.odd(16, 60));
    c.KerndurchmesserTraeger_db = typed(random.odd(1, 10));
    c.ACDC_R_Option_Merker_db = static_cast<std::int16_t>(random.whole(1, 2));
    c.ACR1_db = typed(0.11);
    c.TACR1_db = typed(20);
    c.ACR2_db = typed(random.odd(0.1, 0.2));
    c.TACR2_db = typed(random.odd(20, 90));
    return c;
}

/// Evaluations from nothing, all points anew.
SteadySolution plainly(const SteadyInputBlock& input, bool of_current, double given) {
    using enum SteadyCause;
    SteadyStateBlock state{of_current ? 0 : given, of_current ? given : 0, {}};
    const auto evaluate = [&](double point, double& residual) {
        (of_current ? state.current : state.temperature) = point;
        const SteadyFailure met = ST_F00_heat_terms_eval(state, input);
        residual = net_power(state.terms);
        return met;
    };
    const SteadyFailure failure =
        of_current ? bisect({0, 2000, 99999},
                            Bisection<SteadyFailure>{0.001, 0, CurrentAllAbove, CurrentAllBelow,
                                                     CurrentNotReached},
                            evaluate)
                   : bisect({-100, 200, 500},
                            Bisection<SteadyFailure>{0.001, 0.5, TemperatureAllAbove,
                                                     TemperatureAllBelow, TemperatureNotReached},
                            evaluate);
    return {state, failure};
}

TEST(SearchPace, changes_no_bit_of_tb207_and_the_busbar_method) {
    Random random;
    int failures = 0;
    for (int i = 0; i < searches(); ++i) {
        const CalcCase c = random_case(random, random.one_in(3) ? tube() : twin_264_34());
        const SteadyInputBlock input = steady_input(c, random.odd(0, 90));
        const bool of_current = random.one_in(2);
        const double given = of_current ? random.odd(-20, 200) : random.odd(0, 3000);
        const SteadySolution plain = plainly(input, of_current, given);
        failures += plain.failure ? 1 : 0;
        for (const SearchPace pace : {SearchPace::AllPoints, SearchPace::NewPoints}) {
            const SteadySolution found = of_current ? solve_current(input, given, pace)
                                                    : solve_temperature(input, given, pace);
            ASSERT_EQ(found.failure, plain.failure) << i;
            ASSERT_EQ(bits(found.state), bits(plain.state)) << i;
        }
    }
    EXPECT_GT(failures, searches() / 20);
    EXPECT_LT(failures, searches() * 3 / 4);
}

Tb601Failure plainly(const TB601Params& params, TB601State& state, bool of_current) {
    using enum Tb601Cause;
    const ArithmeticScope arithmetic;
    const auto evaluate = [&](double point, double& residual) -> Tb601Failure {
        (of_current ? state.I : state.T) = point;
        if (const auto failure = ST_CigreTB601_Heat_Balance(params, state)) return failure;
        residual = computed(net_power(state.terms));
        return fault_in(Tb601Procedure::SteadyState, arithmetic);
    };
    return of_current ? bisect({0, 2000, 99999},
                               Bisection<Tb601Failure>{0.01, 0, CurrentAllAbove, CurrentAllBelow,
                                                       CurrentNotReached},
                               evaluate)
                      : bisect({params.Ta, 200, 500},
                               Bisection<Tb601Failure>{0.01, 0.1, TemperatureAllAbove,
                                                       TemperatureAllBelow, TemperatureNotReached},
                               evaluate);
}

TEST(SearchPace, changes_no_bit_of_tb601) {
    Random random;
    int failures = 0;
    TB601State former;  // what stays behind from one search to the next
    for (int i = 0; i < searches(); ++i) {
        const TB601Records records =
            records_of(random_case(random, line_264_34()), random.odd(0, 90));
        TB601State start = records.state;
        start.KMag = former.KMag;
        start.KSkinRaw = former.KSkinRaw;
        const bool of_current = random.one_in(2);
        (of_current ? start.T : start.I) = of_current ? random.odd(-20, 200) : random.odd(0, 3000);
        TB601State plain = start;
        const Tb601Failure failure = plainly(records.params, plain, of_current);
        failures += failure ? 1 : 0;
        for (const SearchPace pace : {SearchPace::AllPoints, SearchPace::NewPoints}) {
            TB601State found = start;
            const Tb601Failure met = of_current
                                         ? solve_current(records.params, found, start.T, pace)
                                         : solve_temperature(records.params, found, start.I, pace);
            ASSERT_EQ(met, failure) << i;
            ASSERT_EQ(bits(found), bits(plain)) << i;
        }
        former = plain;
    }
    EXPECT_GT(failures, searches() / 20);
    EXPECT_LT(failures, searches() * 3 / 4);
}

}  // namespace
}  // namespace zel
