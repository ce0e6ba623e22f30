#pragma once

#include <optional>

#include "validation/quantities.h"

// What comes of a steady state where one rule that is kept to the letter is done as its source or
// physics has it. All else stays as found.

namespace zel {

/// A: TB 207 with its allowance for one or two layers over steel of 175 mm² or more worked out
/// exactly, and not by closing in. Nothing for other conductors.
[[nodiscard]] std::optional<double> current_by_exact_allowance(const SteadyFound& found);

/// A: Webs, with the last term of Kiessling's formula divided by x. Nothing below x = 1.
[[nodiscard]] std::optional<double> current_by_printed_skin_effect(const SteadyFound& found);

/// A: Webs, with the absorptivity of the case.
[[nodiscard]] std::optional<double> current_by_absorptivity(const SteadyFound& found);

/// A: Webs, with the angle between the conductor and the sun where it stands. Nothing at night.
[[nodiscard]] std::optional<double> current_by_place_of_sun(const SteadyFound& found);

/// A: Kirn, with the sky of a low sun up to a height of 1.5°, and not of 1.5 rad.
[[nodiscard]] std::optional<double> current_by_low_sun(const SteadyFound& found);

/// A: thermally equivalent short-time current, the last term of the factor n with 5.5 and 11.
[[nodiscard]] std::optional<double> short_time_current_by_standard(const ShortCircuitFound& found);

}  // namespace zel
