#pragma once

#include <optional>

#include "tb601_transient/tb601/tb601_cause.h"
#include "tb601_transient/tb601/tb601_joule.h"
#include "tb601_transient/tb601/tb601_params.h"
#include "tb601_transient/tb601/tb601_radial.h"
#include "tb601_transient/tb601/tb601_terms.h"

// One evaluation of the heat balance PJ + PS = PC + PR of one sub-conductor by Cigre TB 601 (2014).

namespace zel {

/// Evaluates the heat terms and the radial temperatures at `I` and `T` of the state, in the order
/// PJ, PS, radial, PC, PR, and stops at the first failure; what comes after it keeps its value.
[[nodiscard]] Tb601Failure ST_CigreTB601_Heat_Balance(const TB601Params& params, TB601State& state);

/// The heat balance in one surrounding, for many states: what these do not change is worked out
/// once, and what the temperature alone decides once for states in a row that have the same. Gives
/// bit for bit what `ST_CigreTB601_Heat_Balance` gives, failures included. For one thread, and for
/// states with the same table of resistances.
class Tb601Balance {
public:
    /// `params` must outlive the balance.
    explicit Tb601Balance(const TB601Params& params);

    /// As `ST_CigreTB601_Heat_Balance`.
    [[nodiscard]] Tb601Failure evaluate(TB601State& state) const;

private:
    struct Parts {
        double solar;
        Tb601RadialDrop drop;
        Tb601Cooling cooling;
        Tb601Radiation radiation;
    };
    const TB601Params& params_;
    /// Empty where working them out met a fault: each evaluation is then to meet it anew.
    std::optional<Parts> parts_;
    mutable Tb601WarmResistance warm_;
};

}  // namespace zel
