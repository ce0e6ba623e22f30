#pragma once

#include <optional>
#include <string>
#include <vector>

#include "measuring/evaluation.h"
#include "measuring/instruments.h"
#include "platform/message_box.h"
#include "platform/text/locale.h"

// What the measuring window and the terminal say of a cycle.

namespace zel::measuring {

/// A mean with its label, and its number with the unit.
struct MeanLine {
    Text label;
    std::string value;
};
/// The means of a cycle, line by line: its time and number of samples, the mean direction as the
/// cycle keeps it, that of the vector mean, and the others.
[[nodiscard]] std::vector<MeanLine> mean_lines(const CycleMeans& means, double Wind_Hochrechnung,
                                               const Locale& locale);

[[nodiscard]] std::string direction_text(double degrees, DecimalSeparator separator);
[[nodiscard]] std::string speed_text(double meters_per_second, DecimalSeparator separator);
[[nodiscard]] std::string temperature_text(double celsius, DecimalSeparator separator);
[[nodiscard]] std::string radiation_text(std::int16_t watts_per_square_meter);

inline constexpr Text vector_direction_label = {
    "Vektorielle mittlere Windrichtung, auf 0 bis 360° gebracht",
    "Vector mean direction, brought to 0 to 360°"};
inline constexpr Text extrapolated_label = {"Auf Seilhöhe hochgerechnete Windgeschwindigkeit",
                                            "Wind speed extrapolated to the conductor"};

inline constexpr Text anemometer_name = {"Ultraschallanemometer", "Ultrasonic anemometer"};
inline constexpr Text radiation_meter_name = {"Globalstrahlungsmesser", "Global radiation meter"};

/// "wartet auf das erste Telegramm", "sendet: 12 Telegramme, 3 verworfen", ...
[[nodiscard]] std::string status_text(const InstrumentStatus& status, LangId lang);

/// Tells that an instrument gives nothing any more.
[[nodiscard]] Box instrument_failed(const Text& name, const InstrumentStatus& status, LangId lang);

/// Tells that a cycle ended before its first sample.
extern const BoxText no_sample;

/// Tells during how many samples an instrument gave nothing; empty where it always did.
[[nodiscard]] std::string stale_note(std::size_t stale_samples, std::size_t samples, LangId lang);

}  // namespace zel::measuring
