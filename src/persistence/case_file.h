#pragma once

#include <vector>

#include "persistence/record_file.h"
#include "platform/text/locale.h"
#include "steady/case/case_fields.h"

namespace zel {

/// A case as read from a file. A refused text counts as no input.
struct CaseFile {
    CalcCase c;
    std::vector<RefusedText> refused;
};

/// Makes a case of named values. A number is taken as it stands, rounded (ties to even) where the
/// field holds whole numbers only; a text in a numeric field is the text as typed and goes through
/// the field's entry rule. A field of the conductor's record has no rule and must be numeric. The
/// currents of changes of state are those of one sub-conductor, and are taken last, as their texts
/// are those of the bundle.
///
/// Throws `InputError`, see `RecordReader`: also where a whole number is outside -32768 to 32767,
/// and where a flag or the kind of a change of state has a value that it cannot have.
[[nodiscard]] CaseFile read_case(const FlatObject& values, const Locale& locale);

}  // namespace zel
