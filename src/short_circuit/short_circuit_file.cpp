#include "short_circuit/short_circuit_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "platform/errors.h"
#include "platform/rounding.h"
#include "short_circuit/short_circuit_fields.h"

namespace zel {
namespace {

using C = ShortCircuitCase;

constexpr std::array<KsList, 4> selections = {&C::Strombegrenzschalter_ks, &C::generatornah,
                                              &C::Anzahl_KS_fluesse, &C::Leiter_Bmittel};

bool is_selection(const KsField& field) {
    return std::any_of(selections.begin(), selections.end(),
                       [&](KsList list) { return field.key == KsKey(list); });
}

[[noreturn]] void refuse(std::string_view key, const std::string& reason) {
    throw InputError(std::string(key) + ": " + reason);
}

bool is_empty(const FlatValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    return text != nullptr && text->empty();
}

class Reader {
public:
    Reader(const FlatObject& values, const Locale& locale) : locale_(locale) {
        for (const FlatMember& member : values) sort_in(member);
    }

    ShortCircuitFile read() {
        for (const KsList list : selections) take(std::string(name_of(KsKey(list))));
        for (const KsField& field : short_circuit_fields())
            if (!is_selection(field)) take(field.name);
        return std::move(file_);
    }

private:
    struct Given {
        const KsField* field;
        const FlatMember* member;
    };

    void sort_in(const FlatMember& member) {
        const KsField* field = find_short_circuit_field(member.key);
        if (field == nullptr) refuse(member.key, "unknown key");
        if (const Given* other = find(field->name))
            refuse(member.key, "stands there as " + other->member->key + " already");
        given_.push_back({field, &member});
    }

    [[nodiscard]] const Given* find(std::string_view name) const {
        const auto found = std::find_if(given_.begin(), given_.end(),
                                        [&](const Given& g) { return g.field->name == name; });
        return found == given_.end() ? nullptr : &*found;
    }

    void take(std::string_view name) {
        const Given* given = find(name);
        if (given == nullptr) return;
        std::visit([&](auto key) { set(key, *given); }, given->field->key);
    }

    void set(KsText key, const Given& given) {
        const auto* text = std::get_if<std::string>(&given.member->value);
        if (text == nullptr) refuse(given.member->key, "a text is expected");
        if (given.field->sort == KsSort::Record)
            file_.form.set_record(key, *text);
        else
            file_.form.write(key, *text);
    }

    void set(KsBox key, const Given& given) {
        const auto* number = std::get_if<double>(&given.member->value);
        const auto* typed = std::get_if<std::string>(&given.member->value);
        if (number == nullptr && typed == nullptr)
            refuse(given.member->key, "a number is expected");
        if (!file_.form.is_open(key) || is_empty(given.member->value)) return;
        const std::string text =
            number != nullptr ? plain_number(*number, locale_.separator) : *typed;
        if (auto refusal = file_.form.change(key, text, locale_))
            file_.refused.push_back({given.member->key, std::move(refusal->box)});
    }

    void set(KsList key, const Given& given) {
        if (is_empty(given.member->value)) return;
        const bool of_record = given.field->sort == KsSort::Record;
        const double number = number_in(*given.member);
        const auto whole = round_to_int16(number);
        const bool is_whole = whole && number == *whole;
        if (of_record) {
            if (!is_whole)
                refuse(given.member->key, "a whole number from -32768 to 32767 is expected");
            file_.form.set_record(key, *whole);
            return;
        }
        if (!is_whole || *whole < 0 || *whole > given.field->last_index)
            refuse(given.member->key, "a whole number from 0 to " +
                                          std::to_string(given.field->last_index) + " is expected");
        if (file_.form.is_open(key)) file_.form.choose(key, *whole);
    }

    void set(KsRecordNumber key, const Given& given) {
        if (is_empty(given.member->value)) return;
        const double number = narrowed_to_single(number_in(*given.member));
        if (!std::isfinite(number)) refuse(given.member->key, "the number is too large");
        file_.form.set_record(key, number);
    }

    /// The number of a field without entry rule.
    [[nodiscard]] double number_in(const FlatMember& member) const {
        if (const auto* number = std::get_if<double>(&member.value)) return *number;
        const auto* text = std::get_if<std::string>(&member.value);
        const auto number = text == nullptr ? std::nullopt : parse_number(*text, locale_.separator);
        if (!number) refuse(member.key, "a number is expected");
        return *number;
    }

    Locale locale_;
    std::vector<Given> given_;
    ShortCircuitFile file_;
};

/// The double whose digits are the fewest that read back as the same float: 0.1, not
/// 0.100000001490116.
double shortest(double single) {
    char digits[32];
    const auto end =
        std::to_chars(std::begin(digits), std::end(digits), static_cast<float>(single));
    double value = 0;
    std::from_chars(digits, end.ptr, value);
    return value;
}

std::optional<FlatValue> value_in(const C& c, KsText key) {
    if ((c.*key).empty()) return std::nullopt;
    return c.*key;
}
std::optional<FlatValue> value_in(const C& c, KsBox key) {
    if (!(c.*key).given()) return std::nullopt;
    return shortest((c.*key).value);
}
std::optional<FlatValue> value_in(const C& c, KsList key) {
    if (c.*key == 0) return std::nullopt;
    return static_cast<double>(c.*key);
}
std::optional<FlatValue> value_in(const C& c, KsRecordNumber key) {
    if (c.*key == 0) return std::nullopt;
    return shortest(c.*key);
}

}  // namespace

ShortCircuitFile read_short_circuit_case(const FlatObject& values, const Locale& locale) {
    return Reader(values, locale).read();
}

FlatObject values_of(const ShortCircuitCase& c) {
    FlatObject values;
    for (const KsField& field : short_circuit_fields())
        if (auto value = std::visit([&](auto key) { return value_in(c, key); }, field.key))
            values.push_back({std::string(field.name), std::move(*value)});
    return values;
}

}  // namespace zel
