#pragma once

#include <span>
#include <string>
#include <string_view>

#include "forms/form.h"
#include "steady/case/calc_case.h"

namespace zel {

/// The rows of `sections` with input, under the captions of their sections, for a terminal. Where
/// there is a text for `nothing`, it stands in the rows without input.
[[nodiscard]] std::string listing_of(const forms::Record& record,
                                     std::span<const forms::Section> sections, LangId lang,
                                     std::string_view nothing = {});

/// The same of a case of the thermal rating.
[[nodiscard]] std::string case_listing(CalcCase c, std::span<const forms::Section> sections,
                                       LangId lang, std::string_view nothing = {});
[[nodiscard]] std::string case_listing(CalcCase c, LangId lang);

}  // namespace zel
