#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/case_store.h"
#include "platform/message_box.h"
#include "platform/text/number_text.h"
#include "steady/case/calc_case.h"
#include "steady/case/case_fields.h"

namespace zel {

/// A typed text that its field refused, with what is told about it.
struct RefusedText {
    std::string field;
    Box box;
};

/// A case as read from a file. A refused text counts as no input.
struct CaseFile {
    CalcCase c;
    std::vector<RefusedText> refused;
};

/// The entry rule of a field: `field` takes a typed text over, or the box that refuses it is given
/// back. `key` is the member of the case that the field is.
using EntryRule =
    std::function<std::optional<Box>(Entry& field, Entry CalcCase::*key, std::string_view text)>;

/// The same for a cell of a change of state of `c`, all else of which has been read before. A
/// current is that of one sub-conductor.
using CellRule =
    std::function<std::optional<Box>(CalcCase& c, StateCellPlace place, std::string_view text)>;

/// Makes a case of named values. A number is taken as it stands, rounded (ties to even) where the
/// field holds whole numbers only; a text in a numeric field is the text as typed. A field of the
/// form takes it by `rule`, a cell of a change of state by `cell_rule`; a field of the conductor's
/// record has no rule and must be numeric. Missing keys and empty texts are "no input".
///
/// Throws `InputError` naming the key where it is none of a case, where a value is of the wrong
/// kind, where a whole number is outside -32768 to 32767, and where a flag or the kind of a change
/// of state has a value that it cannot have.
[[nodiscard]] CaseFile read_case(const FlatObject& values, DecimalSeparator separator,
                                 const EntryRule& rule, const CellRule& cell_rule);

/// The named values of `c` from which `read_case` makes the same case under any separator: the
/// fields with input and the numbers that are not the default ones. What was typed as a number is
/// a number here.
[[nodiscard]] FlatObject values_of(const CalcCase& c);

}  // namespace zel
