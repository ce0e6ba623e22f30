#pragma once

#include <vector>

#include "persistence/record_file.h"
#include "platform/text/locale.h"
#include "short_circuit/short_circuit_fields.h"
#include "short_circuit/short_circuit_form.h"

namespace zel {

struct ShortCircuitFile {
    ShortCircuitForm form;
    std::vector<RefusedText> refused;  // they count as no input
};

/// Makes a case of named values, as if a form were filled in: the four selections first, then the
/// other fields from top to bottom. Every number goes through the entry rule of its box. A value
/// for a closed input is dropped. A `Leitermaterial_ks` of 1 to 7 fills those of the four values of
/// the material that are not given.
///
/// Throws `InputError`, see `RecordReader`: also where a key stands there in two spellings, and
/// where a list has no such entry.
[[nodiscard]] ShortCircuitFile read_short_circuit_case(const FlatObject& values,
                                                       const Locale& locale);

}  // namespace zel
