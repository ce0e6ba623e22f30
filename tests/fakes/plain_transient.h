#pragma once

#include <functional>

#include "tb601_transient/transient/transient_run.h"

// The stepping of a transient written down plainly: every term of every step from nothing, every
// trial of every round anew. The program's own must give the same to the last bit.

namespace zel {

/// The net power (W/m) at a current and a temperature, and the heat capacity (J/(K·m)) at a
/// temperature. A failed term keeps its last value.
struct PlainModel {
    std::function<double(double I, double T)> F;
    std::function<double(double T)> MC;
};

[[nodiscard]] PlainModel plain_tb207(const SteadyInputBlock& params, const TransientInput& input);
[[nodiscard]] PlainModel plain_tb601(TB601Records records, const TransientInput& input);

/// Runs the rows up to the first that fails. No box, no arithmetic fault. `tb601` chooses the
/// numbers that differ between the methods.
void plain_run(Zustand16& rows, const TransientInput& input, double section, bool tb601,
               const PlainModel& model);

}  // namespace zel
