#include <cmath>

#include "fakes/formulas.h"
#include "steady/kirn_terms.h"
#include "steady/sun.h"
#include "steady/tb207_terms.h"
#include "steady/tbb_terms.h"
#include "steady/webs.h"
#include "steady/webs_terms.h"

namespace zel {

using nlohmann::json;

// Records as arrays, their members in order.
void from_json(const json& j, Tb207Conductor& c) { c = {j[0], j[1], j[2], j[3], j[4]}; }
void from_json(const json& j, Tb207Flow& f) { f = {j[0], j[1], j[2], j[3], j[4], j[5]}; }
void from_json(const json& j, BusbarFlow& f) { f = {j[0], j[1], j[2], j[3], j[4]}; }
void from_json(const json& j, KirnGround& g) { g = {j[0], j[1], j[2], j[3], j[4]}; }
void from_json(const json& j, SunInput& s) { s = {j[0], j[1], j[2], j[3], j[4], j[5]}; }
void from_json(const json& j, SunPosition& s) { s = {j[0], j[1], j[2]}; }
void to_json(json& j, const SunPosition& s) { j = {s.hour_angle, s.declination, s.height}; }

namespace {

/// From the heating of a steel-cored conductor of 1 ohm/m at 20 °C.
double effective_current(double I, std::int16_t N, double A) {
    return std::sqrt(
        ST_F01_CigreTB207_PJ_steady(I, {1, 0.004, steel_cored_conductor, N, A}, 20).value);
}

/// From the cooling of 10 °C in air of -10 °C, by wires of `d`.
double nusselt_forced(double V, double delta, double d) {
    const Tb207Flow flow = {V, delta, 0, 0.033, d, 9.80665};
    return ST_F03_CigreTB207_PC_steady(flow, 10, -10).value / (20 * 0.0242 * 3.141592654);
}

double angle_factor(double delta) {
    return nusselt_forced(1, delta, 0.003) / nusselt_forced(1, 90, 0.003);
}

/// From the cooling of 20 °C in air of 0 °C.
double nusselt_natural(double g) {
    const Tb207Flow flow = {0, 90, 0, 0.033, 0.003, g};
    return ST_F03_CigreTB207_PC_steady(flow, 20, 0).value / (20 * 0.02492 * 3.141592654);
}

double kirn_surface_by_emissivity(double epsilon) { return kirn_surface(kirn_ageing(epsilon)); }

SunPosition sun_position(const SunInput& in) {
    return sun_position(in, day_of_year(in.day, in.month), in.clock);
}

TEST(SteadyFormulas, have_the_values_of_their_rows) {
    expect_formulas("steady_formulas",
                    {ZEL_FORMULA(ST_F01_CigreTB207_PJ_steady),
                     ZEL_FORMULA(effective_current),
                     ZEL_FORMULA(ST_F02_CigreTB207_PS_steady),
                     ZEL_FORMULA(ST_F03_CigreTB207_PC_steady),
                     ZEL_FORMULA(nusselt_forced),
                     ZEL_FORMULA(angle_factor),
                     ZEL_FORMULA(nusselt_natural),
                     ZEL_FORMULA(ST_F04_CigreTB207_PR_steady),
                     ZEL_FORMULA(tube_resistance),
                     ZEL_FORMULA(ST_F01_TBB_PJ_steady),
                     ZEL_FORMULA(ST_F02_CigreTBB_PS_steady),
                     ZEL_FORMULA(ST_F03_TBB_PC_steady),
                     ZEL_FORMULA(ST_F04_TBB_PR_steady),
                     ZEL_FORMULA(webs_skin_factor),
                     ZEL_FORMULA(webs_nusselt_free),
                     ZEL_FORMULA(webs_nusselt_forced),
                     ZEL_FORMULA(webs_viscosity),
                     ZEL_FORMULA(webs_viscosity_in_wind),
                     ZEL_FORMULA(webs_expansion),
                     ZEL_FORMULA(webs_pressure),
                     ZEL_FORMULA(webs_radiation_at_altitude),
                     ZEL_FORMULA(webs_sun_angle),
                     ZEL_FORMULA(kirn_season),
                     ZEL_FORMULA(kirn_air_mass),
                     ZEL_FORMULA(kirn_sky),
                     ZEL_FORMULA(kirn_slope_angle),
                     ZEL_FORMULA(kirn_sun_angle),
                     ZEL_FORMULA(kirn_solar_heating),
                     ZEL_FORMULA(kirn_mirrored),
                     ZEL_FORMULA(kirn_wind_divisor),
                     ZEL_FORMULA(kirn_surface_by_emissivity),
                     ZEL_FORMULA(day_of_year),
                     {"sun_position",
                      [](const json& row) {
                          return evaluated<SunPosition, const SunInput&>(sun_position, row);
                      }},
                     ZEL_FORMULA(S3_Sonnenhoehe_webs)});
}

}  // namespace
}  // namespace zel
