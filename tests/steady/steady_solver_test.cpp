#include "steady/steady_solver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "fakes/steady_cases.h"

// Solutions and failures stand in tests/data/steady_methods.json.

namespace zel {
namespace {

using enum SteadyCause;
using testing::ElementsAre;

/// 264-AL1/34-ST1A at 35 °C, 0.6 m/s across, 900 W/m².
SteadyInputBlock strand() { return steady_input(twin_264_34(), 90); }

double residual_at(const SteadyInputBlock& in, double current, double temperature) {
    SteadyStateBlock state = {current, temperature, {}};
    EXPECT_EQ(ST_F00_heat_terms_eval(state, in).cause, None);
    HeatTerms at_one_current;
    EXPECT_EQ(SteadyBalance(in, current).evaluate(temperature, at_one_current).cause, None);
    EXPECT_EQ(net_power(at_one_current), net_power(state.terms));
    return net_power(state.terms);
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
    EXPECT_THAT(std::to_array<int>({in.busbar_shape, in.layers, in.conductor_type}),
                ElementsAre(1, 2, 2));
    EXPECT_EQ(in.method, HeatTermMethod::TB207);
    c.Gravi_merker1_db = 2;
    c.rechnung_TBB_merker_db = 1;
    EXPECT_EQ(steady_input(c, 60).g, 9.78);
    EXPECT_EQ(steady_input(c, 60).method, HeatTermMethod::TB207);
    c.rechnung_cigre207_merker_db = 0;
    EXPECT_EQ(steady_input(c, 60).method, HeatTermMethod::TBB);
    c.rechnung_TBB_merker_db = 0;
    EXPECT_EQ(steady_input(c, 60).method, HeatTermMethod::None);
}

TEST(HeatTermsEvaluation, leaves_what_no_method_gives_or_stands_behind_a_failure) {
    SteadyInputBlock in = strand();
    const auto evaluate = [&](double current, SteadyCause cause) {
        SteadyStateBlock state = {current, 80, {-1, -2, -3, -4}};
        EXPECT_EQ(ST_F00_heat_terms_eval(state, in).cause, cause);
        return state.terms;
    };
    EXPECT_EQ(evaluate(-500, JouleBracketing).PS, -2);
    in.V = 80;  // Re 96 000
    const HeatTerms terms = evaluate(665.451, ReynoldsTooLarge);
    EXPECT_NEAR(terms.PJ, 60.50137, 1e-4);
    EXPECT_NEAR(terms.PS, 12.096, 1e-9);
    EXPECT_EQ(terms.PR, -4);
    in.method = HeatTermMethod::None;
    const auto [PJ, PS, PC, PR] = evaluate(500, None);
    EXPECT_THAT(std::to_array({PJ, PS, PC, PR}), ElementsAre(-1, -2, -3, -4));
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
                    EXPECT_EQ(net_power(at.terms), residual_at(in, at.current, T));
                    if (std::abs(net_power(at.terms)) > 0.001) {
                        EXPECT_LT(residual_at(in, at.current - 1, T), 0);
                        EXPECT_GT(residual_at(in, at.current + 1, T), 0);
                    }
                    const auto [back, no_way_back] = solve_temperature(in, at.current);
                    ASSERT_EQ(no_way_back.cause, None);
                    EXPECT_LE(std::abs(net_power(back.terms)), 0.001);
                    EXPECT_EQ(net_power(back.terms), residual_at(in, at.current, back.temperature));
                    EXPECT_NEAR(back.temperature, T, 0.02);
                }
}

}  // namespace
}  // namespace zel
