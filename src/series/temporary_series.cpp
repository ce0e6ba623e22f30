#include "platform/errors.h"
#include "series/series_run.h"
#include "tb601_transient/transient/conductor_mass.h"
#include "workflow/run/tatl.h"
#include "workflow/run/transient.h"

// Series of ratings for a time, and of changes of state. An element takes milliseconds.

namespace zel {
namespace {

constexpr std::size_t elements_of_a_block = 4;

constexpr Text no_transient_method = {
    "Zustandsänderungen werden nach TB601, TB207 oder TBB berechnet",
    "changes of state are calculated by TB601, TB207 or TBB"};

void seek_current(CalcCase& c, bool sought) {
    c.Leitertemp_Merker_db = sought;
    c.Stromstaerke_Merker_db = !sought;
    c.Stromstaerkebuendel_Merker_db = false;
}

/// Without a heat capacity a conductor would follow every current at once.
bool has_capacity(const CalcCase& c, HeatCapacityOption option) {
    ConductorMass mass = conductor_mass(c);
    mass.Theta = c.Leitertemp_db.value;
    const HeatCapacity capacity = TS_F02_CigreTB601_MC_Theta(mass, option);
    return !capacity.unknown_type && capacity.value > 0;
}

struct TatlElement {
    RatedNumber patl;
    RatingCode code = RatingCode::Rated;  // of the rating for a time
    double tatl = no_number;              // A, of one sub-conductor
};

/// Why the steady state of the preload was not found.
RatingCode code_of_preload(CaseRater& rater, double preload) {
    CalcCase& c = rater.element().c;
    seek_current(c, false);
    c.Stromstaerke_db = {"0", preload};
    const RatingCode code = rater.rate().code;
    seek_current(c, true);
    return code;
}

TatlElement rate(CaseRater& rater, const Session& session) {
    TatlElement found;
    found.patl = rater.rate();
    found.code = found.patl.code;
    if (!has_value(found.code)) return found;
    CalcCase c = rater.element().c;
    if (!has_capacity(c, session.cigre_TKW_merker)) {
        found.code = RatingCode::ConductorUnfit;
        return found;
    }
    TatlRating rating(c, rater.element().duration, session);
    const double permanent = *rating.permanent().current_A;
    const double preload = permanent * rater.element().preload / 100;
    const Tatl tatl = rating.after(preload, permanent);
    if (tatl.end == TatlEnd::SteadyFailed) {
        found.code = code_of_preload(rater, preload);
    } else if (tatl.end == TatlEnd::SearchFailed) {
        found.code = RatingCode::Fault;
    } else if (tatl.search != TransientExcelEnd::Found) {
        found.code = code_of(tatl.search);
    } else if (tatl.end == TatlEnd::BelowPreload) {
        found.code = RatingCode::PreloadTooHigh;
    } else {
        found.tatl = static_cast<double>(tatl.value);
        if (found.tatl < permanent) found.code = RatingCode::TatlBelowPatl;
    }
    return found;
}

/// The six rows of one element, where they came to an end.
struct StateRows {
    RatingCode code = RatingCode::Rated;  // of the steady state, and of all rows where it failed
    TransientResult result;
};

StateRows run_rows(CaseRater& rater, Method method, const SeriesOptions& options) {
    StateRows rows;
    CalcCase c = rater.element().c;
    rows.code = rater.rate().code;
    if (!has_value(rows.code)) return rows;
    const SilentRun run(options);
    try {
        const SteadyRunResult steady = RunSteady(c, run.session);
        TransientBasis basis;
        take_over(basis, steady, c);
        basis.start_method = method;
        RunTransient(c, basis, run.session, {}, rows.result);
    } catch (const ProgramEnd&) {
        rows.code = RatingCode::Ended;
        return rows;
    }
    if (!rows.result.input_valid)
        rows.code = rows.result.refusal.row ? RatingCode::MissingInput : RatingCode::ConductorUnfit;
    return rows;
}

RatingCode code_of_row(const StateRows& rows, std::size_t row) {
    if (!has_value(rows.code)) return rows.code;
    const TransientResult& result = rows.result;
    if (result.rows[row].Merker == row_unused) return RatingCode::MissingInput;
    if (!result.ended_soundly(row)) return RatingCode::TransientFailed;
    if (result.checks[row]) return RatingCode::TargetMissed;
    return ends_too_hot(result, row) ? RatingCode::TooHot : rows.code;
}

void write(const StateRows& rows, std::size_t row, const CalcCase& c, const StateSeries& out,
           std::size_t i) {
    const RatingCode code = code_of_row(rows, row);
    const bool stands = has_value(code);
    const TransientRow& found = rows.result.rows[row];
    out.code.set(i, number_of(code));
    out.current.set(i, stands ? of_bundle(found.Strom, c) : no_number);
    out.temperature.set(i, stands ? found.Temp : no_number);
    out.duration.set(i, stands ? duration_s(found) : no_number);
}

}  // namespace

void rate_tatl(const SeriesInputs& inputs, const SeriesOptions& options, const TatlSeries& out) {
    CalcCase base = inputs.base;
    seek_current(base, true);
    in_blocks(inputs.count, elements_of_a_block, options.threads,
              [&](std::size_t first, std::size_t end) {
                  const SilentRun run(options);
                  CaseRater rater(base, Method::TB601, inputs.varying(), run.session);
                  for (std::size_t i = first; i < end; ++i) {
                      const RatingCode code =
                          inputs.put(rater.element(), i, Method::TB601, options.radiation);
                      const TatlElement found = code == RatingCode::Rated
                                                    ? rate(rater, run.session)
                                                    : TatlElement{RatedNumber{code}, code};
                      const CalcCase& c = rater.element().c;
                      out.patl_code.set(i, number_of(found.patl.code));
                      out.tatl_code.set(i, number_of(found.code));
                      out.patl.set(i, of_bundle(found.patl.current, c));
                      out.tatl.set(i, of_bundle(found.tatl, c));
                      out.angle.set(i, found.patl.angle);
                  }
              });
}

void rate_transient(const SeriesInputs& inputs, Method method, const SeriesOptions& options,
                    const std::array<StateSeries, state_change_count>& out) {
    if (method == Method::Webs || method == Method::Kirn)
        throw InputError(Reason(no_transient_method));
    in_blocks(inputs.count, elements_of_a_block, options.threads,
              [&](std::size_t first, std::size_t end) {
                  const SilentRun run(options);
                  CaseRater rater(inputs.base, method, inputs.varying(), run.session);
                  for (std::size_t i = first; i < end; ++i) {
                      const RatingCode code =
                          inputs.put(rater.element(), i, method, options.radiation);
                      const StateRows rows = code == RatingCode::Rated
                                                 ? run_rows(rater, method, options)
                                                 : StateRows{code, {}};
                      for (std::size_t row = 0; row < out.size(); ++row)
                          write(rows, row, rater.element().c, out[row], i);
                  }
              });
}

}  // namespace zel
