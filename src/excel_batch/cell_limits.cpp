#include "excel_batch/cell_limits.h"

#include <string>

#include "workflow/rules/steady_check.h"

namespace zel::excel_batch {

const Limits altitude_limits = {0,
                                4500,
                                {"Maximalwert für die Höhe beträgt 4500 m über N.N. !",
                                 "Maximum value for altitude is 4500 m above sea level !"},
                                {"Minimalwert für die Höhe beträgt 0 m über N.N. !",
                                 "Minimum value for altitude is 0 m above sea level !"}};

const Limits conductor_angle_limits = {
    0,
    360,
    {"Maximalwert für Winkel beträgt 360° !", "Maximum value for angle is 360° !"},
    {"Minimalwert für Winkel beträgt 0° !", "Minimum value for angle is 0° !"}};

// A typed wind angle ends at 359.9°, one in a workbook at 360°.
const Limits wind_angle_limits = conductor_angle_limits;

const Limits latitude_limits = {-90,
                                90,
                                {"Maximalwert für die geographische Breite beträgt 90° !",
                                 "Maximum value for latitude is 90° !"},
                                {"Minimalwert für die geographische Breite beträgt -90° !",
                                 "Minimum value for latitude is -90° !"}};

const Limits longitude_limits = {-180,
                                 180,
                                 {"Maximalwert für die geographische Länge beträgt 180° !",
                                  "Maximum value for longitude is 180° !"},
                                 {"Minimalwert für die geographische Länge beträgt -180° !",
                                  "Minimum value for longitude is -180° !"}};

const Limits time_longitude_limits = {
    -180,
    180,
    {"Maximalwert für die geographische Länge der Ortszeit beträgt 180° !",
     "Maximum value for longitude of local time is 180° !"},
    {"Minimalwert für die geographische Länge der Ortszeit beträgt -180° !",
     "Minimum value for longitude of local time is -180° !"}};

const Limits albedo_limits = {0.01,
                              1,
                              {"Maximalwert für die Bodenbeschaffenheit (Albedo) beträgt 1 !",
                               "Maximum value for ground reflectivity / albedo is 1 !"},
                              {"Minimalwert für die Bodenbeschaffenheit (Albedo) beträgt 0,01 !",
                               "Minimum value for ground reflectivity / albedo is 0,01 !"}};

const Limits radiation_limits = {0,
                                 1370,
                                 {"Maximalwert für die Globalstrahlung beträgt 1370 W /qm !",
                                  "Maximum value for solar heating is 1370 W /qm !"},
                                 {"Minimalwert für die Globalstrahlung beträgt 0 W /qm !",
                                  "Minimum value for solar heating is 0 W /qm !"}};

const Limits clearness_limits = {
    0.01,
    1,
    {"Maximalwert für den Bewölkungsgrad beträgt 1 !", "Maximum value for clearness ratio is 1 !"},
    {"Minimalwert für den Bewölkungsgrad beträgt 0,01 !",
     "Minimum value for clearness ratio is 0,01 !"}};

const Limits day_limits = {
    1,
    31,
    {"Maximalwert für den Kalendertag beträgt 31 !", "Maximum value for calendary day is 31 !"},
    {"Minimalwert für den Kalendertag beträgt 1 !", "Minimum value for calendary day is 1 !"}};

const Limits month_limits = {
    1,
    12,
    {"Maximalwert für den Kalendermonat beträgt 12 !", "Maximum value for calendary month is 12 !"},
    {"Minimalwert für den Kalendermonat beträgt 1 !", "Minimum value for calendary month is 1 !"}};

const Limits hour_limits = {
    0,
    24,
    {"Maximalwert für die Stunde beträgt 24 !", "Maximum value for daytime hour is 24 !"},
    {"Minimalwert für die Stunde beträgt 0 !", "Minimum value for daytime hour is 0 !"}};

const Limits minute_limits = {
    0,
    59,
    {"Maximalwert für die Minute beträgt 59 !", "Maximum value for minutes of daytime is 59 !"},
    {"Minimalwert für die Minute beträgt 0 !", "Minimum value for minutes of daytime is 0 !"}};

const Limits span_limits = {
    1,
    9999,
    {"Maximalwert für die Feldlänge beträgt 9999 m !", "Maximum value for span length is 9999 m !"},
    {"Minimalwert für die Feldlänge beträgt 1 m !", "Minimum value for span length is 1 m !"}};

const Limits height_difference_limits = {-1000,
                                         1000,
                                         {"Maximalwert für die Höhendifferenz beträgt 1000 m !",
                                          "Maximum value for difference of altitude is 1000 m !"},
                                         {"Minimalwert für die Höhendifferenz beträgt -1000 m !",
                                          "Minimum value for difference of altitude is -1000 m !"}};

const Limits emissivity_limits = {
    0.3,
    0.9,
    {"Maximalwert für Emissionsverhaeltnis beträgt 0,9 .", "Maximum value for emissivity is 0,9"},
    {"Minimalwert für Emissionsverhaeltnis beträgt 0,3 .", "Minimum value for emissivity is 0,3"}};

const Limits absorptivity_limits = {0.3,
                                    0.9,
                                    {"Maximalwert für Absorptionsverhaeltnis beträgt 0,9 .",
                                     "Maximum value for absorptivity is 0,9"},
                                    {"Minimalwert für Absorptionsverhaeltnis beträgt 0,3 .",
                                     "Minimum value for absorptivity is 0,3"}};

const Limits sub_conductor_limits = {1,
                                     8,
                                     {"Maximalwert für Anzahl Teilleiter beträgt 8 !",
                                      "Maximum value for number of conductors is 8 !"},
                                     {"Minimalwert für Anzahl Teilleiter beträgt 1 !",
                                      "Minimum value for number of conductors is 1 !"}};

const Limits temperature_limits = {
    -50,
    500,
    {"Eingegebener Wert > 500 °C. Korrigieren Sie bitte die Eingabe !",
     "Input value higher than 500 °C. Please correct your input !"},
    {"Eingegebener Wert < -50 °C. Korrigieren Sie bitte die Eingabe !",
     "Input value lower than -50 °C. Please correct your input !"}};

const Limits conductor_type_codes = {1, 4, {}, {}};
const Limits conductor_shape_codes = {1, 2, {}, {}};
const Limits resistance_codes = {1, 2, {}, {}};

Box limit_box(const Limits& limits, LangId lang) {
    Box box = {Icon::Stop, std::string(limits.title.in(lang)), {}};
    for (const Text& line : {limits.highest, limits.lowest})
        if (!line.de.empty()) box.lines.emplace_back(line.in(lang));
    return box;
}

namespace {

struct FrequencyRule {
    unsigned methods;
    double low;
    double high;
    bool or_direct_current;
    Text lines;
};

// Narrower than those of a typed case, which allow a tolerance of 1 Hz.
constexpr FrequencyRule frequency_rules[] = {
    {steady_check::TB207 | steady_check::Kirn,
     50,
     60,
     false,
     {"Die Berechnungen nach Cigre TB 207 und/oder Kirn \n"
      "können nur für Netzfrequenzen von 50 - 60 Hz durchgeführt werden.\n"
      "Bitt ändern sie den Wert der Netzfrequenz.",
      "Calculations by Cigre TB 207 or Kirn can only be carried out\n"
      "for frequencies from 50Hz - 60 Hz. \n"
      "Please correct your input for frequency "}},
    {steady_check::TBB,
     50,
     60,
     true,
     {"Die Berechnung für Kreisring-Stromschienen\n"
      "kann nur für Frequenzen von: \n"
      "von 50 Hz bis 60 Hz oder Gleichstrom 0 Hz durchgeführt werden.\n"
      "Bitte ändern sie den Wert der Netzfrequenz.",
      "Calculations by TBB 2018 can only be carried out\n"
      "for frequencies from 50Hz - 60 Hz and 0 Hz (DC). "}},
    {steady_check::TB601 | steady_check::Webs,
     0,
     60,
     false,
     {"Die Berechnungen nach Cigre TB 601 und/oder Webs \n"
      "können nur für Frequenzen von: \n"
      " 1 bis 60 Hz oder Gleichstrom (0 Hz) durchgeführt werden.",
      "Calculations by Cigre TB 601 or Webs can only be carried out\n"
      "for frequencies from 0 Hz (DC) to 60 Hz. "}},
};

constexpr Text frequency_title = {"Unzulässige Eingabe", "Input incorrect !"};

}  // namespace

std::optional<Box> frequency_refusal(double frequency, unsigned methods, LangId lang) {
    for (const auto& [readers, low, high, or_direct_current, lines] : frequency_rules) {
        const bool fits =
            (frequency >= low && frequency <= high) || (or_direct_current && frequency == 0);
        if ((readers & methods) != 0 && !fits)
            return box_in(lang, {Icon::Stop, frequency_title, lines});
    }
    return std::nullopt;
}

}  // namespace zel::excel_batch
