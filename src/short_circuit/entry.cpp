#include "short_circuit/entry.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace zel {
namespace {

using C = ShortCircuitCase;

constexpr float none = std::numeric_limits<float>::infinity();

constexpr BoxText not_numeric = {
    Icon::Stop,
    {"Fehlerhafte Eingabe", "Incorrect input data"},
    {"Eingegebener Wert kann nicht als Zahl interpretiert werden. Korrigieren Sie bitte die Eingabe !",
     "Input value can not be identified as a number. Please correct your input data !"}};

constexpr Text limit_title = {" Fehlerhafte Eingabe"};

/// The limits of a box, each with what is told beyond it. These texts are German in every language.
struct Limits {
    float low;
    Text below;
    float high;
    Text above;
};

constexpr Limits frequency = {-none,
                              {},
                              99,
                              {"Maximalwert für die Frequenz des Stromkreises beträgt 99 Hz !\n"
                               "Geben Sie bitte einen geringeren Wert ein"}};

constexpr Limits duration = {
    -none, {}, 1000, {"Maximalwert beträgt 1000 s !\nGeben Sie bitte einen geringeren Wert ein"}};

constexpr Limits current = {
    -none, {}, 1000, {"Maximalwert beträgt 1000 kA !\nGeben Sie bitte einen geringeren Wert ein"}};

constexpr Limits kappa = {
    -none, {}, 2, {"Maximalwert beträgt 2 !\nGeben Sie bitte einen geringeren Wert ein"}};

constexpr Limits temperature = {
    -60,
    {"Minimalwert beträgt -60°C !\nGeben Sie bitte einen größeren Wert ein"},
    500,
    {"Maximalwert beträgt 500 °C !\nGeben Sie bitte einen geringeren Wert ein"}};

// The wording names 4183, the limit is 5000.
constexpr Text heat_capacity_told = {"Minimalwert der spez. Wärmekapazität beträgt 0 J/kg*k !\n"
                                     "Maximalwert der spez. Wärmekapazität beträgt 4183 J/kg*k !\n"
                                     "Geben Sie bitte einen korrekten Wert ein."};
constexpr Limits heat_capacity = {0, heat_capacity_told, 5000, heat_capacity_told};

constexpr Text conductivity_told = {
    "Minimalwert des spezifischen Leitfähigkeit beträgt 1 m / (Ohm *qmm) !\n"
    "Maximalwert des spezifischen Leitfähigkeit beträgt 100 m / (Ohm *qmm) !\n"
    "Geben Sie bitte einen korrekten Wert ein."};
constexpr Limits conductivity = {1, conductivity_told, 100, conductivity_told};

constexpr Text coefficient_told = {
    "Minimalwert des Temperaturkoeffizienten der Leitfähigkeit beträgt 0 / k !\n"
    "Maximalwert des Temperaturkoeffizienten der Leitfähigkeit beträgt 0,1 / k !\n"
    "Geben Sie bitte einen korrekten Wert ein."};
constexpr Limits coefficient = {0, coefficient_told, 0.1F, coefficient_told};

// The upper limit too is announced as "Minimalwert".
constexpr Text density_told = {
    "Minimalwert der Dichte des Leiterwerkstoffes beträgt 100 kg *m^3 !\n"
    "Minimalwert der Dichte des Leiterwerkstoffes beträgt 22600 kg *m^3 !\n"
    "Geben Sie bitte einen korrekten Wert ein."};
constexpr Limits density = {100, density_told, 22600, density_told};

constexpr Limits any_number = {-none, {}, none, {}};

struct Rule {
    KsBox box;
    const Limits* limits;
};

constexpr Rule rules[] = {
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
    {&C::A_Leiter, &any_number},
    {&C::waermekapaz, &heat_capacity},
    {&C::kappa20_ks, &conductivity},
    {&C::Tk20_ks, &coefficient},
    {&C::Dichte_rho, &density},
};

const Limits& limits_of(KsBox box) {
    const auto* const rule = std::find_if(std::begin(rules), std::end(rules),
                                          [&](const Rule& r) { return r.box == box; });
    return rule == std::end(rules) ? any_number : *rule->limits;
}

std::optional<KsEntryRefusal> refusal(std::optional<float> number, const Limits& limits,
                                      LangId lang) {
    const auto beyond = [&](const Text& lines) {
        return KsEntryRefusal{box_in(lang, {Icon::Stop, limit_title, lines})};
    };
    if (number && *number > limits.high) return beyond(limits.above);
    if (number && *number < limits.low) return beyond(limits.below);
    if (!number || std::isinf(*number)) return KsEntryRefusal{box_in(lang, not_numeric), true};
    return std::nullopt;
}

}  // namespace

std::optional<KsEntryRefusal> enter(Entry& field, KsBox box, std::string_view text,
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
