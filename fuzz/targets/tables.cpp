#include <cmath>

#include "fuzz.h"
#include "platform/errors.h"
#include "platform/text/csv.h"
#include "weather/line_table.h"
#include "weather/weather_table.h"

// A byte for the kind of table and the separator, one for the length of pieces, and a table: of
// cells (then with 1E between cells and 1D between rows), of any text, of lines, or of weather.

namespace zel::fuzz {
namespace {

using Cells = std::vector<std::vector<std::string>>;

Cells sound_cells(std::string_view table, char comma) {
    Cells cells;
    for (CsvRow& row : parse_csv(table, comma)) {
        require(
            std::less_equal<>()(table.data(), row.text.data()) &&
                std::less_equal<>()(row.text.data() + row.text.size(), table.data() + table.size()),
            "a row stands in its table");
        if (row.damage == nullptr) cells.push_back(std::move(row.cells));
    }
    return cells;
}

std::string written(const Cells& rows, char comma) {
    std::string table;
    for (const auto& cells : rows) table += csv_line(cells, comma);
    return table;
}

/// Rows of one empty cell are empty lines, which say nothing.
void through_text(Cells rows, char comma) {
    std::erase_if(rows, [](const auto& cells) { return cells.size() == 1 && cells[0].empty(); });
    const std::string table = written(rows, comma);
    require(sound_cells(table, comma) == rows, "cells come back:", table);
}

void read_cells(Input& input, char comma) {
    Cells rows;
    const std::string text = input.rest();
    Input all(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    while (!all.empty()) {
        const std::string line = all.until('\x1D');
        Input parts(reinterpret_cast<const std::uint8_t*>(line.data()), line.size());
        auto& cells = rows.emplace_back(std::vector{parts.until('\x1E')});
        while (!parts.empty()) cells.push_back(parts.until('\x1E'));
    }
    through_text(std::move(rows), comma);
}

void read_line_table(const std::string& text, const Locale& locale) {
    const weather::LineDefaults defaults = {{Method::TB601}, {600}, {80}, {"note"}};
    const auto conductor = [](const std::string& name) -> ChosenConductor {
        if (name.empty() || name.front() == 'x') throw InputError(in_quotes(name));
        return {};
    };
    try {
        const auto table = weather::read_lines(text, defaults, {"wind_speed"}, conductor, locale);
        for (const weather::RatedLine& line : table.lines)
            require(!line.name.empty() && !line.methods.empty() &&
                        std::is_sorted(line.methods.begin(), line.methods.end()),
                    "a line has a name and methods:", text);
    } catch (const InputError&) {
    }
}

struct WeatherRead {
    std::vector<std::int64_t> ends;
    std::vector<std::vector<double>> numbers;
    std::uint64_t rows = 0;
    std::uint64_t refused = 0;
    std::string failure;
};

WeatherRead weather_of(const std::string& text, std::size_t piece, const Locale& locale) {
    static const FixedZone zone(3600);
    WeatherRead all;
    std::size_t at = 0;
    const auto next = [&] {
        std::string bytes = text.substr(std::min(at, text.size()), piece);
        at += bytes.size();
        return bytes;
    };
    try {
        weather::WeatherTable table(next, {.zone = &zone, .interval = 3600, .locale = locale});
        table.set_lines({"a", "b"});
        weather::WeatherBlock block;
        while (table.next(block, 1000)) {
            all.numbers.resize(table.inputs().size());
            for (const weather::WeatherRow& row : block.rows) all.ends.push_back(row.period.end);
            for (std::size_t input = 0; input < block.numbers.size(); ++input) {
                require(block.numbers[input].size() == block.rows.size(), "a number for each row");
                all.numbers[input].insert(all.numbers[input].end(), block.numbers[input].begin(),
                                          block.numbers[input].end());
            }
        }
        all.rows = table.report().rows;
        all.refused = table.report().refused;
    } catch (const InputError& error) {
        all.failure = error.what();
    }
    return all;
}

bool alike(const std::vector<double>& a, const std::vector<double>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](double x, double y) {
        return x == y || (std::isnan(x) && std::isnan(y));
    });
}

/// Up to the end of the head, which has to stand in the first piece: by it the cells' separator is
/// known.
std::size_t end_of_head(const std::string& text) {
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        std::string_view line = std::string_view(text).substr(at, end - at);
        if (line.starts_with(byte_order_mark)) line.remove_prefix(byte_order_mark.size());
        if (!line.starts_with('#') && line.find_first_not_of(" \t\r") < line.size()) return end;
        at = end + 1;
    }
    return text.size();
}

void read_weather(const std::string& text, std::size_t piece, const Locale& locale) {
    const WeatherRead whole = weather_of(text, std::max<std::size_t>(text.size(), 1), locale);
    const WeatherRead pieces = weather_of(text, end_of_head(text) + piece, locale);
    require(whole.failure == pieces.failure && whole.ends == pieces.ends &&
                whole.rows == pieces.rows && whole.refused == pieces.refused &&
                std::equal(whole.numbers.begin(), whole.numbers.end(), pieces.numbers.begin(),
                           pieces.numbers.end(), alike),
            "pieces do not count:", text);
}

}  // namespace
}  // namespace zel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zel;
    fuzz::Input input(data, size);
    const std::uint8_t kind = input.byte();
    const auto piece = static_cast<std::size_t>(input.place(100));
    const char comma = (kind & 1U) != 0 ? ',' : ';';
    const Locale locale = {LangId::English,
                           (kind & 1U) != 0 ? DecimalSeparator::Point : DecimalSeparator::Comma};
    switch (kind / 2 % 4) {
        case 0: fuzz::read_cells(input, comma); break;
        case 1: fuzz::through_text(fuzz::sound_cells(input.rest(), comma), comma); break;
        case 2: fuzz::read_line_table(input.rest(), locale); break;
        default: fuzz::read_weather(input.rest(), piece, locale);
    }
    return 0;
}
