#pragma once

#include "fakes/steady_cases.h"
#include "fakes/test_data.h"
#include "steady/case/method.h"
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

/// The sunny line by all methods that stand side by side.
inline CalcCase of_all_methods() {
    CalcCase c = sunny_264_34();
    static_cast<ConductorData&>(c) = line_264_34();
    c.ACDC_R_Option_Merker_db = resistance_by_formula;
    for (const Method method : {Method::TB601, Method::Webs, Method::Kirn}) c.*flag_of(method) = 1;
    return c;
}

/// The same over six winds and `steps` currents.
inline CalcCase over_six_winds(int steps) {
    constexpr int step = 10;  // A
    CalcCase c = of_all_methods();
    c.Leitertemp_Merker_db = false;
    c.Stromstaerke_Merker_db = true;
    c.Stromstaerke_db = c.Strom_min_db = typed(step);
    c.Strom_max_db = typed(step * steps);
    c.Schrittweite_Strom_db = step;
    const auto winds = {&CalcCase::Wind1_db, &CalcCase::Wind2_db, &CalcCase::Wind3_db,
                        &CalcCase::Wind4_db, &CalcCase::Wind5_db, &CalcCase::Wind6_db};
    for (double speed = 0; const auto wind : winds) c.*wind = typed(speed++);
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
