#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/workbook_design.h"
#include "shell/session.h"
#include "steady/case/case_fields.h"
#include "steady/case/method.h"

// How much a result moves where one input moves by a step and all others stay.

namespace zel {

/// A step of an input's own, in the unit of the field.
struct ChosenStep {
    std::string field;
    double step = 0;
};

struct SensitivityLine {
    const CaseField* field = nullptr;
    double step = 0;            // as it was done: downwards where upwards is not allowed
    bool is_hundredth = false;  // of the value: the usual step of a field without one of its own
    bool across_fold = false;   // the angle between wind and line is folded otherwise behind it
    /// By method, A of the bundle or K; nothing where the method has no result at one of the two.
    std::vector<std::optional<double>> changes{};

    [[nodiscard]] double largest() const;
};

struct Sensitivity {
    bool of_temperature = false;  // otherwise of the current
    std::vector<Method> methods;
    std::vector<std::optional<double>> results;  // without a step, by method
    /// The input that moves a result most comes first. What moves none is left out.
    std::vector<SensitivityLine> lines;
};

/// The lines with a change of the result at `method`, a place in `found.methods`: what moves it
/// most comes first.
[[nodiscard]] std::vector<const SensitivityLine*> moving(const Sensitivity& found,
                                                         std::size_t method);

/// Told how many of all inputs are done, and answers whether to go on.
using SensitivityProgress = std::function<bool(std::size_t done, std::size_t all)>;

/// Of every numeric input of `given`, which the input check lets pass. A step that the limits or
/// the input check refuse is done the other way; one refused both ways leaves its input out.
/// Nothing where `progress` stopped it. Throws `InputError` where a chosen step is of no numeric
/// input.
[[nodiscard]] std::optional<Sensitivity> sensitivity(const CalcCase& given, const Session& session,
                                                     const std::vector<ChosenStep>& steps = {},
                                                     const SensitivityProgress& progress = {});

/// The inputs of `given` that are moved, in the order of their fields, each with its chosen or its
/// usual step, and without changes. Throws as `sensitivity`.
[[nodiscard]] std::vector<SensitivityLine> started_steps(const CalcCase& given,
                                                         const std::vector<ChosenStep>& steps);

/// The table of all lines.
[[nodiscard]] SheetDesign sensitivity_sheet(const Sensitivity& found, const Locale& locale);
[[nodiscard]] std::string sensitivity_text(const Sensitivity& found, const Locale& locale);

/// What a line is called: "Wind speed + 0.1 m/s", "DC resistance at 20 °C + 1 %". An asterisk
/// marks a step across the fold of the wind angle, which `fold_note` explains.
[[nodiscard]] std::string step_label(const SensitivityLine& line, const Locale& locale);

/// What is to be said below lines with such a step; empty where there is none.
[[nodiscard]] std::string fold_note(const Sensitivity& found, LangId lang);

}  // namespace zel
