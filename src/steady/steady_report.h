#pragma once

#include <functional>
#include <string_view>

#include "platform/message_box.h"
#include "steady/run_mode.h"
#include "steady/steady_cause.h"

// From the cause of a failure to what the user is told: the status text, the boxes, the end of the
// program. The calculation itself knows nothing of this.

namespace zel {

/// What a calculation needs of the program around it to report.
struct Reporting {
    RunMode Meldung_merker = RunMode::Messages;
    LangId lang = LangId::English;
    Dialogs& dialogs;
    /// Closes an open batch workbook unsaved; called where a failure meets a message mode that is
    /// neither 1 nor 2.
    std::function<void()> Excel_close = [] {};
};

/// The status text `Rechenfehler_Text` of a failure; empty for none. Some texts differ by the
/// message mode in a trailing blank.
[[nodiscard]] std::string_view Rechenfehler_Text(SteadyCause cause, RunMode Meldung_merker);

/// Tells `failure` as the message mode allows and gives its status text (empty for no failure).
/// Throws `ProgramEnd` where the mode of the calculation is undefined, where the user answers a
/// question so, and where a search fails in a message mode that is neither 1 nor 2.
std::string_view report(const SteadyFailure& failure, const Reporting& reporting);

/// Shows the box of a calculation that found no result, titled by the failing procedure.
void ST_MSG_iteration_failed(std::string_view title, const Reporting& reporting);

}  // namespace zel
