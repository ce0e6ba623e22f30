#pragma once

#include "fakes/steady_cases.h"
#include "fakes/test_data.h"
#include "tb601_transient/tb601/tb601_cause.h"
#include "tb601_transient/tb601/tb601_params.h"

namespace zel {

/// 264-AL1/34-ST1A (EN 50182) at 80 °C, 35 °C ambient, 0.6 m/s across, 900 W/m², by Cigre TB 601
/// with its DC resistance.
inline CalcCase line_264_34() {
    CalcCase c = twin_264_34();
    c.rechnung_cigre207_merker_db = 0;
    c.rechnung_cigre601_merker_db = 1;
    c.ACDC_R_Option_Merker_db = resistance_by_formula;
    c.T_Koeff_DC_Resist_Leiter_quadrat_db = typed(0);
    c.KerndurchmesserTraeger_db = typed(7.47);
    c.radialthermalconductivity_unter_KPT_db = typed(1.5);
    c.KniepunktTemperatur_db = typed(100);
    c.radialthermalconductivity_ueber_KPT_db = typed(1.5);
    return c;
}

inline TB601Records records_of(const CalcCase& c, double delta = 90) {
    TB601Records records;
    fill(records, c, delta);
    return records;
}

// Names of failures in the data of tests.

inline constexpr std::array tb601_cause_names = {"",
                                                 "Fault",
                                                 "SingleLayer",
                                                 "SmoothReynolds",
                                                 "StrandedReynolds",
                                                 "RoughReynolds",
                                                 "GrashofPrandtlTooLarge",
                                                 "ModeUndefined",
                                                 "CurrentAllAbove",
                                                 "CurrentAllBelow",
                                                 "CurrentNotReached",
                                                 "TemperatureAllAbove",
                                                 "TemperatureAllBelow",
                                                 "TemperatureNotReached"};

inline constexpr std::array tb601_procedure_names = {
    "SteadyState",  "JouleHeating",       "Resistance", "SkinEffect", "MagneticHeating",
    "SolarHeating", "SurfaceTemperature", "Convection", "Radiation"};

/// The cause, or of a fault its procedure and kind: "Convection: Overflow".
inline std::string name_of(const Tb601Failure& failure) {
    if (failure.cause != Tb601Cause::Fault)
        return tb601_cause_names.at(static_cast<std::size_t>(failure.cause));
    return std::string(tb601_procedure_names.at(static_cast<std::size_t>(failure.procedure))) +
           ": " + name_of(failure.fault);
}

}  // namespace zel
