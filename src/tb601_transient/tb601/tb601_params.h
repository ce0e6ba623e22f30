#pragma once

#include <array>
#include <cstdint>

#include "steady/case/calc_case.h"

// The working records of Cigre TB 601 (Guide for thermal rating calculations of overhead lines,
// 2014), SI units where none stands beside a field. They live on from one calculation to the next:
// a transient starts from what the last steady run left.

namespace zel {

/// `ACDC_R_Option_Merker_db`
enum ResistanceOption : std::int16_t { resistance_by_formula = 1, resistance_by_table = 2 };

/// `conductor_shape_db`
enum ConductorShape : std::int16_t { round_wires = 1, smooth_surface = 2 };

struct TB601Params {
    std::int16_t RunMarker = 0;  // 1 once filled
    double Ta = 0;               // °C, ambient temperature
    double V = 0;                // m/s, wind speed
    double Delta = 0;            // degrees, folded angle between conductor and wind
    double Y = 0;                // m, altitude
    double Ig = 0;               // W/m², global radiation
    double G = 0;                // m/s²
    double Eps = 0;              // emissivity
    double AlphaS = 0;           // absorptivity
    double F = 0;                // Hz
    std::int16_t ConductorType = 0;
    std::int16_t ConductorShape = 0;
    float GMR = 0;               // m, geometric mean radius
    std::int16_t GMRMerker = 0;  // 1: GMR counts
    std::int16_t AluLayers = 0;
    double AreaOuter = 0;      // mm², conducting layers
    double D = 0;              // m, outer diameter
    double DCore = 0;          // m, core diameter, or inner diameter of a tube
    double AreaCore = 0;       // no formula reads it
    double DWire = 0;          // m, outer wire
    double DWireCore = 0;      // m, core wire
    std::int16_t ROption = 0;  // ResistanceOption
    double R20 = 0;            // ohm/m, DC resistance at 20 °C
    double Rho20 = 0;          // ohm·m
    double Alpha = 0;          // 1/K
    double Beta = 0;           // 1/K²
    double Tknee = 0;          // °C
    double Lambda1 = 0;        // W/(m·K), radial conductivity below the knee point
    double Lambda2 = 0;        // W/(m·K), above it
};

/// One pair of the AC resistance table; a temperature of 0 stands for no pair.
struct ResistancePoint {
    float ACR = 0;   // ohm/m
    float TACR = 0;  // °C
};

using ResistanceTable = std::array<ResistancePoint, 6>;

struct TB601State {
    double I = 0;                // A
    double T = 0;                // °C, mean temperature of the conductor
    HeatTerms terms;             // of the last evaluation
    double TSurface = 0;         // °C
    double TCore = 0;            // °C
    ResistanceTable table;       // ACR1, TACR1 to ACR6, TACR6
    double KiesslingFactor = 0;  // shown beside the result; no formula sets it
    double KSkinRaw = 0;         // the last skin effect computed
    double KSkin = 0;            // the skin effect in force, 0 where none entered
    double KMag = 0;             // magnetic heating; a current of 0 leaves the last one standing
};

struct TB601Records {
    TB601Params params;
    TB601State state;
};

/// Fills the records from the case at the folded angle `delta` (degrees). The fields of the
/// resistance option that is not chosen keep what they hold. The linear temperature coefficient
/// passes through single precision.
void fill(TB601Records& records, const CalcCase& c, double delta);

}  // namespace zel
