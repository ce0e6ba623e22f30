#include <array>
#include <string>

#include "forms/line_form.h"
#include "workflow/run/transient_text.h"

namespace zel::forms {
namespace {

struct InputOfRow {
    StateCell cell;  // null: the kind
    Text name;
    std::string_view unit;
};

constexpr InputOfRow inputs_of_row[] = {
    {nullptr, {"gesucht", "sought"}, {}},
    {&StateChange::Strom, {"Stromstärke neu", "new current load"}, "A"},
    {&StateChange::TEMP, {"Temperatur neu", "new temperature"}, "°C"},
    {&StateChange::min, {"Zeitdauer", "duration"}, "min"},
    {&StateChange::sec, {"Zeitdauer", "duration"}, "sec"},
};

/// One of six, with the texts that its description looks at.
class NumberedInput {
public:
    void describe(std::size_t row, const InputOfRow& input) {
        const Text& change = change_of_state_names[row];
        name_ = name_of(row, input.cell);
        german_ = fill("{0}: {1}", {change.de, input.name.de});
        english_ = fill("{0}: {1}", {change.en, input.name.en});
        info.name = name_;
        info.kind = FieldKind::Number;
        info.long_label = {german_, english_};
        info.unit = input.unit;
    }

    FieldInfo info;

private:
    std::string name_, german_, english_;
};

using Inputs = std::array<std::array<NumberedInput, std::size(inputs_of_row)>, state_change_count>;

const Inputs& all_inputs() {
    static Inputs inputs;
    static const bool described = [] {
        for (std::size_t row = 0; row < inputs.size(); ++row)
            for (std::size_t i = 0; i < inputs[row].size(); ++i)
                inputs[row][i].describe(row, inputs_of_row[i]);
        return true;
    }();
    (void)described;
    return inputs;
}

}  // namespace

const FieldInfo& transient_input(std::size_t row, StateCell cell) {
    std::size_t input = 0;
    while (inputs_of_row[input].cell != cell) ++input;
    return all_inputs()[row][input].info;
}

}  // namespace zel::forms
