#include "excel_batch/input_cells.h"

#include <algorithm>

namespace zel::excel_batch {
namespace {

using steady_check::Kirn;
using steady_check::TB207;
using steady_check::TB601;
using steady_check::TBB;
using steady_check::Webs;

constexpr Limits altitude_limits =
    Limits().between(0, 4500,
                     {"{0}wert für die Höhe beträgt {1} m über N.N. !",
                      "{0} value for altitude is {1} m above sea level !"});
// A typed wind angle ends at 359.9°, one in a workbook at 360°.
constexpr Limits angle_limits = Limits().between(
    0, 360, {"{0}wert für Winkel beträgt {1}° !", "{0} value for angle is {1}° !"});
constexpr Limits latitude_limits = Limits().between(
    -90, 90,
    {"{0}wert für die geographische Breite beträgt {1}° !", "{0} value for latitude is {1}° !"});
constexpr Limits longitude_limits = Limits().between(
    -180, 180,
    {"{0}wert für die geographische Länge beträgt {1}° !", "{0} value for longitude is {1}° !"});
constexpr Limits time_longitude_limits =
    Limits().between(-180, 180,
                     {"{0}wert für die geographische Länge der Ortszeit beträgt {1}° !",
                      "{0} value for longitude of local time is {1}° !"});
constexpr Limits albedo_limits =
    Limits().between(0.01, 1,
                     {"{0}wert für die Bodenbeschaffenheit (Albedo) beträgt {1} !",
                      "{0} value for ground reflectivity / albedo is {1} !"});
constexpr Limits radiation_limits =
    Limits().between(0, 1370,
                     {"{0}wert für die Globalstrahlung beträgt {1} W /qm !",
                      "{0} value for solar heating is {1} W /qm !"});
constexpr Limits clearness_limits = Limits().between(
    0.01, 1,
    {"{0}wert für den Bewölkungsgrad beträgt {1} !", "{0} value for clearness ratio is {1} !"});
constexpr Limits day_limits = Limits().between(
    1, 31, {"{0}wert für den Kalendertag beträgt {1} !", "{0} value for calendary day is {1} !"});
constexpr Limits month_limits = Limits().between(
    1, 12,
    {"{0}wert für den Kalendermonat beträgt {1} !", "{0} value for calendary month is {1} !"});
constexpr Limits hour_limits = Limits().between(
    0, 24, {"{0}wert für die Stunde beträgt {1} !", "{0} value for daytime hour is {1} !"});
constexpr Limits minute_limits = Limits().between(
    0, 59, {"{0}wert für die Minute beträgt {1} !", "{0} value for minutes of daytime is {1} !"});
constexpr Limits span_limits = Limits().between(
    1, 9999, {"{0}wert für die Feldlänge beträgt {1} m !", "{0} value for span length is {1} m !"});
constexpr Limits height_difference_limits =
    Limits().between(-1000, 1000,
                     {"{0}wert für die Höhendifferenz beträgt {1} m !",
                      "{0} value for difference of altitude is {1} m !"});
constexpr Text of_emissivity = {"{0}wert für Emissionsverhaeltnis beträgt {1} .",
                                "{0} value for emissivity is {1}"};
constexpr Limits emissivity_limits = Limits().between(0.3, 0.9, of_emissivity);
constexpr Limits wide_emissivity_limits = Limits().between(0.1, 0.99, of_emissivity);
constexpr Limits absorptivity_limits = Limits().between(
    0.3, 0.9,
    {"{0}wert für Absorptionsverhaeltnis beträgt {1} .", "{0} value for absorptivity is {1}"});
constexpr Limits sub_conductor_limits = Limits().between(
    1, 8,
    {"{0}wert für Anzahl Teilleiter beträgt {1} !", "{0} value for number of conductors is {1} !"});
constexpr Limits temperature_limits =
    Limits()
        .at_least(-50, {"Eingegebener Wert < {1} °C. Korrigieren Sie bitte die Eingabe !",
                        "Input value lower than {1} °C. Please correct your input !"})
        .at_most(500, {"Eingegebener Wert > {1} °C. Korrigieren Sie bitte die Eingabe !",
                       "Input value higher than {1} °C. Please correct your input !"});

constexpr Limits type_codes = Limits().between(1, 4);
constexpr Limits shape_codes = Limits().between(1, 2);
constexpr Limits resistance_codes = Limits().between(1, 2);

struct FrequencyRule {
    unsigned methods;
    double low;
    double high;
    bool or_direct_current;
    Text lines;

    [[nodiscard]] std::optional<Box> refusal(double frequency, unsigned active, LangId lang) const {
        constexpr Text title = {"Unzulässige Eingabe", "Input incorrect !"};
        const bool fits =
            (frequency >= low && frequency <= high) || (or_direct_current && frequency == 0);
        if ((methods & active) == 0 || fits) return std::nullopt;
        return box_in(lang, {Icon::Stop, title, lines});
    }
};

// Narrower than those of a typed case, which allow a tolerance of 1 Hz.
constexpr FrequencyRule frequency_rules[] = {
    {TB207 | Kirn,
     50,
     60,
     false,
     {"Die Berechnungen nach Cigre TB 207 und/oder Kirn \n"
      "können nur für Netzfrequenzen von 50 - 60 Hz durchgeführt werden.\n"
      "Bitt ändern sie den Wert der Netzfrequenz.",
      "Calculations by Cigre TB 207 or Kirn can only be carried out\n"
      "for frequencies from 50Hz - 60 Hz. \n"
      "Please correct your input for frequency "}},
    {TBB,
     50,
     60,
     true,
     {"Die Berechnung für Kreisring-Stromschienen\n"
      "kann nur für Frequenzen von: \n"
      "von 50 Hz bis 60 Hz oder Gleichstrom 0 Hz durchgeführt werden.\n"
      "Bitte ändern sie den Wert der Netzfrequenz.",
      "Calculations by TBB 2018 can only be carried out\n"
      "for frequencies from 50Hz - 60 Hz and 0 Hz (DC). "}},
    {TB601 | Webs,
     0,
     60,
     false,
     {"Die Berechnungen nach Cigre TB 601 und/oder Webs \n"
      "können nur für Frequenzen von: \n"
      " 1 bis 60 Hz oder Gleichstrom (0 Hz) durchgeführt werden.",
      "Calculations by Cigre TB 601 or Webs can only be carried out\n"
      "for frequencies from 0 Hz (DC) to 60 Hz. "}},
};

std::optional<Box> frequency_refusal(double frequency, unsigned methods, LangId lang) {
    for (const FrequencyRule& rule : frequency_rules)
        if (auto box = rule.refusal(frequency, methods, lang)) return box;
    return std::nullopt;
}

std::optional<Box> frequency_by_tb601(double frequency, unsigned /*methods*/, LangId lang) {
    constexpr FrequencyRule rule = {TB601,
                                    0,
                                    60,
                                    false,
                                    {"Die Berechnungen nach Cigre TB 601 \n"
                                     "können nur für Frequenzen von: \n"
                                     " 1 bis 60 Hz oder Gleichstrom (0 Hz) durchgeführt werden.",
                                     "Calculations by Cigre TB 601 can only be carried out\n"
                                     "for frequencies from 0 Hz (DC) to 60 Hz. "}};
    return rule.refusal(frequency, TB601, lang);
}

constexpr InputCell line[] = {
    InputCell{&CalcCase::Hoehe_ueber_NN_db, 19, 4}.within(altitude_limits),
    InputCell{&CalcCase::Winkel_S_S_db, 20, 5}.within(angle_limits),
    InputCell{&CalcCase::geogr_Breite_db, 21, 6}.within(latitude_limits),
    InputCell{&CalcCase::geo_laeng_db, 22, 7}.within(longitude_limits),
    InputCell{&CalcCase::geo_laeng_zeit_db, 23, 8}.within(time_longitude_limits),
    InputCell{&CalcCase::Windgeschwindigkeit_db, 25, 10},
    InputCell{&CalcCase::Winkel_W_S_db, 26, 11}.within(angle_limits),
    InputCell{&CalcCase::Umgebungstemperatur_db, 27, 12},
    InputCell{&CalcCase::Bodentemp_db, 28, 13},
    InputCell{&CalcCase::Bodenart_db, 29, 14}.within(albedo_limits),
    InputCell{&CalcCase::Globalstrahlung_db, 30, 15}.within(radiation_limits),
    InputCell{&CalcCase::Bewoelkungsgrad_db, 31, 16}.within(clearness_limits),
    InputCell{&CalcCase::Tag_db, 33, 18}.within(day_limits),
    InputCell{&CalcCase::Monat_db, 34, 19}.within(month_limits),
    InputCell{&CalcCase::Stunden_db, 35, 20}.within(hour_limits),
    InputCell{&CalcCase::Minuten_db, 36, 21}.within(minute_limits),
    InputCell{&CalcCase::Feldlaenge_db, 38, 23}.within(span_limits),
    InputCell{&CalcCase::Hoehendifferenz_db, 39, 24}.within(height_difference_limits),
    InputCell{&CalcCase::Netzfrequenz_db, 40, 25}.checked_by(frequency_refusal),
    InputCell{&CalcCase::Emissionsverhaeltnis_db, 41, 26}.within(emissivity_limits),
    InputCell{&CalcCase::Absorptionsverhaeltnis_db, 42, 27}.within(absorptivity_limits),
    InputCell{&CalcCase::Anzahl_Teilleiter_db, 43, 28}.within(sub_conductor_limits).whole(),
};

constexpr InputCell single_current = {&CalcCase::Stromstaerke_db, 44, 30};
constexpr InputCell bundle_current = {&CalcCase::Stromstaerke_Buendel, 45, 29};
constexpr InputCell temperature =
    InputCell{&CalcCase::Leitertemp_db, 46, 31}.within(temperature_limits);

// C77, C83 and C88 are beyond the older workbooks, which leave them empty.
constexpr InputCell conductor[] = {
    InputCell{&CalcCase::conductor_type_db, 54, 38}.within(type_codes).whole(),
    InputCell{&CalcCase::conductor_shape_db, 55, 39}.within(shape_codes).whole(),
    InputCell{&CalcCase::Seildurchmesser_db, 57, 40},
    InputCell{&CalcCase::GMR_Merker_db, 58, 41}.whole(),
    InputCell{&CalcCase::GMR_db, 59, 42},
    InputCell{&CalcCase::ACDC_R_Option_Merker_db, 61, 44}
        .within(resistance_codes)
        .whole()
        .read_by(TB601),
    InputCell{&CalcCase::DCR_20_db, 62, 45},
    InputCell{&CalcCase::ACR_Frequenz_Remox_db, 63, 46},
    InputCell{&CalcCase::ACR1_db, 64, 47},
    InputCell{&CalcCase::TACR1_db, 65, 48},
    InputCell{&CalcCase::ACR2_db, 66, 49},
    InputCell{&CalcCase::TACR2_db, 67, 50},
    InputCell{&CalcCase::ACR3_db, 68, 51},
    InputCell{&CalcCase::TACR3_db, 69, 52},
    InputCell{&CalcCase::ACR4_db, 70, 53},
    InputCell{&CalcCase::TACR4_db, 71, 54},
    InputCell{&CalcCase::ACR5_db, 72, 55},
    InputCell{&CalcCase::TACR5_db, 73, 56},
    InputCell{&CalcCase::ACR6_db, 74, 57},
    InputCell{&CalcCase::TACR6_db, 75, 58},
    InputCell{&CalcCase::DrahtdurchmesserLeiter_db, 77, 59}.if_filled(),
    InputCell{&CalcCase::DrahtlagenzahlLeiter_db, 78, 60},
    InputCell{&CalcCase::Mantelquerschnitt_db, 79, 61},
    InputCell{&CalcCase::DrahtzahlTraeger_db, 80, 62},
    InputCell{&CalcCase::DC_Resist_Leiter_db, 83, 71}.if_filled(),
    InputCell{&CalcCase::T_Koeff_DC_Resist_Leiter_linear_db, 84, 63},
    InputCell{&CalcCase::T_Koeff_DC_Resist_Leiter_quadrat_db, 85, 64},
    InputCell{&CalcCase::DC_Resist_traeger_db, 86, 65},
    InputCell{&CalcCase::KernquerschnittTraeger_db, 87, 66},
    InputCell{&CalcCase::KerndurchmesserTraeger_db, 88, 67}.if_filled(),
    InputCell{&CalcCase::radialthermalconductivity_unter_KPT_db, 97, 68}.read_by(TB601),
    InputCell{&CalcCase::KniepunktTemperatur_db, 98, 69}.read_by(TB601),
    InputCell{&CalcCase::radialthermalconductivity_ueber_KPT_db, 99, 70}.read_by(TB601),
};

// C42 and C59 are beyond the older workbooks, which leave them empty.
constexpr InputCell transient_fixed[] = {
    InputCell{&CalcCase::Hoehe_ueber_NN_db, 11}.within(altitude_limits),
    InputCell{&CalcCase::Netzfrequenz_db, 13}.checked_by(frequency_by_tb601),
    InputCell{&CalcCase::Anzahl_Teilleiter_db, 14}.within(sub_conductor_limits).whole(),
    InputCell{&CalcCase::conductor_type_db, 21}.within(type_codes).whole(),
    InputCell{&CalcCase::conductor_shape_db, 22}.within(shape_codes).whole(),
    InputCell{&CalcCase::Seildurchmesser_db, 23},
    InputCell{&CalcCase::GMR_Merker_db, 24}.whole(),
    InputCell{&CalcCase::GMR_db, 25},
    InputCell{&CalcCase::ACDC_R_Option_Merker_db, 27}.within(resistance_codes).whole(),
    InputCell{&CalcCase::DCR_20_db, 28},
    InputCell{&CalcCase::ACR_Frequenz_Remox_db, 29},
    InputCell{&CalcCase::ACR1_db, 30},
    InputCell{&CalcCase::TACR1_db, 31},
    InputCell{&CalcCase::ACR2_db, 32},
    InputCell{&CalcCase::TACR2_db, 33},
    InputCell{&CalcCase::ACR3_db, 34},
    InputCell{&CalcCase::TACR3_db, 35},
    InputCell{&CalcCase::ACR4_db, 36},
    InputCell{&CalcCase::TACR4_db, 37},
    InputCell{&CalcCase::ACR5_db, 38},
    InputCell{&CalcCase::TACR5_db, 39},
    InputCell{&CalcCase::ACR6_db, 40},
    InputCell{&CalcCase::TACR6_db, 41},
    InputCell{&CalcCase::DrahtzahlLeiter_db, 42}.if_filled(),
    InputCell{&CalcCase::DrahtdurchmesserLeiter_db, 43},
    InputCell{&CalcCase::DrahtlagenzahlLeiter_db, 44},
    InputCell{&CalcCase::Mantelquerschnitt_db, 45},
    InputCell{&CalcCase::DrahtzahlTraeger_db, 46},
    InputCell{&CalcCase::c_leiter20_db, 47},
    InputCell{&CalcCase::beta_leiter20_db, 48},
    InputCell{&CalcCase::Dichte_traegerwerkstoff1_db, 49},
    InputCell{&CalcCase::T_Koeff_DC_Resist_Leiter_linear_db, 50},
    InputCell{&CalcCase::T_Koeff_DC_Resist_Leiter_quadrat_db, 51},
    InputCell{&CalcCase::DC_Resist_traeger_db, 52},
    InputCell{&CalcCase::KernquerschnittTraeger_db, 53},
    InputCell{&CalcCase::DrahtdurchmesserTraeger_db, 54},
    InputCell{&CalcCase::KerndurchmesserTraeger_db, 55},
    InputCell{&CalcCase::c_traeger20_db, 56},
    InputCell{&CalcCase::beta_traeger20_db, 57},
    InputCell{&CalcCase::DC_Resist_Leiter_db, 58},
    InputCell{&CalcCase::Dichte_Leiterwerkstoff1_db, 59}.if_filled(),
    InputCell{&CalcCase::radialthermalconductivity_unter_KPT_db, 60},
    InputCell{&CalcCase::KniepunktTemperatur_db, 61},
    InputCell{&CalcCase::radialthermalconductivity_ueber_KPT_db, 62},
};

constexpr InputCell transient_row[] = {
    InputCell{&CalcCase::Windgeschwindigkeit_db, 0, 4}.within(
        Limits().at_least(0, {"{0}wert für Windgeschwindigkeit beträgt {1} m/s !",
                              "{0} value for wind speed is {1} m/s !"})),
    InputCell{&CalcCase::Winkel_W_S_db, 0, 5}.within(Limits().between(
        0, 360,
        {"{0}wert für Winkel beträgt {1}° !", "{0} value for angle conductor to wind is {1}° !"})),
    InputCell{&CalcCase::Emissionsverhaeltnis_db, 0, 6}.within(wide_emissivity_limits),
    InputCell{&CalcCase::Absorptionsverhaeltnis_db, 0, 7}.within(absorptivity_limits),
    InputCell{&CalcCase::Umgebungstemperatur_db, 0, 8}.within(
        Limits().at_least(-50, {"{0}wert für Umgebungstemperatur beträgt {1}°C",
                                "{0} value for ambient temperature is {1}°C"})),
    InputCell{&CalcCase::Globalstrahlung_db, 0, 9}.within(radiation_limits),
    InputCell{&CalcCase::Leitertemp_db, 0, 10}.within(
        Limits().between(-50, 500,
                         {"{0}wert für Seiltemperatur beträgt {1}°C",
                          "{0} value for conductor temperature is {1}°C"})),
};

constexpr Limits at_least_a_second = Limits().at_least(
    1, {"{0}wert für TATL-Zeitdauer beträgt {1} sec", "{0} value for TATL-time is {1} sec"});

}  // namespace

std::span<const InputCell> line_cells() { return line; }
const InputCell& single_current_cell() { return single_current; }
const InputCell& bundle_current_cell() { return bundle_current; }
const InputCell& temperature_cell() { return temperature; }
std::span<const InputCell> conductor_cells() { return conductor; }
std::span<const InputCell> transient_fixed_cells() { return transient_fixed; }
std::span<const InputCell> transient_row_cells() { return transient_row; }

const Limits percent_limits =
    Limits()
        .at_least(1)
        .at_most(99, {"Eingabewert liegt nicht im Bereich 1 - 99 ( Prozent)",
                      "Input value is not in the range 1 - 99 (percent)"})
        .titled(percent_title);
const Limits time_limits =
    at_least_a_second.at_most(3600, {"{0}wert für TATL-Zeitdauer beträgt {1} sec / 60 min",
                                     "{0} value for for TATL-time is {1} sec / 60 min"});
const Limits time_limits_by_cell =
    at_least_a_second.at_most(3600, {"{0}wert für TATL-Zeitdauer beträgt {1} sec",
                                     "{0} value for for TATL-time is {1} sec "});

const InputCell& cell_of(std::span<const InputCell> cells, const FieldKey& field) {
    return *std::find_if(cells.begin(), cells.end(),
                         [&](const InputCell& cell) { return cell.field == field; });
}

}  // namespace zel::excel_batch
