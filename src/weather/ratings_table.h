#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "weather/line_rating.h"

// The table of ratings, and what is told of it in the end.

namespace zel::weather {

enum class TableFormat : std::uint8_t {
    Long,    // a row for each rating
    Limits,  // the limits of one time, as grid programs read them
};

struct TableOptions {
    TableFormat format = TableFormat::Long;
    std::vector<std::string> columns{};  // inputs that stand beside each rating
    Locale locale{};                     // a comma as decimal separator parts cells by semicolons
};

/// Where the first rating with a status stands, and why it has it.
struct FirstOfStatus {
    std::string line;
    std::string_view method;
    Period period;
    std::string why;  // empty where no input or check says more
};

/// How many ratings ended with each status.
struct StatusCounts {
    std::map<std::string, std::uint64_t> counts;
    std::map<std::string, FirstOfStatus> first;  // of those without a value of their own
};

/// "ok", "missing_input", "recourse:missing_input", "recourse:missing_input:tatl_rises".
[[nodiscard]] std::string status_of(const Rating& rating);

class RatingsTable {
public:
    /// Throws `InputError` where neither table has one of the columns asked for, and where a table
    /// of limits is to be of several methods or preloads of one line.
    RatingsTable(const LineTable& lines, const WeatherTable& weather, TableOptions options);

    /// The row of names, with its line end.
    [[nodiscard]] std::string head() const;

    /// The ratings of `block`, row by row of the weather and line by line in each, so that the
    /// table does not depend on the size of blocks. Throws `InputError` where a table of limits has
    /// several times.
    [[nodiscard]] std::string rows(const WeatherBlock& block, const BlockRater& rater);

    [[nodiscard]] const StatusCounts& statuses() const { return statuses_; }

private:
    struct Asked {
        std::string title;
        std::string name;
        std::optional<std::size_t> weather;  // its place among the inputs of the weather
    };

    void count(const WeatherBlock& block, const BlockRater& rater, const MethodRatings& of,
               std::size_t i, const Rating& rating);
    void add_long(std::string& text, const WeatherBlock& block, const MethodRatings& of,
                  std::size_t row, std::size_t kind, const Rating& rating) const;
    void add_limits(std::string& text, const MethodRatings& of, std::size_t kind,
                    const Rating& rating) const;
    void require_one_time(const WeatherBlock& block);
    void add(std::string& text, std::string_view cell) const;
    void add(std::string& text, double number) const;
    [[nodiscard]] std::string text_of(double number) const;
    [[nodiscard]] std::string text_of(const LineCell& cell) const;

    const LineTable& lines_;
    TableOptions options_;
    char comma_;
    std::vector<Asked> asked_;
    StatusCounts statuses_;
    std::optional<Period> only_;  // of a table of limits
    std::set<int> limited_;       // lines that have their row of it
};

}  // namespace zel::weather
