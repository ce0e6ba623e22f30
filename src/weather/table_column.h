#pragma once

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/csv.h"
#include "platform/text/number_text.h"
#include "series/series_input.h"
#include "weather/unit.h"

// Tables of lines and of weather: their heads, and the numbers in their cells.

namespace zel::weather {

/// Whether `value` is one of `list`.
template <class List, class Value>
[[nodiscard]] bool holds(const List& list, const Value& value) {
    return std::find(std::begin(list), std::end(list), value) != std::end(list);
}

/// The head of a column: "wind_speed" or "wind_speed[km/h]".
struct ColumnHead {
    std::string title;  // as it stands in the table
    std::string word;   // the same without its unit
    std::string name;   // of the input: "ghi" is "global_radiation"
    std::string unit;   // empty where none is named
};

/// Throws `InputError` where it has half a unit.
[[nodiscard]] ColumnHead read_head(std::string_view cell);

/// Before the inputs of the static weather of a line: "static_wind_speed".
inline constexpr std::string_view static_mark = "static_";

/// The English name of the input that a user calls so, or the word itself.
[[nodiscard]] std::string column_name(std::string_view word);

/// An input and the unit in which a column gives it.
struct InputColumn {
    SeriesInput input;
    UnitConversion conversion;
};

/// The input `name` in the unit of `head`. Throws `InputError` where no input has the name, where
/// it is one of a change of state, and where the unit does not fit.
[[nodiscard]] InputColumn input_column(const ColumnHead& head, std::string_view name);

/// Throws `InputError` where the head of a column that takes none names a unit.
void require_no_unit(const ColumnHead& head);

/// Whether both set one field of the case.
[[nodiscard]] bool set_one_field(const SeriesInput& a, const SeriesInput& b);
/// That the columns of these heads do.
[[nodiscard]] Reason same_input(const std::string& a, const std::string& b);

[[nodiscard]] std::string_view trimmed(std::string_view text);

/// How the cells of a table are parted: by semicolons where its first line that is neither empty
/// nor a remark has one, else by commas.
[[nodiscard]] char comma_of(std::string_view text);
/// The same of the beginning of a table; nothing where that line is not whole yet.
[[nodiscard]] std::optional<char> comma_of_beginning(std::string_view text);

/// A number of a cell. An empty cell, and one that says "NaN", is no number; nothing where the cell
/// holds anything else.
[[nodiscard]] std::optional<double> number_in(std::string_view cell, DecimalSeparator separator);

}  // namespace zel::weather
