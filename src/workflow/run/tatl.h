#pragma once

#include "shell/session.h"
#include "tb601_transient/transient/transient_excel.h"
#include "workflow/run/steady_methods.h"

namespace zel {

/// How the search of a rating for a time ended.
enum class TatlEnd : std::uint8_t {
    Found,
    SteadyFailed,  // of the preload: `Tatl::steady` says why
    SearchFailed,  // by an arithmetic fault
    BelowPreload,  // the value is below the preload, or it is the number of a failure
};

struct Tatl {
    TatlEnd end = TatlEnd::Found;
    float value = 0;  // A, of one sub-conductor; or the number of the failure of the search
    TransientExcelEnd search = TransientExcelEnd::Found;
    SteadyResult steady;
};

/// The permanent rating of a case and those for a time after a preload, by Cigre TB 601.
class TatlRating {
public:
    /// Of `c`, which is complete for TB 601, with the limit temperature in `Leitertemp_db`; its
    /// mode and its current change. `seconds` is the duration of the rating for a time. Nothing is
    /// asked or told.
    TatlRating(CalcCase& c, double seconds, const Session& session);
    TatlRating(const TatlRating&) = delete;
    TatlRating& operator=(const TatlRating&) = delete;

    /// The permanent rating.
    [[nodiscard]] SteadyResult permanent();

    /// The current that brings the conductor from the steady state at `preload` to the limit in
    /// time, where `permanent_current` is the permanent rating; A, of one sub-conductor.
    [[nodiscard]] Tatl after(double preload, double permanent_current);

private:
    SteadyResult run_steady();

    CalcCase& c_;
    float seconds_;
    ConductorMass mass_;
    HeatCapacityOption heat_option_;
    double angle_;
    MethodMemory memory_;  // the search goes on from the records of the steady run
    Session silent_;
};

}  // namespace zel
