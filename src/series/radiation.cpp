#include "series/radiation.h"

#include <algorithm>
#include <cmath>

#include "steady/constants.h"
#include "steady/webs.h"

namespace zel {

double radiation_on_conductor(double ghi, double sun_height) {
    constexpr double largest_radiation = 1400;  // W/m², the limit of the field
    constexpr double least_sun_height = 10;     // degrees
    // Instruments tell a little less than none at night.
    if (!(ghi > 0 && ghi <= largest_radiation)) return ghi;
    return std::min(ghi / std::sin(std::max(sun_height, radians(least_sun_height))),
                    largest_radiation);
}

RatingCode put_horizontal(SeriesElement& element, double ghi) {
    CalcCase& c = element.c;
    const bool timed = c.Tag_db.given() && c.Monat_db.given() && c.Stunden_db.given();
    if (!has_place(element) || !timed) return RatingCode::MissingInput;
    c.Globalstrahlung_db.value =
        radiation_on_conductor(ghi, S3_Sonnenhoehe_webs(sun_input(c), c.wzsz_merker_db));
    return RatingCode::Rated;
}

}  // namespace zel
