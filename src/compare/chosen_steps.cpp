#include "compare/chosen_steps.h"

namespace zel {
namespace {

constexpr std::string_view section = "SensitivitySteps";

}  // namespace

std::vector<ChosenStep> ChosenSteps::of(const CalcCase& c) const {
    std::vector<ChosenStep> steps;
    for (const SensitivityLine& line : started_steps(c, {})) {
        const auto text = store_.read(section, line.field->name);
        const auto step = text ? parse_number(*text, DecimalSeparator::Point) : std::nullopt;
        if (step && *step != 0) steps.push_back({std::string(line.field->name), *step});
    }
    return steps;
}

void ChosenSteps::choose(const CaseField& field, std::optional<double> step) {
    store_.write(section, field.name,
                 step ? plain_number(*step, DecimalSeparator::Point) : std::string());
}

}  // namespace zel
