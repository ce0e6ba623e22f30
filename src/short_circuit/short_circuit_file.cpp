#include "short_circuit/short_circuit_file.h"

#include <algorithm>
#include <array>

#include "platform/rounding.h"

namespace zel {
namespace {

using C = ShortCircuitCase;

constexpr std::array<ListKey, 4> selections = {&C::Strombegrenzschalter_ks, &C::generatornah,
                                               &C::Anzahl_KS_fluesse, &C::Leiter_Bmittel};

constexpr Text stands_already = {"steht schon als {0} da", "stands there as {0} already"};
constexpr Text whole_number_expected = {"eine ganze Zahl von {0} bis {1} wird erwartet",
                                        "a whole number from {0} to {1} is expected"};

/// Where the field stands in the order of filling in.
std::size_t rank(const FieldInfo& field) {
    for (std::size_t i = 0; i < selections.size(); ++i)
        if (key_of<C>(field) == ShortCircuitKey(selections[i])) return i;
    const auto* first = short_circuit_fields().data();
    return selections.size() +
           static_cast<std::size_t>(static_cast<const ShortCircuitField*>(&field) - first);
}

class Reader : public RecordReader {
public:
    Reader(ShortCircuitForm& form, const Locale& locale)
        : RecordReader(locale.separator), form_(form), locale_(locale) {}

private:
    struct Ranked {
        std::size_t rank;
        const FlatMember* member;
    };

    std::vector<const FlatMember*> in_order(const FlatObject& values) override {
        std::vector<Ranked> ranked;
        for (const FlatMember& member : values) {
            const std::size_t own = rank(*known(member.key).info);
            for (const Ranked& other : ranked)
                if (other.rank == own)
                    refuse(member.key, Reason(stands_already, {other.member->key}));
            ranked.push_back({own, &member});
        }
        std::sort(ranked.begin(), ranked.end(),
                  [](const Ranked& a, const Ranked& b) { return a.rank < b.rank; });
        std::vector<const FlatMember*> members;
        for (const Ranked& each : ranked) members.push_back(each.member);
        return members;
    }

    std::optional<FieldOf> find(std::string_view key) override {
        const ShortCircuitField* field = find_short_circuit_field(key);
        if (field == nullptr) return std::nullopt;
        return FieldOf{std::string(key), field, form_.place_of(*field)};
    }

    std::optional<Box> take(const FieldOf& field, Entry& place, double number) override {
        return take(field, place, plain_number(number, separator()));
    }

    std::optional<Box> take(const FieldOf& field, Entry& /*place*/,
                            const std::string& text) override {
        const auto box = std::get<NumberKey>(key_of<C>(*field.info));
        if (!form_.is_open(box)) return std::nullopt;
        auto refusal = form_.change(box, text, locale_);
        if (!refusal) return std::nullopt;
        return std::move(refusal->box);
    }

    void take(const FieldOf& field, std::int16_t& place, double number) override {
        const FieldInfo& info = *field.info;
        const auto whole = round_to_int16(number);
        const bool is_whole = whole && number == *whole;
        if (info.of_record) {
            if (!is_whole) refuse(field.name, Reason(whole_number_expected, {"-32768", "32767"}));
            place = *whole;
            return;
        }
        if (!is_whole || *whole < 0 || *whole > info.last_index)
            refuse(field.name,
                   Reason(whole_number_expected, {"0", std::to_string(info.last_index)}));
        const auto list = std::get<ListKey>(key_of<C>(info));
        if (form_.is_open(list)) form_.choose(list, *whole);
    }

    Reason no_number(const std::string& /*text*/) const override {
        return Text{"eine Zahl wird erwartet", "a number is expected"};
    }

    ShortCircuitForm& form_;
    const Locale& locale_;
};

}  // namespace

ShortCircuitFile read_short_circuit_case(const FlatObject& values, const Locale& locale) {
    ShortCircuitFile file;
    file.refused = Reader(file.form, locale).read(values);
    return file;
}

}  // namespace zel
