#pragma once

#include "platform/text/number_text.h"
#include "platform/text/text.h"
#include "steady/case/calc_case.h"

namespace zel {

/// "Doppel-Leiter", "2-conductor-bundle", ...: what a bundle of `n` sub-conductors is called.
/// Empty outside 1 to 8.
[[nodiscard]] Text bundle_name(int n);

/// `S_Stromstaerke_buendel`: reconciles the currents of sub-conductor and bundle. A given bundle
/// current (`n` from 1 to 19) sets `Stromstaerke_db` to the unrounded quotient, shown with two
/// decimals; a given sub-conductor current sets the bundle's to `n` times it.
void S_Stromstaerke_buendel(CalcCase& c, DecimalSeparator separator);

/// `c` without the current that `S_Stromstaerke_buendel` derives from the given one: what was
/// entered.
[[nodiscard]] CalcCase without_derived_current(CalcCase c);

}  // namespace zel
