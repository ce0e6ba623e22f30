#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/clock.h"

// What a measuring cycle gives.

namespace zel::measuring {

/// What one tick of a cycle stores.
struct MeasurementSample {
    CalendarTime time;
    double Windrichtung = 0;           // degrees, clockwise from north
    double Windgeschwindigkeit = 0;    // m/s
    double Lufttemperatur = 0;         // °C
    std::int16_t Globalstrahlung = 0;  // W/m²
};

[[nodiscard]] std::string date_text(const CalendarTime& time);    // "31.12.2026"
[[nodiscard]] std::string time_text(const CalendarTime& time);    // "23:59:59"
[[nodiscard]] std::string moment_text(const CalendarTime& time);  // "31.12.2026 23:59:59"

struct CycleMeans {
    CalendarTime start;  // of the first sample
    CalendarTime end;    // of the last one
    std::size_t Anzahl = 0;
    /// As the cycle has always kept it: 450° less an angle that is only found for winds with an
    /// eastern part; for all others it is made of the angle that the last cycle left. Not
    /// brought into 0 to 360: an east wind is 450°, and an angle that was converted twice may leave
    /// it far below 0.
    double Windrichtung_Mittel = 0;
    /// The direction of the vector mean within 0 to 360°; nothing without wind, and where the winds
    /// cancel each other.
    std::optional<double> vector_mean_direction;
    double Windgeschw_Mittel = 0;             // m/s, the mean of the speeds, at 32 bits
    double Lufttemp_Mittel = 0;               // °C, at 32 bits
    std::int16_t Globalstrahlung_Mittel = 0;  // W/m²
};

/// `S65_Auswerten_Messzyklus`: the means of `samples`, of which there is at least one. `angle` is
/// what the window keeps from cycle to cycle, degrees, 0 at first. Where this one has no angle of
/// its own, the former one is converted to degrees once more, as ever.
[[nodiscard]] CycleMeans S65_Auswerten_Messzyklus(std::span<const MeasurementSample> samples,
                                                  double& angle);

/// Whether no wind can be extrapolated over the height difference, m: the head would be below the
/// ground of the formula, -2.4 m. That height typed at 32 bits is not.
[[nodiscard]] bool is_too_low(double Hoehendifferenz);
/// That height, m.
[[nodiscard]] double least_height();

/// `S66_Hochrechnung_wind_v`: the wind at the conductor, m/s, where the head measures
/// `Windgeschw_Mittel`: with the exponent 0.4 from a height of 2.4 m on. `Hoehendifferenz`, m, from
/// the head up to the conductor, is not too low.
[[nodiscard]] double S66_Hochrechnung_wind_v(double Windgeschw_Mittel, double Hoehendifferenz);

}  // namespace zel::measuring
