#pragma once

#include <cstdint>
#include <functional>

#include "weather/ratings_table.h"

// Lines times weather, block by block.

namespace zel::weather {

/// Takes pieces of the table of ratings.
using TakeText = std::function<void(std::string_view text)>;
/// Told after each block: ratings so far.
using BlockDone = std::function<void(std::uint64_t ratings)>;

struct RateOptions {
    Radiation radiation = Radiation::AsItStands;
    unsigned threads = 0;        // 0: one for each processor
    std::size_t block_rows = 0;  // rows of weather at once; 0: by the number of lines
};

/// Throws `InputError` where lines are rated both by a method that applies the sun's height to the
/// radiation and by one that does not, and `radiation` does not say what it is. Leaves out lines
/// whose radiation is to be turned and whose latitude or longitude is not known.
void settle_radiation(LineTable& lines, const WeatherTable& weather, Radiation radiation);

/// Rates all rows of `weather` for their lines and gives them to `take`. The result is the same for
/// any size of blocks and number of threads.
void rate_weather(const LineTable& lines, WeatherTable& weather, RatingsTable& table,
                  const RateOptions& options, const TakeText& take, const BlockDone& done);

}  // namespace zel::weather
