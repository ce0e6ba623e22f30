#include "weather/weather_table.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "platform/errors.h"
#include "series/case_rater.h"

namespace zel::weather {
namespace {

constexpr std::size_t longest_line = 1U << 20U;
constexpr std::size_t most_ahead = 1U << 25U;  // bytes that are read before the first row is taken
constexpr std::size_t most_told = 10;

constexpr Text at_cell = {"Zeile {0}, Spalte {1}", "line {0}, column {1}"};
constexpr Text at_row = {"Zeile {0}", "line {0}"};
constexpr Text empty_table = {"die Tabelle ist leer", "the table is empty"};
constexpr Text too_long = {"eine Zeile ist länger als 1 MiB", "a line is longer than 1 MiB"};
constexpr Text column_twice = {"die Spalte {0} steht doppelt da", "the column {0} stands twice"};
constexpr Text no_time_column = {"die Spalte time fehlt", "the column time is missing"};
constexpr Text one_component = {"u und v gehören zusammen", "u and v belong together"};
constexpr Text wind_twice = {"der Wind steht doppelt da", "the wind stands twice"};
constexpr Text not_of_weather = {"die Spalte {0} gehört zu den Leitungen",
                                 "the column {0} belongs to the lines"};
constexpr Text wrong_cells = {"{0} Zellen statt {1}", "{0} cells instead of {1}"};
constexpr Text no_number_there = {"{0} ist keine Zahl", "{0} is no number"};
constexpr Text no_such_line = {"keine Leitung heißt {0}", "no line is called {0}"};
constexpr Text no_interval = {
    "die ersten beiden Zeiten sagen nicht, wie lang ihr Zeitraum ist; nennen Sie ihn mit --interval "
    "MINUTEN",
    "the first two times do not tell how long their periods are; name it by --interval MINUTES"};

constexpr Text energy_of_no_time = {
    "die Zeit {1} steht näher als {0} s hinter der davor, und so weit liegen die ersten beiden "
    "auseinander; nennen Sie mit --interval MINUTEN die Zeit, in der die Energien kamen",
    "the time {1} stands closer than {0} s behind the one before, and that far the first two are "
    "apart; name by --interval MINUTES the time in which the energies came"};

constexpr std::string_view wind_inputs[] = {"wind_speed", "wind_from_direction"};

}  // namespace

WeatherTable::WeatherTable(NextPiece next, const WeatherOptions& options)
    : next_(std::move(next)), options_(options), interval_(options.interval), times_(options.zone) {
    while (!ended_ && !comma_of_beginning(buffer_)) read_on(buffer_.size() + 1);
    comma_ = comma_of(buffer_);
    CsvRow head;
    if (!next_row(head)) throw InputError(Reason(empty_table));
    take_head(head);
    if (interval_ == 0) find_interval();
}

std::vector<std::string> WeatherTable::names() const {
    std::vector<std::string> names;
    for (const SeriesInput& input : inputs_) names.emplace_back(input.name());
    return names;
}

std::vector<std::string> WeatherTable::absent_columns() const {
    std::vector<std::string> absent;
    for (const std::string& ignored : options_.ignored_columns)
        if (std::none_of(columns_.begin(), columns_.end(),
                         [&](const Column& column) { return column.head.word == ignored; }))
            absent.push_back(ignored);
    return absent;
}

void WeatherTable::set_lines(const std::vector<std::string>& names) {
    for (std::size_t i = 0; i < names.size(); ++i) lines_.emplace(names[i], static_cast<int>(i));
}

/// Until the buffer has `size` bytes, or the table ends.
void WeatherTable::read_on(std::size_t size) {
    if (size > most_ahead) throw InputError(Reason(too_long));
    while (!ended_ && buffer_.size() < size) {
        const std::string piece = next_();
        ended_ = piece.empty();
        buffer_ += piece;
    }
}

/// A line of the table is one of its file: a cell holds no line ends.
bool WeatherTable::next_line(std::string_view& line) {
    while (true) {
        const std::size_t end = buffer_.find('\n', read_);
        const bool last = end == std::string::npos;
        if (!last || (ended_ && read_ < buffer_.size())) {
            line = std::string_view(buffer_).substr(read_, last ? end : end - read_);
            read_ = last ? buffer_.size() : end + 1;
            ++line_;
            return true;
        }
        if (ended_ || looks_ahead_) return false;
        buffer_.erase(0, read_);
        read_ = 0;
        if (buffer_.size() > longest_line) throw InputError(Reason(too_long));
        read_on(buffer_.size() + 1);
    }
}

/// Passes over empty lines and remarks. A carriage return without a line feed ends a row too.
bool WeatherTable::next_row(CsvRow& row) {
    std::string_view line;
    while (rows_.empty()) {
        if (!next_line(line)) return false;
        rows_ = parse_csv(line, comma_);
        std::ranges::reverse(rows_);
    }
    row = std::move(rows_.back());
    rows_.pop_back();
    row.line = line_;
    return true;
}

void WeatherTable::take_head(const CsvRow& row) {
    std::vector<std::string> names;
    for (const std::string& cell : row.cells) {
        Column column{read_head(cell)};
        const std::string& name = column.head.name;
        if (!holds(options_.ignored_columns, column.head.word)) {
            if (holds(names, name))
                throw InputError(Reason(column_twice, {in_quotes(column.head.title)}));
            names.push_back(name);
            column.use = name == "time"   ? Column::Use::Time
                         : name == "line" ? Column::Use::Line
                                          : Column::Use::Input;
        }
        if (column.use == Column::Use::Time || column.use == Column::Use::Line)
            require_no_unit(column.head);
        if (column.use == Column::Use::Time) time_column_ = columns_.size();
        if (column.use == Column::Use::Line) line_column_ = columns_.size();
        if (column.use == Column::Use::Input) add_input(column);
        columns_.push_back(std::move(column));
    }
    if (!holds(names, "time")) throw InputError(Reason(no_time_column));
    if (holds(names, "u") != holds(names, "v")) throw InputError(Reason(one_component));
    components_ = holds(names, "u");
    if (components_ && (holds(names, wind_inputs[0]) || holds(names, wind_inputs[1])))
        throw InputError(Reason(wind_twice));
    has_lines_ = holds(names, "line");
}

void WeatherTable::add_input(Column& column) {
    const std::string& name = column.head.name;
    if (name == "name" || name == "conductor" || name == "duration" || name == "preload_percent")
        throw InputError(Reason(not_of_weather, {in_quotes(column.head.title)}));
    const bool component = name == "u" || name == "v";
    // A component is a speed.
    const InputColumn speed = input_column(column.head, component ? wind_inputs[0] : name);
    column.conversion = speed.conversion;
    energies_ = energies_ || speed.conversion.per_interval;
    column.place = inputs_.size();
    inputs_.push_back(component ? SeriesInput(wind_inputs[name == "v"]) : speed.input);
}

/// By the first two times of the same line, without a row between them that cannot be read.
void WeatherTable::find_interval() {
    const std::size_t begin = read_;
    const int line = line_;
    looks_ahead_ = true;
    std::optional<Reason> wrong_time;
    while (true) {
        wrong_time = seek_interval();
        read_ = begin;
        line_ = line;
        rows_.clear();
        if (interval_ != 0 || ended_ || 2 * buffer_.size() > most_ahead) break;
        read_on(2 * buffer_.size());
    }
    looks_ahead_ = false;
    if (interval_ == 0 && wrong_time) throw InputError(*wrong_time);
    if (interval_ <= 0) throw InputError(Reason(no_interval));
}

/// In what is read of the table so far. Gives the first time that cannot be read.
std::optional<Reason> WeatherTable::seek_interval() {
    std::map<std::string, std::pair<int, std::int64_t>> first;
    TimeSequence sequence(options_.zone);
    std::optional<Reason> wrong_time;
    CsvRow row;
    while (interval_ == 0 && next_row(row)) {
        if (row.damage != nullptr || row.cells.size() != columns_.size()) {
            first.clear();
            continue;
        }
        const std::string key = has_lines_ ? row.cells[line_column_] : std::string();
        try {
            const auto found = first.find(key);
            const int of =
                found == first.end() ? static_cast<int>(first.size()) : found->second.first;
            const std::int64_t moment = sequence.moment(row.cells[time_column_], of);
            sequence.follow(moment, of, 1);
            if (found == first.end())
                first.emplace(key, std::pair(of, moment));
            else
                interval_ = moment - found->second.second;
        } catch (const InputError& error) {
            first.clear();
            if (!wrong_time)
                wrong_time = at(Reason(at_row, {std::to_string(row.line)}), error.reason());
        }
    }
    return wrong_time;
}

bool WeatherTable::next(WeatherBlock& block, std::size_t most) {
    block.rows.clear();
    block.numbers.assign(inputs_.size(), {});
    CsvRow row;
    while (block.rows.size() < most && next_row(row)) take(row, block);
    if (energies_ && !interval_is_given() && times_.closer().count > 0)
        throw InputError(Reason(energy_of_no_time, {std::to_string(interval_),
                                                    time_text(times_.closer().first.front())}));
    if (components_) turn_components(block);
    if (block.rows.empty()) look_at_columns();
    return !block.rows.empty();
}

void WeatherTable::take(const CsvRow& row, WeatherBlock& block) {
    ++report_.rows;
    if (row.damage != nullptr) return refuse(row.line, {}, Reason(*row.damage));
    if (row.cells.size() != columns_.size())
        return refuse(row.line, {},
                      Reason(wrong_cells,
                             {std::to_string(row.cells.size()), std::to_string(columns_.size())}));
    std::size_t column = line_column_;
    try {
        WeatherRow made;
        made.line = line_of(row);
        column = time_column_;
        made.period = take_time(row, made.line);
        block.rows.push_back(made);
    } catch (const InputError& error) {
        return refuse(row.line, columns_[column].head.title, error.reason());
    }
    put_numbers(row, block);
}

int WeatherTable::line_of(const CsvRow& row) const {
    if (!has_lines_) return of_all_lines;
    const std::string name(trimmed(row.cells[line_column_]));
    if (name.empty()) return of_all_lines;
    const auto found = lines_.find(name);
    if (found == lines_.end()) throw InputError(Reason(no_such_line, {in_quotes(name)}));
    return found->second;
}

Period WeatherTable::take_time(const CsvRow& row, int line) {
    const std::int64_t moment = times_.moment(row.cells[time_column_], line);
    times_.follow(moment, line, interval_);
    return period_of(moment, options_.stamp, interval_);
}

void WeatherTable::put_numbers(const CsvRow& row, WeatherBlock& block) {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const Column& column = columns_[i];
        if (column.use != Column::Use::Input) continue;
        const auto number = number_in(row.cells[i], options_.locale.separator);
        if (!number)
            refuse(row.line, column.head.title, Reason(no_number_there, {in_quotes(row.cells[i])}));
        const double given = number.value_or(no_number);
        const double taken = column.conversion.converted(given, static_cast<double>(interval_));
        look_at(column, given, taken);
        block.numbers[column.place].push_back(taken);
    }
}

void WeatherTable::refuse(int line, const std::string& column, const Reason& reason) {
    ++report_.refused;
    if (report_.first_refused.size() >= most_told) return;
    const std::string number = std::to_string(line);
    report_.first_refused.push_back(
        at(column.empty() ? Reason(at_row, {number}) : Reason(at_cell, {number, column}), reason));
}

void WeatherTable::look_at(const Column& column, double number, double taken) {
    looks_[column.place].take(taken);
    const Text* likely = likely_instead(inputs_[column.place].name(), taken);
    if (likely == nullptr) return;
    const auto [known, is_first] =
        implausible_.try_emplace(column.place, report_.implausible.size());
    if (is_first) report_.implausible.push_back({column.head.title, 0, number, *likely});
    ++report_.implausible[known->second].count;
}

/// Once all rows are read.
void WeatherTable::look_at_columns() {
    for (const Column& column : columns_) {
        if (column.use != Column::Use::Input) continue;
        const std::string_view input = inputs_[column.place].name();
        if (components_ && holds(wind_inputs, input)) continue;
        const ColumnLook look = std::exchange(looks_[column.place], {});
        if (const Text* likely = likely_instead(input, look))
            report_.implausible.push_back({column.head.title, look.count, look.first, *likely});
    }
}

/// The wind comes from where it does not blow to.
void WeatherTable::turn_components(WeatherBlock& block) const {
    const auto place = [&](std::string_view name) {
        return static_cast<std::size_t>(
            std::find_if(inputs_.begin(), inputs_.end(),
                         [&](const SeriesInput& input) { return input.name() == name; }) -
            inputs_.begin());
    };
    auto& east = block.numbers[place(wind_inputs[0])];
    auto& north = block.numbers[place(wind_inputs[1])];
    constexpr double half_turn = 180;
    constexpr double pi = 3.14159265358979323846;
    for (std::size_t i = 0; i < east.size(); ++i) {
        const double u = east[i];
        const double v = north[i];
        east[i] = std::hypot(u, v);
        north[i] = std::atan2(-u, -v) * half_turn / pi;
    }
}

}  // namespace zel::weather
