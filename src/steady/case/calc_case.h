#pragma once

#include <array>
#include <cstdint>
#include <string>

// The whole input of one thermal calculation. Fields bear the names of their database columns;
// units are those of the screen (mm, mm², ohm/km, °C, A, m/s, W/m²), each formula converts for
// itself. Forms, tables, workbooks and case files write a case; the methods only read it.

namespace zel {

/// A number as typed: its text and its double, set together. An empty text is "no input", even
/// where the double still holds a former value.
struct Entry {
    std::string text;
    double value = 0;
    bool assumed = false;  // nobody gave it: the program offers it, until something else comes

    [[nodiscard]] bool given() const { return !text.empty(); }
    friend bool operator==(const Entry&, const Entry&) = default;
};

/// Start value of markers and measured values that nobody has set yet.
inline constexpr std::int16_t empty_mark = 9999;

struct ProjectData {
    std::string Projekt_db;
    std::string Datum_db;
    std::string Bearbeiter_db;
    std::string Abteilung_db;

    friend bool operator==(const ProjectData&, const ProjectData&) = default;
};

struct GeoData {
    Entry Hoehe_ueber_NN_db;  // m above sea level, 0 to 4500
    Entry Winkel_S_S_db;      // degrees, conductor azimuth (conductor to north), 0 to 360
    Entry geogr_Breite_db;    // degrees, latitude
    Entry geo_laeng_db;       // degrees, longitude of the line, east negative
    Entry geo_laeng_zeit_db;  // degrees, longitude of the local standard time, east negative

    friend bool operator==(const GeoData&, const GeoData&) = default;
};

struct AmbientData {
    Entry Windgeschwindigkeit_db;                   // m/s at conductor height, 0 to 80
    Entry Winkel_W_S_db;                            // degrees, wind direction to north, 0 to 359.9
    Entry Umgebungstemperatur_db;                   // °C
    std::int16_t Umgebungstemperaturmerker_db = 0;  // the ambient field drives a table
    Entry Globalstrahlung_db;                       // W/m², 0 to 1400
    std::int16_t Globalstrahlung_Merker_db = 0;     // how the global radiation is given
    Entry Bodentemp_db;                             // °C, ground temperature
    Entry Bodenart_db;                              // albedo of the ground
    Entry Bewoelkungsgrad_db;                       // clearness ratio
    Entry Tag_db;                                   // calendar day, 1 to 31
    Entry Monat_db;                                 // calendar month, 1 to 12
    Entry Stunden_db;                               // hour of the day, 0 to 24
    Entry Minuten_db;                               // minute of the hour, 0 to 59

    friend bool operator==(const AmbientData&, const AmbientData&) = default;
};

struct LineData {
    Entry Feldlaenge_db;                    // m, span length
    Entry Hoehendifferenz_db;               // m, height difference of the suspension points
    Entry Netzfrequenz_db;                  // Hz
    Entry Emissionsverhaeltnis_db;          // emissivity, 0 to 1
    Entry Absorptionsverhaeltnis_db;        // absorptivity, 0 to 1
    std::int16_t Anzahl_Teilleiter_db = 0;  // sub-conductors of the bundle, 1 to 8
    Entry Leitertemp_db;                    // °C, the given conductor temperature
    Entry Stromstaerke_db;                  // A, the given current of one sub-conductor
    Entry Stromstaerke_Buendel;             // A, the current of the bundle; has no column

    friend bool operator==(const LineData&, const LineData&) = default;
};

/// `conductor_type_db`
enum ConductorType : std::int16_t {
    homogeneous_conductor = 1,
    steel_cored_conductor = 2,
    tubular_busbar = 3,
    composite_core_conductor = 4,
};

struct ConductorData {
    std::string Bezeichnung1_db;
    std::string Bezeichnung2_db;
    std::string Norm_db;
    std::int16_t Normjahr_db = 0;
    std::int16_t Normmonat_db = 0;
    std::int16_t conductor_type_db = 0;   // see ConductorType
    std::int16_t conductor_shape_db = 0;  // 1 round wires outside, 2 smooth
    Entry Seilquerschnitt_db;             // mm², total cross-section
    Entry Seildurchmesser_db;             // mm, outer diameter
    Entry Dauerstrombelastbarkeit_db;     // A, rated continuous current; no method reads it
    Entry Seiltemperatur_max_db;          // °C, highest admissible temperature
    std::string Anmerkung_db;
    Entry DCR_20_db;                            // ohm/km, DC resistance at 20 °C
    std::int16_t DrahtzahlLeiter_db = 0;        // wires of the conductor layers
    Entry DrahtdurchmesserLeiter_db;            // mm, wire diameter, or wall thickness of a tube
    std::int16_t DrahtlagenzahlLeiter_db = 0;   // conductor layers
    Entry Mantelquerschnitt_db;                 // mm², cross-section of the conductor layers
    Entry Dichte_Leiterwerkstoff1_db;           // kg/m³
    Entry c_leiter20_db;                        // J/(kg·K) at 20 °C
    Entry beta_leiter20_db;                     // 1/1000 K
    Entry DC_Resist_Leiter_db;                  // ohm·mm²/km at 20 °C
    Entry T_Koeff_DC_Resist_Leiter_linear_db;   // 1/(1000 K)
    Entry T_Koeff_DC_Resist_Leiter_quadrat_db;  // no input is told apart from a given 0
    std::int16_t DrahtzahlTraeger_db = 0;       // core wires
    Entry DrahtdurchmesserTraeger_db;           // mm, core wire diameter
    Entry KerndurchmesserTraeger_db;            // mm
    Entry KernquerschnittTraeger_db;            // mm²
    Entry Dichte_traegerwerkstoff1_db;          // kg/m³
    Entry c_traeger20_db;                       // J/(kg·K) at 20 °C
    Entry beta_traeger20_db;                    // 1/1000 K
    Entry DC_Resist_traeger_db;                 // ohm·mm²/km at 20 °C
    Entry T_Koeff_DC_Resist_traeger_linear_db;  // 1/(1000 K)
    Entry T_Koeff_DC_Resist_traeger_quadrat_db;
    Entry ACR_Frequenz_Remox_db;  // Hz, of the AC resistance pairs
    // Up to six pairs of AC resistance (ohm/km) and temperature (°C), ascending.
    Entry ACR1_db, TACR1_db, ACR2_db, TACR2_db, ACR3_db, TACR3_db;
    Entry ACR4_db, TACR4_db, ACR5_db, TACR5_db, ACR6_db, TACR6_db;
    Entry GMR_db;                                  // geometric mean radius
    Entry radialthermalconductivity_unter_KPT_db;  // W/(m·K), below the knee point
    Entry KniepunktTemperatur_db;                  // °C, knee point of a bi-metallic conductor
    Entry radialthermalconductivity_ueber_KPT_db;  // W/(m·K), above the knee point

    friend bool operator==(const ConductorData&, const ConductorData&) = default;
};

struct MethodSelection {
    std::int16_t rechnung_cigre601_merker_db = 0;  // 1: Cigre TB 601 is selected
    std::int16_t rechnung_cigre207_merker_db = 0;  // 1: Cigre TB 207
    std::int16_t rechnung_TBB_merker_db = 0;       // 1: tubular busbar, RWTH Aachen / Puffer
    std::int16_t rechnung_webs_merker_db = 0;      // 1: Webs
    std::int16_t rechnung_kirn_merker_db = 0;      // 1: Kirn
    bool Leitertemp_Merker_db = false;             // the temperature is given, current is sought
    bool Stromstaerke_Merker_db = false;           // the current is given, temperature is sought
    bool Stromstaerkebuendel_Merker_db = false;    // the current is given for the whole bundle
    std::int16_t Umgebtemp_merker1_db = empty_mark;
    std::int16_t Umgebtemp_merker2_db = empty_mark;
    std::int16_t Gravi_merker1_db = 1;         // g: 1 is 9.80665, 2 is 9.78, 3 is 9.83 m/s²
    std::int16_t Formel_merker1_db = 2;        // skin effect of Webs: 1 ABB, 2 Kiessling
    std::int16_t wzsz_merker_db = 2;           // summer time counts in the sun height: 1 yes, 2 no
    std::int16_t ACDC_R_Option_Merker_db = 0;  // 1 DC resistance, 2 AC resistance pairs
    std::int16_t GMR_Merker_db = 0;            // GMR_db is given

    friend bool operator==(const MethodSelection&, const MethodSelection&) = default;
};

struct ParameterTableData {
    Entry Temp_min_db, Temp_max_db;  // °C
    std::int16_t Schrittweite_Temp_db = 0;
    Entry Strom_min_db, Strom_max_db;  // A
    std::int16_t Schrittweite_Strom_db = 0;
    Entry Wind1_db, Wind2_db, Wind3_db, Wind4_db, Wind5_db, Wind6_db;  // m/s

    friend bool operator==(const ParameterTableData&, const ParameterTableData&) = default;
};

struct MeasuredData {
    Entry Messwert_Strom_db{{}, empty_mark};       // A
    Entry Messwert_Temperatur_db{{}, empty_mark};  // °C

    friend bool operator==(const MeasuredData&, const MeasuredData&) = default;
};

/// One change of state of a transient: the fields `Zn_merker_db`, `Zn_Strom_db`, ...
struct StateChange {
    std::int16_t merker = 0;  // what is sought, see TransientKind; 0 unused
    Entry Strom;              // A; the text is the bundle's, the number of one sub-conductor
    Entry TEMP;               // °C
    Entry min;                // duration, minutes and
    Entry sec;                // seconds

    friend bool operator==(const StateChange&, const StateChange&) = default;
};

inline constexpr std::size_t state_change_count = 6;

// The parts are bases: c.Windgeschwindigkeit_db is short, and a part is replaced by one assignment.
struct CalcCase : ProjectData,
                  GeoData,
                  AmbientData,
                  LineData,
                  ConductorData,
                  MethodSelection,
                  ParameterTableData,
                  MeasuredData {
    std::array<StateChange, state_change_count> Z;  // Z1 to Z6

    friend bool operator==(const CalcCase&, const CalcCase&) = default;
};

/// The four terms of the heat balance of one sub-conductor, W/m.
struct HeatTerms {
    double PJ = 0;  // Joule heating
    double PS = 0;  // solar heating
    double PC = 0;  // convective cooling
    double PR = 0;  // radiative cooling
};

}  // namespace zel
