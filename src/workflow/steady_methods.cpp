#include "workflow/steady_methods.h"

#include <algorithm>

#include "steady/steady_solver.h"

namespace zel {
namespace {

/// TB 207, or the tubular busbar method: one solver with the heat terms that the flags choose.
MethodOutcome run_heat_balance(const CalcCase& c, double angle, const Session& session) {
    const auto [state, failure] = ST_00_CigreTB207_temp_strom_steady_state(c, angle);
    MethodOutcome outcome;
    outcome.status = report(failure, session.reporting());
    if (outcome.sound()) {
        outcome.current_A = state.current;
        outcome.temperature_C = state.temperature;
        outcome.terms = state.terms;
    }
    return outcome;
}

constexpr std::array methods = {
    SteadyMethod{Method::TB207,
                 "Cigre TB 207",
                 {" nach Cigre TB 207 :", " by Cigre TB 207 :"},
                 "TB 207 / TBB:  ",
                 true,
                 run_heat_balance},
};

}  // namespace

std::string_view key_of(Method method) {
    switch (method) {
        case Method::TB601: return "TB601";
        case Method::TB207: return "TB207";
        case Method::TBB: return "TBB";
        case Method::Webs: return "Webs";
        case Method::Kirn: return "Kirn";
    }
    return {};
}

std::int16_t CalcCase::*flag_of(Method method) {
    switch (method) {
        case Method::TB601: return &CalcCase::rechnung_cigre601_merker_db;
        case Method::TB207: return &CalcCase::rechnung_cigre207_merker_db;
        case Method::TBB: return &CalcCase::rechnung_TBB_merker_db;
        case Method::Webs: return &CalcCase::rechnung_webs_merker_db;
        case Method::Kirn: return &CalcCase::rechnung_kirn_merker_db;
    }
    return nullptr;
}

const SteadyMethod* find_method(Method method) {
    const auto row = std::find_if(methods.begin(), methods.end(),
                                  [method](const SteadyMethod& m) { return m.id == method; });
    return row == methods.end() ? nullptr : &*row;
}

}  // namespace zel
