#include "weather/line_table.h"

#include <algorithm>
#include <cmath>

#include "platform/errors.h"
#include "platform/text/utf8.h"
#include "weather/plausibility.h"
#include "weather/table_column.h"

namespace zel::weather {
namespace {

constexpr Text at_line = {"Zeile {0}, Spalte {1}", "line {0}, column {1}"};
constexpr Text at_row = {"Zeile {0}", "line {0}"};
constexpr Text no_rows = {"die Tabelle ist leer", "the table is empty"};
constexpr Text no_utf8 = {"der Text ist nicht in UTF-8", "the text is no UTF-8"};
constexpr Text column_twice = {"die Spalte {0} steht doppelt da", "the column {0} stands twice"};
constexpr Text no_name_column = {"die Spalte name fehlt", "the column name is missing"};
constexpr Text not_per_line = {"die Spalte {0} gehört in die Wetterdaten",
                               "the column {0} belongs into the weather"};
constexpr Text in_both_tables = {"{0} steht in beiden Tabellen", "{0} stands in both tables"};
constexpr Text no_time_of_energy = {
    "die Spalte {0} gibt eine Energie, und eine Leitung hat keine Zeit, in der sie kam",
    "the column {0} gives an energy, and a line has no time in which it came"};
constexpr Text no_method = {"kein Verfahren ist genannt; es gibt {0}",
                            "no method is named; there are {0}"};
constexpr Text wrong_cells = {"{0} Zellen statt {1}", "{0} cells instead of {1}"};
constexpr Text no_name = {"der Name fehlt", "the name is missing"};
constexpr Text name_twice = {"die Leitung {0} steht schon in einer Zeile davor",
                             "the line {0} stands in a row before"};
constexpr Text no_number_there = {"{0} ist keine Zahl", "{0} is no number"};
constexpr Text outside = {"{0} liegt nicht zwischen {1} und {2}", "{0} is not between {1} and {2}"};
constexpr Text not_whole = {"{0} ist keine ganze Zahl, die hier stehen kann",
                            "{0} is no whole number that can stand here"};
constexpr Text no_such_method = {"kein Verfahren heißt {0}; es gibt {1}",
                                 "no method is called {0}; there are {1}"};
constexpr Text no_limit = {
    "die Grenztemperatur fehlt: conductor_temperature (oder ein Strom, dessen Temperatur gesucht "
    "ist)",
    "the limit temperature is missing: conductor_temperature (or a current whose temperature is "
    "sought)"};
constexpr Text both_given = {"Temperatur und Strom sind beide gegeben",
                             "temperature and current are both given"};
constexpr Text no_preload = {"zu einer Dauer gehört eine Vorbelastung (preload_percent)",
                             "a duration needs a preload (preload_percent)"};
constexpr Text no_duration = {"zu einer Vorbelastung gehört eine Dauer (duration)",
                              "a preload needs a duration"};
constexpr Text no_tatl = {"--preload braucht --tatl oder die Spalte duration",
                          "--preload needs --tatl or the column duration"};
constexpr Text tatl_by_tb601 = {"Belastbarkeiten auf Zeit werden nach TB601 berechnet",
                                "temporary ratings are calculated by TB601"};
constexpr Text tatl_needs_limit = {"zu Belastbarkeiten auf Zeit gehört eine Grenztemperatur",
                                   "temporary ratings need a limit temperature"};

// Columns that are no inputs of a case.
constexpr std::string_view name_column = "name";
constexpr std::string_view conductor_column = "conductor";
constexpr std::string_view methods_column = "methods";
constexpr std::string_view duration_column = "duration";
constexpr std::string_view preload_column = "preload_percent";
constexpr std::string_view columns_of_lines[] = {name_column, conductor_column, methods_column,
                                                 duration_column, preload_column};
constexpr std::string_view temperature_input = "conductor_temperature";
constexpr std::string_view current_inputs[] = {"conductor_current", "bundle_current"};

std::vector<std::string> words_of(std::string_view text) {
    constexpr std::string_view between = " ,;+\t";
    std::vector<std::string> words;
    while (true) {
        text.remove_prefix(std::min(text.find_first_not_of(between), text.size()));
        if (text.empty()) return words;
        const std::size_t end = std::min(text.find_first_of(between), text.size());
        words.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
    }
}

void require(double number, const std::string& text, const Limits& limits) {
    if (!limits.holds(number))
        throw InputError(Reason(
            outside, {in_quotes(text), exact_number(limits.low), exact_number(limits.high)}));
}

double required_number(const std::string& text, DecimalSeparator separator) {
    const auto number = number_in(text, separator);
    if (!number || std::isnan(*number))
        throw InputError(Reason(no_number_there, {in_quotes(text)}));
    return *number;
}

/// A column of the table, and what a cell of it is.
struct LineColumn {
    ColumnHead head;
    bool of_recourse = false;
    std::optional<InputColumn> input{};  // of inputs
    bool ignored = false;
};

/// Takes the rows of a table one by one.
class LineReader {
public:
    LineReader(const LineDefaults& defaults, const std::vector<std::string>& weather,
               const ConductorSource& conductor, const Locale& locale)
        : defaults_(defaults), weather_(weather), conductor_(conductor), locale_(locale) {}

    void take_head(const CsvRow& row);
    void take(CsvRow row);

    LineTable table{};

private:
    void take_column(std::string_view cell);
    void require_own_field(const LineColumn& column) const;
    RatedLine line_of(const CsvRow& row);
    void put_inputs(const CsvRow& row, RatedLine& line);
    void put_input(const LineColumn& column, const std::string& cell, RatedLine& line) const;
    void set_mode(RatedLine& line) const;
    [[nodiscard]] std::vector<Tatl> tatls_of(const CsvRow& row, const RatedLine& line) const;
    [[nodiscard]] const std::string& cell_of(const CsvRow& row, std::string_view column) const;
    [[nodiscard]] std::vector<double> numbers_of(const CsvRow& row, std::string_view column,
                                                 const std::vector<double>& usual) const;
    [[nodiscard]] std::vector<double> numbers_in(const std::string& cell,
                                                 const InputColumn& input) const;

    const LineDefaults& defaults_;
    const std::vector<std::string>& weather_;
    const ConductorSource& conductor_;
    const Locale& locale_;
    std::vector<LineColumn> columns_;
    std::vector<std::string> names_;
    std::string place_;  // column that is being taken
};

void LineReader::take_head(const CsvRow& row) {
    for (const std::string& cell : row.cells) take_column(cell);
    if (!holds(table.columns, name_column)) throw InputError(Reason(no_name_column));
    if (!defaults_.preloads.empty() && defaults_.durations.empty() &&
        !holds(table.columns, duration_column))
        throw InputError(Reason(no_tatl));
}

void LineReader::take_column(std::string_view cell) {
    LineColumn column{read_head(cell)};
    ColumnHead& head = column.head;
    column.ignored = holds(defaults_.ignored_columns, head.word);
    if (column.ignored) {
        table.ignored.push_back(head.word);
    } else {
        if (holds(table.columns, head.name))
            throw InputError(Reason(column_twice, {in_quotes(head.title)}));
        table.columns.push_back(head.name);
        column.of_recourse = head.name.starts_with(static_mark);
        const std::string_view name =
            std::string_view(head.name).substr(column.of_recourse ? static_mark.size() : 0);
        const bool list = head.name == duration_column || head.name == preload_column;
        if (name == "time") throw InputError(Reason(not_per_line, {in_quotes(head.title)}));
        if (list || !holds(columns_of_lines, head.name))
            column.input = input_column(head, name);
        else
            require_no_unit(head);
        if (column.input) require_own_field(column);
    }
    columns_.push_back(std::move(column));
}

/// The weather goes before what a line says, but not before its static weather.
void LineReader::require_own_field(const LineColumn& column) const {
    const std::string& title = column.head.title;
    if (column.input->conversion.per_interval)
        throw InputError(Reason(no_time_of_energy, {in_quotes(title)}));
    if (set_one_field(SeriesInput("time"), column.input->input))
        throw InputError(same_input(title, "time"));
    for (const LineColumn& other : columns_)
        if (other.input && other.of_recourse == column.of_recourse &&
            set_one_field(other.input->input, column.input->input))
            throw InputError(same_input(other.head.title, title));
    if (column.of_recourse) return;
    for (const std::string& name : weather_) {
        if (name == column.head.name) throw InputError(Reason(in_both_tables, {in_quotes(name)}));
        if (set_one_field(SeriesInput(name), column.input->input))
            throw InputError(same_input(title, name));
    }
}

void LineReader::take(CsvRow row) {
    const std::string number = std::to_string(row.line);
    for (std::string& cell : row.cells) cell = std::string(trimmed(cell));
    place_.clear();
    try {
        if (row.damage != nullptr) throw InputError(Reason(*row.damage));
        if (row.cells.size() != columns_.size())
            throw InputError(Reason(
                wrong_cells, {std::to_string(row.cells.size()), std::to_string(columns_.size())}));
        RatedLine line = line_of(row);
        names_.push_back(line.name);
        table.lines.push_back(std::move(line));
    } catch (const InputError& error) {
        table.refused.push_back(
            at(place_.empty() ? Reason(at_row, {number}) : Reason(at_line, {number, place_}),
               error.reason()));
    }
}

RatedLine LineReader::line_of(const CsvRow& row) {
    RatedLine line;
    place_ = name_column;
    line.name = cell_of(row, name_column);
    if (line.name.empty()) throw InputError(Reason(no_name));
    if (holds(names_, line.name)) throw InputError(Reason(name_twice, {in_quotes(line.name)}));
    place_ = conductor_column;
    if (const std::string& conductor = cell_of(row, conductor_column); !conductor.empty())
        (void)zel::take(conductor_(conductor), line.base.c, locale_);
    place_ = methods_column;
    const std::string& methods = cell_of(row, methods_column);
    line.methods = methods.empty() ? defaults_.methods : read_methods(methods);
    put_inputs(row, line);
    place_ = temperature_input;
    set_mode(line);
    place_ = duration_column;
    line.tatls = tatls_of(row, line);
    return line;
}

/// Inputs that read what others set come after them.
void LineReader::put_inputs(const CsvRow& row, RatedLine& line) {
    for (const auto derived : {false, true})
        for (const auto of_recourse : {false, true})
            for (std::size_t i = 0; i < columns_.size(); ++i) {
                const LineColumn& column = columns_[i];
                const std::string& cell = row.cells[i];
                if (column.ignored || cell.empty()) continue;
                if (!column.input) {
                    if (!derived && !of_recourse)
                        line.cells.push_back({column.head.name, {}, cell});
                    continue;
                }
                if (column.input->input.is_derived() != derived) continue;
                if (column.of_recourse != of_recourse) continue;
                place_ = column.head.title;
                put_input(column, cell, line);
            }
}

void LineReader::put_input(const LineColumn& column, const std::string& cell,
                           RatedLine& line) const {
    const auto& [head, of_recourse, input, ignored] = column;
    if (head.name == duration_column || head.name == preload_column) {
        line.cells.push_back({head.name, numbers_in(cell, *input)});
        return;
    }
    const double number = input->conversion.converted(required_number(cell, locale_.separator));
    if (const Text* likely = likely_instead(input->input.name(), number);
        likely != nullptr && !input->input.limits().holds(number))
        throw InputError(at(in_quotes(cell), Reason(*likely)));
    require(number, cell, input->input.limits());
    const auto put = [&, &taken = input->input](SeriesElement& element) {
        if (taken.put(element, number) != RatingCode::Rated)
            throw InputError(Reason(not_whole, {in_quotes(cell)}));
    };
    if (of_recourse && !line.recourse) line.recourse = line.base;
    if (!of_recourse) put(line.base);
    if (line.recourse) put(*line.recourse);
    line.cells.push_back({head.name, {number}});
}

void LineReader::set_mode(RatedLine& line) const {
    const auto given = [&](std::string_view input) {
        return holds(weather_, input) ||
               std::any_of(line.cells.begin(), line.cells.end(),
                           [&](const LineCell& cell) { return cell.column == input; });
    };
    const bool temperature = given(temperature_input);
    const bool conductor_current = given(current_inputs[0]);
    const bool bundle_current = given(current_inputs[1]);
    line.temperature_sought = conductor_current || bundle_current;
    if (temperature && line.temperature_sought) throw InputError(Reason(both_given));
    if (!temperature && !line.temperature_sought) throw InputError(Reason(no_limit));
    for (SeriesElement* element : {&line.base, line.recourse ? &*line.recourse : nullptr}) {
        if (element == nullptr) continue;
        element->c.Leitertemp_Merker_db = temperature;
        element->c.Stromstaerke_Merker_db = !temperature;
        element->c.Stromstaerkebuendel_Merker_db = bundle_current;
    }
}

std::vector<Tatl> LineReader::tatls_of(const CsvRow& row, const RatedLine& line) const {
    const bool own = !cell_of(row, duration_column).empty();
    const std::vector<double> durations = numbers_of(row, duration_column, defaults_.durations);
    const std::vector<double> preloads = numbers_of(row, preload_column, defaults_.preloads);
    if (durations.empty() && !cell_of(row, preload_column).empty())
        throw InputError(Reason(no_duration));
    if (durations.empty()) return {};
    if (preloads.empty()) throw InputError(Reason(no_preload));
    if (line.temperature_sought) throw InputError(Reason(tatl_needs_limit));
    if (!holds(line.methods, Method::TB601)) {
        if (own) throw InputError(Reason(tatl_by_tb601));
        return {};
    }
    return combined(durations, preloads);
}

std::vector<double> LineReader::numbers_of(const CsvRow& row, std::string_view column,
                                           const std::vector<double>& usual) const {
    const std::string& cell = cell_of(row, column);
    if (cell.empty()) return usual;
    const auto& taken = *std::find_if(columns_.begin(), columns_.end(),
                                      [&](const LineColumn& c) { return c.head.name == column; });
    return numbers_in(cell, *taken.input);
}

std::vector<double> LineReader::numbers_in(const std::string& cell,
                                           const InputColumn& input) const {
    std::vector<double> numbers = read_numbers(cell, Limits(), locale_.separator);
    for (double& number : numbers) {
        number = input.conversion.converted(number);
        require(number, exact_number(number), input.input.limits());
    }
    return numbers;
}

const std::string& LineReader::cell_of(const CsvRow& row, std::string_view column) const {
    static const std::string none;
    for (std::size_t i = 0; i < columns_.size(); ++i)
        if (!columns_[i].ignored && columns_[i].head.name == column) return row.cells[i];
    return none;
}

}  // namespace

LineTable read_lines(const std::string& text, const LineDefaults& defaults,
                     const std::vector<std::string>& weather, const ConductorSource& conductor,
                     const Locale& locale) {
    if (!is_utf8(text)) throw InputError(Reason(no_utf8));
    const std::vector<CsvRow> rows = parse_csv(text, comma_of(text));
    if (rows.empty()) throw InputError(Reason(no_rows));
    LineReader reader(defaults, weather, conductor, locale);
    reader.take_head(rows.front());
    for (std::size_t i = 1; i < rows.size(); ++i) reader.take(rows[i]);
    return std::move(reader.table);
}

std::vector<Method> read_methods(std::string_view text) {
    std::vector<Method> methods;
    std::string known;
    for (const Method each : all_methods)
        known += (known.empty() ? "" : ", ") + std::string(key_of(each));
    for (const std::string& word : words_of(text)) {
        const auto* const found =
            std::find_if(all_methods.begin(), all_methods.end(),
                         [&](Method each) { return same_name(key_of(each), word); });
        if (found == all_methods.end())
            throw InputError(Reason(no_such_method, {in_quotes(word), known}));
        if (!holds(methods, *found)) methods.push_back(*found);
    }
    if (methods.empty()) throw InputError(Reason(no_method, {known}));
    std::sort(methods.begin(), methods.end());
    return methods;
}

std::vector<double> read_numbers(std::string_view text, const Limits& limits,
                                 DecimalSeparator separator) {
    std::vector<double> numbers;
    for (const std::string& word : words_of(text)) {
        numbers.push_back(required_number(word, separator));
        require(numbers.back(), word, limits);
    }
    return numbers;
}

std::vector<Tatl> combined(std::vector<double> durations, std::vector<double> preloads) {
    for (auto* list : {&durations, &preloads}) {
        std::sort(list->begin(), list->end());
        list->erase(std::unique(list->begin(), list->end()), list->end());
    }
    std::vector<Tatl> tatls;
    for (const double preload : preloads)
        for (const double duration : durations) tatls.push_back({duration, preload});
    return tatls;
}

}  // namespace zel::weather
