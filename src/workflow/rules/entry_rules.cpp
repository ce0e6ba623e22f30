#include "workflow/rules/entry_rules.h"

#include <algorithm>
#include <iterator>

#include "platform/rounding.h"
#include "steady/case/case_fields.h"
#include "workflow/rules/rule_tables.h"

namespace zel {
namespace {

constexpr BoxText not_numeric = {
    Icon::Warning,
    {"Fehlerhafte Eingabe", "Incorrect input data"},
    {"Eingegebener Wert kann nicht als Zahl interpretiert werden. Korrigieren Sie bitte die "
     "Eingabe !",
     "Input value can not be identified as a number. Please correct your input data !"}};

constexpr Limits any_number;

constexpr Text title = {"Fehlerhafte Eingabe", "Incorrect input"};
constexpr Text input_title = {" Fehlerhafte Eingabe", "Incorrect Input"};

constexpr Limits wind_angle = Limits()
                                  .at_least(0, {"Minimalwert für Winkel beträgt 0° !\n"
                                                "Geben Sie bitte einen geeigneten Wert ein",
                                                "Minimum value for angle is 0° !\n"
                                                "Please use a value within this range !"})
                                  .at_most(359.9, {"Maximalwert für Winkel beträgt 359.9° !\n"
                                                   "Geben Sie bitte einen geeigneten Wert ein",
                                                   "Maximum value for angle is 359.9° !\n"
                                                   "Please use a value within this range !"})
                                  .titled(title);

constexpr Limits conductor_angle =
    Limits()
        .at_least(0, {"Minimalwert für Winkel beträgt 0° !", "Minimum value for angle is 0° !"})
        .at_most(360,
                 {"Maximalwert für Winkel beträgt 360° !", "Maximum value for angle is 360° !"})
        .titled(title);

// There is no lower limit.
constexpr Limits altitude =
    Limits().at_most(4500, {"Maximalwert für die Höhe beträgt 4500 m über N.N. !",
                            "Maximum value for altitude is 4500 m above sea level !"});

// The wording names 1370, the limit is 1400.
constexpr Limits radiation =
    Limits().at_most(1400, {"Maximalwert für die Globalstrahlung beträgt 1370 W /qm !\n"
                            "=Solarkonstante bei senkrechtem Strahleneinfall\n"
                            "ohne Schwächung durch Erdatmosphäre!",
                            "Maximum value for solar heating is 1370 W /qm !\n"
                            "Please use a value beneath the maximum value !"});

constexpr Limits from_minus_50 =
    Limits()
        .at_least(-50, {"Eingegebener Wert < -50 °C. Korrigieren Sie bitte die Eingabe !",
                        "Input value lower than -50 °C. Please correct your input !"})
        .titled(input_title);

constexpr Limits conductor_temperature =
    from_minus_50.at_most(500, {"Eingegebener Wert > 500 °C. Korrigieren Sie bitte die Eingabe !",
                                "Input value higher than 500 °C. Please correct your input !"});

constexpr Limits table_temperature = from_minus_50.at_most(
    500, {"Eingegebener Wert größer 500 °C. Korrigieren Sie bitte die Eingabe !",
          "Input value higher than 500 °C. Please correct your input !"});

constexpr Limits table_current =
    Limits()
        .at_most(1000000,
                 {"Eingegebener Wert größer als 1000000 A. Korrigieren Sie bitte die Eingabe !",
                  "Input value higher than 1000000 A. Please correct your input !"})
        .titled(input_title);

constexpr Limits wind_speed = Limits().between(
    0, 80,
    {"Die Eingabe für die Windgeschwindigkeit liegt nicht innerhalb der Berechnungsbandbreite von 0 bis 80 m/s !",
     "The input for the windspeed isn't within the range of 0 to 80 m/s !"});

struct FieldRule {
    Entry CalcCase::*field;
    const Limits* limits;  // null: the field takes any text
};

// A numeric field that is not named here takes any number.
constexpr FieldRule rules[] = {
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

std::optional<BoxText> refusal(std::optional<double> number, const Limits& limits) {
    if (!number) return not_numeric;
    const Text* const told = limits.broken_by(*number);
    if (told == nullptr) return std::nullopt;
    return BoxText{Icon::Warning, limits.title_or(not_numeric.title), *told};
}

}  // namespace

const Limits* limits_of(Entry CalcCase::*key) {
    const auto* const rule = std::find_if(std::begin(rules), std::end(rules),
                                          [&](const FieldRule& r) { return r.field == key; });
    return rule == std::end(rules) ? &any_number : rule->limits;
}

std::optional<Box> enter(Entry& field, Entry CalcCase::*key, std::string_view text,
                         const Locale& locale) {
    field.text = text;
    if (text.empty()) return std::nullopt;
    auto number = parse_number(text, locale.separator);
    if (number && key != nullptr && field_of(key).rounded) {
        const double typed = *number;
        number = round_half_even(typed);
        // The box shows the number that counts.
        if (*number != typed) field.text = plain_number(*number, locale.separator);
    }
    if (const Limits* const limits = limits_of(key))
        if (const auto told = refusal(number, *limits)) {
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
