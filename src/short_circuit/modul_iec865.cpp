#include "short_circuit/modul_iec865.h"

#include <cmath>

namespace zel {
namespace {

constexpr double million = 1e6;   // m/(ohm·mm²) to S/m, and A/m² to A/mm²
constexpr double thousand = 1e3;  // kA to A

/// Seconds of the flow `index`, counted from 0; a flow beyond N has none, whatever its box holds.
double duration_of(const ShortCircuitCase& c, std::size_t index) {
    constexpr NumberKey durations[] = {&ShortCircuitCase::Tk1, &ShortCircuitCase::Tk2,
                                       &ShortCircuitCase::Tk3};
    return static_cast<std::int16_t>(index) < c.Anzahl_KS_fluesse ? (c.*durations[index]).value : 0;
}

std::int16_t verdict(bool holds) { return holds ? withstands : does_not_withstand; }

}  // namespace

double KS_Faktor_m(double T, double f, double kappa) {
    const double L = std::log(kappa - 1);
    return (1 / (2 * f * T * L)) * (std::exp(4 * f * T * L) - 1);
}

double KS_Faktor_n(double T, std::int16_t generatornah, double IK2, double IK) {
    if (generatornah == generator_far) return 1;
    if (generatornah != generator_near) return 0;
    const double r = IK2 / IK;
    if (r == 1) return 1;
    const double p = r / (0.88 + 0.17 * r);  // stands for Ik'/Ik
    const double Td = 3.1 / p;               // s, stands for the transient time constant Td'
    const double t1 = (Td / (20 * T)) * (1 - std::exp(-20 * T / Td)) * ((r - p) * (r - p));
    const double t2 = (Td / (2 * T)) * (1 - std::exp(-2 * T / Td)) * ((p - 1) * (p - 1));
    const double t3 = (Td / (5 * T)) * (1 - std::exp(-10 * T / Td)) * (r - p);
    const double t4 = (2 * Td / T) * (1 - std::exp(-T / Td)) * (p - 1);
    // IEC 60909-0 has 5.5 and 11 here; 5.051 and 10.1 are this program's and are kept.
    const double t5 = (Td / (5.051 * T)) * (1 - std::exp(-10.1 * T / Td)) * (r - p) * (p - 1);
    return (1 / (r * r)) * (1 + t1 + t2 + t3 + t4 + t5);
}

double KS_Kurzzeitstrom_Ith(const ShortCircuitCase& c, double T_k, ShortCircuitResult& result) {
    result.flows = {};
    double heat = 0;
    for (std::size_t i = 0; i < flow_count; ++i) {
        if (static_cast<std::int16_t>(i) >= c.Anzahl_KS_fluesse) break;
        CurrentFlow& flow = result.flows[i];
        const double T = duration_of(c, i);
        flow.m = KS_Faktor_m(T, c.Frequenz_ks.value, c.Kappa.value);
        flow.n = KS_Faktor_n(T, c.generatornah, c.IK2.value, c.IK.value);
        flow.I_th = c.IK2.value * std::sqrt(flow.m + flow.n);
        heat += flow.I_th * flow.I_th * T;
    }
    return std::sqrt((1 / T_k) * heat);
}

double KS_Faktor_Sthr(const ShortCircuitCase& c, ShortCircuitResult& result) {
    const double kappa20 = c.kappa20_ks.value * million;
    const double alpha20 = c.Tk20_ks.value;
    const double a = (c.waermekapaz.value * kappa20 * c.Dichte_rho.value) / alpha20;
    const double g_e = (c.theta_e.value - 20) * alpha20 + 1;
    const double g_b = (c.theta_b.value - 20) * alpha20 + 1;
    result.K = std::sqrt(a * std::log(g_e / g_b)) / million;
    return result.K / std::sqrt(c.Tkr.value);
}

double admissible_current(const ShortCircuitCase& c, double T_k) {
    return c.Ithr.value * std::sqrt(c.Tkr.value / T_k);
}

ShortCircuitResult KS_Auswertung(const ShortCircuitCase& c) {
    ShortCircuitResult result;
    if (c.Strombegrenzschalter_ks == with_limiter) {
        result.I_th = c.Ith.value;
        result.T_k = c.T_k.value;
    } else if (c.Strombegrenzschalter_ks == without_limiter) {
        result.T_k = duration_of(c, 0) + duration_of(c, 1) + duration_of(c, 2);
        result.I_th = KS_Kurzzeitstrom_Ith(c, result.T_k, result);
    }
    if (c.Leiter_Bmittel == equipment) {
        const bool holds = result.T_k <= c.Tkr.value
                               ? result.I_th <= c.Ithr.value
                               : admissible_current(c, result.T_k) >= result.I_th;
        result.verdict_Betriebsmittel = verdict(holds);
    } else if (c.Leiter_Bmittel == bare_conductor) {
        result.S_thr = KS_Faktor_Sthr(c, result);
        result.S_zul = result.S_thr * std::sqrt(c.Tkr.value / result.T_k);
        result.S_th = result.I_th * thousand / c.A_Leiter.value;
        result.verdict_Leiter = verdict(result.S_th <= result.S_zul);
    }
    return result;
}

}  // namespace zel
