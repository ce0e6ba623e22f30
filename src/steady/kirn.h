#pragma once

#include "steady/case/calc_case.h"
#include "steady/kirn_terms.h"
#include "steady/method_fault.h"
#include "steady/sun.h"

// The steady state of an overhead conductor by Kirn (1987), an empirical balance that reads date,
// sun, ground and clearness in detail. All for one sub-conductor.

namespace zel {

/// What Kirn reads, taken once from the case. Temperatures in K.
struct KirnInput {
    KirnGround ground;
    double Ta = 0;               // K
    double R0 = 0;               // ohm/m, DC resistance at 20 °C
    double a = 0;                // 1/K
    double V = 0;                // m/s
    double delta = 0;            // degrees, folded angle between wind and conductor
    double azimuth = 0;          // degrees, of the conductor
    double clearness = 0;        // ratio
    double Hoehendifferenz = 0;  // m
    double Feldlaenge = 0;       // m
    SunInput sun;
};

/// The input of Kirn for `c` at the folded angle `delta` (degrees).
[[nodiscard]] KirnInput kirn_input(const CalcCase& c, double delta);

/// The sun by the clock of Kirn; its height may be below the horizon.
[[nodiscard]] SunPosition kirn_sun(const SunInput& in);

/// The terms of the heat balance at the current `I` (A) and the conductor temperature `T` (°C). The
/// heat of the sun has that of ground and sky in it. The Joule heating is negative where the
/// current is: it is the heat in excess.
[[nodiscard]] HeatTerms kirn_heat_terms(const KirnInput& in, double I, double T);

// The angle between wind and conductor in degrees comes back with each result: mirrored where the
// folded one was above 90, it takes the place of the folded angle.

struct KirnCurrent : CurrentResult {
    double angle = 0;
};

struct KirnTemperature : TemperatureResult {
    double angle = 0;
};

/// The current at the conductor temperature `T` (°C); negative where the conductor would be hotter
/// without current. Where heat comes and goes in exact balance, `former` (A) stands: the last
/// current by Kirn, 0 in a fresh program.
[[nodiscard]] KirnCurrent S1_Rechnung_strom_kirn(const KirnInput& in, double T, double former = 0);

/// The temperature at the current `Iz` (A), see `three_stage_search`.
[[nodiscard]] KirnTemperature S2_Rechnung_temp_kirn(const KirnInput& in, double Iz,
                                                    double former = 0);

}  // namespace zel
