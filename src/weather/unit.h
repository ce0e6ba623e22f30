#pragma once

#include <string>
#include <string_view>

// Units that a table may name in the head of a column, and what they are in those of the inputs.

namespace zel::weather {

/// A number in another unit: (number + before) * factor / divisor. Without a conversion not a bit
/// changes.
struct UnitConversion {
    double before = 0;
    double factor = 1;
    double divisor = 1;
    bool per_interval = false;  // an energy, to be divided by the seconds in which it came

    /// `interval` in s, of an energy.
    [[nodiscard]] double converted(double number, double interval = 1) const {
        const double told = (number + before) * factor / divisor;
        return per_interval ? told / interval : told;
    }
};

/// From the unit `given` to `wanted`, that of an input. Units may be written without signs beyond
/// ASCII: W/m2, degC, ohm/km. Throws `InputError` where `given` is unknown, or one of another kind.
[[nodiscard]] UnitConversion conversion(std::string_view given, std::string_view wanted);

/// The units from which there is a conversion to `wanted`, itself first: "m/s, km/h, kn".
[[nodiscard]] std::string units_for(std::string_view wanted);

}  // namespace zel::weather
