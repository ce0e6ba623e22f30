#include "excel_batch/input_cells.h"
#include "excel_batch/transient_contract.h"

namespace zel::excel_batch {
namespace {

constexpr BoxText frequency_of_tb601 = {
    Icon::Stop,
    {"Unzulässige Eingabe", "Input incorrect !"},
    {"Die Berechnungen nach Cigre TB 601 \n"
     "können nur für Frequenzen von: \n"
     " 1 bis 60 Hz oder Gleichstrom (0 Hz) durchgeführt werden.",
     "Calculations by Cigre TB 601 can only be carried out\n"
     "for frequencies from 0 Hz (DC) to 60 Hz. "}};

std::optional<Box> frequency_by_tb601(double frequency, unsigned /*methods*/, LangId lang) {
    if (frequency >= 0 && frequency <= 60) return std::nullopt;
    return box_in(lang, frequency_of_tb601);
}

using steady_check::always;
constexpr bool if_filled = false;

// C42 and C59 are beyond the older workbooks, which leave them empty.
constexpr InputCell fixed[] = {
    {&CalcCase::Hoehe_ueber_NN_db, 11, 0, &altitude_limits},
    {&CalcCase::Netzfrequenz_db, 13, 0, nullptr, CellKind::Number, always, true,
     frequency_by_tb601},
    {&CalcCase::Anzahl_Teilleiter_db, 14, 0, &sub_conductor_limits, CellKind::Whole},
    {&CalcCase::conductor_type_db, 21, 0, &conductor_type_codes, CellKind::Whole},
    {&CalcCase::conductor_shape_db, 22, 0, &conductor_shape_codes, CellKind::Whole},
    {&CalcCase::Seildurchmesser_db, 23, 0},
    {&CalcCase::GMR_Merker_db, 24, 0, nullptr, CellKind::Whole},
    {&CalcCase::GMR_db, 25, 0},
    {&CalcCase::ACDC_R_Option_Merker_db, 27, 0, &resistance_codes, CellKind::Whole},
    {&CalcCase::DCR_20_db, 28, 0},
    {&CalcCase::ACR_Frequenz_Remox_db, 29, 0},
    {&CalcCase::ACR1_db, 30, 0},
    {&CalcCase::TACR1_db, 31, 0},
    {&CalcCase::ACR2_db, 32, 0},
    {&CalcCase::TACR2_db, 33, 0},
    {&CalcCase::ACR3_db, 34, 0},
    {&CalcCase::TACR3_db, 35, 0},
    {&CalcCase::ACR4_db, 36, 0},
    {&CalcCase::TACR4_db, 37, 0},
    {&CalcCase::ACR5_db, 38, 0},
    {&CalcCase::TACR5_db, 39, 0},
    {&CalcCase::ACR6_db, 40, 0},
    {&CalcCase::TACR6_db, 41, 0},
    {&CalcCase::DrahtzahlLeiter_db, 42, 0, nullptr, CellKind::Number, always, if_filled},
    {&CalcCase::DrahtdurchmesserLeiter_db, 43, 0},
    {&CalcCase::DrahtlagenzahlLeiter_db, 44, 0},
    {&CalcCase::Mantelquerschnitt_db, 45, 0},
    {&CalcCase::DrahtzahlTraeger_db, 46, 0},
    {&CalcCase::c_leiter20_db, 47, 0},
    {&CalcCase::beta_leiter20_db, 48, 0},
    {&CalcCase::Dichte_traegerwerkstoff1_db, 49, 0},
    {&CalcCase::T_Koeff_DC_Resist_Leiter_linear_db, 50, 0},
    {&CalcCase::T_Koeff_DC_Resist_Leiter_quadrat_db, 51, 0},
    {&CalcCase::DC_Resist_traeger_db, 52, 0},
    {&CalcCase::KernquerschnittTraeger_db, 53, 0},
    {&CalcCase::DrahtdurchmesserTraeger_db, 54, 0},
    {&CalcCase::KerndurchmesserTraeger_db, 55, 0},
    {&CalcCase::c_traeger20_db, 56, 0},
    {&CalcCase::beta_traeger20_db, 57, 0},
    {&CalcCase::DC_Resist_Leiter_db, 58, 0},
    {&CalcCase::Dichte_Leiterwerkstoff1_db, 59, 0, nullptr, CellKind::Number, always, if_filled},
    {&CalcCase::radialthermalconductivity_unter_KPT_db, 60, 0},
    {&CalcCase::KniepunktTemperatur_db, 61, 0},
    {&CalcCase::radialthermalconductivity_ueber_KPT_db, 62, 0},
};

constexpr double unlimited = 1e308;

constexpr Limits wind_limits = {0,
                                unlimited,
                                {},
                                {"Minimalwert für Windgeschwindigkeit beträgt 0 m/s !",
                                 "Minimum value for wind speed is 0 m/s !"}};
constexpr Limits angle_limits = {
    0,
    360,
    {"Maximalwert für Winkel beträgt 360° !",
     "Maximum value for angle conductor to wind is 360° !"},
    {"Minimalwert für Winkel beträgt 0° !", "Minimum value for angle conductor to wind is 0° !"}};
constexpr Limits wide_emissivity_limits = {
    0.1,
    0.99,
    {"Maximalwert für Emissionsverhaeltnis beträgt 0,99 .", "Maximum value for emissivity is 0,99"},
    {"Minimalwert für Emissionsverhaeltnis beträgt 0,1 .", "Minimum value for emissivity is 0,1"}};
constexpr Limits ambient_limits = {-50,
                                   unlimited,
                                   {},
                                   {"Minimalwert für Umgebungstemperatur beträgt -50°C",
                                    "Minimum value for ambient temperature is -50°C"}};
constexpr Limits conductor_temperature_limits = {
    -50,
    500,
    {"Maximalwert für Seiltemperatur beträgt 500°C",
     "Maximum value for conductor temperature is 500°C"},
    {"Minimalwert für Seiltemperatur beträgt -50°C",
     "Minimum value for conductor temperature is -50°C"}};

constexpr InputCell row[] = {
    {&CalcCase::Windgeschwindigkeit_db, 0, 4, &wind_limits},
    {&CalcCase::Winkel_W_S_db, 0, 5, &angle_limits},
    {&CalcCase::Emissionsverhaeltnis_db, 0, 6, &wide_emissivity_limits},
    {&CalcCase::Absorptionsverhaeltnis_db, 0, 7, &absorptivity_limits},
    {&CalcCase::Umgebungstemperatur_db, 0, 8, &ambient_limits},
    {&CalcCase::Globalstrahlung_db, 0, 9, &radiation_limits},
    {&CalcCase::Leitertemp_db, 0, 10, &conductor_temperature_limits},
};

}  // namespace

const Limits percent_limits = {1,
                               99,
                               {"Eingabewert liegt nicht im Bereich 1 - 99 ( Prozent)",
                                "Input value is not in the range 1 - 99 (percent)"},
                               {},
                               percent_limits_title};

constexpr Text shortest_time = {"Minimalwert für TATL-Zeitdauer beträgt 1 sec",
                                "Minimum value for TATL-time is 1 sec"};
const Limits time_limits = {1,
                            3600,
                            {"Maximalwert für TATL-Zeitdauer beträgt 3600 sec / 60 min",
                             "Maximum value for for TATL-time is 3600 sec / 60 min"},
                            shortest_time};
const Limits time_limits_by_cell = {1,
                                    3600,
                                    {"Maximalwert für TATL-Zeitdauer beträgt 3600 sec",
                                     "Maximum value for for TATL-time is 3600 sec "},
                                    shortest_time};

std::span<const InputCell> transient_fixed_cells() { return fixed; }
std::span<const InputCell> transient_row_cells() { return row; }

}  // namespace zel::excel_batch
