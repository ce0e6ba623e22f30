#include "tables_graphs/diagram_header.h"

#include "platform/text/number_text.h"
#include "workflow/rules/derived.h"

namespace zel {
namespace {

// {0} is the value.
constexpr Text ambient = {"Umgebungstemperatur: {0} °C", "Ambient temperature: {0} °C"};
constexpr Text radiation = {"Globalstrahlung: {0} W/qm ", "Solar heating: {0} W/qm "};
constexpr Text wind_speed = {"Windgeschwindigkeit: {0} m/s", "Wind speed: {0} m/s"};
constexpr Text angle = {"Winkel Wind/Seil: {0} °", "Angle Wind/Conductor: {0} °"};
constexpr Text conductor_temperature = {"Leitertemperatur: {0} °C",
                                        "Conductor temperature: {0} °C"};

std::string conductor_name(const CalcCase& c) {
    const std::string second = without_outer_blanks(c.Bezeichnung2_db);
    return without_outer_blanks(c.Bezeichnung1_db) + (second.empty() ? "" : " " + second);
}

std::string header_line(const CalcCase& c, HeaderLine line, const Text& conductor_label,
                        const Locale& locale) {
    const auto told = [&](const Text& text, double value) {
        return fill(text.in(locale.lang), {plain_number(value, locale.separator)});
    };
    switch (line) {
        case HeaderLine::Conductor:
            return std::string(conductor_label.in(locale.lang)) + ": " + conductor_name(c);
        case HeaderLine::Bundle:
            return std::string(bundle_name(c.Anzahl_Teilleiter_db).in(locale.lang));
        case HeaderLine::AmbientTemperature: return told(ambient, c.Umgebungstemperatur_db.value);
        case HeaderLine::Radiation: return told(radiation, c.Globalstrahlung_db.value);
        case HeaderLine::WindSpeed: return told(wind_speed, c.Windgeschwindigkeit_db.value);
        case HeaderLine::Angle: return told(angle, S_Winkel_Wind_Leiter(c));
        case HeaderLine::ConductorTemperature:
            return told(conductor_temperature, c.Leitertemp_db.value);
    }
    return {};
}

}  // namespace

std::vector<std::string> header_lines(const CalcCase& c, const std::vector<HeaderLine>& lines,
                                      const Text& conductor_label, const Locale& locale) {
    std::vector<std::string> header;
    for (const HeaderLine line : lines)
        header.push_back(header_line(c, line, conductor_label, locale));
    return header;
}

}  // namespace zel
