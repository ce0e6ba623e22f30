#include "steady/steady_solver.h"

#include <algorithm>
#include <cmath>

#include "platform/arithmetic_fault.h"
#include "platform/rounding.h"
#include "steady/constants.h"
#include "steady/tb207_terms.h"
#include "steady/tbb_terms.h"

namespace zel {
namespace {

constexpr double residual_tolerance = 0.001;  // W/m
constexpr int iteration_limit = 50;

/// Takes the terms of one evaluation as they come. A numeric fault of a term goes before its own
/// failure.
class TermTaker {
public:
    SteadyFailure take(double& place, const Term& term, SteadyCause fault_cause) const {
        place = computed(term.value);
        ArithmeticFault fault = arithmetic_.fault();
        // An input that overflowed before this evaluation leaves no flag here.
        if (fault == ArithmeticFault::None && !std::isfinite(place))
            fault = ArithmeticFault::Overflow;
        return fault != ArithmeticFault::None ? SteadyFailure{fault_cause, fault}
                                              : SteadyFailure{term.failure};
    }

private:
    const ArithmeticScope arithmetic_;
};

SteadyFailure tb207_terms(SteadyStateBlock& state, const SteadyInputBlock& in) {
    const TermTaker evaluation;
    const double D = thousandth(in.outer_diameter);
    const double d = thousandth(in.wire_diameter);
    const double Ts = state.temperature;
    HeatTerms& terms = state.terms;

    const Tb207Conductor conductor = {thousandth(in.DCR20), in.a20, in.conductor_type, in.layers,
                                      in.conductor_section};
    const Term PJ = ST_F01_CigreTB207_PJ_steady(state.current, conductor, Ts);
    if (const auto failure = evaluation.take(terms.PJ, PJ, SteadyCause::JouleFault)) return failure;

    const Term PS = {ST_F02_CigreTB207_PS_steady(in.absorptivity, in.global_radiation, D)};
    if (const auto failure = evaluation.take(terms.PS, PS, SteadyCause::SolarFault)) return failure;

    const Tb207Flow flow = {in.V, in.delta, in.altitude, D, d, in.g};
    const Term PC = ST_F03_CigreTB207_PC_steady(flow, Ts, in.Ta);
    if (const auto failure = evaluation.take(terms.PC, PC, SteadyCause::ConvectionFault))
        return failure;

    const Term PR = {ST_F04_CigreTB207_PR_steady(D, in.emissivity, Ts, in.Ta)};
    return evaluation.take(terms.PR, PR, SteadyCause::RadiationFault);
}

SteadyFailure tbb_terms(SteadyStateBlock& state, const SteadyInputBlock& in) {
    const TermTaker evaluation;
    const double D = thousandth(in.outer_diameter);
    const double Ts = state.temperature;
    HeatTerms& terms = state.terms;

    double R = 0;
    const Term tube = {tube_resistance(in.resistivity, in.outer_diameter_again, in.inner_diameter)};
    if (const auto failure = evaluation.take(R, tube, SteadyCause::BusbarJouleFault))
        return failure;

    const Term PJ = ST_F01_TBB_PJ_steady(state.current, in.frequency, R, in.a20, Ts);
    if (const auto failure = evaluation.take(terms.PJ, PJ, SteadyCause::BusbarJouleFault))
        return failure;

    const Term PS = {ST_F02_CigreTBB_PS_steady(in.absorptivity, in.global_radiation, D)};
    if (const auto failure = evaluation.take(terms.PS, PS, SteadyCause::BusbarSolarFault))
        return failure;

    const BusbarFlow flow = {in.V, in.delta, in.altitude, D, in.g};
    const Term PC = {ST_F03_TBB_PC_steady(flow, Ts, in.Ta)};
    if (const auto failure = evaluation.take(terms.PC, PC, SteadyCause::BusbarConvectionFault))
        return failure;

    const Term PR = {ST_F04_TBB_PR_steady(D, in.emissivity, Ts, in.Ta)};
    return evaluation.take(terms.PR, PR, SteadyCause::BusbarRadiationFault);
}

/// B = (PJ + PS) - (PC + PR) in W/m: above 0 the conductor gets hotter.
double residual(const HeatTerms& terms) {
    const double heating = terms.PJ + terms.PS;
    const double cooling = terms.PC + terms.PR;
    return heating - cooling;
}

/// Three points on the way from low to high, of currents (A) or temperatures (°C).
struct Points {
    double low, middle, high;
};

/// What tells one search from the other.
struct Search {
    double SteadyStateBlock::*variable;
    Points start;
    SteadyCause all_above;
    SteadyCause all_below;
    SteadyCause not_reached;
    /// The solution after 50 iterations without balance, where it is good enough.
    bool (*accept)(const Points& points, double best_residual, double& best_point);
};

bool below_half_a_watt(const Points&, double best_residual, double&) {
    return std::abs(best_residual) < 0.5;
}

bool within_one_ampere(const Points& points, double, double& best_point) {
    const auto& [low, middle, high] = points;
    if (std::abs(low - middle) >= 1 || std::abs(low - high) >= 1 || std::abs(middle - high) >= 1)
        return false;
    best_point = std::max(std::min(low, middle), std::min(std::max(low, middle), high));
    return true;
}

constexpr Search current_search = {&SteadyStateBlock::current,     {0, 2000, 99999},
                                   SteadyCause::CurrentAllAbove,   SteadyCause::CurrentAllBelow,
                                   SteadyCause::CurrentNotReached, within_one_ampere};

constexpr Search temperature_search = {
    &SteadyStateBlock::temperature,     {-100, 200, 500},
    SteadyCause::TemperatureAllAbove,   SteadyCause::TemperatureAllBelow,
    SteadyCause::TemperatureNotReached, below_half_a_watt};

struct Best {
    double point = 0;
    double residual = 9999;
};

/// One step of the bisection over the residuals of the three points. The best point becomes the
/// new middle, while the best residual is one taken at a point of the old bracket.
SteadyCause step(Points& p, const Points& B, Best& best, const Search& search) {
    const auto balanced = [](double b) { return std::abs(b) <= residual_tolerance; };
    const auto to_lower_half = [&](double taken) {
        p.high = p.middle;
        p.middle = (p.middle + p.low) / 2;
        best = {p.middle, taken};
    };
    const auto to_upper_half = [&](double taken) {
        p.low = p.middle;
        p.middle = (p.high + p.middle) / 2;
        best = {p.middle, taken};
    };
    if (balanced(B.low))
        best = {p.low, B.low};
    else if (balanced(B.middle))
        best = {p.middle, B.middle};
    else if (balanced(B.high))
        best = {p.high, B.high};
    else if (B.low < 0 && B.middle > 0)
        to_lower_half(B.low);
    else if (B.middle < 0 && B.high > 0)
        to_upper_half(B.middle);
    else if (B.middle < 0 && B.low > 0)
        to_lower_half(B.middle);
    else if (B.high < 0 && B.middle > 0)
        to_upper_half(B.high);
    else if (B.low > 0 && B.middle > 0 && B.high > 0)
        return search.all_above;
    else if (B.low < 0 && B.middle < 0 && B.high < 0)
        return search.all_below;
    return SteadyCause::None;
}

SteadySolution solve(const SteadyInputBlock& input, SteadyStateBlock state, const Search& search) {
    const auto evaluate = [&](double point, double& B) {
        state.*search.variable = point;
        const SteadyFailure failure = ST_F00_heat_terms_eval(state, input);
        B = residual(state.terms);
        return failure;
    };
    Points p = search.start;
    Points B{};
    Best best;
    int iterations = 0;
    do {
        if (const auto failure = evaluate(p.low, B.low)) return {state, failure};
        if (const auto failure = evaluate(p.middle, B.middle)) return {state, failure};
        if (const auto failure = evaluate(p.high, B.high)) return {state, failure};
        if (const auto cause = step(p, B, best, search); cause != SteadyCause::None)
            return {state, {cause}};
        ++iterations;
    } while (std::abs(best.residual) > residual_tolerance && iterations < iteration_limit);

    const bool balanced = std::abs(best.residual) <= residual_tolerance;
    if (!balanced && !search.accept(p, best.residual, best.point))
        return {state, {search.not_reached}};
    const SteadyFailure failure = evaluate(best.point, best.residual);
    return {state, failure};
}

}  // namespace

SteadyInputBlock steady_input(const CalcCase& c, double delta) {
    SteadyInputBlock in;
    in.Ta = c.Umgebungstemperatur_db.value;
    in.V = c.Windgeschwindigkeit_db.value;
    in.delta = delta;
    in.altitude = c.Hoehe_ueber_NN_db.value;
    in.global_radiation = c.Globalstrahlung_db.value;
    in.g = gravity(c.Gravi_merker1_db);
    in.frequency = c.Netzfrequenz_db.value;
    in.emissivity = c.Emissionsverhaeltnis_db.value;
    in.absorptivity = c.Absorptionsverhaeltnis_db.value;
    in.layers = c.DrahtlagenzahlLeiter_db;
    in.conductor_section = c.Mantelquerschnitt_db.value;
    in.outer_diameter = c.Seildurchmesser_db.value;
    in.outer_diameter_again = c.Seildurchmesser_db.value;
    in.wire_diameter = c.DrahtdurchmesserLeiter_db.value;
    in.inner_diameter = in.outer_diameter - 2 * in.wire_diameter;
    in.DCR20 = c.DCR_20_db.value;
    in.conductor_type = c.conductor_type_db;
    in.resistivity = c.DC_Resist_Leiter_db.value;
    in.a20 = thousandth(narrowed_to_single(c.T_Koeff_DC_Resist_Leiter_linear_db.value));
    if (c.rechnung_TBB_merker_db == 1) in.method = HeatTermMethod::TBB;
    if (c.rechnung_cigre207_merker_db == 1) in.method = HeatTermMethod::TB207;
    return in;
}

SteadyFailure ST_F00_heat_terms_eval(SteadyStateBlock& state, const SteadyInputBlock& input) {
    switch (input.method) {
        case HeatTermMethod::TB207: return tb207_terms(state, input);
        case HeatTermMethod::TBB: return tbb_terms(state, input);
        case HeatTermMethod::None: break;
    }
    return {};
}

SteadySolution solve_current(const SteadyInputBlock& input, double temperature) {
    return solve(input, {0, temperature, {}}, current_search);
}

SteadySolution solve_temperature(const SteadyInputBlock& input, double current) {
    return solve(input, {current, 0, {}}, temperature_search);
}

SteadySolution ST_00_CigreTB207_temp_strom_steady_state(const CalcCase& c, double delta) {
    if (c.Leitertemp_Merker_db == c.Stromstaerke_Merker_db)
        return {{}, {SteadyCause::ModeUndefined}};
    const SteadyInputBlock input = steady_input(c, delta);
    return c.Leitertemp_Merker_db ? solve_current(input, c.Leitertemp_db.value)
                                  : solve_temperature(input, c.Stromstaerke_db.value);
}

}  // namespace zel
