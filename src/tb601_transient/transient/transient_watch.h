#pragma once

#include <algorithm>

#include "platform/arithmetic_fault.h"
#include "tb601_transient/transient/transient_run.h"

namespace zel {

/// Thrown out of the stepping where the observer cancels.
struct TransientCancelled {};

/// Asks the observer of a transient every few thousand steps.
class TransientWatch {
public:
    /// `observer` must outlive the watch; it may be empty.
    explicit TransientWatch(const TransientObserver& observer) : observer_(observer) {}

    void begin_row(int row) { progress_ = {row, 0}; }

    /// `done`, the share of the row, is worked out only when it is asked for. Throws
    /// `TransientCancelled`.
    template <class Done>
    void step(Done done) {
        constexpr unsigned steps_between = 4096;
        if (++steps_ % steps_between != 0 || !observer_) return;
        const ArithmeticScope apart;  // what an observer computes is no fault of the run
        progress_.done = std::clamp(done(), 0.0, 1.0);
        if (!observer_(progress_)) throw TransientCancelled();
    }

private:
    const TransientObserver& observer_;
    TransientProgress progress_;
    unsigned steps_ = 0;
};

}  // namespace zel
