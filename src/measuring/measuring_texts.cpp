#include "measuring/measuring_texts.h"

namespace zel::measuring {
namespace {

constexpr Text start_label = {"Beginn", "Start"};
constexpr Text end_label = {"Ende", "End"};
constexpr Text count_label = {"Anzahl der Messwerte", "Samples"};
constexpr Text kept_direction_label = {"Windrichtung, wie der Zyklus sie behält",
                                       "Wind direction as the cycle keeps it"};
constexpr Text speed_label = {"Windgeschwindigkeit", "Wind speed"};
constexpr Text temperature_label = {"Lufttemperatur", "Air temperature"};
constexpr Text radiation_label = {"Globalstrahlung", "Global radiation"};

// By the states.
constexpr Text states[] = {
    {"wartet auf das erste Telegramm", "waits for the first telegram"},
    {"sendet", "sends"},
    {"schweigt", "is silent"},
    {"sendet nur Unlesbares", "sends nothing that can be read"},
    {"ist nicht angeschlossen", "is not connected"},
};
constexpr Text counted = {"{0}: {1} Telegramme, {2} verworfen", "{0}: {1} telegrams, {2} dropped"};

constexpr Text cycle_title = {"Meßzyklus", "Measuring cycle"};
constexpr BoxText failed = {
    Icon::Warning,
    cycle_title,
    {"{0} {1}.\nDer Meßzyklus ist beendet.", "{0} {1}.\nThe measuring cycle has ended."}};
constexpr Text stale = {
    "Während {0} von {1} Messungen gab ein Meßgerät nichts; dort zählen seine letzten Werte.",
    "During {0} of {1} samples an instrument gave nothing; its last values count there."};

}  // namespace

const BoxText no_sample = {Icon::Warning,
                           cycle_title,
                           {"Der Meßzyklus wurde vor der ersten Messung beendet,\n"
                            "es gibt keine Mittelwerte.",
                            "The measuring cycle was ended before its first sample,\n"
                            "there are no means."}};

std::string direction_text(double degrees, DecimalSeparator separator) {
    return masked(degrees, "##0.0", separator) + " °";
}
std::string speed_text(double meters_per_second, DecimalSeparator separator) {
    return masked(meters_per_second, "##0.0#", separator) + " m/s";
}
std::string temperature_text(double celsius, DecimalSeparator separator) {
    return masked(celsius, "#0.0", separator) + " °C";
}
std::string radiation_text(std::int16_t watts_per_square_meter) {
    return masked(watts_per_square_meter, "###0", DecimalSeparator::Point) + " W/qm";
}

std::vector<MeanLine> mean_lines(const CycleMeans& means, double Wind_Hochrechnung,
                                 const Locale& locale) {
    const DecimalSeparator separator = locale.separator;
    return {
        {start_label, moment_text(means.start)},
        {end_label, moment_text(means.end)},
        {count_label, std::to_string(means.Anzahl)},
        {kept_direction_label, direction_text(means.Windrichtung_Mittel, separator)},
        {vector_direction_label, means.vector_mean_direction
                                     ? direction_text(*means.vector_mean_direction, separator)
                                     : "-"},
        {speed_label, speed_text(means.Windgeschw_Mittel, separator)},
        {temperature_label, temperature_text(means.Lufttemp_Mittel, separator)},
        {radiation_label, radiation_text(means.Globalstrahlung_Mittel)},
        {extrapolated_label, speed_text(Wind_Hochrechnung, separator)},
    };
}

std::string status_text(const InstrumentStatus& status, LangId lang) {
    return fill(counted.in(lang),
                {states[static_cast<std::size_t>(status.state)].in(lang),
                 std::to_string(status.telegrams), std::to_string(status.dropped)});
}

Box instrument_failed(const Text& name, const InstrumentStatus& status, LangId lang) {
    return box_in(lang, failed,
                  {name.in(lang), states[static_cast<std::size_t>(status.state)].in(lang)});
}

std::string stale_note(std::size_t stale_samples, std::size_t samples, LangId lang) {
    if (stale_samples == 0) return {};
    return fill(stale.in(lang), {std::to_string(stale_samples), std::to_string(samples)});
}

}  // namespace zel::measuring
