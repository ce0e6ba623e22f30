#include "weather/line_rating.h"

#include <algorithm>
#include <limits>
#include <span>
#include <thread>

#include "platform/side_by_side.h"

namespace zel::weather {
namespace {

constexpr Text no_recourse = {
    "Leitung {0}: nach {1} gibt es mit ihrem statischen Wetter keine Belastbarkeit",
    "line {0}: there is no rating by {1} with its static weather"};

constexpr std::string_view radiation_of_recourse = "static_global_radiation";

/// Ratings of `inputs`, kind by kind.
void rate_kinds(const SeriesInputs& inputs, MethodRatings& of, const SeriesOptions& options) {
    const auto row_stride = static_cast<std::ptrdiff_t>(of.kinds * sizeof(Rating));
    Rating* const first = of.ratings.data();
    std::vector<std::int32_t> codes(inputs.count);
    const auto take_codes = [&](std::size_t kind) {
        for (std::size_t i = 0; i < inputs.count; ++i)
            of.ratings[i * of.kinds + kind].code = static_cast<RatingCode>(codes[i]);
    };
    const Strided<std::int32_t> code{codes.data()};
    rate_steady(inputs, of.method, options,
                {{&first->current, row_stride},
                 {},
                 {&first->temperature, row_stride},
                 {&first->angle, row_stride},
                 code});
    take_codes(0);
    for (std::size_t kind = 1; kind < of.kinds; ++kind) {
        const Tatl& tatl = *of.tatl(kind);
        std::vector<SeriesColumn> columns = inputs.columns;
        columns.push_back({SeriesInput("duration"), {&tatl.duration, 0}});
        columns.push_back({SeriesInput("preload_percent"), {&tatl.preload, 0}});
        Rating* const place = first + kind;
        rate_tatl({inputs.base, std::move(columns), inputs.count}, options,
                  {{}, {&place->current, row_stride}, {&place->angle, row_stride}, {}, code});
        take_codes(kind);
    }
}

/// What is to be said of a number that stands; the first mark stays, unless it is about the wind.
void mark(Rating& rating, RatingCode code) {
    RatingCode& place = rating.by_recourse ? rating.recourse_mark : rating.code;
    if (place == RatingCode::Rated || place == RatingCode::WindFolded) place = code;
}

/// A rating for a time has the limit temperature of the permanent one. One below that, and one
/// above that of a shorter time, is marked.
void finish(const MethodRatings& of, std::span<Rating> kinds) {
    constexpr double none = std::numeric_limits<double>::infinity();
    double least = none;  // of the shorter times after the same preload
    for (std::size_t kind = 1; kind < kinds.size(); ++kind) {
        Rating& rating = kinds[kind];
        if (kind > 1 && of.tatl(kind)->preload != of.tatl(kind - 1)->preload) least = none;
        if (!rating.stands()) continue;
        if (!rating.by_recourse) rating.temperature = kinds[0].temperature;
        if (kinds[0].stands() && rating.current < kinds[0].current)
            mark(rating, RatingCode::TatlBelowPatl);
        if (rating.current > least) mark(rating, RatingCode::TatlRises);
        least = std::min(least, rating.current);
    }
}

}  // namespace

bool has_radiation(const RatedLine& line) {
    return std::ranges::any_of(line.cells, [](const LineCell& cell) {
        return cell.column == radiation_input || cell.column == radiation_of_recourse;
    });
}

bool calls_for_recourse(RatingCode code) {
    switch (code) {
        case RatingCode::MissingInput:
        case RatingCode::OutsideLimits:
        case RatingCode::NotConverged:
        case RatingCode::OutsideCorrelation:
        case RatingCode::Fault:
        case RatingCode::TooManySteps:
        case RatingCode::Ended: return true;
        default: return false;
    }
}

std::vector<Reason> faults_of_recourse(const RatedLine& line) {
    std::vector<Reason> faults;
    if (!line.recourse) return faults;
    const double any_time = 0;
    const SeriesInputs inputs(line.recourse->c, {{SeriesInput("time"), {&any_time}}}, 1);
    for (const Method method : line.methods) {
        std::int32_t code = 0;
        rate_steady(inputs, method, {1}, {{}, {}, {}, {}, {&code}});
        const auto found = static_cast<RatingCode>(code);
        if (found != RatingCode::MissingInput && found != RatingCode::OutsideLimits) continue;
        Reason why(refusal_of(inputs, method, {}, 0, LangId::German));
        why.en = refusal_of(inputs, method, {}, 0, LangId::English);
        faults.push_back(at(Reason(no_recourse, {in_quotes(line.name), key_of(method)}), why));
    }
    return faults;
}

/// The numbers of the rows of one line, as arrays; the times are the last.
struct BlockRater::Columns {
    std::vector<std::vector<double>> numbers;
    std::vector<SeriesColumn> columns;
    std::size_t count = 0;
};

BlockRater::Columns BlockRater::columns_of(const WeatherBlock& block,
                                           const std::vector<std::size_t>& rows) const {
    Columns made;
    made.count = rows.size();
    made.numbers.resize(inputs_.size() + 1);
    for (std::size_t input = 0; input < inputs_.size(); ++input) {
        std::vector<double>& numbers = made.numbers[input];
        for (const std::size_t row : rows) numbers.push_back(block.numbers[input][row]);
        made.columns.push_back({inputs_[input], {numbers.data()}});
    }
    std::vector<double>& times = made.numbers.back();
    for (const std::size_t row : rows)
        times.push_back(static_cast<double>(block.rows[row].period.middle()));
    made.columns.push_back({SeriesInput("time"), {times.data()}});
    return made;
}

void BlockRater::rate(const WeatherBlock& block) {
    rows_.assign(lines_.size(), {});
    for (std::size_t row = 0; row < block.rows.size(); ++row) {
        const int only = block.rows[row].line;
        if (only != of_all_lines) rows_[static_cast<std::size_t>(only)].push_back(row);
        if (only != of_all_lines) continue;
        for (auto& rows : rows_) rows.push_back(row);
    }
    ratings_.clear();
    for (std::size_t line = 0; line < lines_.size(); ++line)
        for (const Method method : lines_[line].methods) {
            if (rows_[line].empty()) continue;
            const bool tatl = method == Method::TB601;
            const std::size_t kinds = 1 + (tatl ? lines_[line].tatls.size() : 0);
            ratings_.push_back({&lines_[line], line, method, kinds,
                                std::vector<Rating>(kinds * rows_[line].size())});
        }
    const unsigned wanted =
        threads_ != 0 ? threads_ : std::max(1U, std::thread::hardware_concurrency());
    // Either the lines are rated side by side, or the rows of each.
    const bool by_line = ratings_.size() >= wanted;
    side_by_side(ratings_.size(), by_line ? wanted : 1,
                 [&](std::size_t i) { rate(block, ratings_[i], by_line ? 1 : wanted); });
}

void BlockRater::rate(const WeatherBlock& block, MethodRatings& of, unsigned threads) const {
    const Columns columns = columns_of(block, rows_[of.line_index]);
    rate_kinds({of.line->base.c, columns.columns, columns.count}, of, {threads, {}, radiation_});
    if (of.line->recourse) take_recourse(columns, of, threads);
    for (std::size_t row = 0; row < of.ratings.size(); row += of.kinds)
        finish(of, std::span(of.ratings).subspan(row, of.kinds));
}

/// Webs and Kirn take the sun of each row; to the other methods all rows are one.
void BlockRater::take_recourse(const Columns& columns, MethodRatings& of, unsigned threads) const {
    const auto wanted = [&](std::size_t i) {
        const Rating* const first = of.ratings.data() + i * of.kinds;
        return std::any_of(first, first + of.kinds,
                           [](const Rating& r) { return calls_for_recourse(r.code); });
    };
    std::vector<double> times;
    for (std::size_t i = 0; i < columns.count; ++i)
        if (wanted(i)) times.push_back(columns.numbers.back()[i]);
    if (times.empty()) return;
    const bool alike = !takes_the_sun(of.method);
    MethodRatings found{of.line, of.line_index, of.method, of.kinds, {}};
    const std::size_t count = alike ? 1 : times.size();
    found.ratings.resize(count * of.kinds);
    rate_kinds({of.line->recourse->c, {{SeriesInput("time"), {times.data()}}}, count}, found,
               {threads});
    std::size_t place = 0;
    for (std::size_t i = 0; i < columns.count; ++i) {
        if (!wanted(i)) continue;
        for (std::size_t kind = 0; kind < of.kinds; ++kind) {
            Rating& rating = of.ratings[i * of.kinds + kind];
            const Rating& instead = found.ratings[place * of.kinds + kind];
            if (!calls_for_recourse(rating.code) || !has_value(instead.code)) continue;
            const RatingCode why = rating.code;
            rating = instead;
            rating.recourse_mark = instead.code;
            rating.code = why;
            rating.by_recourse = true;
            if (kind > 0) rating.temperature = found.ratings[place * of.kinds].temperature;
        }
        if (!alike) ++place;
    }
}

std::string BlockRater::refusal(const WeatherBlock& block, const MethodRatings& of, std::size_t i,
                                LangId lang) const {
    const Columns columns = columns_of(block, rows_[of.line_index]);
    return refusal_of({of.line->base.c, columns.columns, columns.count}, of.method,
                      {1, {}, radiation_}, i, lang);
}

}  // namespace zel::weather
