#include "workflow/run/steady_methods.h"

#include <algorithm>

#include "shell/error_table.h"
#include "shell/program_texts.h"
#include "steady/kirn.h"
#include "steady/steady_solver.h"
#include "steady/webs.h"
#include "tb601_transient/tb601/tb601_report.h"
#include "tb601_transient/tb601/tb601_solver.h"

namespace zel {
namespace {

/// TB 207, or the tubular busbar method: one solver with the heat terms that the flags choose.
SteadyResult run_heat_balance(const CalcCase& c, double angle, const Session& session) {
    const auto [state, failure] = ST_00_CigreTB207_temp_strom_steady_state(c, angle);
    SteadyResult outcome;
    outcome.status = report(failure, session.reporting());
    if (outcome.sound()) {
        outcome.current_A = state.current;
        outcome.temperature_C = state.temperature;
        outcome.terms = state.terms;
    }
    return outcome;
}

SteadyResult run_tb601(const CalcCase& c, double angle, const Session& session) {
    TB601Records fresh;
    TB601Records& records = session.memory != nullptr ? session.memory->tb601 : fresh;
    const Tb601Failure failure = ST_00_CigreTB601_temp_strom_steady_state(c, angle, records);
    SteadyResult outcome;
    outcome.status = report(failure, session.reporting());
    if (outcome.sound()) {
        const TB601State& state = records.state;
        outcome.current_A = state.I;
        outcome.temperature_C = state.T;
        outcome.terms = state.terms;
        outcome.tb601 = {state.TSurface, state.TCore, state.KiesslingFactor, state.KSkin,
                         state.KMag};
    }
    return outcome;
}

/// Webs and Kirn have no status text: a numeric fault is told, and the method is without result.
template <class Result>
SteadyResult outcome_of(const Result& result, double temperature, const Session& session) {
    SteadyResult outcome;
    if (const auto& [module, procedure, fault] = result.fault; result.fault) {
        const Box box = arithmetic_error(fault, module, procedure, session.lang);
        session.tell(box);
        outcome.fault = box.lines.front();
        return outcome;
    }
    outcome.current_A = result.current;
    outcome.temperature_C = temperature;
    return outcome;
}

/// Webs and Kirn know no undefined mode: the failure is that of the steady solver, and ends the
/// program.
void require_mode(const CalcCase& c, const Session& session) {
    if (c.Leitertemp_Merker_db == c.Stromstaerke_Merker_db)
        report({SteadyCause::ModeUndefined}, session.reporting());
}

SteadyResult run_webs(const CalcCase& c, double angle, const Session& session) {
    require_mode(c, session);
    const WebsInput in = webs_input(c, angle);
    WebsQuestions questions(
        {session.reporting(), session.separator, session.wi_v_wi_merker, short_name});
    if (c.Leitertemp_Merker_db) {
        const double T = c.Leitertemp_db.value;
        return outcome_of(S1_Rechnung_strom_webs(in, T, questions), T, session);
    }
    const auto result = S2_Rechnung_temp_webs(in, c.Stromstaerke_db.value, questions);
    return outcome_of(result, result.temperature, session);
}

SteadyResult run_kirn(const CalcCase& c, double angle, const Session& session) {
    require_mode(c, session);
    const KirnInput in = kirn_input(c, angle);
    const double former = session.memory != nullptr ? session.memory->Kirn_current : 0;
    const auto with_angle = [&](const auto& result, double temperature) {
        if (session.memory != nullptr && !result.fault)
            session.memory->Kirn_current = result.current;
        SteadyResult outcome = outcome_of(result, temperature, session);
        outcome.angle = result.angle;
        return outcome;
    };
    if (c.Leitertemp_Merker_db) {
        const double T = c.Leitertemp_db.value;
        return with_angle(S1_Rechnung_strom_kirn(in, T, former), T);
    }
    const auto result = S2_Rechnung_temp_kirn(in, c.Stromstaerke_db.value, former);
    return with_angle(result, result.temperature);
}

HeatTerms terms_of_webs(const CalcCase& c, double angle, double I, double T,
                        const Session& session) {
    WebsQuestions questions(
        {silent(session).reporting(), session.separator, session.wi_v_wi_merker, short_name});
    return webs_heat_terms(webs_input(c, angle), I, T, questions);
}

constexpr std::string_view heat_balance_head = "TB 207 / TBB:  ";

constexpr std::array method_rows = {
    SteadyMethod{Method::TB601,
                 {" nach Cigre TB 601 :", " by Cigre TB 601 :"},
                 "TB 601:  ",
                 true,
                 run_tb601},
    SteadyMethod{Method::TB207,
                 {" nach Cigre TB 207 :", " by Cigre TB 207 :"},
                 heat_balance_head,
                 true,
                 run_heat_balance},
    SteadyMethod{
        Method::TBB, {" nach Puffer :", " by Puffer :"}, heat_balance_head, true, run_heat_balance},
    SteadyMethod{Method::Webs, {" nach Webs :", " by Webs :"}, {}, false, run_webs},
    SteadyMethod{Method::Kirn, {" nach Kirn :", " by Kirn :"}, {}, false, run_kirn},
};

}  // namespace

std::optional<HeatTerms> heat_terms(Method method, const SteadyResult& outcome, const CalcCase& c,
                                    double angle, const Session& session) {
    if (outcome.terms || !outcome.sound()) return outcome.terms;
    const double I = *outcome.current_A;
    const double T = *outcome.temperature_C;
    if (method == Method::Kirn) return kirn_heat_terms(kirn_input(c, angle), I, T);
    return terms_of_webs(c, angle, I, T, session);
}

const SteadyMethod* find_method(Method method) {
    const auto row = std::find_if(method_rows.begin(), method_rows.end(),
                                  [method](const SteadyMethod& m) { return m.id == method; });
    return row == method_rows.end() ? nullptr : &*row;
}

}  // namespace zel
