#include "weather/table_column.h"

#include "platform/errors.h"
#include "series/case_rater.h"

namespace zel::weather {
namespace {

constexpr Text no_column = {
    "Spalte {0}: keine Eingabe heißt so; zel help fields zeigt alle, --ignore läßt Spalten weg",
    "column {0}: no input is called so; zel help fields lists all, --ignore leaves columns out"};
constexpr Text no_change_of_state = {
    "Spalte {0}: Zustandsänderungen werden hier nicht berechnet; --ignore läßt Spalten weg",
    "column {0}: changes of state are not calculated here; --ignore leaves columns out"};
constexpr Text half_unit = {"Spalte {0}: eine Einheit steht ganz am Ende in Klammern, wie [km/h]",
                            "column {0}: a unit stands in brackets at the very end, as [km/h]"};
constexpr Text no_unit = {"Spalte {0}: hier steht keine Einheit", "column {0} takes no unit"};
constexpr Text one_field = {"die Spalten {0} und {1} setzen dieselbe Eingabe",
                            "the columns {0} and {1} set the same input"};
constexpr Text at_column = {"Spalte {0}", "column {0}"};

/// What columns are called besides the names of inputs.
constexpr struct {
    std::string_view other, name;
} other_names[] = {{"ghi", "global_radiation"}, {"wind_u", "u"}, {"wind_v", "v"}};

}  // namespace

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const auto begin = text.find_first_not_of(blanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

ColumnHead read_head(std::string_view cell) {
    ColumnHead head{std::string(trimmed(cell)), {}, {}, {}};
    const std::string_view title = head.title;
    const auto bracket = title.find('[');
    if (bracket != std::string_view::npos) {
        if (title.ends_with(']'))
            head.unit = trimmed(title.substr(bracket + 1, title.size() - bracket - 2));
        if (head.unit.empty()) throw InputError(Reason(half_unit, {in_quotes(head.title)}));
    }
    head.word = trimmed(title.substr(0, bracket));
    head.name = column_name(head.word);
    return head;
}

std::string column_name(std::string_view word) {
    const std::string_view mark = word.starts_with(static_mark) ? static_mark : "";
    const std::string_view input = word.substr(mark.size());
    for (const auto& [other, name] : other_names)
        if (input == other) return std::string(mark) + std::string(name);
    const CaseField* field = find_by_any_name(input);
    const bool named = field != nullptr && !field->english_name.empty();
    return std::string(mark) + std::string(named ? field->english_name : input);
}

void require_no_unit(const ColumnHead& head) {
    if (head.word.size() != head.title.size())
        throw InputError(Reason(no_unit, {in_quotes(head.title)}));
}

bool set_one_field(const SeriesInput& a, const SeriesInput& b) {
    const auto other = b.fields();
    return std::ranges::any_of(a.fields(), [&](const FieldKey& key) { return holds(other, key); });
}

Reason same_input(const std::string& a, const std::string& b) {
    return Reason(one_field, {in_quotes(a), in_quotes(b)});
}

InputColumn input_column(const ColumnHead& head, std::string_view name) {
    const Reason unknown(no_column, {in_quotes(head.title)});
    if (find_state_cell(name) || name.starts_with("change_"))
        throw InputError(Reason(no_change_of_state, {in_quotes(head.title)}));
    std::optional<SeriesInput> input;
    try {
        input.emplace(name);
    } catch (const InputError&) {
        throw InputError(unknown);
    }
    try {
        return {*input,
                head.unit.empty() ? UnitConversion{} : conversion(head.unit, input->unit())};
    } catch (const InputError& error) {
        throw InputError(at(Reason(at_column, {head.title}), error.reason()));
    }
}

std::optional<char> comma_of_beginning(std::string_view text) {
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    if (text.starts_with(byte_order_mark)) text.remove_prefix(byte_order_mark.size());
    while (true) {
        const std::size_t end = text.find('\n');
        if (end == std::string_view::npos) return std::nullopt;
        const std::string_view line = text.substr(0, end);
        if (!trimmed(line).empty() && !line.starts_with('#'))
            return line.find(';') != std::string_view::npos ? ';' : ',';
        text.remove_prefix(end + 1);
    }
}

char comma_of(std::string_view text) {
    return comma_of_beginning(std::string(text) + "\n").value_or(',');
}

std::optional<double> number_in(std::string_view cell, DecimalSeparator separator) {
    cell = trimmed(cell);
    if (cell.empty() || same_name(cell, "nan")) return no_number;
    return parse_number(cell, separator);
}

}  // namespace zel::weather
