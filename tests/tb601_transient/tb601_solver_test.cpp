#include "tb601_transient/tb601_solver.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <thread>
#include <tuple>
#include <vector>

#include "fakes/tb601_cases.h"
#include "tb601_transient/tb601_joule.h"
#include "tb601_transient/tb601_radial.h"

namespace zel {
namespace {

double residual(const TB601State& s) {
    return (s.terms.PJ + s.terms.PS) - (s.terms.PC + s.terms.PR);
}

/// The solution of the case, which must have one.
TB601State solution(const CalcCase& c, double delta = 90) {
    TB601Records r;
    EXPECT_FALSE(ST_00_CigreTB601_temp_strom_steady_state(c, delta, r));
    EXPECT_LE(std::abs(residual(r.state)), 0.01);
    return r.state;
}

CalcCase at_current(CalcCase c, double current) {
    c.Leitertemp_Merker_db = false;
    c.Stromstaerke_Merker_db = true;
    c.Stromstaerke_db = typed(current);
    return c;
}

CalcCase line_382_49() {
    CalcCase c = line_264_34();
    c.Seildurchmesser_db = typed(27);
    c.DCR_20_db = typed(0.0758);
    c.DrahtdurchmesserLeiter_db = typed(3);
    c.DrahtlagenzahlLeiter_db = 3;
    c.Mantelquerschnitt_db = typed(381.7);
    c.KerndurchmesserTraeger_db = typed(9);
    return c;
}

/// Drake of annex E, example A: AC resistances, and no radial drop.
CalcCase drake() {
    CalcCase c = line_264_34();
    c.ACDC_R_Option_Merker_db = resistance_by_table;
    c.ACR1_db = typed(0.07283);
    c.TACR1_db = typed(25);
    c.ACR2_db = typed(0.08688);
    c.TACR2_db = typed(75);
    c.Seildurchmesser_db = typed(28.1);
    c.KerndurchmesserTraeger_db = typed(10.4);
    c.DrahtdurchmesserLeiter_db = typed(4.4);
    c.Emissionsverhaeltnis_db = c.Absorptionsverhaeltnis_db = typed(0.8);
    c.Umgebungstemperatur_db = typed(40);
    c.Windgeschwindigkeit_db = typed(0.61);
    c.Globalstrahlung_db = typed(1210);
    c.Leitertemp_db = typed(100);
    c.radialthermalconductivity_unter_KPT_db = typed(1e9);
    c.radialthermalconductivity_ueber_KPT_db = typed(1e9);
    return c;
}

TEST(Tb601Solver, meets_the_published_example) {
    const TB601State s = solution(drake(), 60);
    EXPECT_NEAR(ST_F01_CigreTB601_Resistance(s.table, 100), 9.3905e-5, 5e-10);
    EXPECT_NEAR(s.terms.PS, 27.2, 0.05);
    EXPECT_NEAR(s.terms.PR, 39.1, 0.05);
    EXPECT_NEAR(s.I, 976, 1);  // 976.67: printed cut
}

TEST(Tb601Solver, comes_near_the_rated_currents_of_en_50182) {
    EXPECT_NEAR(solution(line_264_34()).I, 680, 0.08 * 680);
    EXPECT_NEAR(solution(line_382_49()).I, 840, 0.08 * 840);
}

// By a bisection of its own to the last digit; 0.01 W/m are 0.06 A.
TEST(Tb601Solver, finds_current_temperatures_and_factors) {
    const TB601State s = solution(line_264_34());
    EXPECT_NEAR(s.I, 650.0037, 0.06);
    EXPECT_EQ(s.T, 80);
    EXPECT_NEAR(s.TSurface, 78.8925, 2e-4);
    EXPECT_NEAR(s.TCore, 81.1075, 2e-4);
    EXPECT_NEAR(s.terms.PC, 54.4948, 2e-4);
    EXPECT_NEAR(s.terms.PR, 15.1770, 1e-4);
    EXPECT_EQ(s.KiesslingFactor, 0);
    const TB601State three_layers = solution(line_382_49());
    EXPECT_NEAR(three_layers.I, 811.3415, 0.07);
    EXPECT_NEAR(three_layers.KMag, 1.012512, 4e-6);
    EXPECT_NEAR(three_layers.KSkin, 1.0045685, 2e-7);
    CalcCase direct = line_264_34();
    direct.Netzfrequenz_db = typed(0);
    EXPECT_NEAR(solution(direct).I, 650.7094, 0.06);
    EXPECT_NEAR(solution(at_current(line_264_34(), 300)).T, 50.24324, 0.01);
}

// A bisection gives fractions of powers of two: the figures pin its points and its tolerance.
TEST(Tb601Solver, takes_the_told_steps) {
    EXPECT_EQ(solution(line_264_34()).I, 650.0244140625);
    EXPECT_EQ(solution(at_current(line_264_34(), 300)).T, 50.2471923828125);
    EXPECT_EQ(solution(at_current(line_264_34(), 645)).T, 79.38201904296875);
}

// The drop jumps at the knee, and no temperature balances within 0.01 W/m: 0.065 are accepted.
TEST(Tb601Solver, accepts_a_temperature_below_a_tenth_of_a_watt) {
    CalcCase c = at_current(line_264_34(), 650.359);
    c.KniepunktTemperatur_db = typed(80);
    c.radialthermalconductivity_ueber_KPT_db = typed(1.614);
    TB601Records r;
    EXPECT_FALSE(ST_00_CigreTB601_temp_strom_steady_state(c, 90, r));
    EXPECT_NEAR(r.state.T, 80, 1e-9);
    c.Stromstaerke_db = typed(651.2);
    c.radialthermalconductivity_ueber_KPT_db = typed(1.9);
    EXPECT_EQ(ST_00_CigreTB601_temp_strom_steady_state(c, 90, r).cause,
              Tb601Cause::TemperatureNotReached);
}

TEST(Tb601Solver, stands_at_the_ambient_temperature_without_current_and_sun) {
    CalcCase c = at_current(line_264_34(), 0);
    c.Globalstrahlung_db = typed(0);
    EXPECT_EQ(solution(c).T, 35);
}

/// Mixed cases of all conductor types, winds and temperatures, some of which have no solution.
std::vector<CalcCase> mixed_cases() {
    std::vector<CalcCase> cases;
    for (const ConductorType type :
         {homogeneous_conductor, steel_cored_conductor, tubular_busbar, composite_core_conductor})
        for (const double V : {0.0, 0.6, 1.0, 5.0, 30.0})
            for (const double Ta : {-30.0, 0.0, 35.0})
                for (const double T : {-5.0, 40.0, 80.0, 100.0, 150.0})
                    for (const bool three_layers : {false, true}) {
                        CalcCase c = three_layers ? line_382_49() : line_264_34();
                        c.conductor_type_db = type;
                        c.Windgeschwindigkeit_db = typed(V);
                        c.Umgebungstemperatur_db = typed(Ta);
                        c.Leitertemp_db = typed(T);
                        cases.push_back(c);
                        cases.push_back(at_current(c, 6 * (T + 10)));
                    }
    return cases;
}

TEST(Tb601Solver, balances_and_comes_back_to_the_temperature_over_a_grid) {
    int solved = 0;
    for (const CalcCase& c : mixed_cases()) {
        TB601Records r;
        if (ST_00_CigreTB601_temp_strom_steady_state(c, 60, r)) continue;
        EXPECT_LE(std::abs(residual(r.state)), 0.1);
        ++solved;
        const double T = r.state.T;
        const Tb601Failure failure = solve_temperature(r.params, r.state, r.state.I);
        if (r.params.V == 30 && failure) continue;  // refused in the denser air at ambient
        EXPECT_FALSE(failure) << T;
        EXPECT_NEAR(r.state.T, T, 0.05);  // 0.02 W/m in nearly still air
    }
    EXPECT_GT(solved, 900);
}

TEST(Tb601Radial, drops_from_core_to_surface_by_type) {
    struct Row {
        std::int16_t type;
        double T, TCore, TSurface;
    };
    constexpr Row rows[] = {
        {1, 80, 81.51197196, 78.48802804},  // 57 / (1.5 · 4 pi) = 3.02394392
        {2, 80, 81.09645583, 78.90354417},  // 2.19291167
        {4, 99.99, 101.08645583, 98.89354417},
        {2, 100, 100.82234187, 99.17765813},  // lambda 2 from the knee on: 1.64468375
        {3, 80, 80, 80},
        {5, 80, 80, 80},
        {1, 1.5, 3.01197196, 1.5},  // the surface would be below 0
        {1, -5, -3.48802804, -5},
    };
    for (const auto& [type, T, TCore, TSurface] : rows) {
        TB601Records r = records_of(line_264_34());
        r.params.ConductorType = type;
        r.params.Lambda2 = 2;
        r.state.T = T;
        const ArithmeticScope arithmetic;
        EXPECT_FALSE(ST_S09_CigreTB601_Tsurface_conductor_temperature_distribution(
            r.params, r.state, 57, arithmetic));
        EXPECT_NEAR(r.state.TCore, TCore, 1e-7) << type << ' ' << T;
        EXPECT_NEAR(r.state.TSurface, TSurface, 1e-7) << type << ' ' << T;
    }
}

Tb601Failure failure_of(const CalcCase& c) {
    TB601Records r;
    return ST_00_CigreTB601_temp_strom_steady_state(c, 90, r);
}

TEST(Tb601Solver, says_why_there_is_no_solution) {
    const auto changed = [](CalcCase c, Entry CalcCase::*field, double value) {
        c.*field = typed(value);
        return c;
    };
    const CalcCase c = line_264_34();
    const CalcCase hot = at_current(c, 645);
    EXPECT_EQ(failure_of(changed(c, &CalcCase::Leitertemp_db, 36)).cause,
              Tb601Cause::CurrentAllAbove);
    EXPECT_EQ(failure_of(changed(c, &CalcCase::DCR_20_db, 1e-9)).cause,
              Tb601Cause::CurrentAllBelow);
    EXPECT_EQ(failure_of(at_current(c, 99999)).cause, Tb601Cause::TemperatureAllAbove);
    EXPECT_EQ(failure_of(changed(hot, &CalcCase::Globalstrahlung_db, -9000)).cause,
              Tb601Cause::TemperatureAllBelow);
    // A poor conductivity below the knee and a good one above: the balance jumps over 0 at 80 °C.
    CalcCase jump = changed(hot, &CalcCase::radialthermalconductivity_unter_KPT_db, 0.05);
    jump.radialthermalconductivity_ueber_KPT_db = typed(1000);
    jump.KniepunktTemperatur_db = typed(80);
    EXPECT_EQ(failure_of(jump).cause, Tb601Cause::TemperatureNotReached);
    EXPECT_EQ(failure_of(changed(c, &CalcCase::Windgeschwindigkeit_db, 60)).cause,
              Tb601Cause::RoughReynolds);
    CalcCase undefined = c;
    undefined.Stromstaerke_Merker_db = true;
    EXPECT_EQ(failure_of(undefined).cause, Tb601Cause::ModeUndefined);
    undefined.Stromstaerke_Merker_db = undefined.Leitertemp_Merker_db = false;
    EXPECT_EQ(failure_of(undefined).cause, Tb601Cause::ModeUndefined);
    CalcCase single = c;
    single.DrahtlagenzahlLeiter_db = 1;
    EXPECT_EQ(failure_of(single).cause, Tb601Cause::SingleLayer);
}

// At 10^21 ohm/m the last bracket of 3.6e-12 A is still 2 W/m wide. By hand: the root of
// 57.5758 W/m / (1.2418 · 1.0021727 · 10^21 ohm/m).
TEST(Tb601Solver, takes_a_current_that_is_known_within_an_ampere) {
    CalcCase c = line_264_34();
    c.DCR_20_db = typed(1e24);
    TB601Records r;
    EXPECT_FALSE(ST_00_CigreTB601_temp_strom_steady_state(c, 90, r));
    EXPECT_NEAR(r.state.I, 2.1509e-10, 4e-12);
    EXPECT_GT(std::abs(residual(r.state)), 0.01);
}

TEST(Tb601HeatBalance, charges_a_fault_to_its_procedure) {
    using enum Tb601Procedure;
    using enum ArithmeticFault;
    struct Row {
        void (*spoil)(TB601Records&);
        Tb601Procedure procedure;
        ArithmeticFault fault;
    };
    const Row rows[] = {
        {[](TB601Records& r) { r.params.R20 = 1e306; }, JouleHeating, Overflow},
        {[](TB601Records& r) { r.params.Rho20 = -1; }, SkinEffect, InvalidArgument},
        {[](TB601Records& r) { r.params.D = 0; }, SkinEffect, InvalidArgument},
        {[](TB601Records& r) { r.params.AluLayers = 3, r.params.AreaOuter = 0; }, MagneticHeating,
         DivisionByZero},
        {[](TB601Records& r) {
             r.params.ROption = 2;
             r.state.table = {{{1, 20}, {2, 20}}};
         },
         Resistance, DivisionByZero},
        {[](TB601Records& r) { r.params.Ig = r.params.AlphaS = 1e300; }, SolarHeating, Overflow},
        {[](TB601Records& r) { r.params.DCore = 0; }, SurfaceTemperature, InvalidArgument},
        {[](TB601Records& r) { r.params.DCore = 0.0224; }, SurfaceTemperature, InvalidArgument},
        {[](TB601Records& r) { r.params.DWire = 0.0224; }, Convection, DivisionByZero},
        {[](TB601Records& r) { r.params.Eps = 1e308; }, Radiation, Overflow},
    };
    for (const auto& [spoil, procedure, fault] : rows) {
        TB601Records r = records_of(line_264_34());
        r.state.I = 600;
        r.state.T = 80;
        spoil(r);
        const Tb601Failure expected = {Tb601Cause::Fault, procedure, fault};
        const Tb601Failure met = ST_CigreTB601_Heat_Balance(r.params, r.state);
        EXPECT_EQ(met, expected) << static_cast<int>(procedure) << ' '
                                 << static_cast<int>(met.procedure) << ' '
                                 << static_cast<int>(met.fault);
    }
    CalcCase c = line_264_34();
    c.T_Koeff_DC_Resist_Leiter_linear_db = typed(1e60);
    EXPECT_EQ(failure_of(c), (Tb601Failure{Tb601Cause::Fault, SteadyState, Overflow}));
}

TEST(Tb601HeatBalance, leaves_the_last_cooling_after_a_refusal) {
    TB601Records r = records_of(line_264_34());
    r.params.V = 60;
    r.state.I = 600;
    r.state.T = 80;
    r.state.terms = {1, 2, 3, 4};
    EXPECT_EQ(ST_CigreTB601_Heat_Balance(r.params, r.state).cause, Tb601Cause::RoughReynolds);
    EXPECT_NEAR(r.state.terms.PJ, 49.058112, 1e-5);
    EXPECT_EQ(r.state.terms.PC, 3);
    EXPECT_EQ(r.state.terms.PR, 4);
}

using Solved = std::tuple<Tb601Failure, std::array<double, 12>>;

std::vector<Solved> solve_every(const std::vector<CalcCase>& cases, std::size_t first,
                                std::size_t stride) {
    std::vector<Solved> solved;
    for (std::size_t n = first; n < cases.size(); n += stride) {
        TB601Records r;
        const auto failure = ST_00_CigreTB601_temp_strom_steady_state(cases[n], 60, r);
        const auto& [I, T, terms, Ts, Tc, table, Kiessling, KRaw, KSkin, KMag] = r.state;
        solved.push_back(
            {failure,
             {I, T, terms.PJ, terms.PS, terms.PC, terms.PR, Ts, Tc, Kiessling, KRaw, KSkin, KMag}});
    }
    return solved;
}

TEST(Tb601Solver, gives_the_same_digits_on_two_threads) {
    const std::vector<CalcCase> cases = mixed_cases();
    ASSERT_GT(cases.size(), 1000U);
    const auto alone = solve_every(cases, 0, 1);
    std::array<std::vector<Solved>, 2> halves;
    std::thread other([&] { halves[1] = solve_every(cases, 1, 2); });
    halves[0] = solve_every(cases, 0, 2);
    other.join();
    for (std::size_t n = 0; n < alone.size(); ++n) EXPECT_EQ(halves[n % 2][n / 2], alone[n]);
}

}  // namespace
}  // namespace zel
