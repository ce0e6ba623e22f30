#pragma once

#include <optional>

#include "pictures/picture.h"
#include "platform/text/locale.h"
#include "short_circuit/short_circuit_run.h"

namespace zel {

/// How much of its thermal short-circuit strength a conductor or a piece of equipment is put to.
struct Utilisation {
    bool conductor = true;  // densities in A/mm²; otherwise currents in kA
    double load = 0;        // S_th, or I_th
    double limit = 0;       // what is admissible for T_k
    bool withstands = false;

    [[nodiscard]] double share() const { return load / limit; }
};

/// From this share of the limit on a withstood load is told to be close to it.
inline constexpr double close_share = 0.95;

/// Nothing where nothing was judged, or where the limit is not above 0.
[[nodiscard]] std::optional<Utilisation> utilisation(const ShortCircuitCase& c,
                                                     const ShortCircuitResult& result);

/// The share in per cent with one decimal, never rounded to the other side of the limit: "> 100".
[[nodiscard]] std::string share_text(const Utilisation& use, DecimalSeparator separator);

/// The load as a bar beside its limit, with the verdict by sign and words.
[[nodiscard]] std::optional<Picture> utilisation_picture(const ShortCircuitCase& c,
                                                         const ShortCircuitResult& result,
                                                         const Locale& locale);

}  // namespace zel
