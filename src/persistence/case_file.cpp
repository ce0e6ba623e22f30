#include "persistence/case_file.h"

#include "platform/errors.h"
#include "platform/rounding.h"
#include "steady/case/case_fields.h"

namespace zel {
namespace {

[[noreturn]] void refuse(const std::string& key, const std::string& reason) {
    throw InputError(key + ": " + reason);
}

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

/// Takes the values of one file, key by key.
class Reader {
public:
    Reader(DecimalSeparator separator, const EntryRule& rule, const CellRule& cell_rule)
        : separator_(separator), rule_(rule), cell_rule_(cell_rule) {}

    void take(const FlatMember& member) {
        if (const auto place = find_state_cell(member.key)) {
            cells_.push_back({*place, &member});
            return;
        }
        const auto field = find_field(file.c, member.key);
        if (!field) refuse(member.key, "unknown key");
        std::visit([&](auto* place) { set(*place, member); }, *field);
    }

    /// The cells of changes of state come last: their currents are shared by the bundle's size.
    void take_cells() {
        for (const auto& [place, member] : cells_) set(place, *member);
    }

    CaseFile file;

private:
    struct CellMember {
        StateCellPlace place;
        const FlatMember* member;
    };

    void set(StateCellPlace place, const FlatMember& member) {
        StateChange& row = file.c.Z[place.row];
        if (const auto* number = std::get_if<double>(&member.value)) {
            row.*place.cell = {plain_number(*number, separator_), *number};
            if (place.cell == &StateChange::Strom)
                show_bundle_current(row, sharing_conductors(file.c), separator_);
            return;
        }
        const auto* text = std::get_if<std::string>(&member.value);
        if (text == nullptr) refuse(member.key, "a number is expected");
        if (auto box = cell_rule_(file.c, place, *text)) file.refused.push_back({member.key, *box});
    }

    static void set(std::string& field, const FlatMember& member) {
        const auto* text = std::get_if<std::string>(&member.value);
        if (text == nullptr) refuse(member.key, "a text is expected");
        field = *text;
    }

    void set(Entry& field, const FlatMember& member) {
        const CaseField* row = find_case_field(member.key);
        if (const auto* given = std::get_if<double>(&member.value)) {
            const double number = row->whole ? round_half_even(*given) : *given;
            field = {plain_number(number, separator_), number};
            return;
        }
        const auto* text = std::get_if<std::string>(&member.value);
        if (text == nullptr) refuse(member.key, "a number is expected");
        if (row->of_record) {
            if (!text->empty()) field = {*text, number_of(*text, member.key)};
        } else if (auto box = rule_(field, std::get<Entry CalcCase::*>(row->key), *text)) {
            file.refused.push_back({member.key, *box});
        }
    }

    void set(std::int16_t& field, const FlatMember& member) const {
        const auto number = number_in(member);
        if (!number) return;
        const auto whole = round_to_int16(*number);
        if (!whole) refuse(member.key, "a whole number from -32768 to 32767 is expected");
        if (member.key.starts_with("rechnung_") && *number != 0 && *number != 1)
            refuse(member.key, "1 (selected) or 0 is expected");
        if (is_kind(member.key) && (*whole < row_unused || *whole > seeks_time))
            refuse(member.key, "0 (not in use), 1, 2 or 3 is expected");
        field = *whole;
    }

    /// Whether `key` is the kind of a change of state.
    static bool is_kind(std::string_view key) { return key.starts_with('Z'); }

    void set(bool& field, const FlatMember& member) const {
        if (const auto* flag = std::get_if<bool>(&member.value)) {
            field = *flag;
            return;
        }
        const auto number = number_in(member);
        if (!number) return;
        if (*number != 0 && *number != -1) refuse(member.key, "-1 (yes) or 0 (no) is expected");
        field = *number == -1;
    }

    /// The number of a field without entry rule; nothing for an empty text.
    [[nodiscard]] std::optional<double> number_in(const FlatMember& member) const {
        if (const auto* number = std::get_if<double>(&member.value)) return *number;
        const auto* text = std::get_if<std::string>(&member.value);
        if (text == nullptr) refuse(member.key, "a number is expected");
        if (text->empty()) return std::nullopt;
        return number_of(*text, member.key);
    }

    [[nodiscard]] double number_of(const std::string& text, const std::string& key) const {
        const auto number = parse_number(text, separator_);
        if (!number) refuse(key, "a number is expected, not " + quoted(text));
        return *number;
    }

    DecimalSeparator separator_;
    const EntryRule& rule_;
    const CellRule& cell_rule_;
    std::vector<CellMember> cells_;
};

std::optional<FlatValue> value_of(const std::string& field, const std::string& /*start*/) {
    if (field.empty()) return std::nullopt;
    return field;
}

bool is_number(std::string_view text) {
    return parse_number(text, DecimalSeparator::Point) ||
           parse_number(text, DecimalSeparator::Comma);
}

std::optional<FlatValue> value_of(const Entry& field, const Entry& /*start*/) {
    if (!field.given()) return std::nullopt;
    if (!is_number(field.text)) return field.text;  // a field without entry rule takes any text
    return field.value;
}

std::optional<FlatValue> value_of(std::int16_t field, std::int16_t start) {
    if (field == start) return std::nullopt;
    return static_cast<double>(field);
}

std::optional<FlatValue> value_of(bool field, bool start) {
    if (field == start) return std::nullopt;
    return field ? -1.0 : 0.0;
}

}  // namespace

CaseFile read_case(const FlatObject& values, DecimalSeparator separator, const EntryRule& rule,
                   const CellRule& cell_rule) {
    Reader reader(separator, rule, cell_rule);
    for (const FlatMember& member : values) reader.take(member);
    reader.take_cells();
    return std::move(reader.file);
}

FlatObject values_of(const CalcCase& c) {
    CalcCase copy = c;
    CalcCase start;
    FlatObject values;
    for (const std::string& name : all_field_names()) {
        const auto field = find_field(copy, name);
        const auto default_field = find_field(start, name);
        const auto value = std::visit(
            [&](auto* place) {
                return value_of(*place, *std::get<decltype(place)>(*default_field));
            },
            *field);
        if (value) values.push_back({name, *value});
    }
    return values;
}

}  // namespace zel
