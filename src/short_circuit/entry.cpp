#include "short_circuit/entry.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "workflow/rules/rule_tables.h"

namespace zel {
namespace {

using C = ShortCircuitCase;

constexpr BoxText not_numeric = {
    Icon::Stop,
    {"Fehlerhafte Eingabe", "Incorrect input data"},
    {"Eingegebener Wert kann nicht als Zahl interpretiert werden. Korrigieren Sie bitte die Eingabe !",
     "Input value can not be identified as a number. Please correct your input data !"}};

constexpr Text limit_title = {" Fehlerhafte Eingabe"};

// These texts are German in every language.
constexpr Limits frequency =
    Limits().at_most(99, {"Maximalwert für die Frequenz des Stromkreises beträgt 99 Hz !\n"
                          "Geben Sie bitte einen geringeren Wert ein"});
constexpr Limits duration = Limits().at_most(
    1000, {"Maximalwert beträgt 1000 s !\nGeben Sie bitte einen geringeren Wert ein"});
constexpr Limits current = Limits().at_most(
    1000, {"Maximalwert beträgt 1000 kA !\nGeben Sie bitte einen geringeren Wert ein"});
constexpr Limits kappa =
    Limits().at_most(2, {"Maximalwert beträgt 2 !\nGeben Sie bitte einen geringeren Wert ein"});
constexpr Limits temperature =
    Limits()
        .at_least(-60, {"Minimalwert beträgt -60°C !\nGeben Sie bitte einen größeren Wert ein"})
        .at_most(500, {"Maximalwert beträgt 500 °C !\nGeben Sie bitte einen geringeren Wert ein"});

// The wording names 4183, the limit is 5000.
constexpr Limits heat_capacity =
    Limits().between(0, 5000,
                     {"Minimalwert der spez. Wärmekapazität beträgt 0 J/kg*k !\n"
                      "Maximalwert der spez. Wärmekapazität beträgt 4183 J/kg*k !\n"
                      "Geben Sie bitte einen korrekten Wert ein."});
constexpr Limits conductivity =
    Limits().between(1, 100,
                     {"Minimalwert des spezifischen Leitfähigkeit beträgt 1 m / (Ohm *qmm) !\n"
                      "Maximalwert des spezifischen Leitfähigkeit beträgt 100 m / (Ohm *qmm) !\n"
                      "Geben Sie bitte einen korrekten Wert ein."});
// The limit is that of 32 bits, as the number is.
constexpr Limits coefficient = Limits().between(
    0, static_cast<double>(0.1F),
    {"Minimalwert des Temperaturkoeffizienten der Leitfähigkeit beträgt 0 / k !\n"
     "Maximalwert des Temperaturkoeffizienten der Leitfähigkeit beträgt 0,1 / k !\n"
     "Geben Sie bitte einen korrekten Wert ein."});
// The upper limit too is announced as "Minimalwert".
constexpr Limits density =
    Limits().between(100, 22600,
                     {"Minimalwert der Dichte des Leiterwerkstoffes beträgt 100 kg *m^3 !\n"
                      "Minimalwert der Dichte des Leiterwerkstoffes beträgt 22600 kg *m^3 !\n"
                      "Geben Sie bitte einen korrekten Wert ein."});

struct BoxLimits {
    NumberKey box;
    const Limits* limits;
};

// A box that is not named here takes any number.
constexpr BoxLimits rules[] = {
    {&C::Frequenz_ks, &frequency},
    {&C::Tk1, &duration},
    {&C::Tk2, &duration},
    {&C::Tk3, &duration},
    {&C::T_k, &duration},
    {&C::Tkr, &duration},
    {&C::IK2, &current},
    {&C::IK, &current},
    {&C::Ith, &current},
    {&C::Ithr, &current},
    {&C::Kappa, &kappa},
    {&C::theta_b, &temperature},
    {&C::theta_e, &temperature},
    {&C::waermekapaz, &heat_capacity},
    {&C::kappa20_ks, &conductivity},
    {&C::Tk20_ks, &coefficient},
    {&C::Dichte_rho, &density},
};

std::optional<NumberRefusal> refusal(std::optional<float> number, const Limits& limits,
                                     LangId lang) {
    const Text* told = number ? limits.broken_by(static_cast<double>(*number)) : nullptr;
    if (told != nullptr) return NumberRefusal{box_in(lang, {Icon::Stop, limit_title, *told})};
    if (!number || std::isinf(*number)) return NumberRefusal{box_in(lang, not_numeric), true};
    return std::nullopt;
}

}  // namespace

const Limits& limits_of(NumberKey box) {
    static constexpr Limits any_number;
    const auto* const rule = std::find_if(std::begin(rules), std::end(rules),
                                          [&](const BoxLimits& r) { return r.box == box; });
    return rule == std::end(rules) ? any_number : *rule->limits;
}

std::optional<NumberRefusal> enter(Entry& field, NumberKey box, std::string_view text,
                                   const Locale& locale) {
    field.text = text;
    if (text.empty()) return std::nullopt;
    const auto number = parse_single(text, locale.separator);
    if (auto refused = refusal(number, limits_of(box), locale.lang)) {
        field = {};
        return refused;
    }
    field.value = *number;
    return std::nullopt;
}

}  // namespace zel
