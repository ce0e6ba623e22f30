#pragma once

#include <array>
#include <cstdint>

#include "short_circuit/short_circuit_case.h"

// `MODUL_IEC865`: thermal short-circuit strength by IEC 865-1 / EN 60865-1, section 3.2. The
// factors m and n are those of IEC 60909-0.
//
// Nothing here is checked. A case that passed `first_refusal` and `arithmetic_refusal` meets no
// arithmetic fault; any other may give an infinite result or one that is no number.

namespace zel {

/// One flow of short-circuit current, evaluated as if it were alone.
struct CurrentFlow {
    double I_th = 0;  // kA, thermally equivalent short-time current
    double m = 0;     // heat effect of the d.c. component
    double n = 0;     // heat effect of the a.c. component
};

inline constexpr std::size_t flow_count = 3;

struct ShortCircuitResult {
    double I_th = 0;  // kA, thermally equivalent short-time current, computed or given
    double T_k = 0;   // s, duration of the short circuit, computed or given
    std::array<CurrentFlow, flow_count> flows;  // 0 beyond N, and where I_th is given
    // Bare conductor only:
    double K = 0;      // A·s^0.5/mm², factor of the rated short-time current density
    double S_thr = 0;  // A/mm², rated short-time current density
    double S_th = 0;   // A/mm², thermally equivalent short-time current density
    double S_zul = 0;  // A/mm², S_thr·sqrt(T_kr/T_k), which is K/sqrt(T_k)
    // 1 withstands, 2 does not, 0 not computed:
    std::int16_t verdict_Betriebsmittel = 0;
    std::int16_t verdict_Leiter = 0;
};

inline constexpr std::int16_t withstands = 1;
inline constexpr std::int16_t does_not_withstand = 2;

/// Factor m for a flow of `T` seconds. Divides by zero at kappa 2 and at f 0.
[[nodiscard]] double KS_Faktor_m(double T, double f, double kappa);

/// Factor n for a flow of `T` seconds: 1 far from the generator, where `IK` is not read, and 0
/// without a choice. `IK2` and `IK` in kA. `IK2` below `IK` is not refused.
[[nodiscard]] double KS_Faktor_n(double T, std::int16_t generatornah, double IK2, double IK);

/// The thermally equivalent short-time current in kA for the total duration `T_k`; fills the flows
/// of `result`.
[[nodiscard]] double KS_Kurzzeitstrom_Ith(const ShortCircuitCase& c, double T_k,
                                          ShortCircuitResult& result);

/// The rated short-time current density in A/mm²; fills `K` of `result`.
[[nodiscard]] double KS_Faktor_Sthr(const ShortCircuitCase& c, ShortCircuitResult& result);

/// The current that the equipment may carry for `T_k` seconds longer than its rated short time:
/// I_thr·sqrt(T_kr/T_k), in kA.
[[nodiscard]] double admissible_current(const ShortCircuitCase& c, double T_k);

/// The whole result of a case.
[[nodiscard]] ShortCircuitResult KS_Auswertung(const ShortCircuitCase& c);

}  // namespace zel
