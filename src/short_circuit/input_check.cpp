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

template <auto field>
bool missing(const C& c) {
    return !(c.*field).given();
}
template <auto list>
bool unchosen(const C& c) {
    return c.*list == 0;
}

// Limits are compared at 32 bits.
template <auto field>
bool below_10_ampere(const C& c) {
    return (c.*field).value < static_cast<double>(0.01F);  // kA
}
template <auto field>
bool below_a_millisecond(const C& c) {
    return (c.*field).value < static_cast<double>(0.001F);
}
bool kappa_too_low(const C& c) { return c.Kappa.value < static_cast<double>(1.02F); }

constexpr Text incomplete = {"Unvollständige Eingabe"};
constexpr std::string_view complete_it = "{0}\nBitte vervollständigen Sie ihre Eingabe !";

/// The sorts of boxes; the line of a check goes to the place {0}.
constexpr BoxText missing_frequency = {Icon::Stop, {" Unvollständige Eingabe"}, {"{0}"}};
constexpr BoxText missing_input = {Icon::Stop, incomplete, {complete_it}};
constexpr BoxText missing_choice = {
    Icon::Stop, incomplete, {"{0}\nBitte korrigieren Sie ihre Eingabe !"}};
constexpr BoxText too_low = {
    Icon::Stop, {" Fehlerhafte Eingabe"}, {"{0}\nGeben Sie bitte einen größeren Wert ein"}};

struct Check {
    bool (*applies)(const C&);
    bool (*refuses)(const C&);
    const BoxText* sort;
    std::string_view lines;
    int page;
    KsKey focus;
};

constexpr std::string_view least_current = "Minimalwert beträgt 0,01 kA !";
constexpr std::string_view least_duration = "Minimalwert beträgt 0,001 s !";

// The order is behaviour: only the first refusal is shown.
constexpr Check checks[] = {
    {always, missing<&C::Frequenz_ks>, &missing_frequency,
     "Geben Sie die Frequenz des Stromkreises in Hz an !", ks_input_page, &C::Frequenz_ks},
    {always, unchosen<&C::Strombegrenzschalter_ks>, &missing_choice,
     "Es wurden keine Auswahl getroffen\nob strombegrenzende Schaltgeräte\nvorhanden sind !",
     ks_input_page, &C::Strombegrenzschalter_ks},
    {limited, missing<&C::Ith>, &missing_input,
     "Es wurde keine Angabe zum\nthermisch gleichwertigen Kurzschlußstrom I_th\ngemacht !",
     ks_input_page, &C::Ith},
    {limited, missing<&C::T_k>, &missing_input,
     "Es wurde keine Angabe zur\nDauer des Kurzschlußstromes T_k\ngemacht !", ks_input_page,
     &C::T_k},
    {unlimited, unchosen<&C::generatornah>, &missing_input,
     "Es wurden keine Auswahl getroffen, ob ein\ngeneratornaher oder generatorferner Kurzschluß\nvorliegt !",
     ks_input_page, &C::generatornah},
    {unlimited, missing<&C::IK2>, &missing_input,
     "Es wurde keine Angabe zum\nAnfangskurzschlußwechselstrom Ik''\ngemacht !", ks_input_page,
     &C::IK2},
    {near_generator, missing<&C::IK>, &missing_input,
     "Es wurde keine Angabe zum\nDauerkurzschlußwechselstrom Ik\ngemacht !", ks_input_page, &C::IK},
    {unlimited, missing<&C::Kappa>, &missing_input,
     "Es wurde keine Angabe zum\nFaktor kappa\ngemacht !", ks_input_page, &C::Kappa},
    {unlimited, unchosen<&C::Anzahl_KS_fluesse>, &missing_input,
     "Es wurde keine Angabe zur\nAnzahl der Kurzschlußstromflüsse\ngemacht !", ks_input_page,
     &C::Anzahl_KS_fluesse},
    {flows<1>, missing<&C::Tk1>, &missing_input,
     "Es wurde keine Angabe zur\nDauer des 1.Stromflusses\ngemacht !", ks_input_page, &C::Tk1},
    {flows<2>, missing<&C::Tk2>, &missing_input,
     "Es wurde keine Angabe zur\nDauer des 2.Stromflusses\ngemacht !", ks_input_page, &C::Tk2},
    {flows<3>, missing<&C::Tk3>, &missing_input,
     "Es wurde keine Angabe zur\nDauer des 3.Stromflusses\ngemacht !", ks_input_page, &C::Tk3},
    {always, unchosen<&C::Leiter_Bmittel>, &missing_input,
     "Es wurde keine Auswahl getroffen\nob ein elektrisches Betriebsmittel oder\nein blanker Leiter berechnet werden soll !",
     ks_input_page, &C::Leiter_Bmittel},
    {always, missing<&C::Tkr>, &missing_input,
     "Es wurde keine Angabe zur \nBemessungs-Kurzzeit Tkr\ngemacht !", ks_input_page, &C::Tkr},
    {for_equipment, missing<&C::Ithr>, &missing_input,
     "Es wurde keine Angabe zum\nBemessungs-Kurzzeitstrom Ithr\ndes elektrischen Betriebsmittels gemacht !",
     ks_input_page, &C::Ithr},
    {for_conductor, missing<&C::theta_b>, &missing_input,
     "Es wurde keine Angabe zur\nLeitertemperatur bei Kurzschlußbeginn\ngemacht !", ks_input_page,
     &C::theta_b},
    {for_conductor, missing<&C::theta_e>, &missing_input,
     "Es wurde keine Angabe zur\nLeitertemperatur bei Kurzschlußende\ngemacht !", ks_input_page,
     &C::theta_e},
    {for_conductor, missing<&C::A_Leiter>, &missing_input,
     "Es wurde keine Angabe zum\nLeitermaterialquerschnitt\ngemacht !", ks_conductor_page,
     &C::A_Leiter},
    {for_conductor, missing<&C::waermekapaz>, &missing_input,
     "Es wurden keine Angabe zur\nWärmekapazität gemacht!", ks_conductor_page, &C::waermekapaz},
    {for_conductor, missing<&C::kappa20_ks>, &missing_input,
     "Es wurden keine Angabe zur\nspezifischen Leitfähigkeit  gemacht!", ks_conductor_page,
     &C::kappa20_ks},
    {for_conductor, missing<&C::Tk20_ks>, &missing_input,
     "Es wurden keine Angabe zum\nTemperaturkoeffizienten der spezifischen Leitfähigkeit gemacht!",
     ks_conductor_page, &C::Tk20_ks},
    {for_conductor, missing<&C::Dichte_rho>, &missing_input,
     "Es wurden keine Angabe zur\nDichte des Leiterwerkstoffes gemacht!", ks_conductor_page,
     &C::Dichte_rho},
    // Lower limits, which no entry rule can test while a number is still being typed.
    {limited, below_10_ampere<&C::Ith>, &too_low, least_current, ks_input_page, &C::Ith},
    {limited, below_a_millisecond<&C::T_k>, &too_low, least_duration, ks_input_page, &C::T_k},
    {unlimited, below_10_ampere<&C::IK2>, &too_low, least_current, ks_input_page, &C::IK2},
    {unlimited, kappa_too_low, &too_low, "Minimalwert beträgt 1,02 !", ks_input_page, &C::Kappa},
    {near_generator, below_10_ampere<&C::IK>, &too_low, least_current, ks_input_page, &C::IK},
    {flows<1>, below_a_millisecond<&C::Tk1>, &too_low, least_duration, ks_input_page, &C::Tk1},
    {flows<2>, below_a_millisecond<&C::Tk2>, &too_low, least_duration, ks_input_page, &C::Tk2},
    {flows<3>, below_a_millisecond<&C::Tk3>, &too_low, least_duration, ks_input_page, &C::Tk3},
};

}  // namespace

std::optional<KsRefusal> first_refusal(const ShortCircuitCase& c) {
    for (const auto& [applies, refuses, sort, lines, page, focus] : checks)
        if (applies(c) && refuses(c))
            return KsRefusal{box_in(LangId::German, *sort, {lines}), page, focus};
    return std::nullopt;
}

}  // namespace zel
