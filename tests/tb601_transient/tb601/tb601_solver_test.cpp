#include "tb601_transient/tb601/tb601_solver.h"

#include <gtest/gtest.h>

#include <cmath>

#include "fakes/allocation_count.h"
#include "fakes/tb601_cases.h"
#include "steady/heat_balance.h"

// Solutions and failures stand in tests/data/steady_methods.json.

namespace zel {
namespace {

CalcCase at_current(CalcCase c, double current) {
    c.Leitertemp_Merker_db = false;
    c.Stromstaerke_Merker_db = true;
    c.Stromstaerke_db = typed(current);
    return c;
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
                        CalcCase c = line_264_34();
                        c.conductor_type_db = type;
                        c.Windgeschwindigkeit_db = typed(V);
                        c.Umgebungstemperatur_db = typed(Ta);
                        c.Leitertemp_db = typed(T);
                        c.DrahtlagenzahlLeiter_db = three_layers ? 3 : 2;
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
        EXPECT_LE(std::abs(net_power(r.state.terms)), 0.1);
        ++solved;
        const double T = r.state.T;
        const Tb601Failure failure = solve_temperature(r.params, r.state, r.state.I);
        if (r.params.V == 30 && failure) continue;  // refused in the denser air at ambient
        EXPECT_FALSE(failure) << T;
        EXPECT_NEAR(r.state.T, T, 0.05);  // 0.02 W/m in nearly still air
    }
    EXPECT_GT(solved, 900);
}

TEST(Tb601Solver, allocates_nothing_where_it_fails) {
    const CalcCase c = at_current(line_264_34(), 99999);
    TB601Records r;
    const std::size_t before = allocation_count();
    const Tb601Failure failure = ST_00_CigreTB601_temp_strom_steady_state(c, 90, r);
    EXPECT_EQ(allocation_count(), before);
    EXPECT_EQ(failure.cause, Tb601Cause::TemperatureAllAbove);
}

}  // namespace
}  // namespace zel
