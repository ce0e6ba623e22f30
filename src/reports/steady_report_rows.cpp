#include "reports/steady_report_rows.h"

namespace zel {
namespace {

using C = CalcCase;
using enum PrintedValue;

constexpr PrintedRow altitude = {
    {"Höhe der Freileitung / Anlage über N.N.:", "altitude above sea level:"},
    &C::Hoehe_ueber_NN_db,
    "####0",
    "m"};
constexpr PrintedRow conductor_angle = {
    {"Winkel zw. Leiter- u. Nordrichtung:", "conductor angle relative to north:"},
    &C::Winkel_S_S_db,
    "##0",
    "°"};
constexpr PrintedRow wind_speed = {
    {"Windgeschwindigkeit:", "wind speed:"}, &C::Windgeschwindigkeit_db, "##0.0#", "m / s"};
constexpr PrintedRow wind_angle = {
    {"Winkel zw. Wind- u. Nordrichtung:", "wind angle relative to north:"},
    &C::Winkel_W_S_db,
    "##0",
    "°"};
constexpr PrintedRow ambient = {
    {"Umgebungstemperatur:", "ambient temperature:"}, &C::Umgebungstemperatur_db, "###0.0", "°C"};
constexpr PrintedRow radiation = {
    {"Globalstrahlung:", "solar heating:"}, &C::Globalstrahlung_db, "####0", "W / m^2"};
constexpr PrintedRow emissivity = {
    {"Emissionsverhältnis:", "emissivity:"}, &C::Emissionsverhaeltnis_db, "0.0#"};
constexpr PrintedRow absorptivity = {
    {"Absorptionsverhältnis:", "absorptivity:"}, &C::Absorptionsverhaeltnis_db, "0.0#"};
constexpr PrintedRow current_of_one = {
    {"Stromstärke (Teilleiter):", "amperage (single conductor):"}, CurrentOfOne, "#####", "A"};
constexpr PrintedRow current_of_bundle = {
    {"Stromstärke:", "amperage:"}, CurrentOfBundle, "#####0", "A"};
constexpr PrintedRow temperature = {
    {"Leitertemperatur:", "conductor temperature:"}, Temperature, "##0.0#", "°C"};

constexpr PrintedRow inputs[] = {
    altitude,
    conductor_angle,
    {{"geographischer Breitengrad:", "latitude:"}, &C::geogr_Breite_db, "###0.0#", "°"},
    {{"geographischer Längengrad:", "longitude:"}, &C::geo_laeng_db, "###0.0#", "°"},
    {{"Längengrad der örtlichen Standardzeit:", "longitude of local standard time:"},
     &C::geo_laeng_zeit_db,
     "###0.0#",
     "°"},
    {{"Datum u. Uhrzeit (TT.MM SS:mm)", "date and time (DD.MM hh:mm)"}, DateAndTime, "00"},
    {{"Spannfeldlänge:", "span length:"}, &C::Feldlaenge_db, "####0", "m"},
    {{"Höhendifferenz:", "difference of altitude:"}, &C::Hoehendifferenz_db, "###0", "m"},
    {{"Netzfrequenz:", "frequency:"}, &C::Netzfrequenz_db, "##0", "Hz"},
    emissivity,
    absorptivity,
    wind_speed,
    wind_angle,
    ambient,
    {{"Bodentemperatur:", "ground temperature:"}, &C::Bodentemp_db, "###0.0", "°C"},
    {{"Bodenbeschaffenheit / Albedo:", "ground reflectivity / albedo / albedo:"},
     &C::Bodenart_db,
     "0.00"},
    radiation,
    {{"Bewölkungsgrad:", "clearness ratio:"}, &C::Bewoelkungsgrad_db, "0.00"},
    {{"Anzahl Teilleiter:", "Number of conductors:"}, &C::Anzahl_Teilleiter_db, "#0"},
    current_of_one,
    current_of_bundle,
    temperature,
};
constexpr PrintedSection input_sections[] = {
    {{"Angaben zu: Geographie / Umgebung / Spannfeld / Leitung",
      "geographical data / ambient data / overhead line data"},
     inputs,
     1}};

constexpr PrintedRow busbar_geography[] = {altitude, conductor_angle};
constexpr PrintedRow busbar_surroundings[] = {
    wind_speed,
    wind_angle,
    ambient,
    radiation,
    emissivity,
    absorptivity,
    {{"Anzahl Teilleiter:", "number of conductors:"}, BundleName},
    current_of_one,
    current_of_bundle,
    temperature,
};
constexpr PrintedSection busbar_input_sections[] = {
    {{"Geographische Angaben", "geographical data"}, busbar_geography, 1},
    {{"Angaben zur Umgebung", "ambient data"}, busbar_surroundings, 1}};

constexpr PrintedRow type_row = {{"Leiterart:", "conductor type:"}, ConductorType};
constexpr PrintedRow shape_row = {{"Leiteroberfläche:", "conductor shape:"}, ConductorShape};
constexpr PrintedRow first_name = {{"Bezeichnung 1:", "identificator 1:"}, &C::Bezeichnung1_db};
constexpr PrintedRow second_name = {{"Bezeichnung 2:", "identificator 2:"}, &C::Bezeichnung2_db};
constexpr PrintedRow rated_current = {
    {"Dauerstrombelastbarkeit:", "cont. current carrying capacity:"},
    &C::Dauerstrombelastbarkeit_db,
    "#####0",
    " A"};
constexpr PrintText at_temperature = {"bei Leitertemperatur:", "at conductor temperature:"};

constexpr PrintedRow conductor_names[] = {
    first_name,
    {{"Norm:", "standard:"}, &C::Norm_db},
    second_name,
    {{"gültig ab (Jahr):", "valid since (year):"}, &C::Normjahr_db, "0000"},
    {{"Monat:", "month:"}, &C::Normmonat_db, "00"},
    type_row,
    shape_row,
};
constexpr PrintedRow conductor_figures[] = {
    {{"Querschnittsfläche:", "total cross section area:"},
     &C::Seilquerschnitt_db,
     "####0.0#",
     "mm^2"},
    {{"Seildurchmesser:", "conductor diameter:"}, &C::Seildurchmesser_db, "###0.0###", "mm"},
    {{"DC -Widerstand bei 20°C:", "DC-resistance at 20°C:"},
     &C::DCR_20_db,
     "##0.0####",
     "Ohm / km"},
    {{"GMR-Geometrischer Ersatzradius:", "GMR-Geometric Mean Radius:"},
     &C::GMR_db,
     "##0.0####",
     "mm"},
    {{"Frequenz AC-Widerstände:", "frequency AC-resistances:"},
     &C::ACR_Frequenz_Remox_db,
     "###0.0",
     "Hz"},
    {{"", ""}, ResistanceMode},
    {{"AC-Widerstand 1 (niedrigster Wert):", "AC-resistance 1 (lowest value):"},
     &C::ACR1_db,
     "#0.00###",
     "Ohm / km"},
    {at_temperature, &C::TACR1_db, "###0", "°C"},
    {{"AC-Widerstand 2 (aufsteigender  Wert):", "AC-resistance 2 (ascending  value):"},
     &C::ACR2_db,
     "#0.00###",
     "Ohm / km"},
    {at_temperature, &C::TACR2_db, "###0", "°C"},
    {{"AC-Widerstand 3 (aufsteigender  Wert):", "AC-resistance 3 (ascending  value):"},
     &C::ACR3_db,
     "#0.00###",
     "Ohm / km"},
    {at_temperature, &C::TACR3_db, "###0", "°C"},
    {{"AC-Widerstand 4 (aufsteigender  Wert):", "AC-resistance 4 (ascending  value):"},
     &C::ACR4_db,
     "#0.00###",
     "Ohm / km"},
    {at_temperature, &C::TACR4_db, "###0", "°C"},
    {{"AC-Widerstand 5 (aufsteigender  Wert):", "AC-resistance 5 (ascending  value):"},
     &C::ACR5_db,
     "#0.00###",
     "Ohm / km"},
    {at_temperature, &C::TACR5_db, "###0", "°C"},
    {{"AC-Widerstand 6 (aufsteigender  Wert):", "AC-resistance 6 (ascending  value):"},
     &C::ACR6_db,
     "#0.00###",
     "Ohm / km"},
    {at_temperature, &C::TACR6_db, "###0", "°C"},
    rated_current,
    {{"bei max. Leitertemperatur:", "at max. conductor temperature:"},
     &C::Seiltemperatur_max_db,
     "##0.0",
     "°C"},
};

constexpr PrintText density = {"Materialdichte:", "density of material:"};
constexpr PrintText heat_capacity = {"spez. Wärmekapazität:", "heat capacity:"};
constexpr PrintText heat_coefficient = {"T.-Koeffizient Wärmekapazität:",
                                        "temp.-coeff. heat capacity:"};
constexpr PrintText layer_head = {"Leitermaterial-Daten", "conductor layer data"};

constexpr PrintedRow layer[] = {
    {{"Drahtanzahl:", "number of wires:"}, &C::DrahtzahlLeiter_db, "##0"},
    {{"Drahtdurchmesser:", "diameter of wire:"},
     &C::DrahtdurchmesserLeiter_db,
     "######0.0###",
     "mm"},
    {{"Drahtlagenanzahl:", "number of layers:"}, &C::DrahtlagenzahlLeiter_db, "##0"},
    {{"Leiterquerschnittsfläche:", "conductor cross section area:"},
     &C::Mantelquerschnitt_db,
     "#####0.0###",
     "mm^2"},
    {density, &C::Dichte_Leiterwerkstoff1_db, "#####0", "kg / m^3"},
    {heat_capacity, &C::c_leiter20_db, "###0", "J / kg * K"},
    {heat_coefficient, &C::beta_leiter20_db, "####0.0#"},
    {{"DC-Resistivität:", "DC-resistivity at 20°C :"},
     &C::DC_Resist_Leiter_db,
     "###0.00#",
     "nOhm * m"},
    {{"linear T-Koeff. DC-Resistivität:", "linear temp. coeff. DC-resistivity:"},
     &C::T_Koeff_DC_Resist_Leiter_linear_db,
     "###0.00#",
     "10^-3 / K"},
    {{"quadrat. T-Koeff. DC-Resistivität:", "quadrat. temp. coeff. DC-resistivity:"},
     &C::T_Koeff_DC_Resist_Leiter_quadrat_db,
     "###0.00#",
     "10^-7 / K^2"},
};
constexpr PrintedSection conductor_sections[] = {
    {{"Leiterdaten", "conductor data"}, conductor_names, 1},
    {{"", ""}, conductor_figures, 2},
    {layer_head, layer, 2}};

constexpr PrintedRow core[] = {
    {{"Drahtanzahl:", "number of wires:"}, &C::DrahtzahlTraeger_db, "##0"},
    {{"Drahtdurchmesser:", "wire diameter:"}, &C::DrahtdurchmesserTraeger_db, "####0.0###", "mm"},
    {{"Kerndurchmesser:", "core diameter:"}, &C::KerndurchmesserTraeger_db, "####0.0###", "mm"},
    {density, &C::Dichte_traegerwerkstoff1_db, "#####0", "kg / m^3"},
    {heat_capacity, &C::c_traeger20_db, "####0", "J / kg * K"},
    {heat_coefficient, &C::beta_traeger20_db, "####0.0#"},
    {{"DC-Resistivität:", "DC-Resistivity at 20°C :"},
     &C::DC_Resist_traeger_db,
     "###0.00#",
     "nOhm * m"},
    {{"T-Koeff. DC-Resistivität:", "temp. coeff. DC-resistivity:"},
     &C::T_Koeff_DC_Resist_traeger_linear_db,
     "###0.00#",
     "10^-3 / K"},
    {{"quadrat. T-Koeff. DC-Resistivität:", "quadrat. temp. coeff. DC-resistivity:"},
     &C::T_Koeff_DC_Resist_traeger_quadrat_db,
     "###0.00#",
     "10^-7 / K^2"},
};
constexpr PrintedSection core_section = {{"Trägermaterial-Daten", "core data"}, core, 2};

constexpr PrintedRow radial[] = {
    {{"Radiale therm. Leitfähigkeit bei monometallischen Leitern oder Verbundleitern unterhalb "
      "Kniepunkttemperatur:",
      "radial thermal conductivity of monometallic conductors / or composite cond. below knee "
      "point temperature:"},
     &C::radialthermalconductivity_unter_KPT_db,
     "##0.0#",
     "W / m*K"},
    {{"Knie-Punkt-Temperatur KPT bei Verbundleitern:",
      "knee-point-temperature KPT of steel reinforced or composite conductors:"},
     &C::KniepunktTemperatur_db,
     "###0",
     "°C"},
    {{"Radiale thermische Leitfähigkeit bei Verbundleitern oberhalb KPT:",
      "radial thermal conductivity of composite conductors above KPT:"},
     &C::radialthermalconductivity_ueber_KPT_db,
     "##0.0#",
     "W / m*K"},
};
constexpr PrintedSection radial_section = {{"", ""}, radial, 1};

constexpr PrintedRow tube[] = {
    type_row,
    shape_row,
    first_name,
    second_name,
    {{"Querschnittsfläche:", "total cross section area:"}, &C::Seilquerschnitt_db, "####0", "mm^2"},
    {{"Durchmesser:", "conductor diameter:"}, &C::Seildurchmesser_db, "###0.0###", "mm"},
    rated_current,
};
constexpr PrintedRow wall[] = {
    {{"Wandstärke:", "wall thickness:"}, &C::DrahtdurchmesserLeiter_db, "######0.0#", "mm"},
    {density, &C::Dichte_Leiterwerkstoff1_db, "#####0", "kg / m^3"},
    {heat_capacity, &C::c_leiter20_db, "###0", "J / kg * K"},
    {heat_coefficient, &C::beta_leiter20_db, "####0.##"},
    {{"DC-Resistivität:", "DC-resistivity at 20°C :"},
     &C::DC_Resist_Leiter_db,
     "###0.00#",
     "nOhm * m"},
    {{"T-Koeff. DC-Resistivität:", "temp. coeff. DC-resistivity:"},
     &C::T_Koeff_DC_Resist_Leiter_linear_db,
     "###0.00#",
     "10^-3 / K"},
};
constexpr PrintedSection busbar_conductor_sections[] = {
    {{"Leiterdaten", "conductor data"}, tube, 1}, {layer_head, wall, 1}};

constexpr PrintText types[] = {
    {"Leiterart ist nicht definiert", "conductor type not defined"},
    {"Homogener, mono-metallischer Leiter aus nichtmagnetischem Werkstoff ( Bsp. AL1 - AL7 - "
     "Seile )",
     "homogenous, monometallic, non ferrous conductor ( e.g. AL1 - AL7)"},
    {"Verbundleiter mit Kern aus magnetischen Material /Stahl  ( Bsp. Al/St , ACSR)",
     "composite core conductor withe ferrous core (e.g. ACSR)"},
    {"Kreisring-Stromschiene", "tubular busbar"},
    {"Verbundleiter mit Kern aus nicht magnetischen Material (Bsp. ACCR , ACCC)",
     "composite core conductor with non ferrous core (e.g. ACCR / ACCC)"},
};
constexpr PrintText shapes[] = {
    {"Art der Leiteroberfläche nicht definiert", "conductor shape is not defined"},
    {"Leiterseil mit  Runddrähten in der äußeren Lage",
     "conductor with round wires in outer strand"},
    {"Stromschiene oder Leiterseil mit glatter Oberfläche in der äußeren Lage (Bsp. "
     "Trapezoid-Drähte)",
     "busbar or conductor with smooth shape in outer strand (e.g. trapezoid wires)"},
};

template <std::size_t count>
const PrintText& text_of(const PrintText (&texts)[count], std::int16_t number) {
    return texts[number > 0 && static_cast<std::size_t>(number) < count
                     ? static_cast<std::size_t>(number)
                     : 0];
}

}  // namespace

std::span<const PrintedSection> method_inputs() { return input_sections; }
std::span<const PrintedSection> busbar_inputs() { return busbar_input_sections; }
std::span<const PrintedSection> method_conductor() { return conductor_sections; }
const PrintedSection& method_core() { return core_section; }
const PrintedSection& method_radial() { return radial_section; }
std::span<const PrintedSection> busbar_conductor() { return busbar_conductor_sections; }

const PrintText& printed_type(std::int16_t conductor_type) {
    return text_of(types, conductor_type);
}
const PrintText& printed_shape(std::int16_t conductor_shape) {
    return text_of(shapes, conductor_shape);
}

}  // namespace zel
