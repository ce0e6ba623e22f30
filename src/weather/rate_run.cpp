#include "weather/rate_run.h"

#include <algorithm>

#include "platform/errors.h"

namespace zel::weather {
namespace {

// Ratings that are kept at once: some megabytes.
constexpr std::size_t ratings_of_a_block = 65536;
constexpr std::size_t least_rows = 16;
constexpr std::size_t most_rows = 4096;

constexpr Text radiation_is_open = {
    "Webs und Kirn wenden die Sonnenhöhe auf die Globalstrahlung an, die anderen Verfahren nehmen "
    "sie, wie sie auf den Leiter trifft: --radiation horizontal oder --radiation conductor sagt, "
    "was die Tabellen enthalten",
    "Webs and Kirn apply the sun's height to the global radiation, the other methods take it as it "
    "meets the conductor: --radiation horizontal or --radiation conductor says what the tables "
    "hold"};
constexpr Text no_place = {
    "Leitung {0}: --radiation horizontal braucht ihre geographische Breite und Länge",
    "line {0}: --radiation horizontal needs its latitude and longitude"};

std::size_t rows_of_a_block(const LineTable& table) {
    std::size_t ratings = 1;
    for (const RatedLine& line : table.lines) ratings += line.methods.size() + line.tatls.size();
    return std::clamp(ratings_of_a_block / ratings, least_rows, most_rows);
}

}  // namespace

void settle_radiation(LineTable& lines, const WeatherTable& weather, Radiation radiation) {
    const bool in_weather = holds(weather.names(), radiation_input);
    if (radiation == Radiation::AsItStands) {
        bool taken = in_weather;
        bool with_sun = false;
        bool without = false;
        for (const RatedLine& line : lines.lines) {
            taken = taken || has_radiation(line);
            for (const Method method : line.methods)
                (takes_the_sun(method) ? with_sun : without) = true;
        }
        if (taken && with_sun && without) throw InputError(Reason(radiation_is_open));
    }
    if (radiation != Radiation::Horizontal || !in_weather) return;
    std::erase_if(lines.lines, [&](const RatedLine& line) {
        const bool turned = !std::ranges::all_of(line.methods, takes_the_sun);
        if (!turned || has_place(line.base)) return false;
        lines.refused.push_back(Reason(no_place, {in_quotes(line.name)}));
        return true;
    });
}

void rate_weather(const LineTable& lines, WeatherTable& weather, RatingsTable& table,
                  const RateOptions& options, const TakeText& take, const BlockDone& done) {
    BlockRater rater(lines.lines, weather.inputs(), options.radiation, options.threads);
    const std::size_t rows = options.block_rows != 0 ? options.block_rows : rows_of_a_block(lines);
    WeatherBlock block;
    std::uint64_t ratings = 0;
    while (weather.next(block, rows)) {
        rater.rate(block);
        take(table.rows(block, rater));
        for (const MethodRatings& of : rater.ratings()) ratings += of.ratings.size();
        done(ratings);
    }
}

}  // namespace zel::weather
