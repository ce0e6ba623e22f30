#include "weather/ratings_table.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <set>

#include "platform/errors.h"
#include "platform/text/csv.h"

namespace zel::weather {
namespace {

constexpr Text no_such_column = {"keine der Tabellen hat die Spalte {0}",
                                 "neither table has the column {0}"};
constexpr Text asked_twice = {"die Spalte {0} ist zweimal verlangt",
                              "the column {0} is asked for twice"};
constexpr Text no_component = {"u und v stehen hier als wind_speed und wind_from_direction",
                               "u and v stand here as wind_speed and wind_from_direction"};
constexpr Text columns_of_limits = {"Grenzwerte haben keine weiteren Spalten (--columns)",
                                    "limits have no further columns (--columns)"};
constexpr Text several_times = {
    "Grenzwerte gelten zu einer Zeit; die Wetterdaten haben mehrere, {0} und {1}",
    "limits are of one time; the weather has several, {0} and {1}"};
constexpr Text several_sets = {
    "Grenzwerte folgen aus einem Verfahren und einer Vorbelastung; die Leitung {0} hat mehrere",
    "limits follow from one method and one preload; the line {0} has several"};
constexpr Text parts_of_seconds = {
    "Grenzwerte gelten für ganze Sekunden; die Leitung {0} hat eine Dauer von {1} s",
    "limits are for whole seconds; the line {0} has a duration of {1} s"};
constexpr Text several_rows = {
    "Grenzwerte folgen aus einer Zeile des Wetters; die Leitung {0} hat mehrere",
    "limits follow from one row of the weather; the line {0} has several"};
constexpr Text no_limit_of_temperature = {
    "die Leitung {0} hat einen Strom statt einer Grenztemperatur",
    "the line {0} has a current instead of a limit temperature"};

const std::vector<std::string> long_names = {
    "line",          "period_start",   "period_end",      "method",
    "kind",          "duration_s",     "preload_percent", "current_a",
    "temperature_c", "wind_angle_deg", "status"};
const std::vector<std::string> limit_names = {
    "element_id", "element_type", "side", "name", "type", "value", "acceptable_duration"};

constexpr std::string_view kind_permanent = "patl";
constexpr std::string_view kind_temporary = "tatl";
constexpr std::string_view kind_temperature = "temperature";

std::string whole(double number) {
    return std::to_string(static_cast<std::int64_t>(std::llround(number)));
}

/// What a table of limits can hold of each line.
void require_one_set(const LineTable& lines) {
    for (const RatedLine& line : lines.lines) {
        std::set<double> preloads;
        for (const Tatl& tatl : line.tatls) {
            preloads.insert(tatl.preload);
            if (tatl.duration != std::floor(tatl.duration))
                throw InputError(
                    Reason(parts_of_seconds, {in_quotes(line.name), exact_number(tatl.duration)}));
        }
        if (line.methods.size() > 1 || preloads.size() > 1)
            throw InputError(Reason(several_sets, {in_quotes(line.name)}));
        if (line.temperature_sought)
            throw InputError(Reason(no_limit_of_temperature, {in_quotes(line.name)}));
    }
}

}  // namespace

std::string status_of(const Rating& rating) {
    std::string status(name_of(rating.code));
    if (!rating.by_recourse) return status;
    status.insert(0, "recourse:");
    if (rating.recourse_mark != RatingCode::Rated)
        status += ":" + std::string(name_of(rating.recourse_mark));
    return status;
}

RatingsTable::RatingsTable(const LineTable& lines, const WeatherTable& weather,
                           TableOptions options)
    : lines_(lines),
      options_(std::move(options)),
      comma_(options_.locale.separator == DecimalSeparator::Comma ? ';' : ',') {
    if (options_.format == TableFormat::Limits) {
        require_one_set(lines);
        if (!options_.columns.empty()) throw InputError(Reason(columns_of_limits));
    }
    const std::vector<std::string> inputs = weather.names();
    for (const std::string& asked : options_.columns) {
        const std::string name = column_name(asked);
        if (std::ranges::any_of(asked_, [&](const Asked& other) { return other.name == name; }))
            throw InputError(Reason(asked_twice, {in_quotes(asked)}));
        if (name == "u" || name == "v") throw InputError(Reason(no_component));
        const auto found = std::find(inputs.begin(), inputs.end(), name);
        const auto& columns = lines.columns;
        if (found != inputs.end())
            asked_.push_back({asked, name, static_cast<std::size_t>(found - inputs.begin())});
        else if (std::find(columns.begin(), columns.end(), name) != columns.end())
            asked_.push_back({asked, name, std::nullopt});
        else
            throw InputError(Reason(no_such_column, {in_quotes(asked)}));
    }
}

std::string RatingsTable::head() const {
    std::vector<std::string> names =
        options_.format == TableFormat::Limits ? limit_names : long_names;
    if (options_.format == TableFormat::Long)
        for (const Asked& asked : asked_) names.push_back(asked.title);
    return csv_line(names, comma_);
}

void RatingsTable::add(std::string& text, std::string_view cell) const {
    if (!text.empty() && text.back() != '\n') text += comma_;
    if (cell.find_first_of(",;\"\r\n#") == std::string_view::npos) {
        text += cell;
        return;
    }
    const std::string quoted = csv_line({std::string(cell)}, comma_);
    text += std::string_view(quoted).substr(0, quoted.size() - 1);
}

void RatingsTable::add(std::string& text, double number) const { add(text, text_of(number)); }

std::string RatingsTable::text_of(double number) const {
    std::string text = std::isfinite(number) ? exact_number(number) : std::string();
    if (comma_ == ';') std::replace(text.begin(), text.end(), '.', ',');
    return text;
}

std::string RatingsTable::text_of(const LineCell& cell) const {
    std::string text = cell.text;
    for (const double number : cell.numbers) text += (text.empty() ? "" : " ") + text_of(number);
    return text;
}

std::string RatingsTable::rows(const WeatherBlock& block, const BlockRater& rater) {
    if (options_.format == TableFormat::Limits) require_one_time(block);
    std::string text;
    const std::vector<MethodRatings>& ratings = rater.ratings();
    std::vector<std::size_t> done(ratings.size(), 0);
    // The ratings of a line that alone has a row stand together.
    std::vector<std::size_t> first(lines_.lines.size(), ratings.size());
    for (std::size_t i = ratings.size(); i-- > 0;) first[ratings[i].line_index] = i;
    for (std::size_t row = 0; row < block.rows.size(); ++row) {
        const int only = block.rows[row].line;
        std::size_t i = only == of_all_lines ? 0 : first[static_cast<std::size_t>(only)];
        for (; i < ratings.size(); ++i) {
            const MethodRatings& of = ratings[i];
            if (only != of_all_lines && of.line_index != static_cast<std::size_t>(only)) break;
            const std::size_t place = done[i]++;
            for (std::size_t kind = 0; kind < of.kinds; ++kind) {
                const Rating& rating = of.ratings[place * of.kinds + kind];
                count(block, rater, of, place, rating);
                if (options_.format == TableFormat::Limits)
                    add_limits(text, of, kind, rating);
                else
                    add_long(text, block, of, row, kind, rating);
            }
        }
    }
    return text;
}

void RatingsTable::count(const WeatherBlock& block, const BlockRater& rater,
                         const MethodRatings& of, std::size_t i, const Rating& rating) {
    const std::string status = status_of(rating);
    const bool without_limit = options_.format == TableFormat::Limits && rating.current < 0;
    if (++statuses_.counts[status] > 1 || (has_value(rating.code) && !without_limit)) return;
    const Period& period = block.rows[rater.rows_of(of.line_index)[i]].period;
    statuses_.first[status] = {of.line->name, key_of(of.method), period,
                               rater.refusal(block, of, i, options_.locale.lang)};
}

void RatingsTable::add_long(std::string& text, const WeatherBlock& block, const MethodRatings& of,
                            std::size_t row, std::size_t kind, const Rating& rating) const {
    const Tatl* tatl = of.tatl(kind);
    const bool standing = rating.stands();
    add(text, of.line->name);
    add(text, time_text(block.rows[row].period.start));
    add(text, time_text(block.rows[row].period.end));
    add(text, key_of(of.method));
    add(text, of.line->temperature_sought ? kind_temperature
              : tatl == nullptr           ? kind_permanent
                                          : kind_temporary);
    add(text, tatl == nullptr ? no_number : tatl->duration);
    add(text, tatl == nullptr ? no_number : tatl->preload);
    add(text, standing ? rating.current : no_number);
    add(text, standing ? rating.temperature : no_number);
    add(text, rating.angle);
    add(text, status_of(rating));
    for (const Asked& asked : asked_) {
        if (asked.weather) {
            add(text, block.numbers[*asked.weather][row]);
            continue;
        }
        const auto& cells = of.line->cells;
        const auto found = std::find_if(cells.begin(), cells.end(), [&](const LineCell& cell) {
            return cell.column == asked.name;
        });
        add(text, found == cells.end() ? std::string() : text_of(*found));
    }
    text += '\n';
}

/// A limit holds at both ends of a line.
void RatingsTable::add_limits(std::string& text, const MethodRatings& of, std::size_t kind,
                              const Rating& rating) const {
    if (!rating.stands() || rating.current < 0) return;
    const Tatl* tatl = of.tatl(kind);
    const std::string duration = tatl == nullptr ? "-1" : whole(tatl->duration);
    for (const std::string_view side : {"ONE", "TWO"}) {
        add(text, of.line->name);
        add(text, "LINE");
        add(text, side);
        add(text, tatl == nullptr ? std::string("permanent_limit") : "TATL_" + duration);
        add(text, "CURRENT");
        add(text, rating.current);
        add(text, duration);
        text += '\n';
    }
}

void RatingsTable::require_one_time(const WeatherBlock& block) {
    for (const WeatherRow& row : block.rows) {
        if (!only_) only_ = row.period;
        if (only_->start != row.period.start)
            throw InputError(
                Reason(several_times, {time_text(only_->start), time_text(row.period.start)}));
        const int named = limited_.empty() ? of_all_lines : *limited_.rbegin();
        const auto line =
            static_cast<std::size_t>(std::max(row.line != of_all_lines ? row.line : named, 0));
        const bool second = row.line == of_all_lines
                                ? !limited_.empty()
                                : limited_.contains(of_all_lines) || limited_.contains(row.line);
        if (second) throw InputError(Reason(several_rows, {in_quotes(lines_.lines[line].name)}));
        limited_.insert(row.line);
    }
}

}  // namespace zel::weather
