#pragma once

#include <cstdint>

#include "steady/case/calc_case.h"
#include "steady/method_fault.h"
#include "steady/sun.h"
#include "steady/webs_report.h"

// The steady state of an overhead conductor by Webs (1963): everything but the Joule heating is
// taken at the given conductor temperature, and the current is the root of what is left. Screen
// units; all for one sub-conductor.

namespace zel {

/// What Webs reads, taken once from the case.
struct WebsInput {
    double DCR20 = 0;             // ohm/km
    double a = 0;                 // 1/K
    double resistivity = 0;       // ohm·mm²/km
    double frequency = 0;         // Hz
    double diameter = 0;          // mm
    double Ta = 0;                // °C
    double emissivity = 0;        // and absorptivity: that of the case is not read
    double V = 0;                 // m/s
    double delta = 0;             // degrees, folded angle between wind and conductor
    double altitude = 0;          // m
    double azimuth = 0;           // degrees, of the conductor
    double global_radiation = 0;  // W/m²
    double g = 0;                 // m/s²
    SunInput sun;
    std::int16_t Formel_merker1 = 0;
    std::int16_t wzsz_merker = 0;
};

/// The input of Webs for `c` at the folded angle `delta` (degrees).
[[nodiscard]] WebsInput webs_input(const CalcCase& c, double delta);

/// Sun height in radians, 0 at night. The hour of summer time comes off where `wzsz_merker` is 1.
[[nodiscard]] double S3_Sonnenhoehe_webs(const SunInput& in, std::int16_t wzsz_merker);

/// The sun by the clock of Webs; its height may be below the horizon.
[[nodiscard]] SunPosition webs_sun(const SunInput& in, std::int16_t wzsz_merker);

/// The terms of the heat balance at the current `I` (A) and the conductor temperature `T` (°C). The
/// Joule heating is negative where the current is: it is the heat in excess. Throws as
/// `WebsQuestions` does.
[[nodiscard]] HeatTerms webs_heat_terms(const WebsInput& in, double I, double T,
                                        WebsQuestions& questions);

/// The current at the conductor temperature `T` (°C). It is negative where the conductor would be
/// hotter without current: the magnitude is that of the heat in excess. Throws `ProgramEnd` as
/// `WebsQuestions` does.
[[nodiscard]] CurrentResult S1_Rechnung_strom_webs(const WebsInput& in, double T,
                                                   WebsQuestions& questions);

/// The temperature at the current `Iz` (A), see `three_stage_search`.
[[nodiscard]] TemperatureResult S2_Rechnung_temp_webs(const WebsInput& in, double Iz,
                                                      WebsQuestions& questions);

}  // namespace zel
