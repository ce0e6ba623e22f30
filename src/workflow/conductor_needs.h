#pragma once

#include <string>
#include <vector>

#include "steady/calc_case.h"
#include "workflow/steady_methods.h"

namespace zel {

/// Why `method` cannot run with the conductor of `c`, by the checks of the steady input check that
/// are about the conductor: the item of each in one line, such as "Core data: core diameter"; empty
/// where the method can run. The other fields of `c` and its selection of methods play no part.
[[nodiscard]] std::vector<std::string> missing_for(const CalcCase& c, Method method, LangId lang);

}  // namespace zel
