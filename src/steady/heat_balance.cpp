#include "steady/heat_balance.h"

#include <cmath>

#include "platform/arithmetic_fault.h"
#include "platform/rounding.h"
#include "steady/constants.h"

namespace zel {
namespace {

Tb207Conductor tb207_conductor(const SteadyInputBlock& in) {
    return {thousandth(in.DCR20), in.a20, in.conductor_type, in.layers, in.conductor_section};
}

Tb207Flow tb207_flow(const SteadyInputBlock& in) {
    return {
        in.V, in.delta, in.altitude, thousandth(in.outer_diameter), thousandth(in.wire_diameter),
        in.g};
}

BusbarFlow busbar_flow(const SteadyInputBlock& in) {
    return {in.V, in.delta, in.altitude, thousandth(in.outer_diameter), in.g};
}

/// The terms by TB 207, each from nothing.
struct Tb207Terms {
    const SteadyInputBlock& in;
    double current;

    [[nodiscard]] Term PJ(double Ts) const {
        return ST_F01_CigreTB207_PJ_steady(current, tb207_conductor(in), Ts);
    }
    [[nodiscard]] double PS() const {
        return ST_F02_CigreTB207_PS_steady(in.absorptivity, in.global_radiation,
                                           thousandth(in.outer_diameter));
    }
    [[nodiscard]] Term PC(double Ts) const {
        return ST_F03_CigreTB207_PC_steady(tb207_flow(in), Ts, in.Ta);
    }
    [[nodiscard]] double PR(double Ts) const {
        return ST_F04_CigreTB207_PR_steady(thousandth(in.outer_diameter), in.emissivity, Ts, in.Ta);
    }
};

/// The terms by the busbar method, each from nothing.
struct BusbarTerms {
    const SteadyInputBlock& in;
    double current;

    [[nodiscard]] double R() const {
        return computed(
            tube_resistance(in.resistivity, in.outer_diameter_again, in.inner_diameter));
    }
    [[nodiscard]] Term PJ(double Ts) const {
        const double resistance = R();
        // A resistance that is none is the fault, whatever a current of 0 would make of it.
        if (!std::isfinite(resistance)) return {resistance};
        return ST_F01_TBB_PJ_steady(current, in.frequency, resistance, in.a20, Ts);
    }
    [[nodiscard]] double PS() const {
        return ST_F02_CigreTBB_PS_steady(in.absorptivity, in.global_radiation,
                                         thousandth(in.outer_diameter));
    }
    [[nodiscard]] Term PC(double Ts) const {
        return {ST_F03_TBB_PC_steady(busbar_flow(in), Ts, in.Ta)};
    }
    [[nodiscard]] double PR(double Ts) const {
        return ST_F04_TBB_PR_steady(thousandth(in.outer_diameter), in.emissivity, Ts, in.Ta);
    }
};

/// The terms from parts worked out before.
template <class Parts>
struct PreparedTerms {
    const Parts& parts;

    [[nodiscard]] Term PJ(double Ts) const { return parts.joule.at(Ts); }
    [[nodiscard]] double PS() const { return parts.solar; }
    [[nodiscard]] Term PC(double Ts) const {
        if constexpr (std::is_same_v<decltype(parts.convection.at(Ts)), Term>)
            return parts.convection.at(Ts);
        else
            return {parts.convection.at(Ts)};
    }
    [[nodiscard]] double PR(double Ts) const { return parts.radiation.at(Ts); }
};

/// The Joule heating of `Anew` at a current, and all else as worked out before.
template <class Anew, class Parts>
struct TermsAtTemperature {
    Anew anew;
    const Parts& parts;

    [[nodiscard]] Term PJ(double Ts) const { return anew.PJ(Ts); }
    [[nodiscard]] double PS() const { return parts.solar; }
    [[nodiscard]] Term PC(double /*Ts*/) const { return parts.convection; }
    [[nodiscard]] double PR(double /*Ts*/) const { return parts.radiation; }
};

/// Takes the terms of one evaluation as they come. A numeric fault of a term goes before its own
/// failure.
class TermTaker {
public:
    SteadyFailure take(double& place, const Term& term, SteadyCause fault_cause) const {
        const double value = computed(term.value);
        ArithmeticFault fault = arithmetic_.fault();
        // An input that overflowed before this evaluation leaves no flag here.
        if (fault == ArithmeticFault::None && !std::isfinite(value))
            fault = ArithmeticFault::Overflow;
        if (fault != ArithmeticFault::None) return {fault_cause, fault};
        if (term.failure == SteadyCause::None) place = value;
        return {term.failure};
    }

private:
    const ArithmeticScope arithmetic_;
};

/// What a numeric fault of each term is called.
struct FaultCauses {
    SteadyCause PJ, PS, PC, PR;
};

constexpr FaultCauses tb207_faults = {SteadyCause::JouleFault, SteadyCause::SolarFault,
                                      SteadyCause::ConvectionFault, SteadyCause::RadiationFault};
constexpr FaultCauses busbar_faults = {SteadyCause::BusbarJouleFault, SteadyCause::BusbarSolarFault,
                                       SteadyCause::BusbarConvectionFault,
                                       SteadyCause::BusbarRadiationFault};

template <class Source>
SteadyFailure take_terms(const Source& source, const FaultCauses& causes, double Ts,
                         HeatTerms& terms) {
    const TermTaker evaluation;
    if (const auto failure = evaluation.take(terms.PJ, source.PJ(Ts), causes.PJ)) return failure;
    if (const auto failure = evaluation.take(terms.PS, {source.PS()}, causes.PS)) return failure;
    if (const auto failure = evaluation.take(terms.PC, source.PC(Ts), causes.PC)) return failure;
    return evaluation.take(terms.PR, {source.PR(Ts)}, causes.PR);
}

SteadyFailure evaluate_anew(const SteadyInputBlock& in, double current, double Ts,
                            HeatTerms& terms) {
    switch (in.method) {
        case HeatTermMethod::TB207:
            return take_terms(Tb207Terms{in, current}, tb207_faults, Ts, terms);
        case HeatTermMethod::TBB:
            return take_terms(BusbarTerms{in, current}, busbar_faults, Ts, terms);
        case HeatTermMethod::None: break;
    }
    return {};
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
    return evaluate_anew(input, state.current, state.temperature, state.terms);
}

SteadyBalance::SteadyBalance(const SteadyInputBlock& input, double current)
    : input_(input), current_(current) {
    const ArithmeticScope arithmetic;
    const double D = thousandth(input.outer_diameter);
    const Tb207Radiation radiation(D, input.emissivity, input.Ta);
    if (input.method == HeatTermMethod::TB207) {
        const Tb207Terms terms{input, current};
        parts_ = Tb207Parts{Tb207Joule(current, tb207_conductor(input)), computed(terms.PS()),
                            Tb207Convection(tb207_flow(input), input.Ta), radiation};
    } else if (input.method == HeatTermMethod::TBB) {
        const BusbarTerms terms{input, current};
        parts_ = BusbarParts{BusbarJoule(current, input.frequency, terms.R(), input.a20),
                             computed(terms.PS()), BusbarConvection(busbar_flow(input), input.Ta),
                             radiation};
    }
    if (arithmetic.fault() != ArithmeticFault::None) parts_ = std::monostate{};
}

SteadyFailure SteadyBalance::evaluate(double temperature, HeatTerms& terms) const {
    if (const auto* tb207 = std::get_if<Tb207Parts>(&parts_))
        return take_terms(PreparedTerms<Tb207Parts>{*tb207}, tb207_faults, temperature, terms);
    if (const auto* busbar = std::get_if<BusbarParts>(&parts_))
        return take_terms(PreparedTerms<BusbarParts>{*busbar}, busbar_faults, temperature, terms);
    return evaluate_anew(input_, current_, temperature, terms);
}

SteadyBalanceAt::SteadyBalanceAt(const SteadyInputBlock& input, double temperature)
    : input_(input), temperature_(temperature) {
    const ArithmeticScope arithmetic;
    const auto work_out = [&](const auto& terms) {
        parts_ = Parts{computed(terms.PS()), terms.PC(temperature), terms.PR(temperature)};
        parts_->convection.value = computed(parts_->convection.value);
        parts_->radiation = computed(parts_->radiation);
    };
    if (input.method == HeatTermMethod::TB207) work_out(Tb207Terms{input, 0});
    if (input.method == HeatTermMethod::TBB) work_out(BusbarTerms{input, 0});
    if (arithmetic.fault() != ArithmeticFault::None) parts_.reset();
}

SteadyFailure SteadyBalanceAt::evaluate(double current, HeatTerms& terms) const {
    if (!parts_) return evaluate_anew(input_, current, temperature_, terms);
    if (input_.method == HeatTermMethod::TB207)
        return take_terms(TermsAtTemperature<Tb207Terms, Parts>{{input_, current}, *parts_},
                          tb207_faults, temperature_, terms);
    return take_terms(TermsAtTemperature<BusbarTerms, Parts>{{input_, current}, *parts_},
                      busbar_faults, temperature_, terms);
}

}  // namespace zel
