#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "shell/session.h"
#include "tb601_transient/transient/current_check.h"
#include "tb601_transient/transient/transient_run.h"
#include "tb601_transient/transient/transient_series.h"
#include "tb601_transient/transient/transient_texts.h"
#include "workflow/rules/transient_check.h"
#include "workflow/run/steady_run.h"

// The run behind the transient page: up to six changes of state that start from the steady state of
// the last run.

namespace zel {

/// What a transient takes over from the steady runs before it.
struct TransientBasis {
    /// Of the last method that found one; a later run that finds none leaves it. Nothing before.
    std::optional<TransientStart> start;
    std::optional<Method> start_method;
    double Is_TB601 = 0;  // A, steady current of one sub-conductor as the result page shows it;
    double Is_TB207 = 0;  // 0 where it shows no number. The second is that of TB 207 or TBB
    double angle = 0;     // degrees, the folded angle as the last run left it

    friend bool operator==(const TransientBasis&, const TransientBasis&) = default;
};

/// Takes over what the steady run of `c` leaves; a refused run leaves all as it is.
void take_over(TransientBasis& basis, const SteadyRunResult& steady, const CalcCase& c);

/// The method by which the changes of state are calculated: TB 207, else the busbar method, else
/// TB 601; nothing where none of these is selected.
[[nodiscard]] std::optional<Method> transient_method(const CalcCase& c);

/// What a transient run leaves behind.
struct TransientResult {
    bool input_valid = false;
    TransientRefusal refusal;  // why not; to be told by the caller
    Method method = Method::TB207;
    TransientStart start;
    HeatCapacityOption cigre_TKW_merker{};  // in force
    TransientEnd end = TransientEnd::Completed;
    Zustand16 rows;
    CurrentChecks checks;  // of the currents that were sought; says where one misses its target
    std::array<TransientRowTexts, state_change_count> texts;

    /// How many rows ran, the failed one included.
    [[nodiscard]] std::size_t rows_run() const;
    /// Whether row `row` came to its end.
    [[nodiscard]] bool ended_soundly(std::size_t row) const;
};

/// °C. No search for a steady temperature goes higher, and no data of a conductor hold there.
inline constexpr double hottest_conductor = 500;

/// Whether row `row` came to its end above `hottest_conductor`.
[[nodiscard]] bool ends_too_hot(const TransientResult& result, std::size_t row);

/// What refuses a transient of `c` now; nothing where it can run.
[[nodiscard]] std::optional<TransientRefusal> refusal_of_transient(const CalcCase& c,
                                                                   const TransientBasis& basis,
                                                                   const Session& session);

/// What the calculation button of the transient page does: the check of the page, then the rows in
/// use, by the method of the case. What is found goes into the cells of `c`, as it is shown; the
/// cells of a row that failed, and those after it, are emptied. A refused or cancelled run leaves
/// `c` as it is.
///
/// TB 601 goes on from the records that the last steady run left in `session.memory`, so that must
/// not be null. Throws `ProgramEnd` where the calculation must end the program; `result` then holds
/// what was valid up to there.
void RunTransient(CalcCase& c, const TransientBasis& basis, const Session& session,
                  const TransientObserver& observer, TransientResult& result);

/// The course of the temperature over time, stepped anew from the rows of a run of `c`. Nothing
/// where the observer cancelled.
[[nodiscard]] std::optional<std::vector<RowSeries>> transient_series(
    const CalcCase& c, const TransientBasis& basis, const TransientResult& result,
    const Session& session, const TransientObserver& observer = {});

}  // namespace zel
