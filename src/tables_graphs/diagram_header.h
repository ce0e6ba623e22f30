#pragma once

#include <string>
#include <vector>

#include "platform/text/locale.h"
#include "platform/text/text.h"
#include "steady/case/calc_case.h"

namespace zel {

/// What diagrams say of a quantity of the case.
enum class HeaderLine : std::uint8_t {
    Conductor,
    Bundle,
    AmbientTemperature,
    Radiation,
    WindSpeed,
    Angle,  // between wind and conductor
    ConductorTemperature,
};

/// The lines with the values of `c`. The conductor is what `conductor_label` calls it.
[[nodiscard]] std::vector<std::string> header_lines(const CalcCase& c,
                                                    const std::vector<HeaderLine>& lines,
                                                    const Text& conductor_label,
                                                    const Locale& locale);

}  // namespace zel
