#pragma once

#include <cstdint>

#include "series/rating_code.h"
#include "series/series_input.h"
#include "steady/case/method.h"

// What a global radiation is, which the methods take in two ways.

namespace zel {

/// What the radiation of a series is; that of the case is as it meets the conductor. Nothing
/// changes it silently: without a word each method takes it as it stands.
enum class Radiation : std::uint8_t {
    AsItStands,
    /// On level ground. Webs and Kirn take it as it stands and apply the sun's height. For the
    /// other methods, which ask for it as it meets the conductor, it is divided by the sine of the
    /// sun's height (of 10° at least) up to 1400 W/m²: as if all of it came from the sun and met
    /// the conductor at right angles.
    Horizontal,
    /// As it meets the conductor. All methods take it as it stands; Webs and Kirn apply the sun's
    /// height all the same.
    OnConductor,
};

[[nodiscard]] constexpr bool takes_the_sun(Method method) {
    return method == Method::Webs || method == Method::Kirn;
}

/// Whether latitude and longitude of `element` are known.
[[nodiscard]] inline bool has_place(const SeriesElement& element) {
    return element.c.geogr_Breite_db.given() && element.c.geo_laeng_db.given();
}

/// As it meets the conductor, of `ghi` (W/m²) on level ground under a sun of that height (radians).
[[nodiscard]] double radiation_on_conductor(double ghi, double sun_height);

/// Gives `element` the radiation that meets its conductor where `ghi` falls on level ground. A code
/// that is not `Rated` says that the place or the time is not known.
[[nodiscard]] RatingCode put_horizontal(SeriesElement& element, double ghi);

}  // namespace zel
