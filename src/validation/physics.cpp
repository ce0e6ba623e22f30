#include "validation/physics.h"

#include <cmath>

#include "steady/constants.h"
#include "steady/kirn.h"
#include "steady/kirn_terms.h"
#include "steady/webs.h"
#include "steady/webs_terms.h"

namespace zel {
namespace {

/// The current with `gain` W/m more of heat from outside.
std::optional<double> with_gain(const SteadyFound& found, double gain) {
    const double share = 1 - gain / found.terms.PJ;
    if (!(share >= 0)) return std::nullopt;
    return found.I * std::sqrt(share);
}

WebsInput webs_input_of(const SteadyFound& found) { return webs_input(found.c, found.angle); }

/// Between a conductor of the azimuth `s` (radians, from north) and the sun: the cosine.
double cosine_to_sun(const SunPosition& sun, double latitude, double s) {
    // The sun as a vector to south, west and up.
    const double south = std::sin(latitude) * std::cos(sun.declination) * std::cos(sun.hour_angle) -
                         std::cos(latitude) * std::sin(sun.declination);
    const double west = std::cos(sun.declination) * std::sin(sun.hour_angle);
    return -std::cos(s) * south - std::sin(s) * west;
}

/// The last term of the factor n of IEC 60909-0, over the square of Ik''/Ik.
double last_term(const ShortCircuitCase& c, double divisor, double exponent) {
    const double r = c.IK2.value / c.IK.value;
    const double p = r / (0.88 + 0.17 * r);
    const double periods = c.Tk1.value * p / 3.1;
    return (r - p) * (p - 1) * (1 - std::exp(-exponent * periods)) / (divisor * periods) / (r * r);
}

}  // namespace

std::optional<double> current_by_exact_allowance(const SteadyFound& found) {
    const CalcCase& c = found.c;
    const auto layers = c.DrahtlagenzahlLeiter_db;
    if (c.conductor_type_db != steel_cored_conductor || layers < 1 || layers > 2 ||
        c.Mantelquerschnitt_db.value < 175)
        return std::nullopt;
    const double a20 = thousandth(c.T_Koeff_DC_Resist_Leiter_linear_db.value);
    const double R = thousandth(c.DCR_20_db.value) * (1 + a20 * (found.T - reference_temperature));
    const double x = std::sqrt((found.terms.PC + found.terms.PR - found.terms.PS) / R);
    return x / std::sqrt(1.0045 + 0.09e-6 * x);
}

std::optional<double> current_by_printed_skin_effect(const SteadyFound& found) {
    const WebsInput in = webs_input_of(found);
    if (in.Formel_merker1 == 1 || in.resistivity <= 0) return std::nullopt;
    const double kappa = 1000 / in.resistivity;
    const double x = in.diameter / 4 * std::sqrt(pi * in.frequency * kappa * 1.25664e-6);
    if (x <= 1) return std::nullopt;
    const double printed = 0.25 + x + 3.0 / 64 / x;
    const double kept = webs_skin_factor(in.Formel_merker1, in.frequency, kappa, in.diameter);
    return found.I * std::sqrt(kept / printed);
}

std::optional<double> current_by_absorptivity(const SteadyFound& found) {
    const double ratio =
        found.c.Absorptionsverhaeltnis_db.value / found.c.Emissionsverhaeltnis_db.value;
    return with_gain(found, found.terms.PS * (ratio - 1));
}

std::optional<double> current_by_place_of_sun(const SteadyFound& found) {
    const WebsInput in = webs_input_of(found);
    const double height = S3_Sonnenhoehe_webs(in.sun, in.wzsz_merker);
    if (!(height > 0)) return std::nullopt;
    const double azimuth = radians(in.azimuth);
    const double kept = std::sin(webs_sun_angle(height, azimuth));
    const double cosine =
        cosine_to_sun(webs_sun(in.sun, in.wzsz_merker), radians(in.sun.latitude), azimuth);
    return with_gain(found, found.terms.PS * (std::sqrt(1 - cosine * cosine) / kept - 1));
}

std::optional<double> current_by_low_sun(const SteadyFound& found) {
    const KirnInput in = kirn_input(found.c, found.angle);
    const double height = kirn_sun(in.sun).height;
    if (height <= radians(1.5) || height > 1.5) return found.I;
    // The term is the same at a height of 0, where it counts by both readings.
    const double with = kirn_solar_heating(in.ground, 1.5, 0, 0);
    const double without = kirn_solar_heating(in.ground, pi / 2, 0, 0);
    return with_gain(found, without - with);
}

std::optional<double> short_time_current_by_standard(const ShortCircuitFound& found) {
    const auto& [c, result] = found;
    if (c.generatornah != generator_near || c.Anzahl_KS_fluesse != 1) return std::nullopt;
    const CurrentFlow& flow = result.flows.front();
    const double n = flow.n - last_term(c, 5.051, 10.1) + last_term(c, 5.5, 11);
    return 1000 * c.IK2.value * std::sqrt(flow.m + n);
}

}  // namespace zel
