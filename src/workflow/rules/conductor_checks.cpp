#include "workflow/rules/steady_check.h"

namespace zel::steady_check {
namespace {

// `ACDC_R_Option_Merker_db`; any other number is no choice.
constexpr std::int16_t dc_resistance = 1;
constexpr std::int16_t ac_resistance_pairs = 2;

constexpr std::string_view conductor_en =
    "You havn't selected a conductor from the conductor database (R-MOX)\n"
    "or the selected conductor hasn't a value for: \n"
    "{0}\n"
    "Please check and complete your selected conductor \n"
    "within the conductor database application R-MOX ";

constexpr BoxText conductor = {Icon::Stop,
                               incomplete_title,
                               {"Es wurde kein Leiter aus der Leiter-Datenbank ausgewählt\n"
                                "oder beim ausgewählten Leiter \n"
                                "erfolgte keine Angabe zu:\n"
                                "{0}\n"
                                "Bitte überprüfen Sie mit\n"
                                "- Aus Seildatenbank auswählen -\n"
                                "ihr gewähltes Seil !",
                                conductor_en}};

// In German some items are a sentence of their own.
constexpr BoxText conductor_sentence = {
    Icon::Stop,
    incomplete_title,
    {"Es wurde kein Leiter aus der Leiter-Datenbank ausgewählt\n"
     "oder beim ausgewählten Leiter \n"
     "{0}\n"
     "Bitte überprüfen Sie mit\n"
     "- Aus Seildatenbank auswählen -\n"
     "ihr gewähltes Seil !",
     conductor_en}};

constexpr BoxText not_admissible = {
    Icon::Stop, {"Eingabe unzulässig ", "Input incorect !"}, {"{0}"}};

constexpr BoxText no_resistance_choice = {
    Icon::Stop, {"Eingabe unvollständig ", incomplete_title.en}, {"{0}"}};

constexpr BoxText not_suitable = {Icon::Stop,
                                  {"Seilauswahl nicht passend zur Berechnungsmethode",
                                   "Input not suitable for calculation method !"},
                                  {"{0}"}};

bool is_homogeneous(const CalcCase& c) { return c.conductor_type_db == homogeneous_conductor; }

bool has_core(const CalcCase& c) {
    return c.conductor_type_db == steel_cored_conductor ||
           c.conductor_type_db == composite_core_conductor;
}

/// TB 601 alone does without the DC resistance, unless it is the chosen one.
bool reads_dc_resistance(const CalcCase& c) {
    return (selected(c) & (TB207 | Webs | Kirn)) != 0 || c.ACDC_R_Option_Merker_db == dc_resistance;
}

template <unsigned methods, auto field, const BoxText& frame>
constexpr Rule needs = {read_by<methods>, not_positive<field>, &frame, field};

constexpr Check checks[] = {
    {needs<always, &CalcCase::conductor_type_db, conductor>, {"Leiterart", "conductor type"}},
    {needs<always, &CalcCase::conductor_shape_db, conductor>,
     {"Leiteroberfläche", "conductor shape"}},
    {needs<always, &CalcCase::Seildurchmesser_db, conductor_sentence>,
     {"erfolgte keine Angabe zum Seildurchmesser!", "Conductor diameter "}},
    {{read_by<TB601 | TB207 | Webs | Kirn>,
      [](const CalcCase& c) {
          return reads_dc_resistance(c) && not_positive<&CalcCase::DCR_20_db>(c);
      },
      &conductor_sentence, &CalcCase::DCR_20_db},
     {"erfolgte keine Angabe zum Widerstandsbelag!", "DC-resistance at 20°C "}},
    {needs<TBB, &CalcCase::DrahtdurchmesserLeiter_db, conductor>,
     {"Wandstärke\n"
      "der Kreisring-Stromschiene.",
      "Conductor layer data: Wall thickness\n"
      "of the tubular busbar !"}},
    {needs<TB601 | TB207, &CalcCase::DrahtdurchmesserLeiter_db, conductor>,
     {"Drahtdurchmesser\n"
      "des Leiterwerkstoffes.",
      "Conductor layer data: Diameter of wires "}},
    {needs<TB601 | TB207, &CalcCase::DrahtlagenzahlLeiter_db, conductor>,
     {"Drahtlagenanzahl", "Conductor layer data: Number of layers "}},
    {needs<TB601 | TB207, &CalcCase::Mantelquerschnitt_db, conductor>,
     {"Gesamtfläche (Mantelquerschnitt)", "Conductor layer data: Conductor cross section area "}},
    {needs<TB601 | TBB | Webs, &CalcCase::DC_Resist_Leiter_db, conductor>,
     {"DC-Resistivität", "Conductor layer data: DC-Resistivity at 20°C "}},
    {needs<always, &CalcCase::T_Koeff_DC_Resist_Leiter_linear_db, conductor>,
     {"linearen Temperaturkoeffizienten der DC-Resistivität",
      "Conductor layer data: linear temperature coefficient DC-Resistivity"}},
    // A given 0 is a value here.
    {{read_by<TB601>, missing<&CalcCase::T_Koeff_DC_Resist_Leiter_quadrat_db>, &conductor,
      &CalcCase::T_Koeff_DC_Resist_Leiter_quadrat_db},
     {"quadratischen Temperaturkoeffizienten der DC-Resistivität",
      "Conductor layer data: quadratic temperature coefficient DC-Resistivity"}},
    {{read_by<TB601>,
      [](const CalcCase& c) {
          return has_core(c) && not_positive<&CalcCase::KerndurchmesserTraeger_db>(c);
      },
      &conductor, &CalcCase::KerndurchmesserTraeger_db},
     {"Kerndurchmesser", "Core data: core diameter"}},
    {{read_by<TB207 | Webs | Kirn>,
      [](const CalcCase& c) { return c.ACDC_R_Option_Merker_db == ac_resistance_pairs; },
      &not_admissible, &CalcCase::ACDC_R_Option_Merker_db},
     {"Bei Auswahl der Berechnungsmethode nach Cigre TB 207, Webs oder Kirn kann die Berechnung nur mit\n"
      "DC-Widerstand und Temperaturkoeffizient durchgführt werden. \n"
      "Bitte ändern sie die Berechnungsmethode oder die Auswahl der Widerstände!",
      "If calculation method by Cigre TB 207, Webs or Kirn is selected, the calculation \n"
      "can only be done with DC - resistance and temperature coefficient \n"
      "Please change your input."}},
    // The English wording names TB 207, the check is one of TB 601.
    {{read_by<TB601>,
      [](const CalcCase& c) {
          return c.ACDC_R_Option_Merker_db != dc_resistance &&
                 c.ACDC_R_Option_Merker_db != ac_resistance_pairs;
      },
      &no_resistance_choice, &CalcCase::ACDC_R_Option_Merker_db},
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
    {{read_by<TB601>,
      [](const CalcCase& c) {
          return c.conductor_type_db == steel_cored_conductor && c.DrahtlagenzahlLeiter_db == 1;
      },
      &not_suitable, &CalcCase::DrahtlagenzahlLeiter_db},
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
    {{read_by<TB601>,
      [](const CalcCase& c) {
          return is_homogeneous(c) &&
                 not_positive<&CalcCase::radialthermalconductivity_unter_KPT_db>(c);
      },
      &incomplete, &CalcCase::radialthermalconductivity_unter_KPT_db},
     {"Es erfolgte keine Angabe zur radialen thermischen Leitfähigkeit des Leiters\n"
      "Bitte geben sie einen Wert ein.",
      "You havn't made an input for the radial thermal conductivity of the conductor."}},
    {{read_by<TB601>,
      [](const CalcCase& c) {
          return !is_homogeneous(c) &&
                 not_positive<&CalcCase::radialthermalconductivity_unter_KPT_db>(c);
      },
      &incomplete, &CalcCase::radialthermalconductivity_unter_KPT_db},
     {"Es erfolgte keine Angabe zur radialen thermischen Leitfähigkeit des Leiters\n"
      "unterhalb der Kniepunkt-Temperatur.",
      "You havn't made an input for the radial thermal conductivity of the conductor\n"
      "below knee-point-temperature."}},
    {{read_by<TB601>,
      [](const CalcCase& c) {
          return !is_homogeneous(c) && not_positive<&CalcCase::KniepunktTemperatur_db>(c);
      },
      &incomplete, &CalcCase::KniepunktTemperatur_db},
     {"Es erfolgte keine Angabe zur Kniepunkt-Temperatur des Verbundleiters.",
      "You havn't made an input for the knee-point-temperature of the composite conductor."}},
    {{read_by<TB601>,
      [](const CalcCase& c) {
          return !is_homogeneous(c) &&
                 not_positive<&CalcCase::radialthermalconductivity_ueber_KPT_db>(c);
      },
      &incomplete, &CalcCase::radialthermalconductivity_ueber_KPT_db},
     {"Es erfolgte keine Angabe zur radialen thermischen Leitfähigkeit des Verbundleiters\n"
      "oberhalb der Kniepunkt-Temperatur.",
      "You havn't made an input for the radial thermal conductivity of the composite conductor\n"
      "above knee-point-temperature."}},
};

}  // namespace

std::span<const Check> conductor_checks() { return checks; }

}  // namespace zel::steady_check
