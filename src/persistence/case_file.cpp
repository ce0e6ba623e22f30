#include "persistence/case_file.h"

#include "platform/input_error.h"
#include "platform/rounding.h"
#include "steady/case_fields.h"

namespace zel {
namespace {

[[noreturn]] void refuse(const std::string& key, const std::string& reason) {
    throw InputError(key + ": " + reason);
}

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

/// Takes the values of one file, key by key.
class Reader {
public:
    Reader(DecimalSeparator separator, const EntryRule& rule)
        : separator_(separator), rule_(rule) {}

    void take(const FlatMember& member) {
        const auto field = find_field(file.c, member.key);
        if (!field) refuse(member.key, "unknown key");
        std::visit([&](auto* place) { set(*place, member); }, *field);
    }

    CaseFile file;

private:
    /// The member that `row` stands for; null without a row, for a change of state.
    static Entry CalcCase::*key_of(const CaseField* row) {
        return row == nullptr ? nullptr : std::get<Entry CalcCase::*>(row->key);
    }

    static void set(std::string& field, const FlatMember& member) {
        const auto* text = std::get_if<std::string>(&member.value);
        if (text == nullptr) refuse(member.key, "a text is expected");
        field = *text;
    }

    void set(Entry& field, const FlatMember& member) {
        const CaseField* row = find_case_field(member.key);
        if (const auto* given = std::get_if<double>(&member.value)) {
            const double number = row != nullptr && row->whole ? round_half_even(*given) : *given;
            field = {plain_number(number, separator_), number};
            return;
        }
        const auto* text = std::get_if<std::string>(&member.value);
        if (text == nullptr) refuse(member.key, "a number is expected");
        if (row != nullptr && row->of_record) {
            if (!text->empty()) field = {*text, number_of(*text, member.key)};
        } else if (auto box = rule_(field, key_of(row), *text)) {
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
        field = *whole;
    }

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

CaseFile read_case(const FlatObject& values, DecimalSeparator separator, const EntryRule& rule) {
    Reader reader(separator, rule);
    for (const FlatMember& member : values) reader.take(member);
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
