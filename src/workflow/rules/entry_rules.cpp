#include "workflow/rules/entry_rules.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include "platform/rounding.h"
#include "steady/case/case_fields.h"

namespace zel {
namespace {

constexpr double none = std::numeric_limits<double>::infinity();

constexpr BoxText not_numeric = {
    Icon::Warning,
    {"Fehlerhafte Eingabe", "Incorrect input data"},
    {"Eingegebener Wert kann nicht als Zahl interpretiert werden. Korrigieren Sie bitte die "
     "Eingabe !",
     "Input value can not be identified as a number. Please correct your input data !"}};

/// The limits of a field, each with what is told beyond it.
struct Range {
    double low;
    Text below;
    double high;
    Text above;
    Text title = not_numeric.title;
};

constexpr Range any_number = {-none, {}, none, {}};

constexpr Range wind_angle = {0,
                              {"Minimalwert für Winkel beträgt 0° !\n"
                               "Geben Sie bitte einen geeigneten Wert ein",
                               "Minimum value for angle is 0° !\n"
                               "Please use a value within this range !"},
                              359.9,
                              {"Maximalwert für Winkel beträgt 359.9° !\n"
                               "Geben Sie bitte einen geeigneten Wert ein",
                               "Maximum value for angle is 359.9° !\n"
                               "Please use a value within this range !"},
                              {"Fehlerhafte Eingabe", "Incorrect input"}};

constexpr Range conductor_angle = {
    0,
    {"Minimalwert für Winkel beträgt 0° !", "Minimum value for angle is 0° !"},
    360,
    {"Maximalwert für Winkel beträgt 360° !", "Maximum value for angle is 360° !"},
    {"Fehlerhafte Eingabe", "Incorrect input"}};

// There is no lower limit.
constexpr Range altitude = {-none,
                            {},
                            4500,
                            {"Maximalwert für die Höhe beträgt 4500 m über N.N. !",
                             "Maximum value for altitude is 4500 m above sea level !"}};

// The wording names 1370, the limit is 1400.
constexpr Range radiation = {-none,
                             {},
                             1400,
                             {"Maximalwert für die Globalstrahlung beträgt 1370 W /qm !\n"
                              "=Solarkonstante bei senkrechtem Strahleneinfall\n"
                              "ohne Schwächung durch Erdatmosphäre!",
                              "Maximum value for solar heating is 1370 W /qm !\n"
                              "Please use a value beneath the maximum value !"}};

constexpr Text input_title = {" Fehlerhafte Eingabe", "Incorrect Input"};
constexpr Text below_minus_50 = {"Eingegebener Wert < -50 °C. Korrigieren Sie bitte die Eingabe !",
                                 "Input value lower than -50 °C. Please correct your input !"};

constexpr Range conductor_temperature = {
    -50,
    below_minus_50,
    500,
    {"Eingegebener Wert > 500 °C. Korrigieren Sie bitte die Eingabe !",
     "Input value higher than 500 °C. Please correct your input !"},
    input_title};

constexpr Range table_temperature = {
    -50,
    below_minus_50,
    500,
    {"Eingegebener Wert größer 500 °C. Korrigieren Sie bitte die Eingabe !",
     "Input value higher than 500 °C. Please correct your input !"},
    input_title};

constexpr Range table_current = {
    -none,
    {},
    1000000,
    {"Eingegebener Wert größer als 1000000 A. Korrigieren Sie bitte die Eingabe !",
     "Input value higher than 1000000 A. Please correct your input !"},
    input_title};

constexpr Text wind_told = {
    "Die Eingabe für die Windgeschwindigkeit liegt nicht innerhalb der Berechnungsbandbreite von 0 bis 80 m/s !",
    "The input for the windspeed isn't within the range of 0 to 80 m/s !"};
constexpr Range wind_speed = {0, wind_told, 80, wind_told};

struct Rule {
    Entry CalcCase::*field;
    const Range* range;  // null: the field takes any text
};

// A numeric field that is not named here takes any number.
constexpr Rule rules[] = {
    {&CalcCase::Winkel_W_S_db, &wind_angle},
    {&CalcCase::Winkel_S_S_db, &conductor_angle},
    {&CalcCase::Hoehe_ueber_NN_db, &altitude},
    {&CalcCase::Globalstrahlung_db, &radiation},
    {&CalcCase::Leitertemp_db, &conductor_temperature},
    {&CalcCase::Temp_min_db, &table_temperature},
    {&CalcCase::Temp_max_db, &table_temperature},
    {&CalcCase::Strom_min_db, &table_current},
    {&CalcCase::Strom_max_db, &table_current},
    {&CalcCase::Windgeschwindigkeit_db, &wind_speed},
    {&CalcCase::Wind1_db, &wind_speed},
    {&CalcCase::Wind2_db, &wind_speed},
    {&CalcCase::Wind3_db, &wind_speed},
    {&CalcCase::Wind4_db, &wind_speed},
    {&CalcCase::Wind5_db, &wind_speed},
    {&CalcCase::Wind6_db, &wind_speed},
    {&CalcCase::Messwert_Strom_db, nullptr},
    {&CalcCase::Messwert_Temperatur_db, nullptr},
};

const Range* range_of(Entry CalcCase::*key) {
    const auto* const rule = std::find_if(std::begin(rules), std::end(rules),
                                          [&](const Rule& r) { return r.field == key; });
    return rule == std::end(rules) ? &any_number : rule->range;
}

std::optional<BoxText> refusal(std::optional<double> number, const Range& range) {
    if (!number) return not_numeric;
    if (*number > range.high) return BoxText{Icon::Warning, range.title, range.above};
    if (*number < range.low) return BoxText{Icon::Warning, range.title, range.below};
    return std::nullopt;
}

}  // namespace

std::optional<Box> enter(Entry& field, Entry CalcCase::*key, std::string_view text,
                         const Locale& locale) {
    field.text = text;
    if (text.empty()) return std::nullopt;
    auto number = parse_number(text, locale.separator);
    if (number && holds_whole_numbers(key)) {
        const double typed = *number;
        number = round_half_even(typed);
        // The box shows the number that counts.
        if (*number != typed) field.text = plain_number(*number, locale.separator);
    }
    const Range* range = range_of(key);
    if (range != nullptr)
        if (const auto told = refusal(number, *range)) {
            field.text.clear();
            return box_in(locale.lang, *told);
        }
    if (number) field.value = *number;
    return std::nullopt;
}

std::optional<Box> enter(CalcCase& c, Entry CalcCase::*key, std::string_view text,
                         const Locale& locale) {
    return enter(c.*key, key, text, locale);
}

}  // namespace zel
