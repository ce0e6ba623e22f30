#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "steady/case/state_change.h"

// The rows of a transient: up to six changes of state, one after the other.

namespace zel {

/// `Direction` of a row.
enum TransientDirection : std::int16_t { row_at_rest = 0, row_heats = 1, row_cools = 2 };

/// One change of state, given and found.
struct TransientRow {
    std::int16_t Merker = row_unused;      // TransientKind
    double Strom = 0;                      // A, of one sub-conductor
    double Temp = 0;                       // °C at the end of the row
    std::int16_t Min = 0;                  // duration, whole minutes and
    std::int16_t Sec = 0;                  // remaining seconds
    std::int16_t Failed = 0;               // 1 where the row ended the run
    std::int16_t Direction = row_at_rest;  // TransientDirection

    friend bool operator==(const TransientRow&, const TransientRow&) = default;
};

/// The six rows, `Zustand16(1)` to `Zustand16(6)` in the texts.
using Zustand16 = std::array<TransientRow, state_change_count>;

/// The state from which a transient starts: current of one sub-conductor and temperature, as the
/// last steady run left them (`TransientStartCurrent`, `TransientStartTemperature`).
struct TransientStart {
    double current = 0;      // A
    double temperature = 0;  // °C

    friend bool operator==(const TransientStart&, const TransientStart&) = default;
};

/// Seconds of a row as it shows: 60 times its minutes plus its seconds.
[[nodiscard]] inline double duration_s(const TransientRow& row) { return 60.0 * row.Min + row.Sec; }

/// The temperature (°C) at which row `index` (from 0) begins.
[[nodiscard]] inline double start_temperature(const Zustand16& rows, std::size_t index,
                                              const TransientStart& start) {
    return index == 0 ? start.temperature : rows[index - 1].Temp;
}

}  // namespace zel
