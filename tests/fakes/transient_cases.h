#pragma once

#include <initializer_list>

#include "fakes/scripted_dialogs.h"
#include "fakes/tb601_cases.h"
#include "steady/case/state_change.h"
#include "steady/steady_solver.h"
#include "tb601_transient/tb601/tb601_solver.h"
#include "tb601_transient/transient/transient_run.h"

namespace zel {

/// What the heat capacity of 264-AL1/34-ST1A needs (Cigre TB 207: aluminium 2703 kg/m³,
/// 897 J/(kg·K), 3.8·10⁻⁴ 1/K; steel 7780 kg/m³, 481 J/(kg·K), 1·10⁻⁴ 1/K).
inline CalcCase with_masses(CalcCase c) {
    c.Dichte_Leiterwerkstoff1_db = typed(2703);
    c.c_leiter20_db = typed(897);
    c.beta_leiter20_db = typed(0.38);
    c.DrahtzahlTraeger_db = 7;
    c.DrahtdurchmesserTraeger_db = typed(2.49);
    c.Dichte_traegerwerkstoff1_db = typed(7780);
    c.c_traeger20_db = typed(481);
    c.beta_traeger20_db = typed(0.1);
    return c;
}

inline CalcCase line_by_tb207() { return with_masses(twin_264_34()); }
inline CalcCase line_by_tb601() { return with_masses(line_264_34()); }

inline TransientRow current_row(double Temp, int Min, int Sec) {
    return {seeks_current,
            0,
            Temp,
            static_cast<std::int16_t>(Min),
            static_cast<std::int16_t>(Sec),
            0,
            0};
}
inline TransientRow temperature_row(double Strom, int Min, int Sec) {
    return {seeks_temperature,
            Strom,
            0,
            static_cast<std::int16_t>(Min),
            static_cast<std::int16_t>(Sec),
            0,
            0};
}
inline TransientRow time_row(double Strom, double Temp) {
    return {seeks_time, Strom, Temp, 0, 0, 0, 0};
}

/// A transient by TB 207 or the busbar method that starts from the steady state at a current, and
/// the boxes that it shows.
struct Tb207Transient {
    explicit Tb207Transient(const CalcCase& c, double steady_current = 400)
        : params(steady_input(c, 90)) {
        const auto steady = solve_temperature(params, steady_current);
        input.start = {steady_current, steady.state.temperature};
        input.Is = steady_current;
        input.mass = conductor_mass(c);
    }
    TransientEnd run() {
        return TS_S01_CigreTB207_temp_strom_transient_state(rows, input, params, surroundings());
    }
    [[nodiscard]] TransientSurroundings surroundings() {
        return {{mode, lang, dialogs}, separator, observer};
    }

    SteadyInputBlock params;
    TransientInput input;
    Zustand16 rows{};
    ScriptedDialogs dialogs;
    RunMode mode = RunMode::Messages;
    LangId lang = LangId::English;
    DecimalSeparator separator = DecimalSeparator::Point;
    TransientObserver observer;
};

/// The same by TB 601.
struct Tb601Transient {
    explicit Tb601Transient(const CalcCase& c, double steady_current = 400)
        : records(records_of(c)) {
        failed =
            static_cast<bool>(solve_temperature(records.params, records.state, steady_current));
        input.start = {steady_current, records.state.T};
        input.Is = steady_current;
        input.mass = conductor_mass(c);
    }
    TransientEnd run() {
        return TS_S01_CigreTB601_temp_strom_transient_state_Programm_aktuell(
            rows, input, records, {{mode, lang, dialogs}, separator, observer});
    }

    TB601Records records;
    bool failed = false;  // the steady state
    TransientInput input;
    Zustand16 rows{};
    ScriptedDialogs dialogs;
    RunMode mode = RunMode::Messages;
    LangId lang = LangId::English;
    DecimalSeparator separator = DecimalSeparator::Point;
    TransientObserver observer;
};

// Changes of state as they are typed for a twin bundle, whose current is given.

inline Entry twin_current(double bundle) {
    return {plain_number(bundle, DecimalSeparator::Point), bundle / 2};
}

inline StateChange typed_current_row(double temperature, int minutes, int seconds) {
    return {seeks_current, {}, typed(temperature), typed(minutes), typed(seconds)};
}

inline StateChange typed_temperature_row(double bundle_current, int minutes, int seconds) {
    return {seeks_temperature, twin_current(bundle_current), {}, typed(minutes), typed(seconds)};
}

inline StateChange typed_time_row(double bundle_current, double temperature) {
    return {seeks_time, twin_current(bundle_current), typed(temperature), {}, {}};
}

/// A complete case for the transients of TB 207 with these changes of state.
inline CalcCase bundle_with_rows(std::initializer_list<StateChange> rows) {
    CalcCase c = with_masses(twin_264_34());
    std::size_t index = 0;
    for (const StateChange& row : rows) c.Z[index++] = row;
    return c;
}

}  // namespace zel
