#pragma once

#include <vector>

#include "pictures/picture.h"
#include "platform/text/locale.h"
#include "platform/text/text.h"
#include "workflow/run/steady_run.h"

namespace zel {

/// A flow of heat of one sub-conductor.
struct HeatFlow {
    Text name;
    double watts = 0;  // per metre, never negative
    Colour colour = black;
};

/// What heats a conductor and what cools it, from top to bottom. A term that is negative flows the
/// other way, by another name: the air heats a conductor that is colder.
struct HeatFlows {
    std::vector<HeatFlow> in;
    std::vector<HeatFlow> out;
};

[[nodiscard]] HeatFlows flows_of(const HeatTerms& terms, Method method);

/// The sum of flows, W/m.
[[nodiscard]] double sum_of(const std::vector<HeatFlow>& flows);

/// The heat balance of a method as flows in and out, as wide as they are strong. Nothing where the
/// method found no result. `session` gives the language too; no box comes up.
[[nodiscard]] std::optional<Picture> balance_picture(const CalcCase& c,
                                                     const SteadyRunResult& result, Method method,
                                                     const Session& session);

}  // namespace zel
