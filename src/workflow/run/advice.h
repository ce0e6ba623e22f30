#pragma once

#include <optional>
#include <vector>

#include "shell/session.h"
#include "steady/case/calc_case.h"
#include "steady/case/field.h"

namespace zel {

/// What the advice reads of a steady run.
struct AdviceInput {
    double angle = 0;                        // degrees, folded angle between wind and conductor
    double perpendicular_wind = 0;           // m/s
    std::optional<double> Kirn_temperature;  // °C, as solved, where Kirn found one
};

/// A box, and the input by which it is met; null where there is none.
struct FieldBox {
    Box box;
    const FieldInfo* field = nullptr;
};

/// The warnings after a steady run, where its result would be unsafe as a basis for a rating (angle
/// below 60° with Webs) or for the survey of a span (recommendations 1 to 3, with Kirn and a given
/// current), in the order in which they are shown. None in a silent run. They change no result.
[[nodiscard]] std::vector<FieldBox> advice(const CalcCase& c, const AdviceInput& run,
                                           const Session& session);

}  // namespace zel
