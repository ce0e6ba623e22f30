#include "short_circuit/input_check.h"

namespace zel {
namespace {

using C = ShortCircuitCase;

bool limited(const C& c) { return c.Strombegrenzschalter_ks == with_limiter; }
bool unlimited(const C& c) { return c.Strombegrenzschalter_ks == without_limiter; }
bool near_generator(const C& c) { return unlimited(c) && c.generatornah == generator_near; }
template <int flow>
bool flows(const C& c) {
    return unlimited(c) && c.Anzahl_KS_fluesse >= flow;
}
bool for_equipment(const C& c) { return c.Leiter_Bmittel == equipment; }
bool for_conductor(const C& c) { return c.Leiter_Bmittel == bare_conductor; }
bool always(const C& /*c*/) { return true; }

template <auto list>
bool unchosen(const C& c) {
    return c.*list == 0;
}

// Limits are compared at 32 bits.
constexpr AllowedSpans from_10_ampere = {NumberSpan{.low = 0.01F}, no_span};  // kA
constexpr AllowedSpans from_a_millisecond = {NumberSpan{.low = 0.001F}, no_span};
constexpr AllowedSpans from_least_kappa = {NumberSpan{.low = 1.02F}, no_span};

template <auto field, const AllowedSpans& allowed>
bool below(const C& c) {
    return (c.*field).value < allowed.front().low;
}

using Rule = zel::Rule<ShortCircuitCase, InputPlace>;

template <auto field, const AllowedSpans& allowed>
constexpr Rule too_low_where(bool (*applies)(const C&), const BoxText& frame) {
    return {applies, below<field, allowed>, &frame, {short_circuit::input_page, field}, allowed};
}

constexpr Text incomplete = {"Unvollständige Eingabe"};
constexpr std::string_view complete_it = "{0}\nBitte vervollständigen Sie ihre Eingabe !";

/// The sorts of boxes; the line of a check goes to the place {0}.
constexpr BoxText missing_frequency = {Icon::Stop, {" Unvollständige Eingabe"}, {"{0}"}};
constexpr BoxText missing_input = {Icon::Stop, incomplete, {complete_it}};
constexpr BoxText missing_choice = {
    Icon::Stop, incomplete, {"{0}\nBitte korrigieren Sie ihre Eingabe !"}};
constexpr BoxText too_low = {
    Icon::Stop, {" Fehlerhafte Eingabe"}, {"{0}\nGeben Sie bitte einen größeren Wert ein"}};

constexpr std::string_view least_current = "Minimalwert beträgt 0,01 kA !";
constexpr std::string_view least_duration = "Minimalwert beträgt 0,001 s !";

// The order is behaviour: only the first refusal is shown.
constexpr ShortCircuitCheck entry_checks[] = {
    {{always,
      missing<&C::Frequenz_ks>,
      &missing_frequency,
      {short_circuit::input_page, &C::Frequenz_ks}},
     {"Geben Sie die Frequenz des Stromkreises in Hz an !"}},
    {{always,
      unchosen<&C::Strombegrenzschalter_ks>,
      &missing_choice,
      {short_circuit::input_page, &C::Strombegrenzschalter_ks}},
     {"Es wurden keine Auswahl getroffen\nob strombegrenzende Schaltgeräte\nvorhanden sind !"}},
    {{limited, missing<&C::Ith>, &missing_input, {short_circuit::input_page, &C::Ith}},
     {"Es wurde keine Angabe zum\nthermisch gleichwertigen Kurzschlußstrom I_th\ngemacht !"}},
    {{limited, missing<&C::T_k>, &missing_input, {short_circuit::input_page, &C::T_k}},
     {"Es wurde keine Angabe zur\nDauer des Kurzschlußstromes T_k\ngemacht !"}},
    {{unlimited,
      unchosen<&C::generatornah>,
      &missing_input,
      {short_circuit::input_page, &C::generatornah}},
     {"Es wurden keine Auswahl getroffen, ob ein\ngeneratornaher oder generatorferner Kurzschluß\nvorliegt !"}},
    {{unlimited, missing<&C::IK2>, &missing_input, {short_circuit::input_page, &C::IK2}},
     {"Es wurde keine Angabe zum\nAnfangskurzschlußwechselstrom Ik''\ngemacht !"}},
    {{near_generator, missing<&C::IK>, &missing_input, {short_circuit::input_page, &C::IK}},
     {"Es wurde keine Angabe zum\nDauerkurzschlußwechselstrom Ik\ngemacht !"}},
    {{unlimited, missing<&C::Kappa>, &missing_input, {short_circuit::input_page, &C::Kappa}},
     {"Es wurde keine Angabe zum\nFaktor kappa\ngemacht !"}},
    {{unlimited,
      unchosen<&C::Anzahl_KS_fluesse>,
      &missing_input,
      {short_circuit::input_page, &C::Anzahl_KS_fluesse}},
     {"Es wurde keine Angabe zur\nAnzahl der Kurzschlußstromflüsse\ngemacht !"}},
    {{flows<1>, missing<&C::Tk1>, &missing_input, {short_circuit::input_page, &C::Tk1}},
     {"Es wurde keine Angabe zur\nDauer des 1.Stromflusses\ngemacht !"}},
    {{flows<2>, missing<&C::Tk2>, &missing_input, {short_circuit::input_page, &C::Tk2}},
     {"Es wurde keine Angabe zur\nDauer des 2.Stromflusses\ngemacht !"}},
    {{flows<3>, missing<&C::Tk3>, &missing_input, {short_circuit::input_page, &C::Tk3}},
     {"Es wurde keine Angabe zur\nDauer des 3.Stromflusses\ngemacht !"}},
    {{always,
      unchosen<&C::Leiter_Bmittel>,
      &missing_input,
      {short_circuit::input_page, &C::Leiter_Bmittel}},
     {"Es wurde keine Auswahl getroffen\nob ein elektrisches Betriebsmittel oder\nein blanker Leiter berechnet werden soll !"}},
    {{always, missing<&C::Tkr>, &missing_input, {short_circuit::input_page, &C::Tkr}},
     {"Es wurde keine Angabe zur \nBemessungs-Kurzzeit Tkr\ngemacht !"}},
    {{for_equipment, missing<&C::Ithr>, &missing_input, {short_circuit::input_page, &C::Ithr}},
     {"Es wurde keine Angabe zum\nBemessungs-Kurzzeitstrom Ithr\ndes elektrischen Betriebsmittels gemacht !"}},
    {{for_conductor,
      missing<&C::theta_b>,
      &missing_input,
      {short_circuit::input_page, &C::theta_b}},
     {"Es wurde keine Angabe zur\nLeitertemperatur bei Kurzschlußbeginn\ngemacht !"}},
    {{for_conductor,
      missing<&C::theta_e>,
      &missing_input,
      {short_circuit::input_page, &C::theta_e}},
     {"Es wurde keine Angabe zur\nLeitertemperatur bei Kurzschlußende\ngemacht !"}},
    {{for_conductor,
      missing<&C::A_Leiter>,
      &missing_input,
      {short_circuit::conductor_page, &C::A_Leiter}},
     {"Es wurde keine Angabe zum\nLeitermaterialquerschnitt\ngemacht !"}},
    {{for_conductor,
      missing<&C::waermekapaz>,
      &missing_input,
      {short_circuit::conductor_page, &C::waermekapaz}},
     {"Es wurden keine Angabe zur\nWärmekapazität gemacht!"}},
    {{for_conductor,
      missing<&C::kappa20_ks>,
      &missing_input,
      {short_circuit::conductor_page, &C::kappa20_ks}},
     {"Es wurden keine Angabe zur\nspezifischen Leitfähigkeit  gemacht!"}},
    {{for_conductor,
      missing<&C::Tk20_ks>,
      &missing_input,
      {short_circuit::conductor_page, &C::Tk20_ks}},
     {"Es wurden keine Angabe zum\nTemperaturkoeffizienten der spezifischen Leitfähigkeit gemacht!"}},
    {{for_conductor,
      missing<&C::Dichte_rho>,
      &missing_input,
      {short_circuit::conductor_page, &C::Dichte_rho}},
     {"Es wurden keine Angabe zur\nDichte des Leiterwerkstoffes gemacht!"}},
    // Lower limits, which no entry rule can test while a number is still being typed.
    {too_low_where<&C::Ith, from_10_ampere>(limited, too_low), {least_current}},
    {too_low_where<&C::T_k, from_a_millisecond>(limited, too_low), {least_duration}},
    {too_low_where<&C::IK2, from_10_ampere>(unlimited, too_low), {least_current}},
    {too_low_where<&C::Kappa, from_least_kappa>(unlimited, too_low),
     {"Minimalwert beträgt 1,02 !"}},
    {too_low_where<&C::IK, from_10_ampere>(near_generator, too_low), {least_current}},
    {too_low_where<&C::Tk1, from_a_millisecond>(flows<1>, too_low), {least_duration}},
    {too_low_where<&C::Tk2, from_a_millisecond>(flows<2>, too_low), {least_duration}},
    {too_low_where<&C::Tk3, from_a_millisecond>(flows<3>, too_low), {least_duration}},
};

}  // namespace

std::optional<ShortCircuitRefusal> refusal_by(std::span<const ShortCircuitCheck> checks,
                                              const ShortCircuitCase& c) {
    const ShortCircuitCheck* check = first_refusing(checks, c);
    if (check == nullptr) return std::nullopt;
    return ShortCircuitRefusal{check->rule.place, check->box(LangId::German)};
}

std::optional<ShortCircuitRefusal> first_refusal(const ShortCircuitCase& c) {
    return refusal_by(entry_checks, c);
}

std::vector<ShortCircuitRefusal> all_refusals(const ShortCircuitCase& c) {
    std::vector<ShortCircuitRefusal> refusals;
    for (const ShortCircuitCheck& check : entry_checks)
        if (check.refuses(c)) refusals.push_back({check.rule.place, check.box(LangId::German)});
    if (!refusals.empty()) return refusals;
    if (auto refusal = arithmetic_refusal(c)) refusals.push_back(*std::move(refusal));
    return refusals;
}

std::vector<NumberSpan> allowed_by_checks(const ShortCircuitCase& c, const ShortCircuitKey& field) {
    std::vector<NumberSpan> spans = {{}};
    for (const ShortCircuitCheck& check : entry_checks)
        if (check.rule.place.focus == field && check.rule.applies(c))
            spans = common(spans, check.rule.allowed);
    return spans;
}

}  // namespace zel
