#include "workflow/run/transient.h"

#include <algorithm>
#include <array>

#include "platform/text/number_text.h"
#include "workflow/rules/steady_check.h"

namespace zel {
namespace {

using steady_check::incomplete_title;

// Numbers that go through their shown text on the way pass one separator, whichever.
constexpr DecimalSeparator any_separator = DecimalSeparator::Point;

/// What the result page shows as the current of the bundle, shared by its sub-conductors.
double shown_current(const SteadyRunResult& steady, Method method) {
    for (const MethodResult& line : steady.methods) {
        if (line.method != method || !line.outcome.sound()) continue;
        const int n = steady.basis.sub_conductors;
        const std::string shown = masked(n * *line.outcome.current_A, "####0", any_separator);
        return parse_number(shown, any_separator).value_or(0) / n;
    }
    return 0;
}

/// The method whose result a transient starts from: the last to run of those that found one.
std::optional<Method> starting_method(const SteadyRunResult& steady) {
    using Order = std::array<Method, 3>;
    const Order last_first = steady.basis.current_given
                                 ? Order{Method::TB601, Method::TBB, Method::TB207}
                                 : Order{Method::TB207, Method::TBB, Method::TB601};
    for (const Method method : last_first)
        for (const MethodResult& line : steady.methods)
            if (line.method == method && line.outcome.sound()) return method;
    return std::nullopt;
}

constexpr BoxText no_method = {
    Icon::Stop,
    incomplete_title,
    {"Zustandsänderungen werden nach Cigre TB 207, Cigre TB 601 oder Puffer berechnet.\n"
     "Bitte wählen Sie eines dieser Berechnungsverfahren aus !",
     "Change-of-states are calculated by Cigre TB 207, Cigre TB 601 or Puffer.\n"
     "Please choose one of these calculation methods !"}};

constexpr BoxText no_start = {
    Icon::Stop,
    incomplete_title,
    {"Es gibt keinen stationären Zustand, von dem die Zustandsänderungen ausgehen können.",
     "There is no steady state from which the change-of-states can start."}};

constexpr BoxText no_capacity = {
    Icon::Stop,
    incomplete_title,
    {"Die Wärmekapazität des Leiters ist 0. Sie ergibt sich aus Dichte, spez. Wärmekapazität,\n"
     "Drahtanzahl und Drahtdurchmesser, bei einer Stromschiene aus Durchmesser und Wanddicke.\n"
     "Bitte vervollständigen Sie ihre Eingabe !",
     "The heat capacity of the conductor is 0. It follows from density, specific heat,\n"
     "number and diameter of the wires, for a busbar from its diameter and wall thickness.\n"
     "Please complete your input !"}};

TransientInput input_of(const CalcCase& c, const TransientBasis& basis, Method method,
                        const Session& session) {
    TransientInput input;
    input.start = *basis.start;
    input.Is = method == Method::TB601 ? basis.Is_TB601 : basis.Is_TB207;
    input.mass = conductor_mass(c);
    input.cigre_TKW_merker = session.cigre_TKW_merker;
    return input;
}

/// The heat capacity at the start; nothing for a type of conductor that the run refuses itself.
std::optional<double> capacity_at_start(const TransientInput& input, Method method) {
    ConductorMass mass = input.mass;
    mass.Theta = input.start.temperature;
    const HeatTermMethod terms =
        method == Method::TBB ? HeatTermMethod::TBB : HeatTermMethod::TB207;
    const HeatCapacity capacity =
        method == Method::TB601 ? TS_F02_CigreTB601_MC_Theta(mass, input.cigre_TKW_merker)
                                : TS_F02_CigreTB207_MC_Theta(mass, terms, input.cigre_TKW_merker);
    if (capacity.unknown_type) return std::nullopt;
    return capacity.value;
}

/// What stands in the way before the rows are looked at.
const BoxText* precondition(const CalcCase& c, const TransientBasis& basis,
                            const Session& session) {
    const auto method = transient_method(c);
    if (!method) return &no_method;
    if (!basis.start) return &no_start;
    // Without a heat capacity a conductor would follow every current at once.
    const auto capacity = capacity_at_start(input_of(c, basis, *method, session), *method);
    return capacity && !(*capacity > 0) ? &no_capacity : nullptr;
}

/// A found quantity goes into its cell as it is shown, the number agreeing with the text.
void put(StateChange& row, StateCell cell, const std::string& text, int n,
         DecimalSeparator separator) {
    const double shown = parse_number(text, separator).value_or(0);
    row.*cell = {text, cell == &StateChange::Strom ? shown / n : shown};
}

void write_back(CalcCase& c, const TransientResult& result, DecimalSeparator separator) {
    const int n = sharing_conductors(c);
    for (std::size_t i = 0; i < c.Z.size(); ++i) {
        if (!is_in_use(c.Z[i])) continue;
        const TransientRowTexts& texts = result.texts[i];
        const std::string TransientRowTexts::*const found[] = {
            &TransientRowTexts::Strom, &TransientRowTexts::Temp, &TransientRowTexts::Min,
            &TransientRowTexts::Sec};
        for (std::size_t cell = 0; cell < state_cells.size(); ++cell)
            if (!takes_input(c.Z[i].merker, state_cells[cell]))
                put(c.Z[i], state_cells[cell], texts.*found[cell], n, separator);
    }
}

/// The rows, then the check of the currents that they found.
TransientEnd run_rows(const CalcCase& c, const TransientBasis& basis, const Session& session,
                      const TransientObserver& observer, TransientResult& result) {
    const TransientInput input = input_of(c, basis, result.method, session);
    const TransientSurroundings surroundings = {session.reporting(), session.separator, observer};
    const Zustand16 given = result.rows;
    const auto checked = [&](TransientEnd end, const auto& source) {
        if (end == TransientEnd::Cancelled) return end;
        if (auto checks = check_currents(result.rows, input, source, observer)) {
            result.checks = *checks;
            return end;
        }
        result.rows = given;
        return TransientEnd::Cancelled;
    };
    if (result.method == Method::TB601) {
        const TB601Records before = session.memory->tb601;
        const TransientEnd end =
            checked(TS_S01_CigreTB601_temp_strom_transient_state_Programm_aktuell(
                        result.rows, input, session.memory->tb601, surroundings),
                    before);
        if (end == TransientEnd::Cancelled) session.memory->tb601 = before;
        return end;
    }
    const SteadyInputBlock params = steady_input(c, basis.angle);
    return checked(
        TS_S01_CigreTB207_temp_strom_transient_state(result.rows, input, params, surroundings),
        params);
}

/// `rows` is as `S_Eingabepruefung_transient` leaves it.
std::optional<TransientRefusal> refused(const CalcCase& c, const TransientBasis& basis,
                                        const Session& session, Zustand16& rows) {
    if (const BoxText* missing = precondition(c, basis, session))
        return TransientRefusal{box_in(session.lang, *missing), {}};
    return S_Eingabepruefung_transient(c, rows, session.lang);
}

}  // namespace

std::optional<TransientRefusal> refusal_of_transient(const CalcCase& c, const TransientBasis& basis,
                                                     const Session& session) {
    Zustand16 rows;
    return refused(c, basis, session, rows);
}

void take_over(TransientBasis& basis, const SteadyRunResult& steady, const CalcCase& c) {
    if (!steady.input_valid) return;
    if (steady.transient_start) {
        basis.start = steady.transient_start;
        basis.start_method = starting_method(steady);
    }
    basis.angle = steady.angle;
    if (steady.basis.current_given) {
        basis.Is_TB601 = basis.Is_TB207 = c.Stromstaerke_db.value;
        return;
    }
    basis.Is_TB601 = shown_current(steady, Method::TB601);
    const bool tube = !is_selected(c, Method::TB207);
    basis.Is_TB207 = shown_current(steady, tube ? Method::TBB : Method::TB207);
}

std::optional<Method> transient_method(const CalcCase& c) {
    for (const Method method : {Method::TB207, Method::TBB, Method::TB601})
        if (is_selected(c, method)) return method;
    return std::nullopt;
}

std::size_t TransientResult::rows_run() const {
    std::size_t count = 0;
    for (const TransientRow& row : rows) {
        if (row.Merker == row_unused) break;
        ++count;
        if (row.Failed == 1) break;
    }
    return count;
}

bool TransientResult::ended_soundly(std::size_t row) const {
    return row < rows_run() && rows[row].Failed != 1;
}

bool ends_too_hot(const TransientResult& result, std::size_t row) {
    return result.ended_soundly(row) && result.rows[row].Temp > hottest_conductor;
}

void RunTransient(CalcCase& c, const TransientBasis& basis, const Session& session,
                  const TransientObserver& observer, TransientResult& result) {
    result = {};
    if (auto refusal = refused(c, basis, session, result.rows)) {
        result.refusal = *std::move(refusal);
        return;
    }
    result.input_valid = true;
    result.method = *transient_method(c);
    result.start = *basis.start;
    result.cigre_TKW_merker = session.cigre_TKW_merker;
    result.end = run_rows(c, basis, session, observer, result);
    if (result.end == TransientEnd::Cancelled) return;
    result.texts = TS_ShowResults(result.rows, sharing_conductors(c), session.separator);
    write_back(c, result, session.separator);
}

std::optional<std::vector<RowSeries>> transient_series(const CalcCase& c,
                                                       const TransientBasis& basis,
                                                       const TransientResult& result,
                                                       const Session& session,
                                                       const TransientObserver& observer) {
    const TransientInput input = input_of(c, basis, result.method, session);
    if (result.method == Method::TB601)
        return temperature_series(result.rows, input, session.memory->tb601, observer);
    return temperature_series(result.rows, input, steady_input(c, basis.angle), observer);
}

}  // namespace zel
