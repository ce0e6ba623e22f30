#include "workflow/run/steady_run.h"

#include <algorithm>
#include <array>

#include "platform/arithmetic_fault.h"
#include "platform/errors.h"
#include "shell/error_table.h"
#include "steady/case/case_fields.h"
#include "workflow/rules/derived.h"
#include "workflow/rules/steady_check.h"
#include "workflow/run/advice.h"
#include "workflow/run/notes.h"
#include "workflow/run/steady_texts.h"

namespace zel {
namespace {

using MethodOrder = std::array<Method, all_methods.size()>;
constexpr MethodOrder order_for_current = all_methods;
constexpr MethodOrder order_for_temperature = {Method::TB207, Method::TBB, Method::TB601,
                                               Method::Webs, Method::Kirn};

/// TB 207 goes before the busbar method where both are selected.
bool runs(const CalcCase& c, Method method) {
    const bool displaced = method == Method::TBB && is_selected(c, Method::TB207);
    return is_selected(c, method) && !displaced;
}

/// Folds the wind angle and reconciles the currents of the bundle. Numbers too large for that are a
/// fault, which is given back.
std::optional<Box> prepare(CalcCase& c, const Session& session, SteadyRunResult& result) {
    const ArithmeticScope arithmetic;
    const auto fault_in = [&](std::string_view procedure) -> std::optional<Box> {
        if (arithmetic.fault() == ArithmeticFault::None) return std::nullopt;
        return arithmetic_error(arithmetic.fault(), "Form1", procedure, session.lang);
    };
    result.angle = computed(S_Winkel_Wind_Leiter(c));
    if (auto box = fault_in("S_Winkel_Wind_Leiter")) return box;
    S_Stromstaerke_buendel(c, session.separator);
    return fault_in("S_Stromstaerke_buendel");
}

/// Runs one method and keeps its line, also where it ends the program.
const SteadyResult& run_method(Method id, const CalcCase& c, const Session& session,
                               SteadyRunResult& result) {
    MethodResult& line = result.methods.emplace_back();
    line.method = id;
    try {
        line.outcome = find_method(id)->run(c, result.angle, session);
    } catch (const ProgramEnd& end) {
        line.outcome.status = end.what();
        throw;
    }
    return line.outcome;
}

/// `S_Rechnung_strom` and `S_Rechnung_temperatur`: the selected methods in the order of the mode.
/// The last sound method that can start a transient sets its start.
void run_methods(const CalcCase& c, const Session& session, SteadyRunResult& result) {
    for (const Method id : c.Stromstaerke_Merker_db ? order_for_temperature : order_for_current) {
        if (!runs(c, id)) continue;
        const SteadyResult& outcome = run_method(id, c, session, result);
        if (outcome.angle) result.angle = *outcome.angle;
        if (!outcome.sound() || !find_method(id)->starts_transient) continue;
        result.transient_start = {*outcome.current_A, *outcome.temperature_C};
        result.may_save = true;
    }
}

void put_in_order(SteadyRunResult& result) {
    std::sort(result.methods.begin(), result.methods.end(),
              [](const MethodResult& a, const MethodResult& b) { return a.method < b.method; });
}

/// Puts the lines in their order and writes what the page shows.
void finish(const Session& session, SteadyRunResult& result) {
    put_in_order(result);
    write_texts(result, session);
}

std::optional<double> Kirn_temperature(const SteadyRunResult& result) {
    for (const MethodResult& line : result.methods)
        if (line.method == Method::Kirn) return line.outcome.temperature_C;
    return std::nullopt;
}

}  // namespace

void RunSteady(CalcCase& c, const Session& session, SteadyRunResult& result) {
    result = {};
    auto refusal = S_Eingabepruefung_steady(c, session.lang);
    if (!refusal) {
        forget_emptied(c);
        refusal = prepare(c, session, result);
    }
    if (refusal) {
        result.refusal = *refusal;
        session.tell(*refusal);
        return;
    }
    result.input_valid = true;
    result.basis = {c.Stromstaerke_Merker_db, c.Anzahl_Teilleiter_db,
                    c.Stromstaerke_Merker_db ? c.Stromstaerke_Buendel.value : c.Leitertemp_db.value,
                    c.Umgebtemp_merker1_db == 1, c.Windgeschwindigkeit_db.value};
    try {
        // With both flags set the order does not matter: the methods refuse the undefined mode.
        run_methods(c, session, result);
    } catch (const ProgramEnd&) {
        finish(session, result);
        throw;
    }
    result.remarks = remarks_on(c, result, session);
    finish(session, result);
    result.advice =
        advice(c, {result.angle, result.perpendicular_wind, Kirn_temperature(result)}, session);
}

SteadyRunResult RunSteady(CalcCase& c, const Session& session) {
    SteadyRunResult result;
    RunSteady(c, session, result);
    return result;
}

std::vector<MethodResult> rated(CalcCase c, const Session& session) {
    SteadyRunResult result;
    if (prepare(c, session, result)) return {};
    try {
        run_methods(c, session, result);
    } catch (const ProgramEnd&) {
        // Its status says why.
    }
    put_in_order(result);
    return std::move(result.methods);
}

}  // namespace zel
