#pragma once

#include <array>
#include <optional>

#include "tb601_transient/transient/transient_run.h"

// The search of a row for its current ends near the target as a rule, but not always: it reports a
// middle that was never tried, and it gives up where its start currents do not hold the target. So
// each current told is followed once more, and where it misses, the one that does reach the target
// is found beside it. Rows and records stay as they are.

namespace zel {

/// What became of the current of a row.
struct CurrentCheck {
    std::optional<double> reached;  // °C, to which the told current leads; a failed row tells none
    std::optional<double> current;  // A of one sub-conductor, reaches the target; none may do so
    /// The temperature jumps over the target: `current` is the highest below the jump.
    bool jumps = false;

    friend bool operator==(const CurrentCheck&, const CurrentCheck&) = default;
};

/// Of each row; nothing where there is nothing to say.
using CurrentChecks = std::array<std::optional<CurrentCheck>, state_change_count>;

/// K; a current told that leads no farther from its target is sound.
inline constexpr double sound_miss = 0.3;
/// K; how far below its target a current found here may end. It never ends above.
inline constexpr double check_tolerance = 0.1;

/// The checks of all rows of a run whose current was sought, up to the first that failed, by TB 207
/// or the busbar method. Trials are rows of kind 2. No box is shown; nothing where `observer`
/// cancelled.
[[nodiscard]] std::optional<CurrentChecks> check_currents(const Zustand16& rows,
                                                          const TransientInput& input,
                                                          const SteadyInputBlock& params,
                                                          const TransientObserver& observer = {});

/// The same by TB 601, from the records as the steady run before the rows left them.
[[nodiscard]] std::optional<CurrentChecks> check_currents(const Zustand16& rows,
                                                          const TransientInput& input,
                                                          TB601Records records,
                                                          const TransientObserver& observer = {});

}  // namespace zel
