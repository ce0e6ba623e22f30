#include "tb601_transient/transient/transient_run.h"

#include <algorithm>
#include <cmath>

#include "platform/rounding.h"
#include "steady/constants.h"
#include "tb601_transient/transient/method_rules.h"
#include "tb601_transient/transient/start_table.h"
#include "tb601_transient/transient/transient_report.h"
#include "tb601_transient/transient/transient_watch.h"

namespace zel {
namespace {

/// What all rows of a run share.
template <class Model>
struct Run {
    Model& model;
    const MethodRules<Model>& rules;
    const TransientInput& input;
    double section;  // mm² of the conducting layers
    const ArithmeticScope& arithmetic;
    TransientWatch watch;
};

/// A step may lead a conductor with hardly any heat capacity below absolute zero.
bool is_possible(double T) { return T >= -kelvin; }

/// Row of kind 2: the temperature after a time.
template <class Model>
RowCause find_temperature(Run<Model>& run, TransientRow& row, double T0) {
    const double te = duration_s(row);
    run.model.set_current(row.Strom);
    const Walk w = walk(run.model, T0, te, run.rules.walk,
                        [&](double t, double, double) { run.watch.step([&] { return t / te; }); });
    row.Direction = w.direction;
    row.Temp = w.T;
    return is_possible(w.T) ? RowCause::None : RowCause::TargetNotReached;
}

/// Row of kind 3: the time to a temperature.
template <class Model>
RowCause find_time(Run<Model>& run, TransientRow& row, double T0) {
    run.model.set_current(row.Strom);
    const Approach a = approach(run.model, T0, row.Temp, [&](int n, double T, int limit) {
        run.watch.step(
            [&] { return std::max((T - T0) / (row.Temp - T0), static_cast<double>(n) / limit); });
    });
    row.Direction = a.direction;
    if (!a.reached || !is_possible(a.T)) return RowCause::TargetNotReached;
    const double minutes = a.t <= 0 ? 0 : std::floor(a.t / 60);
    const double seconds = a.t <= 0 ? 0 : a.t - 60 * minutes;
    row.Min = round_to_int16(minutes).value_or(0);
    row.Sec = round_to_int16(seconds).value_or(0);
    return RowCause::None;
}

template <class Model>
Bracket<Model> start_bracket(const Run<Model>& run, const TransientRow& row, double T0) {
    const double Is = run.input.Is;
    if (T0 < row.Temp) {
        const StartCurrents start = TS_InitialCurrents(run.section, duration_s(row));
        return {0, start.middle, start.high};
    }
    if (T0 == row.Temp) return {Is - 1, Is, Is + 1};
    return {0, Is / 2, Is};
}

RowCause cause_of(SearchEnd end) {
    switch (end) {
        case SearchEnd::Found: return RowCause::None;
        case SearchEnd::TooManySteps:
        case SearchEnd::OutOfBracket: return RowCause::CurrentNotFound;
        case SearchEnd::TooManyRounds: return RowCause::TooManyRounds;
        case SearchEnd::Fault: return RowCause::Fault;
    }
    return RowCause::Fault;
}

/// Row of kind 1: the current that reaches a temperature in a time.
template <class Model>
RowCause find_current(Run<Model>& run, TransientRow& row, double T0, RowFailure& failure) {
    const double te = duration_s(row);
    row.Direction = T0 < row.Temp ? row_heats : T0 > row.Temp ? row_cools : row_at_rest;
    Bracket<Model> bracket = start_bracket(run, row, T0);
    int rounds = 0;
    const SearchEnd end = search_current(
        run.model, bracket, rounds, T0, te, run.rules.search, run.arithmetic,
        [&](Bracket<Model>& b, double former) { return run.rules.narrow(b, row.Temp, former); },
        [&](double, double, double) {
            // Each round halves the bracket: some twenty are the most that bring anything.
            run.watch.step([&] { return rounds / 20.0; });
        });
    if (end == SearchEnd::Found) row.Strom = bracket.it[1].I;
    failure.rounds = rounds;
    failure.Temp = row.Temp;
    failure.Temp_it1 = bracket.it[0].T;
    failure.I_it1 = bracket.it[0].I;
    failure.I_it2 = bracket.it[1].I;
    failure.I_it3 = bracket.it[2].I;
    return cause_of(end);
}

template <class Model>
RowFailure run_row(Run<Model>& run, TransientRow& row, int number, double T0) {
    RowFailure failure;
    failure.row = number;
    run.model.begin_row();
    run.watch.begin_row(number);
    const TransientRow given = row;
    switch (row.Merker) {
        case seeks_current: failure.cause = find_current(run, row, T0, failure); break;
        case seeks_temperature: failure.cause = find_temperature(run, row, T0); break;
        case seeks_time: failure.cause = find_time(run, row, T0); break;
        default: break;
    }
    failure.fault = run.arithmetic.fault();
    if (failure.fault != ArithmeticFault::None) {
        failure.cause = RowCause::Fault;
        row = given;
    }
    return failure;
}

/// All rows, in a copy that `rows` takes over unless the run is cancelled.
template <class Model>
TransientEnd run_rows(Zustand16& rows, Run<Model> run, const TransientSurroundings& surroundings) {
    Zustand16 worked = rows;
    for (std::size_t i = 0; i < worked.size(); ++i) {
        TransientRow& row = worked[i];
        if (row.Merker == row_unused) continue;
        const int number = static_cast<int>(i) + 1;
        try {
            const RowFailure failure =
                run_row(run, row, number, start_temperature(worked, i, run.input.start));
            if (failure.cause == RowCause::None) continue;
            row.Failed = 1;
            rows = worked;
            tell(failure, run.rules.procedure, surroundings);
            return TransientEnd::Failed;
        } catch (const TransientCancelled&) {
            return TransientEnd::Cancelled;
        } catch (const UnknownConductorType&) {
            row.Failed = 1;
            rows = worked;
            tell_unknown_type(run.rules.heat_capacity_procedure, surroundings.reporting);
        } catch (...) {
            row.Failed = 1;  // what came before it can still be shown
            rows = worked;
            throw;
        }
    }
    rows = worked;
    return TransientEnd::Completed;
}

}  // namespace

TransientEnd TS_S01_CigreTB207_temp_strom_transient_state(
    Zustand16& rows, const TransientInput& input, const SteadyInputBlock& params,
    const TransientSurroundings& surroundings) {
    const ArithmeticScope arithmetic;
    Tb207Model model(params, input.mass, input.cigre_TKW_merker, &surroundings.reporting);
    return run_rows(rows,
                    Run<Tb207Model>{model, tb207_rules, input, params.conductor_section, arithmetic,
                                    TransientWatch(surroundings.observer)},
                    surroundings);
}

TransientEnd TS_S01_CigreTB601_temp_strom_transient_state_Programm_aktuell(
    Zustand16& rows, const TransientInput& input, TB601Records& records,
    const TransientSurroundings& surroundings) {
    const ArithmeticScope arithmetic;
    const TB601State before = records.state;
    Tb601Model model(records, input.mass, input.cigre_TKW_merker, &surroundings.reporting);
    const TransientEnd end =
        run_rows(rows,
                 Run<Tb601Model>{model, tb601_rules, input, records.params.AreaOuter, arithmetic,
                                 TransientWatch(surroundings.observer)},
                 surroundings);
    if (end == TransientEnd::Cancelled) records.state = before;
    return end;
}

SteadyFailure TS_CigreTB207_Heat_Balance(SteadyStateBlock& state, const SteadyInputBlock& params) {
    return ST_F00_heat_terms_eval(state, params);
}

}  // namespace zel
