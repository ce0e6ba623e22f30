#include <cmath>

#include "short_circuit/input_check.h"
#include "short_circuit/modul_iec865.h"

namespace zel {
namespace {

using C = ShortCircuitCase;

bool computes_current(const C& c) { return c.Strombegrenzschalter_ks == without_limiter; }
bool judges_conductor(const C& c) { return c.Leiter_Bmittel == bare_conductor; }
bool judges_equipment(const C& c) { return c.Leiter_Bmittel == equipment; }

/// A frequency of 0 divides by zero, and there is none below it.
bool current_is_infinite(const C& c) {
    if (c.Frequenz_ks.value <= 0) return true;
    return std::isinf(KS_Auswertung(c).I_th);
}

/// Where Ik'' is but hundred-thousandths of Ik, the factor n is negative, and m + n with it.
bool current_is_no_number(const C& c) { return std::isnan(KS_Auswertung(c).I_th); }

/// Conductivity at a temperature relative to that at 20 °C, inverted.
double g(const C& c, double temperature) { return (temperature - 20) * c.Tk20_ks.value + 1; }

constexpr BoxText refused = {Icon::Stop, {" Fehlerhafte Eingabe"}, {"{0}"}};

// In the order in which the calculation meets them.
constexpr ShortCircuitCheck faults[] = {
    {{computes_current,
      [](const C& c) { return c.Kappa.value == 2; },
      &refused,
      {short_circuit::input_page, &C::Kappa}},
     {"Der Faktor kappa muß kleiner als 2 sein !"}},
    {{computes_current,
      current_is_infinite,
      &refused,
      {short_circuit::input_page, &C::Frequenz_ks}},
     {"Die Frequenz des Stromkreises muß größer als 0 Hz sein !"}},
    {{computes_current, current_is_no_number, &refused, {short_circuit::input_page, &C::IK}},
     {"Der Dauerkurzschlußwechselstrom Ik ist zu hoch für diesen Anfangskurzschlußwechselstrom Ik'' !"}},
    {{judges_equipment,
      [](const C& c) { return c.Tkr.value < 0; },
      &refused,
      {short_circuit::input_page, &C::Tkr}},
     {"Die Bemessungs-Kurzzeit T_kr darf nicht negativ sein !"}},
    {{judges_conductor,
      [](const C& c) { return c.Tk20_ks.value == 0; },
      &refused,
      {short_circuit::conductor_page, &C::Tk20_ks}},
     {"Der Temperaturkoeffizient der spezifischen Leitfähigkeit muß größer als 0 / K sein !"}},
    {{judges_conductor,
      [](const C& c) { return g(c, c.theta_b.value) <= 0; },
      &refused,
      {short_circuit::input_page, &C::theta_b}},
     {"Die Temperatur bei Kurzschlußbeginn theta_b ist zu niedrig für diesen Temperaturkoeffizienten !"}},
    {{judges_conductor,
      [](const C& c) { return c.theta_e.value < c.theta_b.value; },
      &refused,
      {short_circuit::input_page, &C::theta_e}},
     {"Die Temperatur bei Kurzschlußende theta_e darf nicht unter der bei Kurzschlußbeginn liegen !"}},
    {{judges_conductor,
      [](const C& c) { return c.Tkr.value <= 0; },
      &refused,
      {short_circuit::input_page, &C::Tkr}},
     {"Die Bemessungs-Kurzzeit T_kr muß größer als 0 s sein !"}},
    {{judges_conductor,
      [](const C& c) { return c.A_Leiter.value <= 0; },
      &refused,
      {short_circuit::conductor_page, &C::A_Leiter}},
     {"Der Leitermaterialquerschnitt muß größer als 0 qmm sein !"}},
};

}  // namespace

std::optional<ShortCircuitRefusal> arithmetic_refusal(const ShortCircuitCase& c) {
    return refusal_by(faults, c);
}

}  // namespace zel
