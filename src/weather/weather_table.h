#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/text/locale.h"
#include "weather/plausibility.h"
#include "weather/table_column.h"
#include "weather/weather_time.h"

// The table of weather, read in blocks: memory does not grow with its rows.

namespace zel::weather {

struct WeatherOptions {
    const TimeZone* zone = nullptr;  // null: times have to name their own
    Stamp stamp = Stamp::End;
    std::int64_t interval = 0;  // s; 0: that between the first two times
    std::vector<std::string> ignored_columns{};
    Locale locale{};
};

struct WeatherRow {
    Period period;
    int line = of_all_lines;  // index of the only one that the row is for
};

/// Rows, and the numbers of each input, one for each row.
struct WeatherBlock {
    std::vector<WeatherRow> rows;
    std::vector<std::vector<double>> numbers;
};

/// Numbers of a column that hardly have the unit that they should have.
struct ImplausibleColumn {
    std::string title;
    std::uint64_t count = 0;
    double first = 0;  // as it stands
    Text likely{};     // what it may be
};

/// What is to be told of a weather table once it is read.
struct WeatherReport {
    std::uint64_t rows = 0;
    std::uint64_t refused = 0;            // rows without a time, and cells that hold no number
    std::vector<Reason> first_refused{};  // of them: "line 3, column ghi: ..."
    std::vector<ImplausibleColumn> implausible{};
};

/// Bytes of the table, piece by piece; an empty piece ends it.
using NextPiece = std::function<std::string()>;

class WeatherTable {
public:
    /// Reads the head and the interval. Throws `InputError` where they are refused.
    WeatherTable(NextPiece next, const WeatherOptions& options);

    /// The inputs that it has, in the order of a block's numbers. `u` and `v`, the components of
    /// the wind to the east and to the north, are wind speed and direction here.
    [[nodiscard]] const std::vector<SeriesInput>& inputs() const { return inputs_; }
    [[nodiscard]] std::vector<std::string> names() const;
    /// The columns to be left out that it does not have.
    [[nodiscard]] std::vector<std::string> absent_columns() const;
    [[nodiscard]] std::int64_t interval() const { return interval_; }
    [[nodiscard]] bool interval_is_given() const { return options_.interval != 0; }

    /// What the lines in the column "line" are called.
    void set_lines(const std::vector<std::string>& names);

    /// The next rows, at most `most`. False at the end. Throws `InputError`.
    [[nodiscard]] bool next(WeatherBlock& block, std::size_t most);

    [[nodiscard]] const WeatherReport& report() const { return report_; }
    [[nodiscard]] const TimeSequence& times() const { return times_; }

private:
    struct Column {
        ColumnHead head;
        enum class Use : std::uint8_t { Ignored, Time, Line, Input } use = Use::Ignored;
        std::size_t place = 0;  // of an input
        UnitConversion conversion{};
    };

    void read_on(std::size_t size);
    [[nodiscard]] bool next_line(std::string_view& line);
    [[nodiscard]] bool next_row(CsvRow& row);
    void take_head(const CsvRow& row);
    void add_input(Column& column);
    void find_interval();
    [[nodiscard]] std::optional<Reason> seek_interval();
    void take(const CsvRow& row, WeatherBlock& block);
    /// The index of the line that the row is for.
    [[nodiscard]] int line_of(const CsvRow& row) const;
    [[nodiscard]] Period take_time(const CsvRow& row, int line);
    void put_numbers(const CsvRow& row, WeatherBlock& block);
    void refuse(int line, const std::string& column, const Reason& reason);
    void look_at(const Column& column, double number, double taken);
    void look_at_columns();
    void turn_components(WeatherBlock& block) const;

    NextPiece next_;
    WeatherOptions options_;
    std::string buffer_;
    std::size_t read_ = 0;  // bytes of the buffer that are done
    int line_ = 0;
    bool ended_ = false;
    bool looks_ahead_ = false;  // nothing more is read
    std::vector<CsvRow> rows_;  // of the present line, the next one last
    char comma_ = ',';
    std::vector<Column> columns_;
    std::vector<SeriesInput> inputs_;
    bool energies_ = false;    // a column gives them in the time of a row
    bool components_ = false;  // the wind's speed and direction come as components
    std::size_t time_column_ = 0;
    std::size_t line_column_ = 0;
    bool has_lines_ = false;
    std::map<std::string, int, std::less<>> lines_;
    std::int64_t interval_ = 0;
    TimeSequence times_;
    WeatherReport report_;
    std::map<std::size_t, std::size_t> implausible_;  // place in the report of an input
    std::map<std::size_t, ColumnLook> looks_;         // of an input
};

}  // namespace zel::weather
