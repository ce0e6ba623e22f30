#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>

#include "platform/side_by_side.h"
#include "series/series.h"
#include "shell/session.h"
#include "workflow/run/steady_methods.h"

// What the runs over arrays have in common.

namespace zel {

/// Calls `work` for blocks of `size` of `count` elements, side by side.
inline void in_blocks(std::size_t count, std::size_t size, unsigned threads,
                      const std::function<void(std::size_t first, std::size_t end)>& work) {
    const std::size_t blocks = (count + size - 1) / size;
    side_by_side(blocks, threads, [&](std::size_t block) {
        work(block * size, std::min(count, (block + 1) * size));
    });
}

/// The session of a calculation that starts from nothing, asks nothing and tells nothing.
class SilentRun {
public:
    explicit SilentRun(const SeriesOptions& options)
        : session{{LangId::English, DecimalSeparator::Point},
                  RunMode::Silent,
                  dialogs_,
                  &memory_,
                  true,
                  options.heat_capacity} {}
    SilentRun(const SilentRun&) = delete;
    SilentRun& operator=(const SilentRun&) = delete;

private:
    class NoDialogs : public Dialogs {
    public:
        Answer show(const Box& box) override { return box.unattended; }
    };
    NoDialogs dialogs_;
    MethodMemory memory_;

public:
    const Session session;
};

[[nodiscard]] constexpr std::int32_t number_of(RatingCode code) {
    return static_cast<std::int32_t>(code);
}

/// A, of the bundle.
[[nodiscard]] inline double of_bundle(double current, const CalcCase& c) {
    return current * c.Anzahl_Teilleiter_db;
}

}  // namespace zel
