#include "weather/unit.h"

#include <algorithm>
#include <utility>

#include "platform/errors.h"

namespace zel::weather {
namespace {

struct UnitRow {
    std::string_view wanted;
    std::string_view given;
    UnitConversion conversion;
};

constexpr UnitConversion times(double factor, double divisor = 1) { return {0, factor, divisor}; }
/// An energy of `factor` joules.
constexpr UnitConversion energy(double factor) { return {0, factor, 1, true}; }

constexpr double pi = 3.14159265358979323846;

// In plain spelling. A unit of several names has a row for each.
constexpr UnitRow rows[] = {
    {"m/s", "km/h", times(1, 3.6)},
    {"m/s", "kn", times(1852, 3600)},
    {"m/s", "kt", times(1852, 3600)},
    {"m/s", "mph", times(0.44704)},
    {"m/s", "ft/s", times(0.3048)},
    {"degC", "C", {}},
    {"degC", "K", {-273.15}},
    {"degC", "degF", {-32, 5, 9}},
    {"degC", "F", {-32, 5, 9}},
    {"W/m2", "kW/m2", times(1000)},
    {"W/m2", "J/m2", energy(1)},
    {"W/m2", "kJ/m2", energy(1e3)},
    {"W/m2", "MJ/m2", energy(1e6)},
    {"W/m2", "J/cm2", energy(1e4)},
    {"W/m2", "Wh/m2", energy(3600)},
    {"W/m2", "kWh/m2", energy(3.6e6)},
    {"deg", "rad", times(180, pi)},
    {"m", "km", times(1000)},
    {"m", "ft", times(0.3048)},
    {"mm", "cm", times(10)},
    {"mm", "m", times(1000)},
    {"mm", "in", times(25.4)},
    {"mm2", "cm2", times(100)},
    {"mm2", "kcmil", times(0.506707479)},
    {"ohm/km", "mohm/km", times(1, 1000)},
    {"ohm/km", "mohm/m", {}},
    {"ohm/km", "ohm/m", times(1000)},
    {"ohm/km", "ohm/mi", times(1, 1.609344)},
    {"A", "kA", times(1000)},
    {"s", "min", times(60)},
    {"s", "h", times(3600)},
    {"%", "1", times(100)},
    {"1", "%", times(1, 100)},
    {"kg/m3", "g/cm3", times(1000)},
};

/// Without the signs beyond ASCII; an input without a unit has the unit 1.
std::string plain(std::string_view unit) {
    constexpr std::pair<std::string_view, std::string_view> signs[] = {
        {"²", "2"}, {"³", "3"}, {"Ω", "ohm"}, {"°", "deg"}, {"·", "*"}};
    std::string spelled(unit.empty() ? "1" : unit);
    for (const auto& [sign, letters] : signs)
        for (auto at = spelled.find(sign); at != std::string::npos; at = spelled.find(sign))
            spelled.replace(at, sign.size(), letters);
    return spelled;
}

constexpr Text unknown_unit = {"die Einheit {0} paßt hier nicht; möglich sind {1}",
                               "the unit {0} does not fit here; there are {1}"};

}  // namespace

UnitConversion conversion(std::string_view given, std::string_view wanted) {
    const std::string from = plain(given);
    const std::string to = plain(wanted);
    if (from == to) return {};
    const auto* const row =
        std::find_if(std::begin(rows), std::end(rows),
                     [&](const UnitRow& each) { return each.wanted == to && each.given == from; });
    if (row == std::end(rows))
        throw InputError(Reason(unknown_unit, {in_quotes(given), units_for(wanted)}));
    return row->conversion;
}

std::string units_for(std::string_view wanted) {
    std::string list = plain(wanted);
    for (const UnitRow& row : rows)
        if (row.wanted == plain(wanted)) list += ", " + std::string(row.given);
    return list;
}

}  // namespace zel::weather
