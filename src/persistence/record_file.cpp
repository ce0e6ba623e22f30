#include "persistence/record_file.h"

#include <cmath>

#include "platform/errors.h"
#include "platform/rounding.h"

namespace zel {
namespace {

constexpr Text number_expected = {"eine Zahl wird erwartet", "a number is expected"};
constexpr Text number_not_text = {"eine Zahl wird erwartet, nicht {0}",
                                  "a number is expected, not {0}"};
constexpr Text text_expected = {"ein Text wird erwartet", "a text is expected"};
constexpr Text flag_expected = {"-1 (ja) oder 0 (nein) wird erwartet",
                                "-1 (yes) or 0 (no) is expected"};
constexpr Text too_large = {"die Zahl ist zu groß", "the number is too large"};
constexpr Text unknown_key = {"unbekannter Schlüssel", "unknown key"};

double in_file(double value, const FieldInfo& info) {
    return info.kind == FieldKind::Single ? decimal_of_single(value) : value;
}

bool is_number(std::string_view text) {
    return parse_number(text, DecimalSeparator::Point) ||
           parse_number(text, DecimalSeparator::Comma);
}

std::optional<FlatValue> value_of(const std::string& text, const std::string& /*start*/,
                                  const FieldInfo& /*info*/) {
    if (text.empty()) return std::nullopt;
    return text;
}
std::optional<FlatValue> value_of(const Entry& field, const Entry& /*start*/,
                                  const FieldInfo& info) {
    if (!field.given()) return std::nullopt;
    if (!is_number(field.text)) return field.text;  // a field without entry rule takes any text
    return in_file(field.value, info);
}
std::optional<FlatValue> value_of(bool flag, bool start, const FieldInfo& /*info*/) {
    if (flag == start) return std::nullopt;
    return flag ? -1.0 : 0.0;
}
template <class Number>
std::optional<FlatValue> value_of(Number number, Number start, const FieldInfo& info) {
    if (number == start) return std::nullopt;
    return in_file(number, info);
}

}  // namespace

void RecordReader::refuse(std::string_view key, const Reason& reason) {
    throw InputError(at(shortened(key), reason));
}

FieldOf RecordReader::known(std::string_view key) {
    auto field = find(key);
    if (!field) refuse(key, Reason(unknown_key));
    return *std::move(field);
}

std::vector<RefusedText> RecordReader::read(const FlatObject& values) {
    for (const FlatMember* member : in_order(values)) {
        const FieldOf field = known(member->key);
        std::visit([&](auto* place) { set(field, *place, *member); }, field.value);
    }
    return std::move(refused_);
}

void RecordReader::set(const FieldOf& /*field*/, std::string& place, const FlatMember& member) {
    const auto* text = std::get_if<std::string>(&member.value);
    if (text == nullptr) refuse(member.key, Reason(text_expected));
    place = *text;
}

void RecordReader::set(const FieldOf& field, Entry& place, const FlatMember& member) {
    const auto* number = std::get_if<double>(&member.value);
    const auto* text = std::get_if<std::string>(&member.value);
    if (number == nullptr && text == nullptr) refuse(member.key, Reason(number_expected));
    if (text != nullptr && text->empty()) return;
    auto box = number != nullptr ? take(field, place, *number) : take(field, place, *text);
    if (box) refused_.push_back({member.key, *std::move(box)});
}

void RecordReader::set(const FieldOf& field, std::int16_t& place, const FlatMember& member) {
    if (const auto number = number_in(member)) take(field, place, *number);
}

void RecordReader::set(const FieldOf& /*field*/, bool& place, const FlatMember& member) {
    if (const auto* flag = std::get_if<bool>(&member.value)) {
        place = *flag;
        return;
    }
    const auto number = number_in(member);
    if (!number) return;
    if (*number != 0 && *number != -1) refuse(member.key, Reason(flag_expected));
    place = *number == -1;
}

void RecordReader::set(const FieldOf& /*field*/, double& place, const FlatMember& member) {
    const auto number = number_in(member);
    if (!number) return;
    const double single = narrowed_to_single(*number);
    if (!std::isfinite(single)) refuse(member.key, Reason(too_large));
    place = single;
}

/// The number of a field without entry rule; nothing for an empty text.
std::optional<double> RecordReader::number_in(const FlatMember& member) const {
    if (const auto* number = std::get_if<double>(&member.value)) return *number;
    const auto* text = std::get_if<std::string>(&member.value);
    if (text == nullptr) refuse(member.key, Reason(number_expected));
    if (text->empty()) return std::nullopt;
    return number_of(*text, member.key);
}

double RecordReader::number_of(const std::string& text, std::string_view key) const {
    const auto number = parse_number(text, separator_);
    if (!number) refuse(key, no_number(text));
    return *number;
}

Reason RecordReader::no_number(const std::string& text) const {
    return {number_not_text, {in_quotes(text)}};
}

FlatObject written(const std::vector<FieldOf>& fields, const std::vector<FieldOf>& start) {
    FlatObject values;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto& [name, info, place] = fields[i];
        auto value = std::visit(
            [&, &info = *info](auto* held) {
                return value_of(*held, *std::get<decltype(held)>(start[i].value), info);
            },
            place);
        if (value) values.push_back({name, *std::move(value)});
    }
    return values;
}

}  // namespace zel
