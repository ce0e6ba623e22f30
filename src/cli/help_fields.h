#pragma once

#include "program/console.h"

namespace zel {

/// "zel help fields": the inputs of cases and series, one per line or as a document. Gives the exit
/// status.
[[nodiscard]] int tell_fields(const CommonOptions& words);

}  // namespace zel
