#include "steady/steady_solver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "fakes/allocation_count.h"
#include "fakes/steady_cases.h"

namespace zel {
namespace {

using enum SteadyCause;
using testing::ElementsAre;

/// 264-AL1/34-ST1A at 35 °C, 0.6 m/s across, 900 W/m².
SteadyInputBlock strand() { return steady_input(twin_264_34(), 90); }

double residual(const HeatTerms& terms) { return (terms.PJ + terms.PS) - (terms.PC + terms.PR); }

double residual_at(const SteadyInputBlock& in, double current, double temperature) {
    SteadyStateBlock state = {current, temperature, {}};
    EXPECT_EQ(ST_F00_heat_terms_eval(state, in).cause, None);
    return residual(state.terms);
}

TEST(SteadyInput, takes_each_field_of_the_case) {
    CalcCase c = twin_264_34();
    c.Hoehe_ueber_NN_db = typed(500);
    c.Absorptionsverhaeltnis_db = typed(0.7);
    c.Gravi_merker1_db = 3;
    const SteadyInputBlock in = steady_input(c, 60);
    // The temperature coefficient is 4.03 in single precision, then divided in double.
    EXPECT_THAT(std::to_array({in.Ta, in.V, in.delta, in.altitude, in.global_radiation, in.g,
                               in.frequency, in.emissivity, in.absorptivity, in.conductor_section,
                               in.outer_diameter, in.outer_diameter_again, in.wire_diameter,
                               in.DCR20, in.resistivity, in.a20}),
                ElementsAre(35, 0.6, 60, 500, 900, 9.83, 50, 0.6, 0.7, 263.7, 22.4, 22.4, 3.74,
                            0.1095, 28.264, 0.004030000209808349));
    EXPECT_NEAR(in.inner_diameter, 14.92, 1e-12);
    EXPECT_EQ(in.busbar_shape, 1);
    EXPECT_EQ(in.layers, 2);
    EXPECT_EQ(in.conductor_type, 2);
    EXPECT_EQ(in.method, HeatTermMethod::TB207);
    c.Gravi_merker1_db = 2;
    EXPECT_EQ(steady_input(c, 60).g, 9.78);
    c.rechnung_cigre207_merker_db = 0;
    EXPECT_EQ(steady_input(c, 60).method, HeatTermMethod::None);
}

TEST(HeatTermsEvaluation, leaves_what_no_method_gives) {
    SteadyInputBlock in = strand();
    in.method = HeatTermMethod::None;
    SteadyStateBlock state = {500, 80, {1, 2, 3, 4}};
    EXPECT_EQ(ST_F00_heat_terms_eval(state, in).cause, None);
    EXPECT_EQ(state.terms.PJ + 10 * state.terms.PS + 100 * state.terms.PC + 1000 * state.terms.PR,
              4321);
}

TEST(HeatTermsEvaluation, stops_at_the_first_failure) {
    SteadyInputBlock in = strand();
    in.V = 80;  // Re 96 000
    SteadyStateBlock state = {665.451, 80, {-7, -7, -7, -7}};
    EXPECT_EQ(ST_F00_heat_terms_eval(state, in).cause, ReynoldsTooLarge);
    EXPECT_NEAR(state.terms.PJ, 60.50137, 1e-4);
    EXPECT_NEAR(state.terms.PS, 12.096, 1e-9);
    EXPECT_EQ(state.terms.PR, -7);
    in = strand();
    state = {-500, 80, {-7, -7, -7, -7}};
    EXPECT_EQ(ST_F00_heat_terms_eval(state, in).cause, JouleBracketing);
    EXPECT_EQ(state.terms.PS, -7);
}

TEST(HeatTermsEvaluation, names_the_term_of_a_numeric_fault) {
    const struct {
        double SteadyInputBlock::*field;
        double value;
        SteadyFailure failure;
    } rows[] = {
        {&SteadyInputBlock::conductor_section, 0, {JouleFault, ArithmeticFault::DivisionByZero}},
        {&SteadyInputBlock::DCR20, 1e306, {JouleFault, ArithmeticFault::Overflow}},
        {&SteadyInputBlock::absorptivity, 1e307, {SolarFault, ArithmeticFault::Overflow}},
        {&SteadyInputBlock::wire_diameter,
         22.4,
         {ConvectionFault, ArithmeticFault::DivisionByZero}},
        {&SteadyInputBlock::emissivity, 1e308, {RadiationFault, ArithmeticFault::Overflow}},
    };
    for (const auto& [field, value, failure] : rows) {
        SteadyInputBlock in = strand();
        in.*field = value;
        SteadyStateBlock state = {3000, 80, {}};
        EXPECT_EQ(ST_F00_heat_terms_eval(state, in), failure);
        EXPECT_EQ(solve_current(in, 80).failure, failure);
        EXPECT_EQ(solve_temperature(in, 3000).failure, failure);
    }
}

// 665.451 A with PJ 60.5014, PS 12.0960, PC 56.9468 and PR 15.6511 W/m, computed apart from the
// program. EN 50182 gives 680 A, by another method.
TEST(SteadyState, of_a_264_34_conductor_is_near_its_published_rating) {
    const SteadySolution found = ST_00_CigreTB207_temp_strom_steady_state(twin_264_34(), 90);
    ASSERT_EQ(found.failure.cause, None);
    EXPECT_NEAR(found.state.current, 665.451, 0.001);
    EXPECT_NEAR(found.state.current, 680, 0.08 * 680);
    EXPECT_EQ(found.state.temperature, 80);
    EXPECT_NEAR(found.state.terms.PJ, 60.5014, 1e-4);
    EXPECT_NEAR(found.state.terms.PS, 12.0960, 1e-4);
    EXPECT_NEAR(found.state.terms.PC, 56.9468, 1e-4);
    EXPECT_NEAR(found.state.terms.PR, 15.6511, 1e-4);
}

TEST(SteadyState, balances_in_both_modes_and_comes_back_to_the_temperature) {
    const struct {
        std::int16_t type, layers;
        double section;
    } conductors[] = {{1, 3, 263.7}, {4, 1, 60}, {2, 3, 263.7}, {2, 2, 263.7}, {2, 1, 60}};
    for (const auto& [type, layers, section] : conductors)
        for (const double V : {0.0, 0.3, 0.6, 5.0})
            for (const double Ta : {-20.0, 35.0})
                for (const double T : {60.0, 80.0, 150.0, 250.0}) {
                    SCOPED_TRACE(testing::Message()
                                 << "type " << type << ", " << layers << " layers, " << V
                                 << " m/s, " << Ta << " to " << T << " °C");
                    SteadyInputBlock in = strand();
                    in.conductor_type = type;
                    in.layers = layers;
                    in.conductor_section = section;
                    in.V = V;
                    in.Ta = Ta;
                    const auto [at, failure] = solve_current(in, T);
                    ASSERT_EQ(failure.cause, None);
                    EXPECT_EQ(residual(at.terms), residual_at(in, at.current, T));
                    if (std::abs(residual(at.terms)) > 0.001) {
                        EXPECT_LT(residual_at(in, at.current - 1, T), 0);
                        EXPECT_GT(residual_at(in, at.current + 1, T), 0);
                    }
                    const auto [back, no_way_back] = solve_temperature(in, at.current);
                    ASSERT_EQ(no_way_back.cause, None);
                    EXPECT_LE(std::abs(residual(back.terms)), 0.001);
                    EXPECT_EQ(residual(back.terms), residual_at(in, at.current, back.temperature));
                    EXPECT_NEAR(back.temperature, T, 0.02);
                }
}

/// A conductor of 1 m and 0.1 ohm/km at the temperature of its air, without convection and
/// radiation: the balance is 1.0123e-4 I² + S.
SteadySolution current_against(double S) {
    SteadyInputBlock in = strand();
    in.conductor_type = homogeneous_conductor;
    in.outer_diameter = 1000;
    in.DCR20 = 0.1;
    in.absorptivity = 1;
    in.V = 0;
    in.Ta = 20;
    in.global_radiation = S;
    return solve_current(in, 20);
}

TEST(CurrentSearch, ends_at_its_three_first_points_where_they_balance) {
    const struct {
        double S;
        double current;
    } rows[] = {{0, 0}, {0.001, 0}, {-0.001, 0}, {-404.92, 2000}, {-1012279.7541, 99999}};
    for (const auto& [S, current] : rows) {
        EXPECT_EQ(current_against(S).failure.cause, None) << S;
        EXPECT_EQ(current_against(S).state.current, current) << S;
    }
    EXPECT_EQ(current_against(-0.0010001).state.current, 3.90625);  // 2000 A halved nine times
}

TEST(CurrentSearch, fails_below_zero_and_above_99999_amperes) {
    EXPECT_EQ(current_against(0.0010001).failure.cause, CurrentAllAbove);
    EXPECT_EQ(current_against(-1012279.756).failure.cause, CurrentAllBelow);
    SteadyInputBlock in = strand();
    in.Ta = 100;
    EXPECT_EQ(solve_current(in, 80).failure.cause, CurrentAllAbove);
}

TEST(CurrentSearch, takes_a_bracket_below_one_ampere_where_the_heating_jumps) {
    SteadyInputBlock in = strand();
    in.conductor_section = 100;
    in.global_radiation = 0;
    const auto [state, failure] = solve_current(in, 37.34);
    EXPECT_EQ(failure.cause, None);
    EXPECT_NEAR(state.current, 175.024376334, 1e-6);
    EXPECT_NEAR(residual(state.terms), -0.0668, 0.0001);
}

/// A conductor without current and sun takes the temperature of its air.
SteadySolution temperature_in_air(double Ta) {
    SteadyInputBlock in = strand();
    in.Ta = Ta;
    in.global_radiation = 0;
    return solve_temperature(in, 0);
}

TEST(TemperatureSearch, reaches_from_minus_100_to_500_degrees) {
    for (const double Ta : {-100.0, 200.0, 500.0}) {
        EXPECT_EQ(temperature_in_air(Ta).failure.cause, None) << Ta;
        EXPECT_EQ(temperature_in_air(Ta).state.temperature, Ta);
    }
    EXPECT_EQ(temperature_in_air(500.01).failure.cause, TemperatureAllAbove);
    EXPECT_EQ(temperature_in_air(-101).failure.cause, TemperatureAllBelow);
}

TEST(TemperatureSearch, takes_a_current_of_zero) {
    const auto [state, failure] = solve_temperature(strand(), 0);
    EXPECT_EQ(failure.cause, None);
    EXPECT_EQ(state.current, 0);
    EXPECT_EQ(state.terms.PJ, 0);
    EXPECT_NEAR(state.temperature, 42.7811, 0.001);  // 7.8 K above the air by the sun
}

// A smooth conductor cools in a jump where its Reynolds number falls below 2650 or 50 000.
TEST(TemperatureSearch, takes_half_a_watt_where_the_cooling_jumps_and_no_more) {
    SteadyInputBlock in = strand();
    in.conductor_type = homogeneous_conductor;
    in.wire_diameter = 1;
    in.global_radiation = 0;
    in.Ta = 20;
    in.V = 2.12;
    const auto [state, failure] = solve_temperature(in, 1062);
    EXPECT_EQ(failure.cause, None);
    EXPECT_NEAR(state.temperature, 79.3684210526, 1e-6);
    EXPECT_GT(std::abs(residual(state.terms)), 0.1);
    EXPECT_EQ(solve_temperature(in, 1061.5).failure.cause, TemperatureNotReached);
    in.V = 28;
    in.outer_diameter = 30;
    EXPECT_EQ(solve_temperature(in, 500).failure.cause, TemperatureNotReached);
}

TEST(SteadyState, hands_on_the_failure_of_an_evaluation) {
    SteadyInputBlock in = strand();
    in.V = 80;
    EXPECT_EQ(solve_current(in, 80).failure.cause, ReynoldsTooLarge);
    EXPECT_EQ(solve_temperature(in, 600).failure.cause, ReynoldsTooLarge);
    EXPECT_EQ(solve_temperature(strand(), -500).failure.cause, JouleBracketing);
}

TEST(SteadyState, is_undefined_unless_just_one_of_current_and_temperature_is_given) {
    CalcCase c = twin_264_34();
    c.Stromstaerke_Merker_db = true;
    EXPECT_EQ(ST_00_CigreTB207_temp_strom_steady_state(c, 90).failure.cause, ModeUndefined);
    c.Leitertemp_Merker_db = c.Stromstaerke_Merker_db = false;
    EXPECT_EQ(ST_00_CigreTB207_temp_strom_steady_state(c, 90).failure.cause, ModeUndefined);
    const auto [state, failure] =
        ST_00_CigreTB207_temp_strom_steady_state(twin_264_34_at(665.451), 90);
    EXPECT_EQ(failure.cause, None);
    EXPECT_NEAR(state.temperature, 80, 0.001);
}

TEST(SteadyState, is_found_without_allocation) {
    const CalcCase by_temperature = twin_264_34();
    const CalcCase by_current = twin_264_34_at(665.451);
    const std::size_t before = allocation_count();
    const SteadySolution first = ST_00_CigreTB207_temp_strom_steady_state(by_temperature, 90);
    const SteadySolution second = ST_00_CigreTB207_temp_strom_steady_state(by_current, 90);
    EXPECT_EQ(allocation_count(), before);
    EXPECT_FALSE(first.failure || second.failure);
    ::operator delete(::operator new(1));
    EXPECT_EQ(allocation_count(), before + 1);
}

}  // namespace
}  // namespace zel
