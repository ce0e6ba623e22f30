#include "workflow/steady_check_faults.h"

#include <variant>

#include "steady/case_fields.h"

namespace zel::steady_faults {
namespace {

using enum Method;

constexpr Text incomplete_title = {"Unvollständige Eingabe", "Input incomplete !"};

constexpr Ending incomplete = {
    incomplete_title,
    {},
    {"\nBitte vervollständigen Sie ihre Eingabe !", "\nPlease complete your input !"}};

constexpr Ending incorrect = {
    {" Fehlerhafte Eingabe", "Input incorrect !"},
    {},
    {"\nBitte korrigieren Sie Ihre Eingabe !", "\nPlease correct your input !"}};

constexpr Text conductor_after = {"\nBitte überprüfen Sie mit\n"
                                  "- Aus Seildatenbank auswählen -\n"
                                  "ihr gewähltes Seil !",
                                  "\nPlease check and complete your selected conductor \n"
                                  "within the conductor database application R-MOX "};

constexpr Ending conductor = {
    incomplete_title,
    {"Es wurde kein Leiter aus der Leiter-Datenbank ausgewählt\n"
     "oder beim ausgewählten Leiter \n"
     "erfolgte keine Angabe zu:\n",
     "You havn't selected a conductor from the conductor database (R-MOX)\n"
     "or the selected conductor hasn't a value for: \n"},
    conductor_after};

constexpr Ending sentence = {incomplete_title,
                             {"Es wurde kein Leiter aus der Leiter-Datenbank ausgewählt\n"
                              "oder beim ausgewählten Leiter \n",
                              conductor.before.en},
                             conductor_after};

constexpr Ending not_admissible = {{"Eingabe unzulässig ", "Input incorect !"}, {}, {}};
constexpr Ending no_choice = {{"Eingabe unvollständig ", "Input incomplete !"}, {}, {}};
constexpr Ending not_suitable = {{"Seilauswahl nicht passend zur Berechnungsmethode",
                                  "Input not suitable for calculation method !"},
                                 {},
                                 {}};

/// A busbar stays one.
void set_kind(CalcCase& c, std::int16_t kind) {
    if (c.conductor_type_db != 3) c.conductor_type_db = kind;
}

const FaultRow fault_rows[] = {
    {{1, every,
      [](CalcCase& c) {
          for (const Method method : all_methods) c.*flag_of(method) = 0;
      },
      &incomplete},
     {"Es wurde kein Verfahren zur Bestimmung des stationären Zustands des Leiters ausgewählt ",
      "You havn't selected a steady-state calculation method ! "}},
    {{2, {TBB}, becomes<&CalcCase::conductor_type_db, 1>, &incorrect},
     {"Es wurde das Berechnungsverfahren für Kreisringstrom-Schienen in Kombination mit Daten für ein Leiterseil ausgewählt.\n"
      "Bitte wählen Sie mit\n"
      "- Aus Seildatenbank auswählen -\n"
      "eine Kreisring-Stromschiene aus oder ändern sie das Berechnungsverfahren.",
      "You have choosen the calculation method for tubular busbars in combination with datas for an overhead conductor.\n"
      "Please change your selected conductor \n"
      "within the conductor database application R-MOX \n"
      "or change the calculation method."}},
    {{3, overhead, becomes<&CalcCase::conductor_type_db, 3>, &incorrect},
     {"Es wurde ein Berechnungsverfahren für Leiterseile in Kombination mit Leiterdaten für Kreisring-Stromschienen ausgewählt.\n"
      "Daten für ein Leiterseil aus oder ändern sie das Berechnungsverfahren.",
      "You have choosen a calculation method for overhead conductors in combination with datas for tubular busbars."}},
    {{4, every, blank<&CalcCase::Hoehe_ueber_NN_db>, &incomplete},
     {"Es wurde keine Angabe zur Höhe der Freileitung / Anlage über N.N. gemacht. ",
      "You havn't made an input for altitude above sea level. "}},
    {{5, every, blank<&CalcCase::Winkel_S_S_db>, &incomplete},
     {"Geben Sie den Winkel zwischen Seilrichtung und Nordrichtung in Grad an !",
      "You havn't made an input for the conductor angle relative to north. "}},
    {{6, webs_kirn, blank<&CalcCase::geogr_Breite_db>, &incomplete},
     {"Es wurden keine Angaben zur\ngeographischen Breite \ndes Spannfeldstandortes gemacht.",
      "You havn't made an input for the latitude \nof the overhead line !"}},
    {{7, webs_kirn, blank<&CalcCase::geo_laeng_db>, &incomplete},
     {"Geben Sie einen Wert für den Laengengrad an !\n"
      "auf welchem sich die Leitung befindet\n"
      "Fuer Leitungen mit groesserer Ausdehnung \n"
      "genuegt ein Mittelwert ",
      "You havn't made an input for the longitude \nof the overhead line !"}},
    {{8, webs_kirn, blank<&CalcCase::geo_laeng_zeit_db>, &incomplete},
     {"Geben Sie einen Wert für den Laengengrad  an !\n"
      "auf welchen sich die oertl. Standardzeit bezieht\n"
      "Bsp. MEZ => -15° (= 15°Ost)",
      "You havn't made an input for the longitude \nof local time !"}},
    {{9, every, blank<&CalcCase::Windgeschwindigkeit_db>, &incomplete},
     {"Es wurde keine Angabe zur  \nWindgeschwindigkeit auf Seilhöhe gemacht",
      "You havn't made an input for the wind speed\nat conductor level !"}},
    {{10, every, becomes<&CalcCase::Windgeschwindigkeit_db, 81>, &incorrect},
     {"Die Eingabe für die Windgeschwindigkeit liegt nicht innerhalb der Berechnungsbandbreite von 0 bis 80 m/s !\n"
      "Geben Sie bitte einen geringeren Wert ein",
      "The input for the windspeed isn't within the range of 0 to 80 m/s !"}},
    {{11, every, blank<&CalcCase::Winkel_W_S_db>, &incomplete},
     {"Geben Sie den Winkel zwischen Windrichtung und Nordrichtung in Grad an !",
      "You havn't made an input for the wind angle\nrelative to north !"}},
    {{12, every, blank<&CalcCase::Umgebungstemperatur_db>, &incomplete},
     {"Es wurde keine Angabe zur \nUmgebungstemperatur gemacht.",
      "You havn't made an input for the ambient temperature !"}},
    {{13, {Kirn}, blank<&CalcCase::Bodentemp_db>, &incomplete},
     {"Geben Sie die Bodentemperatur in Grad Celsius an !",
      "You havn't made an input for the ground temperature !"}},
    {{14, {Kirn}, blank<&CalcCase::Bodenart_db>, &incomplete},
     {"Geben Sie einen Wert für die Bodenbeschaffenheit an !",
      "You havn't made an input for the ground reflectivity / albedo !"}},
    {{15, every, blank<&CalcCase::Globalstrahlung_db>, &incomplete},
     {"Es wurde keine Angabe zur\nGlobalstrahlung gemacht.",
      "You havn't made an input for the solar heating !"}},
    {{16, {Kirn}, blank<&CalcCase::Bewoelkungsgrad_db>, &incomplete},
     {"Geben Sie bitte einen Wert für die Bewölkung (= Bewölkungsgrad) an !",
      "You havn't made an input for the clearness ratio !"}},
    {{17, webs_kirn, blank<&CalcCase::Tag_db>, &incomplete},
     {"Geben Sie bitte den Kalendertag an, für welchen die Berechnung durchgeführt werden soll !",
      "You havn't made an input for the calendary day !"}},
    {{18, webs_kirn, becomes<&CalcCase::Tag_db, 32>, &incorrect},
     {"Die Angabe zum Kalendertag muss zwischen 1 und 31 liegen ! ",
      "The input for calendary day isn't between the range of 1 to 31 !"}},
    {{19, webs_kirn, blank<&CalcCase::Monat_db>, &incomplete},
     {"Geben Sie bitte den Kalendermonat an, für welchen die Berechnung durchgeführt werden soll !",
      "You havn't made an input for the calendary month !"}},
    {{20, webs_kirn, becomes<&CalcCase::Monat_db, 13>, &incorrect},
     {"Die Angabe zum Kalendermonat muss zwischen 1 und 12 liegen ! ",
      "The input for calendary month isn't between the range of 1 to 12 !"}},
    {{21, webs_kirn, blank<&CalcCase::Stunden_db>, &incomplete},
     {" Geben Sie bitte die Stunden der Uhrzeit ( 00.00 -24.00 ) an, für welche die Berechnung durchgeführt werden soll !",
      "You havn't made an input for the daytime hour !"}},
    {{22, webs_kirn, becomes<&CalcCase::Stunden_db, 24>, &incorrect},
     {"Die Angabe zur Stunde muss im Bereich 0 bis 23 liegen ! ",
      "The input for the daytime hour isn't between the range of 0 to 24 !"}},
    {{23, webs_kirn, blank<&CalcCase::Minuten_db>, &incomplete},
     {"Geben Sie bitte die Minuten der Uhrzeit an, für welche die Berechnung durchgeführt werden soll !",
      "You havn't made an input for the minutes of daytime !"}},
    {{24, webs_kirn, becomes<&CalcCase::Minuten_db, 60>, &incorrect},
     {"Die Angabe zur Minute muss zwischen 0 und 59 liegen ! ",
      "The input for the minutes of daytime isn't between the range of 0 to 59 !"}},
    {{25, {Kirn}, blank<&CalcCase::Feldlaenge_db>, &incomplete},
     {"Geben Sie bitte einen Wert für die Feldlaenge bzw. einen Wert groesser 0 m an !",
      "You havn't made an input for the span length !"}},
    {{26, {Kirn}, blank<&CalcCase::Hoehendifferenz_db>, &incomplete},
     {"Geben Sie bitte die Höhendifferenz der Aufhängepunkte in m an !",
      "You havn't made an input for the difference of altitude !"}},
    {{27, every, blank<&CalcCase::Netzfrequenz_db>, &incomplete},
     {"Es wurde keine Angabe zur\nNetzfrequenz gemacht.",
      "You havn't made an input for the frequency !"}},
    {{28, {TB207, Kirn}, becomes<&CalcCase::Netzfrequenz_db, 62>, &incorrect},
     {"Die Berechnungen nach Cigre TB 207 und/oder Kirn \n"
      "können nur für Netzfrequenzen von 50 - 60 Hz durchgeführt werden.\n"
      "Bitt ändern sie den Wert der Netzfrequenz.",
      "Calculations by Cigre TB 207 or Kirn can only be carried out\n"
      "for frequencies from 50Hz - 60 Hz. \n"
      "Please correct your input for frequency "}},
    {{29, {TBB}, becomes<&CalcCase::Netzfrequenz_db, 62>, &incorrect},
     {"Die Berechnung für Kreisring-Stromschienen\n"
      "kann nur für Frequenzen von: \n"
      "von 50 Hz bis 60 Hz oder Gleichstrom 0 Hz durchgeführt werden.\n"
      "Bitte ändern sie den Wert der Netzfrequenz.",
      "Calculations by TBB 2018 can only be carried out\n"
      "for frequencies from 50Hz - 60 Hz and 0 Hz (DC). "}},
    {{30, {TB601, Webs}, becomes<&CalcCase::Netzfrequenz_db, 62>, &incorrect},
     {"Die Berechnungen nach Cigre TB 601 und/oder Webs \n"
      "können nur für Frequenzen von: \n"
      " 1 bis 60 Hz oder Gleichstrom (0 Hz) durchgeführt werden.",
      "Calculations by Cigre TB 601 or Webs can only be carried out\n"
      "for frequencies from 0 Hz (DC) to 60 Hz. "}},
    {{31, every, blank<&CalcCase::Emissionsverhaeltnis_db>, &incomplete},
     {"Es wurde keine Angabe zum\nEmissionsverhältnis gemacht.",
      "You havn't made an input for the emissivity !"}},
    {{32, every, becomes<&CalcCase::Emissionsverhaeltnis_db, 2>, &incorrect},
     {"Maximalwert für das Emissionsverhältnis beträgt 1 (=schwarzer Körper) !",
      "The input for the emissivity isn't between the range of 0 to 1 !"}},
    {{33, {TB601, TB207, TBB}, blank<&CalcCase::Absorptionsverhaeltnis_db>, &incomplete},
     {"Es wurde keine Angabe zum\nAbsorptionsverhältnis gemacht.",
      "You havn't made an input for the absorptivity !"}},
    {{34, {TB601, TB207, TBB}, becomes<&CalcCase::Absorptionsverhaeltnis_db, 2>, &incorrect},
     {"Maximalwert für das Absorptionsverhältnis beträgt 1 (=schwarzer Körper) !",
      "The input for the absorptivity isn't between the range of 0 to 1 !"}},
    {{35, every, becomes<&CalcCase::Anzahl_Teilleiter_db, 0>, &incomplete},
     {"Wählen Sie bitte die Anzahl der Teilleiter\n"
      "des zu berechnenden Leiterseiles\n"
      "innerhalb der Grenzen 1 - 8 aus!",
      "You havn't made a selection for the number of conductors !"}},
    {{36, every, [](CalcCase& c) { c.Leitertemp_Merker_db = c.Stromstaerke_Merker_db = false; },
      &incomplete},
     {"Es wurde keine Auswahl getroffen\n"
      "ob Seiltemperatur oder Stromstärke\n"
      "berechnet werden soll.",
      "You havn't made a selection of calculating current\nor conductor temperature !"}},
    {{37, every, blank<&CalcCase::Leitertemp_db>, &incomplete},
     {"Es wurde keine Angabe zur\nLeitertemperatur gemacht.",
      "You havn't made an input for the conductor temperature !"}},
    {{38, every,
      [](CalcCase& c) {
          c.Stromstaerke_Merker_db = true;
          c.Stromstaerkebuendel_Merker_db = false;
          c.Stromstaerke_db.text.clear();
      },
      &incomplete},
     {"Es wurde keine Angabe zur\nStromstaerke gemacht.",
      "You havn't made an input for the current !"}},
    {{40, every,
      [](CalcCase& c) {
          c.Stromstaerkebuendel_Merker_db = true;
          c.Stromstaerke_Buendel.text.clear();
      },
      &incomplete},
     {"Es wurde keine Angabe zur\nStromstaerke gemacht.",
      "You havn't made an input for the current!"}},
    {{41, every, becomes<&CalcCase::conductor_type_db, 0>, &conductor},
     {"Leiterart", "conductor type"}},
    {{42, every, becomes<&CalcCase::conductor_shape_db, 0>, &conductor},
     {"Leiteroberfläche", "conductor shape"}},
    {{43, every, becomes<&CalcCase::Seildurchmesser_db, 0>, &sentence},
     {"erfolgte keine Angabe zum Seildurchmesser!", "Conductor diameter "}},
    {{44, overhead,
      [](CalcCase& c) {
          c.ACDC_R_Option_Merker_db = 1;
          c.DCR_20_db = {"0", 0};
      },
      &sentence},
     {"erfolgte keine Angabe zum Widerstandsbelag!", "DC-resistance at 20°C "}},
    {{45, {TBB}, becomes<&CalcCase::DrahtdurchmesserLeiter_db, 0>, &conductor},
     {"Wandstärke\nder Kreisring-Stromschiene.",
      "Conductor layer data: Wall thickness\nof the tubular busbar !"}},
    {{46, {TB601, TB207}, becomes<&CalcCase::DrahtdurchmesserLeiter_db, 0>, &conductor},
     {"Drahtdurchmesser\ndes Leiterwerkstoffes.", "Conductor layer data: Diameter of wires "}},
    {{47, {TB601, TB207}, becomes<&CalcCase::DrahtlagenzahlLeiter_db, 0>, &conductor},
     {"Drahtlagenanzahl", "Conductor layer data: Number of layers "}},
    {{48, {TB601, TB207}, becomes<&CalcCase::Mantelquerschnitt_db, 0>, &conductor},
     {"Gesamtfläche (Mantelquerschnitt)", "Conductor layer data: Conductor cross section area "}},
    {{49, {TB601, TBB, Webs}, becomes<&CalcCase::DC_Resist_Leiter_db, 0>, &conductor},
     {"DC-Resistivität", "Conductor layer data: DC-Resistivity at 20°C "}},
    {{50, every, becomes<&CalcCase::T_Koeff_DC_Resist_Leiter_linear_db, 0>, &conductor},
     {"linearen Temperaturkoeffizienten der DC-Resistivität",
      "Conductor layer data: linear temperature coefficient DC-Resistivity"}},
    {{51, {TB601}, blank<&CalcCase::T_Koeff_DC_Resist_Leiter_quadrat_db>, &conductor},
     {"quadratischen Temperaturkoeffizienten der DC-Resistivität",
      "Conductor layer data: quadratic temperature coefficient DC-Resistivity"}},
    {{52,
      {TB601},
      [](CalcCase& c) {
          set_kind(c, 2);
          c.KerndurchmesserTraeger_db = {"0", 0};
      },
      &conductor},
     {"Kerndurchmesser", "Core data: core diameter"}},
    {{53, {TB207, Webs, Kirn}, becomes<&CalcCase::ACDC_R_Option_Merker_db, 2>, &not_admissible},
     {"Bei Auswahl der Berechnungsmethode nach Cigre TB 207, Webs oder Kirn kann die Berechnung nur mit\n"
      "DC-Widerstand und Temperaturkoeffizient durchgführt werden. \n"
      "Bitte ändern sie die Berechnungsmethode oder die Auswahl der Widerstände!",
      "If calculation method by Cigre TB 207, Webs or Kirn is selected, the calculation \n"
      "can only be done with DC - resistance and temperature coefficient \n"
      "Please change your input."}},
    {{54, {TB601}, becomes<&CalcCase::ACDC_R_Option_Merker_db, 0>, &no_choice},
     {"Bei Auswahl der Berechnungsmethode nach Cigre TB 601 muß eine Auswahl getroffen werden,\n"
      "ob mit DC-Widerstand und Temperaturkoeffizient\n"
      "oder mit Wertepaaren: AC-Widerstände / Temperaturen\n"
      "gerechnet werden soll.\n"
      "Bitte treffen sie eine Auswahl",
      "By choosing calculation method by Cigre TB 207 you have to make a choice\n"
      "if you want to calculate with: \n"
      "DC-resistance at 20°C and temperature coefficients \n"
      "or with: \n"
      "AC-resistances and temperatures\n"
      "Please make a choice."}},
    {{55,
      {TB601},
      [](CalcCase& c) {
          set_kind(c, 2);
          c.DrahtlagenzahlLeiter_db = 1;
      },
      &not_suitable},
     {"Das ausgewählte Seil ist ein Verbundleiter mit einer Lage Leitermaterial\n"
      "und einem magnetischen Kern. \n"
      "Dies Seile sind im vorliegenden Programm von der Berechnung nach Cigre TB 601\n"
      "aufgrund ihrer großen magnetischen Verlust ausgeschlossen\n"
      "und auch nicht für hochbelastete Leitungen geeignet.\n"
      "Weitere Erläuterungen siehe Benutzerhandbuch VOR\n"
      "Bitte wählen sie ein anderes Seil oder ein anderes Berechnungsverfahren.",
      "The chosen conductor ist a single layer conductor with a magentic core.\n"
      "Within this application the calculation by Cigre TB 601\n"
      "is excluded because of their big magnetic losses / transformer effects\n"
      "at high currents.This conductor are absolutely not suitable \n"
      "for overhead lines with high ampacitiy / current densities.\n"
      "For further information see userbook ZEL \n"
      "Please choose another conductor\n"
      "or another calculation method."}},
    {{56,
      {TB601},
      [](CalcCase& c) {
          set_kind(c, 1);
          c.radialthermalconductivity_unter_KPT_db = {"0", 0};
      },
      &incomplete},
     {"Es erfolgte keine Angabe zur radialen thermischen Leitfähigkeit des Leiters\n"
      "Bitte geben sie einen Wert ein.",
      "You havn't made an input for the radial thermal conductivity of the conductor."}},
    {{57, {TB601}, becomes<&CalcCase::radialthermalconductivity_unter_KPT_db, 0>, &incomplete},
     {"Es erfolgte keine Angabe zur radialen thermischen Leitfähigkeit des Leiters\n"
      "unterhalb der Kniepunkt-Temperatur.",
      "You havn't made an input for the radial thermal conductivity of the conductor\n"
      "below knee-point-temperature."}},
    {{58, {TB601}, becomes<&CalcCase::KniepunktTemperatur_db, 0>, &incomplete},
     {"Es erfolgte keine Angabe zur Kniepunkt-Temperatur des Verbundleiters.",
      "You havn't made an input for the knee-point-temperature of the composite conductor."}},
    {{59, {TB601}, becomes<&CalcCase::radialthermalconductivity_ueber_KPT_db, 0>, &incomplete},
     {"Es erfolgte keine Angabe zur radialen thermischen Leitfähigkeit des Verbundleiters\n"
      "oberhalb der Kniepunkt-Temperatur.",
      "You havn't made an input for the radial thermal conductivity of the composite conductor\n"
      "above knee-point-temperature."}},
};

}  // namespace

const FaultRow unreachable_row = {
    {39, every,
     [](CalcCase& c) {
         c.Leitertemp_Merker_db = false;
         blank<&CalcCase::Leitertemp_db>(c);
         blank<&CalcCase::Stromstaerke_db>(c);
     },
     &incomplete},
    {"Es wurde keine Angabe zur\nLeitertemperatur oder Stromstärke gemacht.",
     "You havn't made an input for conductor temperature or conductor current  !"}};

CalcCase complete(const Methods& methods) {
    CalcCase c;
    for (const CaseField& field : case_fields())
        if (const auto* entry = std::get_if<Entry CalcCase::*>(&field.key)) c.*(*entry) = {"1", 1};
    for (const Method method : methods) c.*flag_of(method) = 1;
    c.Netzfrequenz_db = {"50", 50};
    c.Anzahl_Teilleiter_db = 1;
    c.Leitertemp_Merker_db = true;
    c.conductor_type_db = has(methods, TBB) ? 3 : 2;
    c.conductor_shape_db = 1;
    c.DrahtlagenzahlLeiter_db = 2;
    c.ACDC_R_Option_Merker_db = 1;
    return c;
}

std::span<const FaultRow> rows() { return fault_rows; }

Box expected_box(const FaultRow& row, LangId lang) {
    const Ending& ending = *row.fault.ending;
    std::string text(ending.before.in(lang));
    text += row.lines.in(lang);
    text += ending.after.in(lang);
    return {Icon::Stop, std::string(ending.title.in(lang)), lines_of(text)};
}

}  // namespace zel::steady_faults
