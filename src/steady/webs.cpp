#include "steady/webs.h"

#include <algorithm>
#include <cmath>

#include "platform/arithmetic_fault.h"
#include "steady/constants.h"
#include "steady/three_stage_search.h"
#include "steady/webs_terms.h"

namespace zel {
namespace {

constexpr double least_wind = 0.2;     // m/s, across the conductor
constexpr double free_below = 0.1;     // m/s, wind speed at which forced convection begins
constexpr double Grashof_limit = 1e7;  // beyond, the accuracy is in doubt

double clock_time(const SunInput& in, double N, std::int16_t wzsz_merker) {
    if (!in_summer_time(N) || wzsz_merker == 2) return in.clock;
    return wzsz_merker == 1 ? in.clock - 1 : 0;
}

/// Forming it evaluates what does not depend on the conductor temperature.
class HeatBalance {
public:
    HeatBalance(const WebsInput& in, WebsQuestions& questions);

    CurrentResult current_at(double T);
    HeatTerms terms_at(double I, double T);

private:
    /// Resistance (ohm/km) and losses (W/m).
    struct Losses {
        double Rac, Prad, Pc;
    };
    Losses losses_at(double T);
    double free_convection(double T, double difference);
    double forced_convection(double T, double difference);
    double wind_across() const;

    FaultWatch arithmetic_;
    const WebsInput& in_;
    WebsQuestions& questions_;
    double D_;         // m
    double k_;         // AC over DC resistance
    double Psol_;      // W/m
    double p_;         // Pa
    double wind_ = 0;  // m/s, across the conductor
};

HeatBalance::HeatBalance(const WebsInput& in, WebsQuestions& questions)
    : in_(in), questions_(questions), D_(in.diameter * 0.001) {
    const double kappa = in.resistivity != 0 ? 1000 / in.resistivity : 0;
    const double k =
        computed(webs_skin_factor(in.Formel_merker1, in.frequency, kappa, in.diameter));
    k_ = in.frequency > 0 ? k : 1;
    const double hs = S3_Sonnenhoehe_webs(in.sun, in.wzsz_merker);
    const double theta = webs_sun_angle(hs, radians(std::abs(in.azimuth)));
    const double Gh = webs_radiation_at_altitude(in.global_radiation, in.altitude);
    Psol_ = computed(D_ * in.emissivity * Gh * std::sin(theta));
    p_ = computed(webs_pressure(in.altitude, in.g));
    if (in.V >= free_below) wind_ = computed(std::abs(std::sin(radians(in.delta))) * in.V);
}

HeatBalance::Losses HeatBalance::losses_at(double T) {
    const double TK = T + kelvin;
    const double TaK = in_.Ta + kelvin;
    const double Rac = in_.DCR20 * (1 + in_.a * (TK - 293.15)) * k_;
    const double Prad = computed(webs_radiative_cooling(D_, in_.emissivity, TK, TaK));
    const double Pc =
        in_.V < free_below ? free_convection(T, TK - TaK) : forced_convection(T, TK - TaK);
    return {Rac, Prad, Pc};
}

HeatTerms HeatBalance::terms_at(double I, double T) {
    const auto [Rac, Prad, Pc] = losses_at(T);
    return {I * std::abs(I) * Rac / 1000, Psol_, Pc, Prad};
}

CurrentResult HeatBalance::current_at(double T) {
    const auto [Rac, Prad, Pc] = losses_at(T);
    const double Q = computed((Prad + Pc - Psol_) / Rac * 1000);
    const double current = Q >= 0 ? std::sqrt(Q) : -std::sqrt(std::abs(Q));
    return {current, {"Modul_Webs", "S1_Rechnung_strom_webs", arithmetic_.fault()}};
}

/// With the air at the conductor temperature, not at that of a film.
double HeatBalance::free_convection(double T, double difference) {
    const double eta = webs_viscosity(T);
    const double rho = webs_density(T, p_);
    const double Gr = computed((rho * rho) * (D_ * D_ * D_) * webs_expansion(T) * difference /
                               ((eta * eta) * in_.g));
    if (arithmetic_.sound() && Gr > Grashof_limit) questions_.Grashof_too_large(in_.V, in_.Ta, T);
    return webs_convective_cooling(webs_conductivity(T), difference, webs_nusselt_free(Gr));
}

double HeatBalance::forced_convection(double T, double difference) {
    if (!arithmetic_.sound()) return 0;
    const double Tf = (T + in_.Ta) / 2;
    const double Re =
        computed(wind_across() * D_ * webs_density(Tf, p_) / (in_.g * webs_viscosity_in_wind(Tf)));
    if (!arithmetic_.sound()) return 0;
    const auto Nu = webs_nusselt_forced(Re);
    if (!Nu) questions_.Reynolds_too_small();
    return webs_convective_cooling(webs_conductivity(Tf), difference, *Nu);
}

double HeatBalance::wind_across() const {
    const bool raised = wind_ < least_wind && questions_.raises_low_wind(in_.V, in_.delta, wind_);
    return raised ? least_wind : wind_;
}

}  // namespace

WebsInput webs_input(const CalcCase& c, double delta) {
    WebsInput in;
    in.DCR20 = c.DCR_20_db.value;
    in.a = thousandth(c.T_Koeff_DC_Resist_Leiter_linear_db.value);
    in.resistivity = c.DC_Resist_Leiter_db.value;
    in.frequency = c.Netzfrequenz_db.value;
    in.diameter = c.Seildurchmesser_db.value;
    in.Ta = c.Umgebungstemperatur_db.value;
    in.emissivity = c.Emissionsverhaeltnis_db.value;
    in.V = c.Windgeschwindigkeit_db.value;
    in.delta = delta;
    in.altitude = c.Hoehe_ueber_NN_db.value;
    in.azimuth = c.Winkel_S_S_db.value;
    in.global_radiation = c.Globalstrahlung_db.value;
    in.g = gravity(c.Gravi_merker1_db);
    in.sun = sun_input(c);
    in.Formel_merker1 = c.Formel_merker1_db;
    in.wzsz_merker = c.wzsz_merker_db;
    return in;
}

SunPosition webs_sun(const SunInput& in, std::int16_t wzsz_merker) {
    const double N = day_of_year(in.day, in.month);
    return sun_position(in, N, clock_time(in, N, wzsz_merker));
}

double S3_Sonnenhoehe_webs(const SunInput& in, std::int16_t wzsz_merker) {
    return std::max(0.0, webs_sun(in, wzsz_merker).height);
}

HeatTerms webs_heat_terms(const WebsInput& in, double I, double T, WebsQuestions& questions) {
    return HeatBalance(in, questions).terms_at(I, T);
}

CurrentResult S1_Rechnung_strom_webs(const WebsInput& in, double T, WebsQuestions& questions) {
    return HeatBalance(in, questions).current_at(T);
}

TemperatureResult S2_Rechnung_temp_webs(const WebsInput& in, double Iz, WebsQuestions& questions) {
    HeatBalance balance(in, questions);
    return three_stage_search(Iz, [&](double T) { return balance.current_at(T); });
}

}  // namespace zel
