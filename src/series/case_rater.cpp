#include "series/case_rater.h"

#include <algorithm>
#include <cmath>

#include "platform/errors.h"
#include "shell/program_texts.h"
#include "steady/kirn.h"
#include "steady/steady_solver.h"
#include "steady/three_stage_search.h"
#include "steady/webs.h"
#include "tb601_transient/tb601/tb601_solver.h"
#include "workflow/rules/derived.h"
#include "workflow/run/notes.h"

namespace zel {
namespace {

using Row = steady_check::Check;

/// Each of these is read by the checks of its own alone: of place, time and weather.
bool is_checked_alone(const FieldKey& key) {
    static const FieldKey alone[] = {&CalcCase::Hoehe_ueber_NN_db,
                                     &CalcCase::Winkel_S_S_db,
                                     &CalcCase::geogr_Breite_db,
                                     &CalcCase::geo_laeng_db,
                                     &CalcCase::geo_laeng_zeit_db,
                                     &CalcCase::Windgeschwindigkeit_db,
                                     &CalcCase::Winkel_W_S_db,
                                     &CalcCase::Umgebungstemperatur_db,
                                     &CalcCase::Globalstrahlung_db,
                                     &CalcCase::Bodentemp_db,
                                     &CalcCase::Bodenart_db,
                                     &CalcCase::Bewoelkungsgrad_db,
                                     &CalcCase::Tag_db,
                                     &CalcCase::Monat_db,
                                     &CalcCase::Stunden_db,
                                     &CalcCase::Minuten_db,
                                     &CalcCase::Emissionsverhaeltnis_db,
                                     &CalcCase::Absorptionsverhaeltnis_db,
                                     &CalcCase::wzsz_merker_db};
    return std::find(std::begin(alone), std::end(alone), key) != std::end(alone);
}

RatedNumber failed(RatingCode code, double angle) { return {code, no_number, no_number, angle}; }

/// Of Webs and Kirn, where the current is sought.
RatedNumber rated_current(double current, double temperature, double angle) {
    return {current < 0 ? RatingCode::CurrentNegative : RatingCode::Rated, current, temperature,
            angle};
}

constexpr double highest_searched = 500;  // °C, by Webs and Kirn

/// Of Webs and Kirn, where the temperature is sought. Their search has no failure: where no
/// temperature belongs to the current, its last point stands.
RatedNumber rated_temperature(const TemperatureResult& found, double current, double angle) {
    if (!(std::abs(found.current - current) <= search_stages.back().tolerance)) {
        const bool at_its_end = found.temperature == highest_searched;
        return failed(!at_its_end               ? RatingCode::NotConverged
                      : current > found.current ? RatingCode::TemperatureTooHigh
                                                : RatingCode::TemperatureTooLow,
                      angle);
    }
    return {RatingCode::Rated, found.current, found.temperature, angle};
}

}  // namespace

CalcCase prepared_for(const CalcCase& base, Method method) {
    CalcCase c = base;
    forget_emptied(c);
    for (const Method each : all_methods) c.*flag_of(each) = each == method ? 1 : 0;
    return c;
}

RatingCode code_of(const Row& refusal) {
    if (refusal.rule.place == FieldKey(&CalcCase::conductor_type_db))
        return RatingCode::ConductorUnfit;
    if (refusal.rule.frame == &steady_check::incomplete) return RatingCode::MissingInput;
    if (refusal.rule.frame == &steady_check::incorrect) return RatingCode::OutsideLimits;
    return RatingCode::ConductorUnfit;
}

CaseRater::CaseRater(const CalcCase& base, Method method, std::span<const FieldKey> varying,
                     const Session& session)
    : element_{prepared_for(base, method)}, method_(method), session_(session) {
    const bool all = !std::all_of(varying.begin(), varying.end(), is_checked_alone);
    const auto may_refuse = [&](const Row& check) {
        return all || check.refuses(element_.c) ||
               std::find(varying.begin(), varying.end(), check.rule.place) != varying.end();
    };
    for (const auto rows : {steady_check::input_checks(), steady_check::conductor_checks()})
        for (const Row& check : rows)
            if (may_refuse(check)) checks_.push_back(&check);
}

const Row* CaseRater::refusal() const {
    for (const Row* check : checks_)
        if (check->refuses(element_.c)) return check;
    return nullptr;
}

RatedNumber CaseRater::rate() {
    CalcCase& c = element_.c;
    if (const Row* check = refusal()) return {code_of(*check)};
    if (c.Leitertemp_Merker_db == c.Stromstaerke_Merker_db) return {RatingCode::ModeUndefined};
    if (const auto current = share_of_bundle(c)) c.Stromstaerke_db.value = *current;
    const double angle = S_Winkel_Wind_Leiter(c);
    if (!std::isfinite(angle) || !std::isfinite(c.Stromstaerke_db.value))
        return {RatingCode::Fault};
    try {
        RatedNumber found = run(angle);
        if (found.code == RatingCode::Rated && is_turned(c)) found.code = RatingCode::WindFolded;
        return found;
    } catch (const ProgramEnd&) {
        return failed(RatingCode::Ended, angle);
    }
}

RatedNumber CaseRater::run(double angle) const {
    switch (method_) {
        case Method::TB601: return by_tb601(angle);
        case Method::Webs: return by_webs(angle);
        case Method::Kirn: return by_kirn(angle);
        case Method::TB207:
        case Method::TBB: break;
    }
    return by_heat_balance(angle);
}

RatedNumber CaseRater::by_heat_balance(double angle) const {
    const CalcCase& c = element_.c;
    const SteadyInputBlock input = steady_input(c, angle);
    const auto [state, failure] =
        c.Leitertemp_Merker_db
            ? solve_current(input, c.Leitertemp_db.value, SearchPace::NewPoints)
            : solve_temperature(input, c.Stromstaerke_db.value, SearchPace::NewPoints);
    if (failure) return failed(code_of(failure), angle);
    return {RatingCode::Rated, state.current, state.temperature, angle};
}

RatedNumber CaseRater::by_tb601(double angle) const {
    const CalcCase& c = element_.c;
    const ArithmeticScope arithmetic;
    TB601Records records;
    fill(records, c, angle);
    if (const auto failure = fault_in(Tb601Procedure::SteadyState, arithmetic))
        return failed(code_of(failure), angle);
    auto& [params, state] = records;
    const Tb601Failure failure =
        c.Leitertemp_Merker_db
            ? solve_current(params, state, c.Leitertemp_db.value, SearchPace::NewPoints)
            : solve_temperature(params, state, c.Stromstaerke_db.value, SearchPace::NewPoints);
    if (failure) return failed(code_of(failure), angle);
    return {RatingCode::Rated, state.I, state.T, angle};
}

RatedNumber CaseRater::by_webs(double angle) const {
    const CalcCase& c = element_.c;
    const WebsInput input = webs_input(c, angle);
    WebsQuestions questions(
        {session_.reporting(), session_.separator, session_.wi_v_wi_merker, short_name});
    if (c.Leitertemp_Merker_db) {
        const double T = c.Leitertemp_db.value;
        const CurrentResult found = S1_Rechnung_strom_webs(input, T, questions);
        return found.fault ? failed(RatingCode::Fault, angle)
                           : rated_current(found.current, T, angle);
    }
    const TemperatureResult found =
        S2_Rechnung_temp_webs(input, c.Stromstaerke_db.value, questions);
    if (found.fault) return failed(RatingCode::Fault, angle);
    return rated_temperature(found, c.Stromstaerke_db.value, angle);
}

RatedNumber CaseRater::by_kirn(double angle) const {
    const CalcCase& c = element_.c;
    const KirnInput input = kirn_input(c, angle);
    if (c.Leitertemp_Merker_db) {
        const double T = c.Leitertemp_db.value;
        const KirnCurrent found = S1_Rechnung_strom_kirn(input, T);
        return found.fault ? failed(RatingCode::Fault, angle)
                           : rated_current(found.current, T, found.angle);
    }
    const KirnTemperature found = S2_Rechnung_temp_kirn(input, c.Stromstaerke_db.value);
    if (found.fault) return failed(RatingCode::Fault, angle);
    return rated_temperature(found, c.Stromstaerke_db.value, found.angle);
}

}  // namespace zel
