#include "forms/config_options.h"

namespace zel {
namespace {

using S = ProgramSettings;
using enum ConfigOption::Effect;

constexpr Text yes = {"ja", "yes"};
constexpr Text no = {"nein", "no"};

constexpr ConfigOption gravity_options[] = {
    {"Option1", {" 9,80665 m /s^2"}, &S::Gravi_merker, 1},
    {"Option2", {" 9,78 m /s^2"}, &S::Gravi_merker, 2},
    {"Option3", {" 9,83 m /s^2"}, &S::Gravi_merker, 3},
};
constexpr ConfigOption formula_options[] = {
    {"Option7", {"Formel 1 ABB", "Formula 1 ABB"}, &S::Formel_merker, 1},
    {"Option8",
     {"Formel 2 Kiessling - empfohlene Einstellung !",
      "Formula 2 Kiessling -  recommended setting !"},
     &S::Formel_merker,
     2},
};
constexpr ConfigOption minima_options[] = {
    {"Option5", yes, &S::wi_v_wi_merker, -1},
    {"Option6", no, &S::wi_v_wi_merker, 0},
};
constexpr ConfigOption summer_time_options[] = {
    {"Option9", yes, &S::wzsz_merker, 1},
    {"Option4", no, &S::wzsz_merker, 2},
};
constexpr ConfigOption measured_options[] = {
    {"Option15", yes, &S::Mess_merker, -1},
    {"Option14", no, &S::Mess_merker, 0},
};
constexpr ConfigOption separator_options[] = {
    {"Option17",
     {"Komma ( , ) als Dezimaltrennzeichen = deutsches Zahlenformat",
      "comma ( , ) as decimal separator= german format"},
     &S::Punkt_Komma_Format_merker,
     1},
    {"Option16",
     {"Punkt ( . ) als Dezimaltrennzeichen = englisches (US) Zahlenformat ",
      "dot ( . ) as decimal separator = english format (US) "},
     &S::Punkt_Komma_Format_merker,
     2},
};
constexpr ConfigOption heat_capacity_options[] = {
    {"Option19",
     {"mit Berücksichtigung T-Koeffizient Wärmekapazität (dringend empfohlen) ",
      "with consideration Temp.-coefficient heat capacity (strongly recommended) "},
     &S::cigre_TKW_merker,
     1},
    {"Option18",
     {"ohne Berücksichtigung T-Koeffizient Wärmekapazität ",
      "without consideration Temp.-coefficient heat capacity "},
     &S::cigre_TKW_merker,
     2,
     ForThisRun},
};
// Both make room; they differ in nothing.
constexpr ConfigOption test_options[] = {
    {"Option10", yes, nullptr, 0, ShowsTests},
    {"Option11", no, nullptr, 0, ShowsTests},
};
constexpr ConfigOption workbook_options[] = {
    {"Option12",
     {"... Zeile pro Zeile = performanter bei Berechnung bis ca. 10 Zeilen",
      "- line per line = better performance for calculations up to approx. 10 lines"},
     &S::Excel_Zelle_Array_Schreiben_Merker,
     1},
    {"Option13",
     {"... als Array = performanter bei Berechnung von 10 bis max. Zeilenanzahl (2000)",
      "- as an array = better performance when calculating 10 - max. number of lines (2000)"},
     &S::Excel_Zelle_Array_Schreiben_Merker,
     2},
};

constexpr ConfigGroup groups[] = {
    {{" Erdbeschleunigung: ", "constant of gravity: "}, gravity_options},
    {{"Stromstärke-/ Temperatur nach Webs : Berechnung des AC-Widerstands :",
      "Current-/ temperature by Webs : Calculation of AC-resistance :"},
     formula_options},
    {{"Unterschreitung der empfohlenen Mindestwerte für Nachvermessung anzeigen: ",
      "Show falling below recommended minimas for span measuring: "},
     minima_options},
    {{"Berücksichtigung Sommer-/ Winterzeit bei Bestimmung des Sonnen-Einstrahlwinkels:",
      "Consideration summertime / wintertime for determination of sun radiation angle:"},
     summer_time_options},
    {{"Eingabe-/Anzeigefelder für evtl. vorhandene Strom-Messwerte anzeigen :",
      "Show input data fields for eventually available measured current values :"},
     measured_options},
    {{"Einstellung Dezimaltrennzeichen bei Zahlen - wird vom Gebietschema "
      " von MS-Windows Gebietsschema vorgegeben:",
      "Decimal separator setting of numbers is given by MS Windows  "
      "country setting:"},
     separator_options},
    {{"Stromstärke/ Temperatur nach Cigre TB 207 : Berechnung ...",
      "Current-/ temperature by Cigre TB 207 : Calculation ..."},
     heat_capacity_options},
    {{"Programmtest: Schaltflächen für Erzeugung/Auswertung Zufallszahlen Excel-Datenblatt "
      "anzeigen :",
      "Programmtest: Show buttons for generating randomized values Excel-Data-Sheet:"},
     test_options},
    {{"Einstellungen Performance /Zeitdauer Excel - Berechnung",
      "Settings Performance /Time duration Excel - Calculation"},
     workbook_options,
     {"Datenübertragung VOR => Excel    ", "Datenübertragung ZEL => Excel    "}},
};

// German words stand in the English wording.
constexpr BoxText not_kept = {
    Icon::Stop,
    {"Option Temperaturkoeffizient Wärmekapazität", "Option temperature coeffizient heat capacity"},
    {"Diese Option läßt sich nicht dauerhaft konfigurieren.\n"
     "Die Option wird nach Programmende gelöscht und \n"
     "und nicht in abgespeicherte Berechnungsdatensätze übernommen.\n"
     "\n"
     "Die Option dient einzig zum Vergleich der Ergebnisse\n"
     "mit Berechnungsergebnissen von aktuellen Konkurrenzprodukten \n"
     "(März 2005) welche diese fehlerhafte Vereinfachung\n"
     "nach unserer Meinung evtl. anwenden.",
     "This option is a non-permanet setting\n"
     "and will be deleted after finishing the program\n"
     "und will not be saved in calculated data records.\n"
     "\n"
     "This option is only to compare result\n"
     "with results from extern products, who partly  \n"
     "are making this simplificatition !\n"
     "nach unserer Meinung evtl. anwenden."}};

}  // namespace

std::span<const ConfigGroup> config_groups() { return groups; }

const BoxText& for_this_run_only() { return not_kept; }

}  // namespace zel
