#include "steady/kirn.h"

#include <cmath>

#include "platform/arithmetic_fault.h"
#include "steady/constants.h"
#include "steady/three_stage_search.h"

namespace zel {
namespace {

/// Forming it evaluates what does not depend on the conductor temperature.
class HeatBalance {
public:
    HeatBalance(const KirnInput& in, double former);

    /// Keeps the current for the next time.
    CurrentResult current_at(double T_C);
    HeatTerms terms_at(double I, double T_C) const;
    double angle() const { return angle_; }

private:
    /// Resistance (ohm/m) and losses (W/m).
    struct Losses {
        double Rt, Pr, Pc;
    };
    Losses losses_at(double T_C) const;
    double solar_heating(double slope) const;

    FaultWatch arithmetic_;
    const KirnInput& in_;
    double current_;  // A, the last one
    double angle_;    // degrees
    double Ps_ = 0;   // W/m
    double Rw_ = 0;
    double w_ = 0;
};

HeatBalance::HeatBalance(const KirnInput& in, double former)
    : in_(in), current_(former), angle_(in.delta) {
    const double slope = computed(in.Hoehendifferenz / in.Feldlaenge);
    if (!arithmetic_.sound()) return;
    Ps_ = computed(solar_heating(slope));
    if (!arithmetic_.sound()) return;
    angle_ = kirn_mirrored(in.delta);
    Rw_ = computed(kirn_wind_divisor(in.V, angle_));
    const double u = computed(kirn_ageing(in.ground.epsilon));
    if (!arithmetic_.sound()) return;
    w_ = kirn_surface(u);
}

/// By date, sky and ground.
double HeatBalance::solar_heating(double slope) const {
    const SunPosition sun = kirn_sun(in_.sun);
    double hs = sun.height;
    const double Fg = kirn_sky(kirn_air_mass(hs), kirn_season(in_.sun.month), in_.clearness);
    if (std::cos(hs) < 0.001) hs = 1.5697;
    const double i = kirn_sun_angle(sun, hs, radians(in_.azimuth), kirn_slope_angle(slope));
    return kirn_solar_heating(in_.ground, hs, Fg, i);
}

HeatBalance::Losses HeatBalance::losses_at(double T_C) const {
    const auto& [S, epsilon, D, albedo, Tg] = in_.ground;
    const double T = T_C + kelvin;
    return {(1 + in_.a * (T - 293)) * in_.R0, kirn_radiation(D, T, epsilon),
            kirn_convective_cooling(T, in_.Ta, D, in_.V, w_, Rw_)};
}

HeatTerms HeatBalance::terms_at(double I, double T_C) const {
    const auto [Rt, Pr, Pc] = losses_at(T_C);
    return {I * std::abs(I) * Rt, Ps_, Pc, Pr};
}

CurrentResult HeatBalance::current_at(double T_C) {
    const auto [Rt, Pr, Pc] = losses_at(T_C);
    const double Q = Pc + Pr - Ps_;
    const double q = computed(Q < 0 || Rt < 0 ? -std::abs(Q / Rt) : Q / Rt);
    if (q > 0) current_ = std::sqrt(q);
    if (q < 0) current_ = -std::sqrt(std::abs(q));
    return {current_, {"Modul_Kirn", "S1_Rechnung_strom_kirn", arithmetic_.fault()}};
}

}  // namespace

KirnInput kirn_input(const CalcCase& c, double delta) {
    KirnInput in;
    in.ground = {c.Globalstrahlung_db.value, c.Emissionsverhaeltnis_db.value,
                 c.Seildurchmesser_db.value * 0.001, c.Bodenart_db.value,
                 c.Bodentemp_db.value + kelvin};
    in.Ta = c.Umgebungstemperatur_db.value + kelvin;
    in.R0 = c.DCR_20_db.value * 0.001;
    in.a = thousandth(c.T_Koeff_DC_Resist_Leiter_linear_db.value);
    in.V = c.Windgeschwindigkeit_db.value;
    in.delta = delta;
    in.azimuth = c.Winkel_S_S_db.value;
    in.clearness = c.Bewoelkungsgrad_db.value;
    in.Hoehendifferenz = c.Hoehendifferenz_db.value;
    in.Feldlaenge = c.Feldlaenge_db.value;
    in.sun = sun_input(c);
    return in;
}

SunPosition kirn_sun(const SunInput& in) {
    const double N = day_of_year(in.day, in.month);
    return sun_position(in, N, in.clock - (in_summer_time(N) ? 1 : 0));
}

HeatTerms kirn_heat_terms(const KirnInput& in, double I, double T) {
    return HeatBalance(in, 0).terms_at(I, T);
}

KirnCurrent S1_Rechnung_strom_kirn(const KirnInput& in, double T, double former) {
    HeatBalance balance(in, former);
    const CurrentResult result = balance.current_at(T);
    return {result, balance.angle()};
}

KirnTemperature S2_Rechnung_temp_kirn(const KirnInput& in, double Iz, double former) {
    HeatBalance balance(in, former);
    const auto current_at = [&](double T) { return balance.current_at(T); };
    const TemperatureResult result = three_stage_search(Iz, current_at);
    return {result, balance.angle()};
}

}  // namespace zel
