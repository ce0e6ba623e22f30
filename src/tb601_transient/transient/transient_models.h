#pragma once

#include <cstdint>
#include <optional>

#include "steady/heat_balance.h"
#include "steady/steady_report.h"
#include "tb601_transient/tb601/tb601_balance.h"
#include "tb601_transient/tb601/tb601_report.h"
#include "tb601_transient/transient/conductor_mass.h"

// What the stepping of a transient asks of a method: the net power and the heat capacity of one
// metre of conductor at a temperature. A term of the heat balance that fails, and those after it,
// keep their last values and the stepping goes on.

namespace zel {

/// The heat capacity was asked for of a conductor whose type has none.
struct UnknownConductorType {};

/// Tells each cause of a failing heat term once a row: a row has thousands of steps.
template <class Failure>
class FailureTeller {
public:
    /// `reporting` null: nothing is told.
    explicit FailureTeller(const Reporting* reporting) : reporting_(reporting) {}

    void begin_row() { told_ = 0; }
    void meet(const Failure& failure) {
        ++met_;
        const auto mark = std::uint64_t{1} << static_cast<unsigned>(failure.cause);
        if ((told_ & mark) != 0 || reporting_ == nullptr) return;
        told_ |= mark;
        const ArithmeticScope apart;  // what a window computes is no fault of the run
        report(failure, *reporting_);
    }
    /// How many evaluations have failed so far.
    [[nodiscard]] std::uint64_t met() const { return met_; }

private:
    const Reporting* reporting_;
    std::uint64_t told_ = 0;
    std::uint64_t met_ = 0;
};

/// TB 207, or the busbar method.
class Tb207Model {
public:
    using State = HeatTerms;

    Tb207Model(const SteadyInputBlock& params, const ConductorMass& mass,
               HeatCapacityOption cigre_TKW_merker, const Reporting* reporting)
        : params_(params), heat_(mass, params.method, cigre_TKW_merker), teller_(reporting) {}

    void begin_row() { teller_.begin_row(); }
    void set_current(double I) { balance_.emplace(params_, I); }

    /// W/m at the current set before; above 0 the conductor gets hotter.
    double net_power(double T) {
        if (const auto failure = balance_->evaluate(T, terms_)) teller_.meet(failure);
        return zel::net_power(terms_);
    }
    /// J/(K·m). Throws `UnknownConductorType`.
    [[nodiscard]] double heat_capacity(double T) const {
        const HeatCapacity MC = heat_.at(T);
        if (MC.unknown_type) throw UnknownConductorType();
        return MC.value;
    }

    /// What one evaluation leaves to the next.
    State& state() { return terms_; }
    [[nodiscard]] std::uint64_t failures() const { return teller_.met(); }

private:
    const SteadyInputBlock& params_;
    ConductorHeat heat_;
    FailureTeller<SteadyFailure> teller_;
    std::optional<SteadyBalance> balance_;
    HeatTerms terms_;
};

/// TB 601, on the records of the last steady run. The temperature is the mean one.
class Tb601Model {
public:
    using State = TB601State;

    Tb601Model(TB601Records& records, const ConductorMass& mass,
               HeatCapacityOption cigre_TKW_merker, const Reporting* reporting)
        : state_(records.state),
          heat_(mass, HeatTermMethod::TB207, cigre_TKW_merker),
          teller_(reporting),
          balance_(records.params) {}

    void begin_row() { teller_.begin_row(); }
    void set_current(double I) { state_.I = I; }

    double net_power(double T) {
        state_.T = T;
        if (const auto failure = balance_.evaluate(state_)) teller_.meet(failure);
        return zel::net_power(state_.terms);
    }
    [[nodiscard]] double heat_capacity(double T) const {
        const HeatCapacity MC = heat_.at(T);
        if (MC.unknown_type) throw UnknownConductorType();
        return MC.value;
    }

    State& state() { return state_; }
    [[nodiscard]] std::uint64_t failures() const { return teller_.met(); }

private:
    TB601State& state_;
    ConductorHeat heat_;
    FailureTeller<Tb601Failure> teller_;
    Tb601Balance balance_;
};

}  // namespace zel
