#pragma once

#include <string>

#include "cli/console.h"
#include "steady/calc_case.h"

namespace zel {

/// The case of the file at `path`. Texts that the entry rules refuse are shown on `console` and
/// count as no input. Throws `InputError` naming the file, and the key where it is about one.
[[nodiscard]] CalcCase load_case(const std::string& path, const CommonOptions& options,
                                 Console& console);

}  // namespace zel
