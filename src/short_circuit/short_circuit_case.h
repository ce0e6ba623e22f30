#pragma once

#include <cstdint>
#include <string>

#include "steady/case/field.h"

// The whole record of a short-circuit case. Fields bear the names of their table columns. It has
// nothing in common with the case of the thermal rating but the kind of its numeric fields.

namespace zel {

/// `Strombegrenzschalter_ks`
enum CurrentLimiter : std::int16_t {
    without_limiter = 1,  // "nein": I_th is computed
    with_limiter = 2,     // "ja": I_th and T_k are given
};

/// `generatornah`
enum Vicinity : std::int16_t { generator_near = 1, generator_far = 2 };

/// `Leiter_Bmittel`
enum JudgedObject : std::int16_t { bare_conductor = 1, equipment = 2 };

/// Every number was read at 32-bit precision and widened: 0.1 is 0.100000001490116. A selection of
/// 0 is no choice.
struct ShortCircuitCase {
    std::string Projekt_ks;
    std::string Bearbeiter_ks;
    std::string Datum_ks;
    std::string Abteilung_ks;
    Entry Frequenz_ks;                         // Hz, f
    std::int16_t Strombegrenzschalter_ks = 0;  // see CurrentLimiter
    std::int16_t generatornah = 0;             // see Vicinity
    Entry IK2;                                 // kA, initial symmetrical short-circuit current Ik''
    Entry IK;     // kA, steady-state short-circuit current Ik, generator-near only
    Entry Kappa;  // factor kappa of the peak short-circuit current
    std::int16_t Anzahl_KS_fluesse = 0;  // N, 1 to 3 flows of short-circuit current
    Entry Tk1, Tk2, Tk3;                 // s, their durations
    Entry Ith;                           // kA, given thermally equivalent short-time current
    Entry T_k;                           // s, given duration of the short circuit
    std::int16_t Leiter_Bmittel = 0;     // see JudgedObject
    Entry Tkr;                           // s, rated short time T_kr
    Entry Ithr;                          // kA, rated short-time current I_thr, equipment only
    Entry theta_b;                       // °C, conductor at the start of the short circuit
    Entry theta_e;                       // °C, conductor at its end
    Entry A_Leiter;  // mm², total section, or the sheath's where core and sheath differ
    std::int16_t Leitermaterial_ks = 0;  // index of the material list, 0 for values of one's own
    Entry waermekapaz;                   // J/(kg·K), specific heat capacity c
    Entry kappa20_ks;                    // m/(ohm·mm²), conductivity at 20 °C
    Entry Tk20_ks;                       // 1/K, temperature coefficient at 20 °C, alpha20
    Entry Dichte_rho;                    // kg/m³, density
    // What came with a conductor's record, for reading only.
    std::string werkstoff_ks;
    std::string Nennquerschnitt_ks;
    std::string Norm_ks;
    std::int16_t Normjahr_ks = 0;
    std::int16_t Normmonat_ks = 0;
    double Seilquerschnitt_ks = 0;    // mm², total section
    double Mantelquerschnitt_ks = 0;  // mm², section of the sheath

    friend bool operator==(const ShortCircuitCase&, const ShortCircuitCase&) = default;
};

/// A box for a number, and a list, by the member that it fills.
using NumberKey = Entry ShortCircuitCase::*;
using ListKey = std::int16_t ShortCircuitCase::*;
using TextKey = std::string ShortCircuitCase::*;
using RecordNumberKey = double ShortCircuitCase::*;

/// A field by its member, the key that ties all tables over fields together.
using ShortCircuitKey = KeyOf<ShortCircuitCase>;

}  // namespace zel
