#include "weather/plausibility.h"

#include <algorithm>
#include <cmath>

namespace zel::weather {
namespace {

/// Numbers that hardly are what they should be.
struct Implausible {
    std::string_view input;
    double above;  // or below, where it is negative
    Text likely;
};
constexpr Text mark_of_missing = {"das Zeichen eines fehlenden Werts? dann die Zelle leeren",
                                  "the mark of a missing value? then empty the cell"};
constexpr Text other_speed = {"km/h oder Knoten? dann wind_speed[km/h], wind_speed[kn]",
                              "km/h or knots? then wind_speed[km/h], wind_speed[kn]"};
constexpr Text other_power = {"kW/m2? dann ghi[kW/m2]", "kW/m2? then ghi[kW/m2]"};
// The first row that holds is told.
constexpr Implausible implausible_numbers[] = {
    {"air_temperature",
     200,
     {"Kelvin? dann air_temperature[K]", "kelvin? then air_temperature[K]"}},
    {"air_temperature",
     60,
     {"Fahrenheit? dann air_temperature[degF]", "Fahrenheit? then air_temperature[degF]"}},
    {"ground_temperature",
     200,
     {"Kelvin? dann ground_temperature[K]", "kelvin? then ground_temperature[K]"}},
    {"air_temperature", -90, mark_of_missing},
    {"ground_temperature", -90, mark_of_missing},
    {"global_radiation", -20, mark_of_missing},
    {"global_radiation",
     1400,
     {"eine Energie? dann ghi[J/m2], ghi[J/cm2] oder ghi[Wh/m2]",
      "an energy? then ghi[J/m2], ghi[J/cm2] or ghi[Wh/m2]"}},
    {"wind_speed", 60, other_speed},
};

}  // namespace

const Text* likely_instead(std::string_view input, double number) {
    for (const Implausible& row : implausible_numbers)
        if (row.input == input && (row.above < 0 ? number < row.above : number > row.above))
            return &row.likely;
    return nullptr;
}

void ColumnLook::take(double number) {
    if (!(number > 0)) return;
    if (count == 0) first = number;
    ++count;
    sum += number;
    greatest = std::max(greatest, number);
}

const Text* likely_instead(std::string_view input, const ColumnLook& column) {
    constexpr std::uint64_t few = 6;       // numbers that prove nothing
    constexpr double dimmest_day = 2;      // W/m²
    constexpr double stormiest_site = 12;  // m/s, mean over a day and more
    constexpr std::uint64_t hours_of_a_day = 24;
    if (input == "global_radiation" && column.count > few && column.greatest <= dimmest_day)
        return &other_power;
    if (input == "wind_speed" && column.count >= hours_of_a_day &&
        column.sum / static_cast<double>(column.count) > stormiest_site)
        return &other_speed;
    return nullptr;
}

}  // namespace zel::weather
