#pragma once

#include <optional>
#include <vector>

#include "series/series.h"
#include "weather/line_table.h"
#include "weather/weather_table.h"

// Ratings of lines for a block of weather, over the arrays of series.

namespace zel::weather {

/// One rating of a row of weather.
struct Rating {
    RatingCode code = RatingCode::MissingInput;
    bool by_recourse = false;  // the number is that of the static weather, `code` is why
    RatingCode recourse_mark = RatingCode::Rated;  // what is to be said of that number
    double current = no_number;                    // A, of the bundle
    double temperature = no_number;                // °C
    double angle = no_number;                      // degrees

    [[nodiscard]] bool stands() const { return by_recourse || has_value(code); }
};

/// A method of a line, and its ratings: the permanent one (or the temperature of the current), then
/// those for a time.
struct MethodRatings {
    const RatedLine* line = nullptr;
    std::size_t line_index = 0;
    Method method{};
    std::size_t kinds = 1;        // ratings of one row
    std::vector<Rating> ratings;  // row by row

    [[nodiscard]] bool has_tatl() const { return kinds > 1; }
    /// Of rating `kind` of a row; null for the permanent one.
    [[nodiscard]] const Tatl* tatl(std::size_t kind) const {
        return kind == 0 ? nullptr : &line->tatls[kind - 1];
    }
};

inline constexpr std::string_view radiation_input = "global_radiation";

/// Whether `line` has a radiation of its own, in all weather or in the static one.
[[nodiscard]] bool has_radiation(const RatedLine& line);

class BlockRater {
public:
    BlockRater(const std::vector<RatedLine>& lines, const std::vector<SeriesInput>& inputs,
               Radiation radiation, unsigned threads)
        : lines_(lines), inputs_(inputs), radiation_(radiation), threads_(threads) {}

    /// Rates each row of `block` for the lines that it is for. The rows of `rows_of(line)` are
    /// those of a line.
    void rate(const WeatherBlock& block);

    /// By line, and by method.
    [[nodiscard]] const std::vector<MethodRatings>& ratings() const { return ratings_; }
    /// The rows of the block that a line has, in their order.
    [[nodiscard]] const std::vector<std::size_t>& rows_of(std::size_t line) const {
        return rows_[line];
    }

    /// Why the `i`-th row of `of` has no rating, for a reader in `lang`; empty where no input or
    /// check refuses it. Of the block that was rated last.
    [[nodiscard]] std::string refusal(const WeatherBlock& block, const MethodRatings& of,
                                      std::size_t i, LangId lang) const;

private:
    struct Columns;
    [[nodiscard]] Columns columns_of(const WeatherBlock& block,
                                     const std::vector<std::size_t>& rows) const;
    void rate(const WeatherBlock& block, MethodRatings& of, unsigned threads) const;
    void take_recourse(const Columns& columns, MethodRatings& of, unsigned threads) const;

    const std::vector<RatedLine>& lines_;
    const std::vector<SeriesInput>& inputs_;
    Radiation radiation_;
    unsigned threads_;
    std::vector<MethodRatings> ratings_;
    std::vector<std::vector<std::size_t>> rows_;
};

/// Whether the static weather stands in for a rating that ended so: what is missing or wrong in the
/// weather, and what a method cannot calculate. That a conductor is too hot is a finding, and
/// stays.
[[nodiscard]] bool calls_for_recourse(RatingCode code);

/// Why methods have no rating by the static weather of `line`: what it lacks, or a wrong number.
[[nodiscard]] std::vector<Reason> faults_of_recourse(const RatedLine& line);

}  // namespace zel::weather
