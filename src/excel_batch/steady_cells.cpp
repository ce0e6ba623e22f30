#include "excel_batch/input_cells.h"

namespace zel::excel_batch {
namespace {

using steady_check::always;
using steady_check::TB601;

constexpr InputCell line[] = {
    {&CalcCase::Hoehe_ueber_NN_db, 19, 4, &altitude_limits},
    {&CalcCase::Winkel_S_S_db, 20, 5, &conductor_angle_limits},
    {&CalcCase::geogr_Breite_db, 21, 6, &latitude_limits},
    {&CalcCase::geo_laeng_db, 22, 7, &longitude_limits},
    {&CalcCase::geo_laeng_zeit_db, 23, 8, &time_longitude_limits},
    {&CalcCase::Windgeschwindigkeit_db, 25, 10},
    {&CalcCase::Winkel_W_S_db, 26, 11, &wind_angle_limits},
    {&CalcCase::Umgebungstemperatur_db, 27, 12},
    {&CalcCase::Bodentemp_db, 28, 13},
    {&CalcCase::Bodenart_db, 29, 14, &albedo_limits},
    {&CalcCase::Globalstrahlung_db, 30, 15, &radiation_limits},
    {&CalcCase::Bewoelkungsgrad_db, 31, 16, &clearness_limits},
    {&CalcCase::Tag_db, 33, 18, &day_limits},
    {&CalcCase::Monat_db, 34, 19, &month_limits},
    {&CalcCase::Stunden_db, 35, 20, &hour_limits},
    {&CalcCase::Minuten_db, 36, 21, &minute_limits},
    {&CalcCase::Feldlaenge_db, 38, 23, &span_limits},
    {&CalcCase::Hoehendifferenz_db, 39, 24, &height_difference_limits},
    {&CalcCase::Netzfrequenz_db, 40, 25, nullptr, CellKind::Number, always, true,
     frequency_refusal},
    {&CalcCase::Emissionsverhaeltnis_db, 41, 26, &emissivity_limits},
    {&CalcCase::Absorptionsverhaeltnis_db, 42, 27, &absorptivity_limits},
    {&CalcCase::Anzahl_Teilleiter_db, 43, 28, &sub_conductor_limits, CellKind::Whole},
};

constexpr InputCell single_current = {&CalcCase::Stromstaerke_db, 44, 30};
constexpr InputCell bundle_current = {&CalcCase::Stromstaerke_Buendel, 45, 29};
constexpr InputCell temperature = {&CalcCase::Leitertemp_db, 46, 31, &temperature_limits};

constexpr bool if_filled = false;

// C77, C83 and C88 are beyond the older workbooks, which leave them empty.
constexpr InputCell conductor[] = {
    {&CalcCase::conductor_type_db, 54, 38, &conductor_type_codes, CellKind::Whole},
    {&CalcCase::conductor_shape_db, 55, 39, &conductor_shape_codes, CellKind::Whole},
    {&CalcCase::Seildurchmesser_db, 57, 40},
    {&CalcCase::GMR_Merker_db, 58, 41, nullptr, CellKind::Whole},
    {&CalcCase::GMR_db, 59, 42},
    {&CalcCase::ACDC_R_Option_Merker_db, 61, 44, &resistance_codes, CellKind::Whole, TB601},
    {&CalcCase::DCR_20_db, 62, 45},
    {&CalcCase::ACR_Frequenz_Remox_db, 63, 46},
    {&CalcCase::ACR1_db, 64, 47},
    {&CalcCase::TACR1_db, 65, 48},
    {&CalcCase::ACR2_db, 66, 49},
    {&CalcCase::TACR2_db, 67, 50},
    {&CalcCase::ACR3_db, 68, 51},
    {&CalcCase::TACR3_db, 69, 52},
    {&CalcCase::ACR4_db, 70, 53},
    {&CalcCase::TACR4_db, 71, 54},
    {&CalcCase::ACR5_db, 72, 55},
    {&CalcCase::TACR5_db, 73, 56},
    {&CalcCase::ACR6_db, 74, 57},
    {&CalcCase::TACR6_db, 75, 58},
    {&CalcCase::DrahtdurchmesserLeiter_db, 77, 59, nullptr, CellKind::Number, always, if_filled},
    {&CalcCase::DrahtlagenzahlLeiter_db, 78, 60},
    {&CalcCase::Mantelquerschnitt_db, 79, 61},
    {&CalcCase::DrahtzahlTraeger_db, 80, 62},
    {&CalcCase::DC_Resist_Leiter_db, 83, 71, nullptr, CellKind::Number, always, if_filled},
    {&CalcCase::T_Koeff_DC_Resist_Leiter_linear_db, 84, 63},
    {&CalcCase::T_Koeff_DC_Resist_Leiter_quadrat_db, 85, 64},
    {&CalcCase::DC_Resist_traeger_db, 86, 65},
    {&CalcCase::KernquerschnittTraeger_db, 87, 66},
    {&CalcCase::KerndurchmesserTraeger_db, 88, 67, nullptr, CellKind::Number, always, if_filled},
    {&CalcCase::radialthermalconductivity_unter_KPT_db, 97, 68, nullptr, CellKind::Number, TB601},
    {&CalcCase::KniepunktTemperatur_db, 98, 69, nullptr, CellKind::Number, TB601},
    {&CalcCase::radialthermalconductivity_ueber_KPT_db, 99, 70, nullptr, CellKind::Number, TB601},
};

}  // namespace

std::span<const InputCell> line_cells() { return line; }
const InputCell& single_current_cell() { return single_current; }
const InputCell& bundle_current_cell() { return bundle_current; }
const InputCell& temperature_cell() { return temperature; }
std::span<const InputCell> conductor_cells() { return conductor; }

}  // namespace zel::excel_batch
