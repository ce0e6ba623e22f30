#pragma once

#include <optional>

#include "platform/text/number_text.h"
#include "platform/text/text.h"
#include "steady/case/calc_case.h"

// What follows from a few inputs: the currents of a bundle, the angle of the wind, the emissivity
// by age.

namespace zel {

/// "Doppel-Leiter", "2-conductor-bundle", ...: what a bundle of `n` sub-conductors is called.
/// Empty outside 1 to 8.
[[nodiscard]] Text bundle_name(int n);

/// `S_Stromstaerke_buendel`: reconciles the currents of sub-conductor and bundle. A given bundle
/// current (`n` from 1 to 19) sets `Stromstaerke_db` to the unrounded quotient, shown with two
/// decimals; a given sub-conductor current sets the bundle's to `n` times it.
void S_Stromstaerke_buendel(CalcCase& c, DecimalSeparator separator);

/// The current of one sub-conductor of a case with a given bundle current, A; nothing without one.
[[nodiscard]] std::optional<double> share_of_bundle(const CalcCase& c);

/// `c` without the current that `S_Stromstaerke_buendel` derives from the given one: what was
/// entered.
[[nodiscard]] CalcCase without_derived_current(CalcCase c);

/// `S_Winkel_Wind_Leiter`: the angle between wind and conductor in degrees, from the two azimuths
/// to north. It is folded into 0 to 90 by subtraction and not by reflection, so that 150 becomes
/// 60 and 100 becomes 10; a difference above 360 stays as it is.
[[nodiscard]] double fold_angle(double Winkel_W_S, double Winkel_S_S);

[[nodiscard]] double S_Winkel_Wind_Leiter(const CalcCase& c);

/// The emissivity of a bare conductor that has hung in the span for `age` years:
/// 0.3 + 0.6 · age / (1 + age), from 0.3 when new towards 0.9. Not valid for coated conductors.
/// Nothing for a negative age.
[[nodiscard]] std::optional<double> emissivity_from_age(double age);

}  // namespace zel
