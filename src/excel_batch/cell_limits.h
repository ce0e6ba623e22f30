#pragma once

#include <optional>

#include "platform/message_box.h"

// The limits of input cells, and what is told beyond them.

namespace zel::excel_batch {

inline constexpr Text limit_title = {" Fehlerhafte Eingabe", "Incorrect input value"};

/// The bounds of a field, each with its line; all lines are told where one is broken. A code has
/// no lines: one outside its bounds is no correct input at all.
struct Limits {
    double low;
    double high;
    Text highest;  // empty where there is no upper bound
    Text lowest;
    Text title = limit_title;

    [[nodiscard]] constexpr bool is_told() const {
        return !highest.de.empty() || !lowest.de.empty();
    }
};

[[nodiscard]] inline bool holds(const Limits& limits, double number) {
    return number >= limits.low && number <= limits.high;
}

/// What is told of a number outside its limits: its upper and its lower bound.
[[nodiscard]] Box limit_box(const Limits& limits, LangId lang);

extern const Limits altitude_limits;
extern const Limits conductor_angle_limits;
extern const Limits wind_angle_limits;
extern const Limits latitude_limits;
extern const Limits longitude_limits;
extern const Limits time_longitude_limits;
extern const Limits albedo_limits;
extern const Limits radiation_limits;
extern const Limits clearness_limits;
extern const Limits day_limits;
extern const Limits month_limits;
extern const Limits hour_limits;
extern const Limits minute_limits;
extern const Limits span_limits;
extern const Limits height_difference_limits;
extern const Limits emissivity_limits;
extern const Limits absorptivity_limits;
extern const Limits sub_conductor_limits;
extern const Limits temperature_limits;
extern const Limits conductor_type_codes;
extern const Limits conductor_shape_codes;
extern const Limits resistance_codes;

/// The frequency by the active methods, bits as in `steady_check`: 50 to 60 Hz for Cigre TB 207 and
/// Kirn, also 0 for the busbar method, 0 to 60 Hz for Cigre TB 601 and Webs.
[[nodiscard]] std::optional<Box> frequency_refusal(double frequency, unsigned methods, LangId lang);

}  // namespace zel::excel_batch
