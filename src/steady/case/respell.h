#pragma once

#include "platform/text/number_text.h"
#include "steady/case/calc_case.h"

namespace zel {

/// Writes every number that was typed with the separator `from` with the separator `to`. A text
/// that is no number stays as it is; the doubles do not change.
void respell(CalcCase& c, DecimalSeparator from, DecimalSeparator to);

/// The same of one number.
void respell(Entry& field, DecimalSeparator from, DecimalSeparator to);

}  // namespace zel
