#include "persistence/case_file.h"

#include <algorithm>

#include "platform/rounding.h"
#include "workflow/rules/entry_rules.h"
#include "workflow/rules/transient_cells.h"

namespace zel {
namespace {

constexpr Text whole_number_expected = {"eine ganze Zahl von -32768 bis 32767 wird erwartet",
                                        "a whole number from -32768 to 32767 is expected"};
constexpr Text choice_expected = {"1 (ausgewählt) oder 0 wird erwartet",
                                  "1 (selected) or 0 is expected"};
constexpr Text kind_expected = {"0 (nicht verwendet), 1, 2 oder 3 wird erwartet",
                                "0 (not in use), 1, 2 or 3 is expected"};

class CaseReader : public RecordReader {
public:
    CaseReader(CalcCase& c, const Locale& locale)
        : RecordReader(locale.separator), c_(c), locale_(locale) {}

private:
    /// As in the file, but for the cells of changes of state: how many sub-conductors share their
    /// currents is to be known.
    std::vector<const FlatMember*> in_order(const FlatObject& values) override {
        std::vector<const FlatMember*> members;
        for (const FlatMember& member : values) members.push_back(&member);
        std::stable_partition(members.begin(), members.end(), [](const FlatMember* member) {
            return !find_state_cell(member->key);
        });
        return members;
    }

    std::optional<FieldOf> find(std::string_view key) override { return find_field(c_, key); }

    std::optional<Box> take(const FieldOf& field, Entry& place, double number) override {
        if (field.info->rounded) number = round_half_even(number);
        place = {plain_number(number, separator()), number};
        const auto cell = find_state_cell(field.name);
        if (cell && cell->cell == &StateChange::Strom)
            show_bundle_current(c_.Z[cell->row], sharing_conductors(c_), separator());
        return std::nullopt;
    }

    std::optional<Box> take(const FieldOf& field, Entry& place, const std::string& text) override {
        if (const auto cell = find_state_cell(field.name))
            return read_cell(c_, *cell, text, locale_);
        if (!field.info->of_record)
            return enter(place, std::get<Entry CalcCase::*>(key_of<CalcCase>(*field.info)), text,
                         locale_);
        place = {text, number_of(text, field.name)};
        return std::nullopt;
    }

    void take(const FieldOf& field, std::int16_t& place, double number) override {
        const auto whole = round_to_int16(number);
        // No part of a wire makes a conductor.
        const bool is_part = field.info->of_record && whole && number != *whole;
        if (!whole || is_part) refuse(field.name, Reason(whole_number_expected));
        if (field.name.starts_with("rechnung_") && number != 0 && number != 1)
            refuse(field.name, Reason(choice_expected));
        const bool is_kind = field.name.starts_with('Z');
        if (is_kind && (*whole < row_unused || *whole > seeks_time))
            refuse(field.name, Reason(kind_expected));
        place = *whole;
    }

    CalcCase& c_;
    const Locale& locale_;
};

}  // namespace

CaseFile read_case(const FlatObject& values, const Locale& locale) {
    CaseFile file;
    file.refused = CaseReader(file.c, locale).read(values);
    return file;
}

}  // namespace zel
