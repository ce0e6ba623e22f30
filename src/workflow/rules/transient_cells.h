#pragma once

#include <optional>
#include <string_view>

#include "platform/message_box.h"
#include "platform/text/locale.h"
#include "steady/case/case_fields.h"
#include "workflow/rules/rule_tables.h"

// The entry rule of the cells of the six changes of state.

namespace zel {

/// A text typed into a cell becomes its content; a current is that of the whole bundle, of which
/// the case holds the share of one sub-conductor. An empty text is 0. A text that is no number, and
/// a number beyond the cell's limit, is refused: the box that says so is given back, text and
/// number are cleared.
///
/// Limits, inclusive and compared in 32 bits: the current of the bundle at most 999999 A, the
/// temperature -50 to 350 °C, at most 60 minutes, and at most 59 seconds once they are rounded.
std::optional<Box> enter_cell(CalcCase& c, StateCellPlace place, std::string_view text,
                              const Locale& locale);

/// These limits of a cell.
[[nodiscard]] const Limits& limits_of(StateCell cell);

/// The same for a text that stands in a file, where a current is that of one sub-conductor. Its
/// limit is still that of the bundle.
std::optional<Box> read_cell(CalcCase& c, StateCellPlace place, std::string_view text,
                             const Locale& locale);

}  // namespace zel
