#include "validation/quantities.h"

#include <algorithm>
#include <cmath>

#include "steady/constants.h"
#include "tb601_transient/tb601/tb601_params.h"
#include "tb601_transient/tb601/tb601_terms.h"
#include "validation/physics.h"

namespace zel {
namespace {

/// The steps of the convective cooling by TB 601 at the state found.
Tb601Convection convection_of(const SteadyFound& found) {
    TB601Records records;
    fill(records, found.c, found.angle);
    const TB601Params& p = records.params;
    return tb601_convection({p.V, p.Delta, found.tb601.TSurface, p.Ta, p.Y, p.D, p.DWire, p.G,
                             p.ConductorType, p.ConductorShape});
}

template <auto of>
std::optional<double> of_convection(const SteadyFound& found) {
    if (found.method != Method::TB601) return std::nullopt;
    return of(convection_of(found));
}

template <double HeatTerms::*term>
std::optional<double> heat(const SteadyFound& found) {
    return found.terms.*term;
}

/// ohm/km at the temperature of the conductor, without what the AC current adds to it.
double dc_resistance(const SteadyFound& found) {
    const double a20 = thousandth(found.c.T_Koeff_DC_Resist_Leiter_linear_db.value);
    return found.c.DCR_20_db.value * (1 + a20 * (found.T - reference_temperature));
}

/// A: whose heat is `power` (W/m) in the DC resistance.
double dc_current(const SteadyFound& found, double power) {
    return std::sqrt(power / thousandth(dc_resistance(found)));
}

using Steady = const SteadyFound&;
using Transient = const TransientFound&;
using ShortCircuit = const ShortCircuitFound&;
using Number = std::optional<double>;
using Convection = const Tb601Convection&;

constexpr Quantity quantities[] = {
    {"current", {"Strom", "Current"}, "A", [](Steady f) -> Number { return f.I; }},
    {"temperature", {"Temperatur", "Temperature"}, "°C", [](Steady f) -> Number { return f.T; }},
    {"joule", {"Stromwärme", "Joule heating"}, "W/m", heat<&HeatTerms::PJ>},
    {"sun", {"Erwärmung durch die Sonne", "Solar heating"}, "W/m", heat<&HeatTerms::PS>},
    {"convection", {"Konvektion", "Convective cooling"}, "W/m", heat<&HeatTerms::PC>},
    {"radiation", {"Strahlung", "Radiative cooling"}, "W/m", heat<&HeatTerms::PR>},
    {"ac_resistance",
     {"Wechselstromwiderstand", "AC resistance"},
     "Ω/km",
     [](Steady f) -> Number { return 1000 * f.terms.PJ / (f.I * f.I); }},
    {"film_conductivity",
     {"Wärmeleitfähigkeit der Luft", "Thermal conductivity of the air"},
     "W/(m·K)",
     of_convection<[](Convection c) { return c.air.lambda; }>},
    {"film_viscosity",
     {"Dynamische Zähigkeit der Luft", "Dynamic viscosity of the air"},
     "10⁻⁶ kg/(m·s)",
     of_convection<[](Convection c) { return 1e6 * c.air.mu; }>},
    {"prandtl",
     {"Prandtl-Zahl", "Prandtl number"},
     "",
     of_convection<[](Convection c) { return c.air.Pr; }>},
    {"reynolds",
     {"Reynolds-Zahl", "Reynolds number"},
     "",
     of_convection<[](Convection c) { return c.Re; }>},
    {"nusselt_across",
     {"Nusselt-Zahl bei Querwind", "Nusselt number, wind across"},
     "",
     of_convection<[](Convection c) { return c.Nu90; }>},
    {"nusselt",
     {"Nusselt-Zahl", "Nusselt number"},
     "",
     of_convection<[](Convection c) { return c.Nu; }>},
    {"grashof",
     {"Grashof-Zahl", "Grashof number"},
     "10³",
     of_convection<[](Convection c) { return c.Gr / 1000; }>},
    {"forced_convection",
     {"Erzwungene Konvektion", "Forced convection"},
     "W/m",
     of_convection<[](Convection c) { return c.Pforced; }>},
    {"natural_convection",
     {"Freie Konvektion", "Natural convection"},
     "W/m",
     of_convection<[](Convection c) { return c.Pnat; }>},
    {"dc_current",
     {"Strom ohne Zuschlag für Skineffekt und Kern",
      "Current without allowance for skin effect and core"},
     "A",
     [](Steady f) -> Number { return dc_current(f, f.terms.PC + f.terms.PR - f.terms.PS); }},
    {"effective_current",
     {"Wirksamer Strom", "Effective current"},
     "A",
     [](Steady f) -> Number { return dc_current(f, f.terms.PJ); }},
    {"current_by_exact_allowance",
     {"Strom, genau gelöst", "Current, solved exactly"},
     "A",
     current_by_exact_allowance},
    {"current_by_printed_skin_effect",
     {"Strom nach der gedruckten Formel", "Current by the formula as printed"},
     "A",
     current_by_printed_skin_effect},
    {"current_by_absorptivity",
     {"Strom mit dem Absorptionsverhältnis", "Current by the absorptivity"},
     "A",
     current_by_absorptivity},
    {"current_by_place_of_sun",
     {"Strom mit dem Azimut der Sonne", "Current by the azimuth of the sun"},
     "A",
     current_by_place_of_sun},
    {"current_by_low_sun",
     {"Strom mit 1,5° als Grenze", "Current with 1.5° as the limit"},
     "A",
     current_by_low_sun},
    {"temperature_after",
     {"Temperatur danach", "Temperature after"},
     "°C",
     Quantity::OfTransient{seeks_temperature, [](Transient f) -> Number { return f.row.Temp; }}},
    {"time_constant",
     {"Zeit bis 63,2 % der Erwärmung", "Time to 63.2 % of the rise"},
     "s",
     Quantity::OfTransient{seeks_time, [](Transient f) -> Number { return duration_s(f.row); }}},
    {"transient_current",
     {"Strom der Zustandsänderung", "Current of the change of state"},
     "A",
     Quantity::OfTransient{seeks_current, [](Transient f) -> Number { return f.row.Strom; }}},
    {"current_reaching_target",
     {"Strom, der das Ziel erreicht", "Current that reaches the target"},
     "A",
     Quantity::OfTransient{
         seeks_current,
         [](Transient f) { return f.check ? f.check->current : Number(f.row.Strom); }}},
    {"factor_K",
     {"Faktor K", "Factor K"},
     "A·s^0.5/mm²",
     [](ShortCircuit f) -> Number { return f.result.K; }},
    {"factor_n",
     {"Faktor n", "Factor n"},
     "",
     [](ShortCircuit f) -> Number { return f.result.flows.front().n; }},
    {"short_time_current",
     {"Thermisch gleichwertiger Kurzzeitstrom", "Thermally equivalent short-time current"},
     "A",
     [](ShortCircuit f) -> Number { return 1000 * f.result.I_th; }},
    {"short_time_current_by_standard",
     {"Kurzzeitstrom mit 5,5 und 11", "Short-time current with 5.5 and 11"},
     "A",
     short_time_current_by_standard},
};

}  // namespace

const Quantity* find_quantity(std::string_view key) {
    const auto row = std::find_if(std::begin(quantities), std::end(quantities),
                                  [&](const Quantity& quantity) { return quantity.key == key; });
    return row == std::end(quantities) ? nullptr : &*row;
}

}  // namespace zel
