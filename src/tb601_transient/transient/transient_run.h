#pragma once

#include <cstdint>
#include <functional>

#include "platform/text/number_text.h"
#include "steady/case/transient_row.h"
#include "steady/steady_report.h"
#include "steady/steady_solver.h"
#include "tb601_transient/tb601/tb601_params.h"
#include "tb601_transient/transient/conductor_mass.h"

// A chain of changes of state that starts from a steady state: in each row two of current, final
// temperature and duration are given, and the third is found by stepping the heat balance in time.
// A row begins at the end temperature of the one before it. All for one sub-conductor.

namespace zel {

/// What a transient reads beside its rows and the surroundings of the conductor.
struct TransientInput {
    TransientStart start;
    double Is = 0;  // A, the steady current as the result page shows it, of one sub-conductor;
                    // 0 where it shows no number
    ConductorMass mass;
    HeatCapacityOption cigre_TKW_merker = HeatCapacityOption::WithTemperature;
};

/// How far a run has come.
struct TransientProgress {
    int row = 0;      // 1 to 6
    double done = 0;  // share of the row, 0 to 1, as far as it can be told
};

/// Called every few thousand steps; `false` cancels the run.
using TransientObserver = std::function<bool(const TransientProgress&)>;

/// What a run needs of the program around it.
struct TransientSurroundings {
    Reporting reporting;
    DecimalSeparator separator = DecimalSeparator::Point;  // of numbers inside boxes
    TransientObserver observer = {};                       // may be empty
};

enum class TransientEnd : std::uint8_t {
    Completed,
    Failed,     // a row has `Failed` set; the rows before it hold their results
    Cancelled,  // the rows are as before the run
};

/// The transient by TB 207, or by the busbar method where `params.method` says so. A row that fails
/// is told in a box (in message mode 1), has `Failed` set, and ends the run. Throws `ProgramEnd`
/// for a conductor of unknown type, where the user ends the program from a box of a heat term, and
/// for a failed row in a message mode that is neither 1 nor 2.
TransientEnd TS_S01_CigreTB207_temp_strom_transient_state(
    Zustand16& rows, const TransientInput& input, const SteadyInputBlock& params,
    const TransientSurroundings& surroundings);

/// The transient by TB 601, from the records as the last steady run left them; it sets `I` and `T`
/// of their state and what follows from these. Else as above.
TransientEnd TS_S01_CigreTB601_temp_strom_transient_state_Programm_aktuell(
    Zustand16& rows, const TransientInput& input, TB601Records& records,
    const TransientSurroundings& surroundings);

/// `TS_CigreTB207_Heat_Balance`: evaluates the heat terms at the current and temperature of `state`
/// in the order PJ, PS, PC, PR. A term that fails, and those after it, keep their last values.
SteadyFailure TS_CigreTB207_Heat_Balance(SteadyStateBlock& state, const SteadyInputBlock& params);

}  // namespace zel
