#pragma once

#include <vector>

#include "persistence/case_file.h"
#include "platform/case_store.h"
#include "platform/text/locale.h"
#include "short_circuit/short_circuit_form.h"

namespace zel {

struct ShortCircuitFile {
    ShortCircuitForm form;
    std::vector<RefusedText> refused;  // they count as no input
};

/// Makes a case of named values, as if a form were filled in: the four selections first, then the
/// other fields from top to bottom. Every number goes through the entry rule of its box; a text is
/// read with `separator`. A value for a closed input is dropped. A `Leitermaterial_ks` of 1 to 7
/// fills those of the four values of the material that are not given. Missing keys and empty texts
/// are "no input".
///
/// Throws `InputError` naming the key where it is none of a case or stands there in two spellings,
/// where a value is of the wrong kind, and where a list has no such entry.
[[nodiscard]] ShortCircuitFile read_short_circuit_case(const FlatObject& values,
                                                       const Locale& locale);

/// The named values of `c` from which `read_short_circuit_case` makes the same case under any
/// separator: the fields with input, numbers with as many digits as 32 bits have.
[[nodiscard]] FlatObject values_of(const ShortCircuitCase& c);

}  // namespace zel
