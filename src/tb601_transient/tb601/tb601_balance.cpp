#include "tb601_transient/tb601/tb601_balance.h"

#include "tb601_transient/tb601/tb601_joule.h"

namespace zel {
namespace {

Tb601Flow flow_of(const TB601Params& p) {
    return {p.V, p.Delta, 0, p.Ta, p.Y, p.D, p.DWire, p.G, p.ConductorType, p.ConductorShape};
}

/// The terms beside the Joule heating, each from nothing.
struct Terms {
    const TB601Params& params;

    [[nodiscard]] double PS() const { return ST_F02_CigreTB601_PS_steady(params); }
    [[nodiscard]] double drop(double T, double P) const { return Tb601RadialDrop(params).at(T, P); }
    [[nodiscard]] Tb601Term PC(double TSurface) const {
        return Tb601Cooling(flow_of(params)).loss_at(TSurface);
    }
    [[nodiscard]] double PR(double TSurface) const { return Tb601Radiation(params).at(TSurface); }
};

/// The same from parts worked out before.
template <class Parts>
struct PreparedTerms {
    const Parts& parts;

    [[nodiscard]] double PS() const { return parts.solar; }
    [[nodiscard]] double drop(double T, double P) const { return parts.drop.at(T, P); }
    [[nodiscard]] Tb601Term PC(double TSurface) const { return parts.cooling.loss_at(TSurface); }
    [[nodiscard]] double PR(double TSurface) const { return parts.radiation.at(TSurface); }
};

template <class Source>
Tb601Failure take_terms(const TB601Params& params, TB601State& state, const Source& source,
                        Tb601WarmResistance& warm) {
    const ArithmeticScope arithmetic;
    HeatTerms& terms = state.terms;

    const Tb601Term PJ = ST_F01_CigreTB601_PJ_steady(params, state, arithmetic, warm);
    if (PJ.failure) return PJ.failure;
    terms.PJ = PJ.value;

    const double PS = computed(source.PS());
    if (const auto failure = fault_in(Tb601Procedure::SolarHeating, arithmetic)) return failure;
    terms.PS = PS;

    const double drop = source.drop(state.T, PJ.value);
    if (const auto failure = set_radial_temperatures(state, drop, arithmetic)) return failure;

    const Tb601Term PC = source.PC(state.TSurface);
    const double cooling = computed(PC.value);
    if (const auto failure = fault_in(Tb601Procedure::Convection, arithmetic)) return failure;
    if (PC.failure) return PC.failure;
    terms.PC = cooling;

    const double PR = computed(source.PR(state.TSurface));
    if (const auto failure = fault_in(Tb601Procedure::Radiation, arithmetic)) return failure;
    terms.PR = PR;
    return {};
}

}  // namespace

Tb601Failure ST_CigreTB601_Heat_Balance(const TB601Params& params, TB601State& state) {
    Tb601WarmResistance warm;
    return take_terms(params, state, Terms{params}, warm);
}

Tb601Balance::Tb601Balance(const TB601Params& params) : params_(params) {
    const ArithmeticScope arithmetic;
    parts_.emplace(Parts{computed(ST_F02_CigreTB601_PS_steady(params)), Tb601RadialDrop(params),
                         Tb601Cooling(flow_of(params)), Tb601Radiation(params)});
    if (arithmetic.fault() != ArithmeticFault::None) parts_.reset();
}

Tb601Failure Tb601Balance::evaluate(TB601State& state) const {
    if (parts_) return take_terms(params_, state, PreparedTerms<Parts>{*parts_}, warm_);
    return take_terms(params_, state, Terms{params_}, warm_);
}

}  // namespace zel
