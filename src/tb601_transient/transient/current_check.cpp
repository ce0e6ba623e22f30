#include "tb601_transient/transient/current_check.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tb601_transient/transient/method_rules.h"
#include "tb601_transient/transient/transient_watch.h"

namespace zel {
namespace {

constexpr double rounding = 1e-6;     // K, of the steps of a row added up
constexpr double closest = 1e-10;     // relative width of a bracket that holds a jump
constexpr double first_growth = 0.1;  // of the bracket's upper end
constexpr double least_current = 1;   // A
constexpr int most_trials = 200;

/// A row whose current was sought, to be tried with others.
struct Aim {
    double T0;      // °C
    double target;  // °C
    double te;      // s
};

/// Follows the conductor at one current after another.
template <class Model>
class Trials {
public:
    Trials(Model& model, const WalkRule& rule, TransientWatch& watch, const Aim& aim)
        : model_(model), rule_(rule), watch_(watch), aim_(aim) {}

    /// The temperature after the time of the row; nothing after an arithmetic fault.
    std::optional<double> temperature(double I) {
        const Walk w = follow(I, rule_);
        return std::isfinite(w.T) ? std::optional(w.T) : std::nullopt;
    }

    /// Whether `I` ends above the target; `T()` is then where. A trial that passes the target
    /// ends there.
    bool ends_above(double I) {
        ++count_;
        WalkRule rule = rule_;
        rule.step_limit =
            static_cast<std::int64_t>(std::abs(aim_.target - aim_.T0) / rule.step) + 3;
        const Walk w = follow(I, rule);
        T_ = w.T;
        if (!std::isfinite(w.T)) return true;
        if (!w.within_limit) {
            T_ = -std::numeric_limits<double>::infinity();  // still on its way down
            return w.direction == row_heats;
        }
        return w.T > aim_.target + rounding;
    }
    [[nodiscard]] double T() const { return T_; }
    [[nodiscard]] bool may_go_on() const { return count_ < most_trials; }

private:
    Walk follow(double I, const WalkRule& rule) {
        const ArithmeticScope arithmetic;
        model_.begin_row();
        model_.set_current(I);
        Walk w = walk(model_, aim_.T0, aim_.te, rule,
                      [&](double t, double, double) { watch_.step([&] { return t / aim_.te; }); });
        if (arithmetic.fault() != ArithmeticFault::None) w.T = std::nan("");
        return w;
    }

    Model& model_;
    const WalkRule& rule_;
    TransientWatch& watch_;
    const Aim& aim_;
    double T_ = 0;
    int count_ = 0;
};

/// Fills in the current that ends at the target or at most the tolerance below it: the bracket
/// grows from `start` until it holds the target, and is halved until its lower end is near.
template <class Model>
void find_current(Trials<Model>& trials, const Aim& aim, double start, CurrentCheck& check) {
    const auto is_near = [&](double T) { return aim.target - T <= check_tolerance + rounding; };
    double low = 0;
    double high = std::max(start, least_current);
    double growth = first_growth;
    bool low_is_near = false;
    while (!trials.ends_above(high)) {
        low = high;
        low_is_near = is_near(trials.T());
        if (low_is_near) break;
        if (!trials.may_go_on() || !std::isfinite(high)) return;
        high *= 1 + growth;
        growth *= 2;
    }
    growth = first_growth;
    while (!low_is_near && low == 0) {  // the lower end grows downwards
        const double I = growth < 1 ? high * (1 - growth) : 0;
        if (!trials.ends_above(I)) {
            low = I;
            low_is_near = is_near(trials.T());
            break;
        }
        if (I == 0) return;  // without any current it ends above
        high = I;
        growth *= 2;
    }
    while (!low_is_near && trials.may_go_on() && high - low > closest * high) {
        const double middle = (low + high) / 2;
        if (trials.ends_above(middle)) {
            high = middle;
        } else {
            low = middle;
            low_is_near = is_near(trials.T());
        }
    }
    check.current = low;
    check.jumps = !low_is_near;
}

template <class Model>
std::optional<CurrentCheck> check_row(const TransientRow& row, const Aim& aim, double Is,
                                      Trials<Model> trials) {
    CurrentCheck check;
    const bool told = row.Failed != 1;
    if (told) check.reached = trials.temperature(row.Strom);
    if (check.reached && std::abs(*check.reached - aim.target) <= sound_miss) return std::nullopt;
    find_current(trials, aim, told ? row.Strom : Is, check);
    return check;
}

template <class Model>
std::optional<CurrentChecks> check_rows(const Zustand16& rows, const TransientInput& input,
                                        Model& model, const WalkRule& rule,
                                        const TransientObserver& observer) {
    CurrentChecks checks;
    TransientWatch watch(observer);
    try {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const TransientRow& row = rows[i];
            if (row.Merker == seeks_current) {
                const Aim aim = {start_temperature(rows, i, input.start), row.Temp,
                                 duration_s(row)};
                watch.begin_row(static_cast<int>(i) + 1);
                checks[i] = check_row(row, aim, input.Is, Trials<Model>(model, rule, watch, aim));
            }
            if (row.Failed == 1) break;
        }
    } catch (const TransientCancelled&) {
        return std::nullopt;
    } catch (const UnknownConductorType&) {
        return CurrentChecks();  // the run itself has told it
    }
    return checks;
}

}  // namespace

std::optional<CurrentChecks> check_currents(const Zustand16& rows, const TransientInput& input,
                                            const SteadyInputBlock& params,
                                            const TransientObserver& observer) {
    Tb207Model model(params, input.mass, input.cigre_TKW_merker, nullptr);
    return check_rows(rows, input, model, tb207_rules.walk, observer);
}

std::optional<CurrentChecks> check_currents(const Zustand16& rows, const TransientInput& input,
                                            TB601Records records,
                                            const TransientObserver& observer) {
    Tb601Model model(records, input.mass, input.cigre_TKW_merker, nullptr);
    return check_rows(rows, input, model, tb601_rules.walk, observer);
}

}  // namespace zel
