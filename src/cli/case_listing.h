#pragma once

#include <span>
#include <string>

#include "forms/case_forms.h"

namespace zel {

/// The fields of `c` with input, in the sections of the forms, for a terminal.
[[nodiscard]] std::string case_listing(const CalcCase& c, std::span<const FormSection> sections,
                                       LangId lang);

}  // namespace zel
