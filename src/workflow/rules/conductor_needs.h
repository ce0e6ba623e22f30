#pragma once

#include <string>
#include <vector>

#include "platform/text/text.h"
#include "steady/case/calc_case.h"
#include "steady/case/method.h"

namespace zel {

/// Whether `method` is one for conductors of this kind: the busbar method for tubes, the others for
/// the rest. A kind that is not told goes with every method.
[[nodiscard]] bool is_for_kind(const CalcCase& c, Method method);

/// Why `method` cannot run with the conductor of `c`, by those checks of the steady input check
/// that are about the conductor: the item of each in one line, such as "Core data: core diameter".
/// Empty where the method can run. The other fields of `c` and its selection of methods play no
/// part.
[[nodiscard]] std::vector<std::string> missing_for(const CalcCase& c, Method method, LangId lang);

}  // namespace zel
