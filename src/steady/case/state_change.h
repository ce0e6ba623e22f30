#pragma once

#include <array>
#include <cstdint>

#include "platform/text/number_text.h"
#include "steady/case/calc_case.h"

// The changes of state of a transient: kinds, cells, and the current, which a person sees as that
// of the bundle and the case holds as that of one sub-conductor.

namespace zel {

/// `Zn_merker_db`: which of current, temperature and duration is sought, the other two are given.
/// Any other number is a row that is not in use.
enum TransientKind : std::int16_t {
    row_unused = 0,
    seeks_current = 1,
    seeks_temperature = 2,
    seeks_time = 3,
};

inline constexpr std::array transient_kinds = {seeks_current, seeks_temperature, seeks_time};

using StateCell = Entry StateChange::*;

/// The cells of a row; the index is that of their controls.
inline constexpr std::array<StateCell, 4> state_cells = {&StateChange::Strom, &StateChange::TEMP,
                                                         &StateChange::min, &StateChange::sec};

[[nodiscard]] bool is_in_use(const StateChange& row);

/// Whether a row of `kind` takes an input in `cell`; the other cells are found by the run.
[[nodiscard]] bool takes_input(std::int16_t kind, StateCell cell);

/// How many sub-conductors share the current of the bundle; 1 where the case tells no number from
/// 1 to 8.
[[nodiscard]] int sharing_conductors(const LineData& c);

/// Writes the text of the current of `row`, that of a bundle of `n`, from its number.
void show_bundle_current(StateChange& row, int n, DecimalSeparator separator);

/// The currents of all rows for a bundle of another size: what was typed for the bundle stays, and
/// with it the shares of the sub-conductors change.
void share_bundle_currents(CalcCase& c, DecimalSeparator separator);

/// `c` without what the run of a transient finds: of each row only what was entered.
[[nodiscard]] CalcCase without_found_values(CalcCase c);

}  // namespace zel
