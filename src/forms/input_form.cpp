#include "forms/case_forms.h"
#include "workflow/run/page_change.h"

namespace zel {
namespace {

constexpr MethodSet Kirn = methods(Method::Kirn);
constexpr MethodSet sun_position = methods(Method::Webs, Method::Kirn);
constexpr MethodSet absorption = methods(Method::TB601, Method::TB207, Method::TBB);

constexpr FormRow project[] = {
    {"Text4", &CalcCase::Projekt_db, {"Projekt :", "Project :"}},
    {"Text20", &CalcCase::Bearbeiter_db, {"Bearbeiter :", "Operator :"}},
    {"Text21", &CalcCase::Datum_db, {"Datum :", "Date :"}},
    {"Text22", &CalcCase::Abteilung_db, {"Firma / Abteilung :", "Company / department :"}},
};

constexpr FormRow geography[] = {
    {"Text3",
     &CalcCase::Hoehe_ueber_NN_db,
     {"Höhe über N.N. :", "Altitude above sea level :"},
     "m"},
    {"Text27",
     &CalcCase::Winkel_S_S_db,
     {"Winkel Leiter zu Nord :", "Conductor angle to north :"},
     "°"},
    {"Text25",
     &CalcCase::geogr_Breite_db,
     {"Geographische Breite :", "Latitude :"},
     "°",
     sun_position},
    {"Text24",
     &CalcCase::geo_laeng_db,
     {"Geographische Länge :", "Longitude :"},
     "°",
     sun_position,
     {"Östliche Länge zählt negativ.\nFür Leitungen mit größerer Ausdehnung genügt ein Mittelwert.",
      "East counts negative.\nFor a line of some extent a mean value is enough."}},
    {"Text26",
     &CalcCase::geo_laeng_zeit_db,
     {"Länge der Standardzeit :", "Longitude of standard time :"},
     "°",
     sun_position,
     {"Längengrad, auf den sich die örtliche Standardzeit bezieht.\nBsp. MEZ => -15° (= 15°Ost)",
      "Longitude to which the local standard time refers.\ne.g. CET => -15° (= 15° east)"}},
};

constexpr FormRow date_and_time[] = {
    {"Text30", &CalcCase::Tag_db, {"Tag :", "Day :"}, "", sun_position},
    {"Text29", &CalcCase::Monat_db, {"Monat :", "Month :"}, "", sun_position},
    {"Text28", &CalcCase::Stunden_db, {"Stunde :", "Hour :"}, "h", sun_position},
    {"Text15", &CalcCase::Minuten_db, {"Minute :", "Minute :"}, "min", sun_position},
};

constexpr FormRow surroundings[] = {
    {"Text11",
     &CalcCase::Windgeschwindigkeit_db,
     {"Windgeschwindigkeit :", "Wind speed :"},
     "m/s",
     every_method,
     {"auf Leiterhöhe", "at conductor height"}},
    {"Text1", &CalcCase::Winkel_W_S_db, {"Winkel Wind zu Nord :", "Wind angle to north :"}, "°"},
    {"Text19",
     &CalcCase::Umgebungstemperatur_db,
     {"Umgebungstemperatur :", "Ambient temperature :"},
     "°C"},
    {"Text36", &CalcCase::Bodentemp_db, {"Bodentemperatur :", "Ground temperature :"}, "°C", Kirn},
    {"Text37",
     &CalcCase::Bodenart_db,
     {"Bodenbeschaffenheit (Albedo) :", "Ground reflectivity (albedo) :"},
     "",
     Kirn},
    {"Text14", &CalcCase::Globalstrahlung_db, {"Globalstrahlung :", "Global radiation :"}, "W/m²"},
    {"Text43", &CalcCase::Bewoelkungsgrad_db, {"Bewölkungsgrad :", "Clearness ratio :"}, "", Kirn},
};

constexpr FormRow line[] = {
    {"Text44", &CalcCase::Feldlaenge_db, {"Spannfeldlänge :", "Span length :"}, "m", Kirn},
    {"Text45",
     &CalcCase::Hoehendifferenz_db,
     {"Höhendifferenz :", "Height difference :"},
     "m",
     Kirn,
     {"der Aufhängepunkte", "of the suspension points"}},
    {"Text17", &CalcCase::Netzfrequenz_db, {"Netzfrequenz :", "Frequency :"}, "Hz"},
    {"Text2", &CalcCase::Emissionsverhaeltnis_db, {"Emissionsverhältnis :", "Emissivity :"}},
    {"Text31",
     &CalcCase::Absorptionsverhaeltnis_db,
     {"Absorptionsverhältnis :", "Absorptivity :"},
     "",
     absorption},
    {"Combo3",
     &CalcCase::Anzahl_Teilleiter_db,
     {"Anzahl der Teilleiter :", "Number of sub-conductors :"},
     "",
     every_method,
     {},
     bundle_sizes},
};

constexpr FormRow given_values[] = {
    {"Text16", &CalcCase::Leitertemp_db, {"Leitertemperatur :", "Conductor temperature :"}, "°C"},
    {"Text18",
     &CalcCase::Stromstaerke_db,
     {"Stromstärke (Teilleiter) :", "Current (sub-conductor) :"},
     "A"},
    {"Text39",
     &CalcCase::Stromstaerke_Buendel,
     {"Stromstärke (Bündel) :", "Current (bundle) :"},
     "A"},
};

constexpr FormRow measured[] = {
    {"Messwert_Strom_db",
     &CalcCase::Messwert_Strom_db,
     {"Messwert Stromstärke :", "Measured current :"},
     "A"},
    {"Messwert_Temperatur_db",
     &CalcCase::Messwert_Temperatur_db,
     {"Messwert Temperatur :", "Measured temperature :"},
     "°C"},
};

constexpr FormSection given_section = {input_page, {"Vorgabe", "Given value"}, given_values};

constexpr FormSection sections[] = {
    {input_page, {"Projekt", "Project"}, project},
    {input_page, {"Geographie", "Geography"}, geography},
    {input_page, {"Datum und Uhrzeit", "Date and time"}, date_and_time},
    {input_page, {"Umgebung", "Surroundings"}, surroundings},
    {input_page, {"Leitung", "Overhead line"}, line},
    given_section,
    {input_page, {"Messwerte", "Measured values"}, measured},
};

constexpr MethodRow method_table[] = {
    {Method::TB601, "rechnung_cigre601_merker_db", {"Cigre TB 601"}},
    {Method::TB207, "rechnung_cigre207_merker_db", {"Cigre TB 207"}},
    {Method::TBB,
     "rechnung_TBB_merker_db",
     {"RWTH Aachen / Puffer   Kreisring-Stromschiene / statisch && transient"}},
    {Method::Webs, "rechnung_webs_merker_db", {"Webs"}},
    {Method::Kirn, "rechnung_kirn_merker_db", {"Kirn"}},
};

}  // namespace

std::span<const FormSection> input_sections() { return sections; }

const FormSection& given_value_section() { return given_section; }

std::span<const MethodRow> method_rows() { return method_table; }

}  // namespace zel
