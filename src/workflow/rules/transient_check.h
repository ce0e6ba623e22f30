#pragma once

#include <cstddef>
#include <optional>

#include "platform/message_box.h"
#include "steady/case/case_fields.h"
#include "steady/case/state_change.h"
#include "steady/case/transient_row.h"

namespace zel {

/// Why the changes of state cannot be calculated, and the input that is to be mended.
struct TransientRefusal {
    Box box;
    std::optional<std::size_t> row;  // 0 to 5; nothing where it is about the case as a whole
    StateCell cell = nullptr;        // null: the kind of the row
};

/// The check of the transient page. Row 1 must be in use, the rows in use must follow each other
/// without a gap, and the two given quantities of each must be entered (of the duration at least
/// one of minutes and seconds). The gap before a row is told before what lacks in it.
///
/// `rows` is cleared, and filled row by row from what passed, minutes and seconds rounded to whole
/// numbers; a refusal leaves it as far as it came. Whether the rows make physical sense is left to
/// the run.
[[nodiscard]] std::optional<TransientRefusal> S_Eingabepruefung_transient(const CalcCase& c,
                                                                          Zustand16& rows,
                                                                          LangId lang);

/// Whether a row in use lacks what would stand in this cell; of a duration the minutes stand for
/// both cells.
[[nodiscard]] bool is_missing(const CalcCase& c, StateCellPlace place);

}  // namespace zel
