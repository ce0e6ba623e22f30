#include "workflow/rules/steady_check.h"

namespace zel::steady_check {
namespace {

bool no_mode(const CalcCase& c) { return !c.Leitertemp_Merker_db && !c.Stromstaerke_Merker_db; }

constexpr Check checks[] = {
    {{read_by<always>, [](const CalcCase& c) { return selected(c) == always; }, &incomplete,
      &CalcCase::rechnung_cigre601_merker_db},
     {"Es wurde kein Verfahren zur Bestimmung des stationären Zustands des Leiters ausgewählt ",
      "You havn't selected a steady-state calculation method ! "}},
    {{read_by<TBB>,
      [](const CalcCase& c) {
          return c.conductor_type_db == homogeneous_conductor ||
                 c.conductor_type_db == steel_cored_conductor ||
                 c.conductor_type_db == composite_core_conductor;
      },
      &incorrect, &CalcCase::conductor_type_db},
     {"Es wurde das Berechnungsverfahren für Kreisringstrom-Schienen in Kombination mit Daten für ein Leiterseil ausgewählt.\n"
      "Bitte wählen Sie mit\n"
      "- Aus Seildatenbank auswählen -\n"
      "eine Kreisring-Stromschiene aus oder ändern sie das Berechnungsverfahren.",
      "You have choosen the calculation method for tubular busbars in combination with datas for an overhead conductor.\n"
      "Please change your selected conductor \n"
      "within the conductor database application R-MOX \n"
      "or change the calculation method."}},
    {{read_by<TB601 | TB207 | Webs | Kirn>,
      [](const CalcCase& c) { return c.conductor_type_db == tubular_busbar; }, &incorrect,
      &CalcCase::conductor_type_db},
     {"Es wurde ein Berechnungsverfahren für Leiterseile in Kombination mit Leiterdaten für Kreisring-Stromschienen ausgewählt.\n"
      "Daten für ein Leiterseil aus oder ändern sie das Berechnungsverfahren.",
      "You have choosen a calculation method for overhead conductors in combination with datas for tubular busbars."}},
    {lacks<always, &CalcCase::Hoehe_ueber_NN_db>,
     {"Es wurde keine Angabe zur Höhe der Freileitung / Anlage über N.N. gemacht. ",
      "You havn't made an input for altitude above sea level. "}},
    {lacks<always, &CalcCase::Winkel_S_S_db>,
     {"Geben Sie den Winkel zwischen Seilrichtung und Nordrichtung in Grad an !",
      "You havn't made an input for the conductor angle relative to north. "}},
    {lacks<Webs | Kirn, &CalcCase::geogr_Breite_db>,
     {"Es wurden keine Angaben zur\n"
      "geographischen Breite \n"
      "des Spannfeldstandortes gemacht.",
      "You havn't made an input for the latitude \n"
      "of the overhead line !"}},
    {lacks<Webs | Kirn, &CalcCase::geo_laeng_db>,
     {"Geben Sie einen Wert für den Laengengrad an !\n"
      "auf welchem sich die Leitung befindet\n"
      "Fuer Leitungen mit groesserer Ausdehnung \n"
      "genuegt ein Mittelwert ",
      "You havn't made an input for the longitude \n"
      "of the overhead line !"}},
    {lacks<Webs | Kirn, &CalcCase::geo_laeng_zeit_db>,
     {"Geben Sie einen Wert für den Laengengrad  an !\n"
      "auf welchen sich die oertl. Standardzeit bezieht\n"
      "Bsp. MEZ => -15° (= 15°Ost)",
      "You havn't made an input for the longitude \n"
      "of local time !"}},
    {lacks<always, &CalcCase::Windgeschwindigkeit_db>,
     {"Es wurde keine Angabe zur  \n"
      "Windgeschwindigkeit auf Seilhöhe gemacht",
      "You havn't made an input for the wind speed\n"
      "at conductor level !"}},
    {beyond<always, &CalcCase::Windgeschwindigkeit_db, 0, 80>,
     {"Die Eingabe für die Windgeschwindigkeit liegt nicht innerhalb der Berechnungsbandbreite von 0 bis 80 m/s !\n"
      "Geben Sie bitte einen geringeren Wert ein",
      "The input for the windspeed isn't within the range of 0 to 80 m/s !"}},
    {lacks<always, &CalcCase::Winkel_W_S_db>,
     {"Geben Sie den Winkel zwischen Windrichtung und Nordrichtung in Grad an !",
      "You havn't made an input for the wind angle\n"
      "relative to north !"}},
    {lacks<always, &CalcCase::Umgebungstemperatur_db>,
     {"Es wurde keine Angabe zur \n"
      "Umgebungstemperatur gemacht.",
      "You havn't made an input for the ambient temperature !"}},
    {lacks<Kirn, &CalcCase::Bodentemp_db>,
     {"Geben Sie die Bodentemperatur in Grad Celsius an !",
      "You havn't made an input for the ground temperature !"}},
    {lacks<Kirn, &CalcCase::Bodenart_db>,
     {"Geben Sie einen Wert für die Bodenbeschaffenheit an !",
      "You havn't made an input for the ground reflectivity / albedo !"}},
    {lacks<always, &CalcCase::Globalstrahlung_db>,
     {"Es wurde keine Angabe zur\n"
      "Globalstrahlung gemacht.",
      "You havn't made an input for the solar heating !"}},
    {lacks<Kirn, &CalcCase::Bewoelkungsgrad_db>,
     {"Geben Sie bitte einen Wert für die Bewölkung (= Bewölkungsgrad) an !",
      "You havn't made an input for the clearness ratio !"}},
    {lacks<Webs | Kirn, &CalcCase::Tag_db>,
     {"Geben Sie bitte den Kalendertag an, für welchen die Berechnung durchgeführt werden soll !",
      "You havn't made an input for the calendary day !"}},
    {beyond<Webs | Kirn, &CalcCase::Tag_db, 1, 31>,
     {"Die Angabe zum Kalendertag muss zwischen 1 und 31 liegen ! ",
      "The input for calendary day isn't between the range of 1 to 31 !"}},
    {lacks<Webs | Kirn, &CalcCase::Monat_db>,
     {"Geben Sie bitte den Kalendermonat an, für welchen die Berechnung durchgeführt werden soll !",
      "You havn't made an input for the calendary month !"}},
    {beyond<Webs | Kirn, &CalcCase::Monat_db, 1, 12>,
     {"Die Angabe zum Kalendermonat muss zwischen 1 und 12 liegen ! ",
      "The input for calendary month isn't between the range of 1 to 12 !"}},
    {lacks<Webs | Kirn, &CalcCase::Stunden_db>,
     {" Geben Sie bitte die Stunden der Uhrzeit ( 00.00 -24.00 ) an, für welche die Berechnung durchgeführt werden soll !",
      "You havn't made an input for the daytime hour !"}},
    // The hour 24 is refused, whatever the English wording says.
    {beyond<Webs | Kirn, &CalcCase::Stunden_db, 0, 23>,
     {"Die Angabe zur Stunde muss im Bereich 0 bis 23 liegen ! ",
      "The input for the daytime hour isn't between the range of 0 to 24 !"}},
    {lacks<Webs | Kirn, &CalcCase::Minuten_db>,
     {"Geben Sie bitte die Minuten der Uhrzeit an, für welche die Berechnung durchgeführt werden soll !",
      "You havn't made an input for the minutes of daytime !"}},
    {beyond<Webs | Kirn, &CalcCase::Minuten_db, 0, 59>,
     {"Die Angabe zur Minute muss zwischen 0 und 59 liegen ! ",
      "The input for the minutes of daytime isn't between the range of 0 to 59 !"}},
    {{read_by<Kirn>, not_positive<&CalcCase::Feldlaenge_db>, &incomplete, &CalcCase::Feldlaenge_db,
      above_zero},
     {"Geben Sie bitte einen Wert für die Feldlaenge bzw. einen Wert groesser 0 m an !",
      "You havn't made an input for the span length !"}},
    {lacks<Kirn, &CalcCase::Hoehendifferenz_db>,
     {"Geben Sie bitte die Höhendifferenz der Aufhängepunkte in m an !",
      "You havn't made an input for the difference of altitude !"}},
    {lacks<always, &CalcCase::Netzfrequenz_db>,
     {"Es wurde keine Angabe zur\n"
      "Netzfrequenz gemacht.",
      "You havn't made an input for the frequency !"}},
    {beyond<TB207 | Kirn, &CalcCase::Netzfrequenz_db, 49, 61>,
     {"Die Berechnungen nach Cigre TB 207 und/oder Kirn \n"
      "können nur für Netzfrequenzen von 50 - 60 Hz durchgeführt werden.\n"
      "Bitt ändern sie den Wert der Netzfrequenz.",
      "Calculations by Cigre TB 207 or Kirn can only be carried out\n"
      "for frequencies from 50Hz - 60 Hz. \n"
      "Please correct your input for frequency "}},
    {{read_by<TBB>,
      [](const CalcCase& c) {
          return outside<&CalcCase::Netzfrequenz_db, 0, 1>(c) &&
                 outside<&CalcCase::Netzfrequenz_db, 49, 61>(c);
      },
      &incorrect,
      &CalcCase::Netzfrequenz_db,
      {NumberSpan{0, 1}, NumberSpan{49, 61}}},
     {"Die Berechnung für Kreisring-Stromschienen\n"
      "kann nur für Frequenzen von: \n"
      "von 50 Hz bis 60 Hz oder Gleichstrom 0 Hz durchgeführt werden.\n"
      "Bitte ändern sie den Wert der Netzfrequenz.",
      "Calculations by TBB 2018 can only be carried out\n"
      "for frequencies from 50Hz - 60 Hz and 0 Hz (DC). "}},
    {beyond<TB601 | Webs, &CalcCase::Netzfrequenz_db, 0, 61>,
     {"Die Berechnungen nach Cigre TB 601 und/oder Webs \n"
      "können nur für Frequenzen von: \n"
      " 1 bis 60 Hz oder Gleichstrom (0 Hz) durchgeführt werden.",
      "Calculations by Cigre TB 601 or Webs can only be carried out\n"
      "for frequencies from 0 Hz (DC) to 60 Hz. "}},
    {lacks<always, &CalcCase::Emissionsverhaeltnis_db>,
     {"Es wurde keine Angabe zum\n"
      "Emissionsverhältnis gemacht.",
      "You havn't made an input for the emissivity !"}},
    {beyond<always, &CalcCase::Emissionsverhaeltnis_db, 0, 1>,
     {"Maximalwert für das Emissionsverhältnis beträgt 1 (=schwarzer Körper) !",
      "The input for the emissivity isn't between the range of 0 to 1 !"}},
    {lacks<TB601 | TB207 | TBB, &CalcCase::Absorptionsverhaeltnis_db>,
     {"Es wurde keine Angabe zum\n"
      "Absorptionsverhältnis gemacht.",
      "You havn't made an input for the absorptivity !"}},
    // There is no lower limit.
    {{read_by<TB601 | TB207 | TBB>,
      [](const CalcCase& c) { return c.Absorptionsverhaeltnis_db.value > 1; },
      &incorrect,
      &CalcCase::Absorptionsverhaeltnis_db,
      {NumberSpan{-unlimited, 1}, no_span}},
     {"Maximalwert für das Absorptionsverhältnis beträgt 1 (=schwarzer Körper) !",
      "The input for the absorptivity isn't between the range of 0 to 1 !"}},
    {{read_by<always>, outside<&CalcCase::Anzahl_Teilleiter_db, 1, 8>, &incomplete,
      &CalcCase::Anzahl_Teilleiter_db},
     {"Wählen Sie bitte die Anzahl der Teilleiter\n"
      "des zu berechnenden Leiterseiles\n"
      "innerhalb der Grenzen 1 - 8 aus!",
      "You havn't made a selection for the number of conductors !"}},
    {{read_by<always>, no_mode, &incomplete, &CalcCase::Leitertemp_Merker_db},
     {"Es wurde keine Auswahl getroffen\n"
      "ob Seiltemperatur oder Stromstärke\n"
      "berechnet werden soll.",
      "You havn't made a selection of calculating current\n"
      "or conductor temperature !"}},
    {{read_by<always>,
      [](const CalcCase& c) {
          return c.Leitertemp_Merker_db && missing<&CalcCase::Leitertemp_db>(c);
      },
      &incomplete, &CalcCase::Leitertemp_db},
     {"Es wurde keine Angabe zur\n"
      "Leitertemperatur gemacht.",
      "You havn't made an input for the conductor temperature !"}},
    {{read_by<always>,
      [](const CalcCase& c) {
          return c.Stromstaerke_Merker_db && !c.Stromstaerkebuendel_Merker_db &&
                 missing<&CalcCase::Stromstaerke_db>(c);
      },
      &incomplete, &CalcCase::Stromstaerke_db},
     {"Es wurde keine Angabe zur\n"
      "Stromstaerke gemacht.",
      "You havn't made an input for the current !"}},
    // Out of reach behind the check of the mode, and kept with the list.
    {{read_by<always>,
      [](const CalcCase& c) {
          return no_mode(c) && missing<&CalcCase::Leitertemp_db>(c) &&
                 missing<&CalcCase::Stromstaerke_db>(c);
      },
      &incomplete, &CalcCase::Leitertemp_Merker_db},
     {"Es wurde keine Angabe zur\n"
      "Leitertemperatur oder Stromstärke gemacht.",
      "You havn't made an input for conductor temperature or conductor current  !"}},
    {{read_by<always>,
      [](const CalcCase& c) {
          return c.Stromstaerkebuendel_Merker_db && missing<&CalcCase::Stromstaerke_Buendel>(c);
      },
      &incomplete, &CalcCase::Stromstaerke_Buendel},
     {"Es wurde keine Angabe zur\n"
      "Stromstaerke gemacht.",
      "You havn't made an input for the current!"}},
};

}  // namespace

std::span<const Check> input_checks() { return checks; }

std::span<const Check> kind_checks() { return input_checks().subspan(1, 2); }

}  // namespace zel::steady_check
