#include <span>

#include "steady/case/case_fields.h"
#include "tables_graphs/parameter_table.h"
#include "workflow/rules/steady_check.h"

namespace zel {
namespace {

/// The place of a check is the input by which it is met.
using Check = zel::Check<CalcCase, FieldKey>;
using C = CalcCase;

constexpr BoxText incomplete = {
    Icon::Stop, {"Unvollständige Eingabe", "Input incomplete !"}, {"{0}", "{0}"}};
constexpr BoxText incorrect = {
    Icon::Stop, {"fehlerhafte Eingabe ", "Input incorrect !"}, {"{0}", "{0}"}};

bool always(const C& /*c*/) { return true; }
bool of_ambient(const C& c) { return stepped_by(c) == Stepped::AmbientTemperature; }
bool of_conductor(const C& c) { return !of_ambient(c); }

bool no_wind(const C& c) {
    return !c.Wind1_db.given() && !c.Wind2_db.given() && !c.Wind3_db.given() &&
           !c.Wind4_db.given() && !c.Wind5_db.given() && !c.Wind6_db.given();
}
template <auto step>
bool no_step(const C& c) {
    return c.*step <= 0;
}

/// An empty bound counts as 0.
double number(const Entry& bound) { return bound.given() ? bound.value : 0; }
template <auto low, auto high>
bool equal(const C& c) {
    return number(c.*low) == number(c.*high);
}
template <auto low, auto high>
bool reversed(const C& c) {
    return number(c.*low) > number(c.*high);
}

constexpr double most_rows = 100000;
template <auto low, auto high, auto step>
bool too_long(const C& c) {
    return (number(c.*high) - number(c.*low)) / c.*step >= most_rows;
}
constexpr Text too_long_text = {
    "Die Tabelle hätte mehr als 100000 Zeilen.\n"
    "Bitte wählen Sie eine größere Schrittweite oder einen kleineren Bereich.",
    "The table would have more than 100000 rows.\n"
    "Please choose a larger step or a smaller range."};

constexpr Text no_wind_text = {"Es muss mindestens in einem Feld eine Angabe zur\n"
                               "Windgeschwindigkeit gemacht werden.\n"
                               "Bitte vervollständigen Sie ihre Eingabe !",
                               "You have to give at least in one input data field\n"
                               "a value for wind speed. \n"
                               "Please complete your input !"};

constexpr auto no_temperature_step = no_step<&C::Schrittweite_Temp_db>;
constexpr auto equal_temperatures = equal<&C::Temp_min_db, &C::Temp_max_db>;
constexpr auto reversed_temperatures = reversed<&C::Temp_min_db, &C::Temp_max_db>;

constexpr Check checks_of_currents[] = {
    {{always, no_wind, &incomplete, &C::Wind1_db}, no_wind_text},
    {{always, no_temperature_step, &incomplete, &C::Schrittweite_Temp_db},
     {"Es wurde keine Angabe zur Schrittweite\n"
      "des Temperaturbereiches gemacht.\n"
      "Bitte vervollständigen Sie ihre Eingabe !",
      "You havn't made an input for step range of temperature. \n"
      "Please complete your input !"}},
    {{always, equal_temperatures, &incorrect, &C::Temp_max_db},
     {"Minimaltemperatur gleich als Maximaltemperatur !\n"
      "Maximaltemperatur muss groesser Minimaltemperatur sein !\n"
      "Bitte korrigieren Sie ihre Eingabe !",
      "Minimum temperature is equal to maximum temperature. \n"
      "Please correct your input !"}},
    {{always, reversed_temperatures, &incorrect, &C::Temp_min_db},
     {"Minimaltemperatur ist groesser als Maximaltemperatur !\n"
      "Bitte korrigieren Sie ihre Eingabe !",
      "Minimum temperature is higher than maximum temperature. \n"
      "Please correct your input !"}},
    {{of_ambient, missing<&C::Temp_max_db>, &incomplete, &C::Temp_max_db},
     {"Es wurde keine Angabe zur Maximaltemperatur\n"
      "der Umgebung gemacht.\n"
      "Bitte vervollständigen Sie Ihre Eingabe !",
      "You havn't made an input for maximum ambient temperature. \n"
      "Please complete your input."}},
    {{of_conductor, missing<&C::Temp_max_db>, &incomplete, &C::Temp_max_db},
     {"Es wurde keine Angabe zur Maximaltemperatur\n"
      "des Seiles gemacht.\n"
      "Bitte vervollständigen Sie Ihre Eingabe !",
      "You havn't made an input for maximum conductor temperature. \n"
      "Please complete your input."}},
    {{of_ambient, missing<&C::Temp_min_db>, &incomplete, &C::Temp_min_db},
     {"Es wurde keine Angabe zur Minimaltemperatur\n"
      "der Umgebung gemacht.\n"
      "Bitte vervollständigen Sie Ihre Eingabe !",
      "You havn't made an input for minium ambient temperature. \n"
      "Please complete your input."}},
    {{of_conductor, missing<&C::Temp_min_db>, &incomplete, &C::Temp_min_db},
     {"Es wurde keine Angabe zur Minimaltemperatur\n"
      "des Seiles gemacht.\n"
      "Bitte vervollständigen Sie Ihre Eingabe !",
      "You havn't made an input for minium conductor temperature. \n"
      "Please complete your input."}},
    {{always, too_long<&C::Temp_min_db, &C::Temp_max_db, &C::Schrittweite_Temp_db>, &incorrect,
      &C::Schrittweite_Temp_db},
     too_long_text},
};

constexpr auto no_current_step = no_step<&C::Schrittweite_Strom_db>;
constexpr auto equal_currents = equal<&C::Strom_min_db, &C::Strom_max_db>;
constexpr auto reversed_currents = reversed<&C::Strom_min_db, &C::Strom_max_db>;

constexpr Check checks_of_temperatures[] = {
    {{always, no_wind, &incomplete, &C::Wind1_db}, no_wind_text},
    {{always, no_current_step, &incomplete, &C::Schrittweite_Strom_db},
     {"Es wurde keine Angabe zur Schrittweite\n"
      "des Strombereiches gemacht.\n"
      "Bitte vervollständigen Sie ihre Eingabe !",
      "You havn't made an input for step range of current. \n"
      "Please complete your input !"}},
    {{always, equal_currents, &incorrect, &C::Strom_max_db},
     {"Unterer Stromwert gleich oberer Stromwert !\n"
      "Oberer Stromwert muss groesser unterer Stromwert sein !\n"
      "Bitte korrigieren Sie ihre Eingabe !",
      "Minimum current is equal to maximum current. \n"
      "Please correct your input !"}},
    {{always, reversed_currents, &incorrect, &C::Strom_min_db},
     {"Unterer Stromwert ist groesser als oberer Stromwert !\n"
      "Bitte korrigieren Sie ihre Eingabe !",
      "Minimum current is higher than maximum current. \n"
      "Please correct your input !"}},
    {{always, missing<&C::Strom_max_db>, &incomplete, &C::Strom_max_db},
     {"Es wurde keine Angabe zum Maximalstrom\n"
      "des Strombereiches gemacht.\n"
      "Bitte vervollständigen Sie Ihre Eingabe !",
      "You havn't made an input for maxium current. \n"
      "Please complete your input."}},
    {{always, missing<&C::Strom_min_db>, &incomplete, &C::Strom_min_db},
     {"Es wurde keine Angabe zum Minimalstrom\n"
      "des Strombereiches gemacht.\n"
      "Bitte vervollständigen Sie Ihre Eingabe !",
      "You havn't made an input for minium current. \n"
      "Please complete your input."}},
    {{always, too_long<&C::Strom_min_db, &C::Strom_max_db, &C::Schrittweite_Strom_db>, &incorrect,
      &C::Schrittweite_Strom_db},
     too_long_text},
};

const Check* refusing(std::span<const Check> checks, const C& c) {
    return first_refusing(checks, c);
}

const Check* refusing(const C& c) {
    return stepped_by(c) == Stepped::Current ? refusing(checks_of_temperatures, c)
                                             : refusing(checks_of_currents, c);
}

std::optional<Box> box_of(const Check* check, LangId lang) {
    return check != nullptr ? std::optional(check->box(lang)) : std::nullopt;
}

}  // namespace

std::optional<Box> S10_tab_strom_1_eingabepruefung(const CalcCase& c, LangId lang) {
    return box_of(refusing(checks_of_currents, c), lang);
}

std::optional<Box> S10_tab_temp_1_eingabepruefung(const CalcCase& c, LangId lang) {
    return box_of(refusing(checks_of_temperatures, c), lang);
}

std::optional<Box> check_table(const CalcCase& c, LangId lang) { return box_of(refusing(c), lang); }

std::optional<FieldBox> refusal_of_table(const CalcCase& c, LangId lang) {
    const steady_check::Check* check = steady_check::first_refusal(c);
    if (check == nullptr) check = refusing(c);
    if (check == nullptr) return std::nullopt;
    return FieldBox{check->box(lang), &field_of(check->rule.place)};
}

}  // namespace zel
