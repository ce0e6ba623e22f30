#pragma once

#include <span>
#include <string>

#include "forms/form.h"
#include "steady/case/calc_case.h"

namespace zel {

/// The rows of `sections` with input, under the captions of their sections, for a terminal.
[[nodiscard]] std::string listing_of(const forms::Record& record,
                                     std::span<const forms::Section> sections, LangId lang);

/// The same of a case of the thermal rating.
[[nodiscard]] std::string case_listing(CalcCase c, std::span<const forms::Section> sections,
                                       LangId lang);
[[nodiscard]] std::string case_listing(CalcCase c, LangId lang);

}  // namespace zel
