#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "persistence/conductor_choice.h"
#include "platform/text/text.h"
#include "series/series_input.h"
#include "steady/case/method.h"

// The table of lines that are rated.

namespace zel::weather {

/// A rating for a time.
struct Tatl {
    double duration = 0;  // s
    double preload = 0;   // %, of the permanent rating
};

/// What a cell of a line says: numbers, or else a text.
struct LineCell {
    std::string column;
    std::vector<double> numbers{};
    std::string text{};
};

struct RatedLine {
    std::string name;
    std::vector<Method> methods;
    std::vector<Tatl> tatls;  // of TB 601: by preload, and each by rising duration
    SeriesElement base;
    bool temperature_sought = false;          // a current is given
    std::optional<SeriesElement> recourse{};  // with the static weather
    /// What the table says, by the name of its columns: numbers in the units of the inputs.
    std::vector<LineCell> cells{};
};

/// What is asked for where a line says nothing of it.
struct LineDefaults {
    std::vector<Method> methods;
    std::vector<double> durations;  // s
    std::vector<double> preloads;   // %
    std::vector<std::string> ignored_columns;
};

struct LineTable {
    std::vector<RatedLine> lines;
    std::vector<Reason> refused;       // rows that are left out: "line 3, column latitude: ..."
    std::vector<std::string> columns;  // their names
    std::vector<std::string> ignored;  // columns that were left out as asked for
    std::vector<Reason> without_recourse{};  // why the static weather of a line gives no rating
};

using ConductorSource = std::function<ChosenConductor(const std::string& record_or_name)>;

/// The lines of a table. Its columns are "name", "conductor" (of the library, or the path of a
/// record), "methods", "duration" and "preload_percent" (of ratings for a time; lists, parted by
/// blanks), and inputs of series, which begin with "static_" where they are the weather of the
/// recourse rating. `weather` are the inputs that come with the weather. Throws `InputError` where
/// the head is refused.
[[nodiscard]] LineTable read_lines(const std::string& text, const LineDefaults& defaults,
                                   const std::vector<std::string>& weather,
                                   const ConductorSource& conductor, const Locale& locale);

/// "TB601,Webs". Throws `InputError` where a word is no method, and where there is none.
[[nodiscard]] std::vector<Method> read_methods(std::string_view text);
/// Numbers parted by blanks, commas or semicolons. Throws `InputError`, also beyond `limits`.
[[nodiscard]] std::vector<double> read_numbers(std::string_view text, const Limits& limits,
                                               DecimalSeparator separator);
/// By preload, and each by rising duration.
[[nodiscard]] std::vector<Tatl> combined(std::vector<double> durations,
                                         std::vector<double> preloads);

}  // namespace zel::weather
