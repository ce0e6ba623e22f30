#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "platform/message_box.h"
#include "steady/steady_cause.h"

// From the cause of a failure to what the user is told: the status text, the boxes, the end of the
// program. The calculation itself knows nothing of this.

namespace zel {

/// `Meldung_merker`: whether a calculation may ask and report in boxes. Any other value is that of
/// an Excel batch that must be shut down on a failure.
enum class RunMode : std::int16_t { Messages = 1, Silent = 2 };

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

// Wordings that the reports of the heat balance methods share.

/// Neither or both of current and temperature are given. {0}: the procedure.
inline constexpr BoxText undefined_mode_box = {
    Icon::Stop,
    {"Function: {0}"},
    {"Berechnungsabbruch 01 -  Berechnungsart undefiniert.\n"
     "Bitte wenden Sie sich mit den Eingabedaten an den Entwickler des Programms.\n"
     "Das Programm muß zur Erlangung eines\n"
     "definierten Zustandes leider beendet werden!",
     "Berechnungsabbruch 01 -  Berechnungsart undefiniert.\n"
     "Please contact the developer of the program and enclose your input data.\n"
     "The application must be cancelled for\n"
     "having a defined state!"}};

/// A search that found no result. {1}: the number of the brochure, "TB207".
inline constexpr Text no_result_lines = {
    "Die Berechnungsiteration nach Cigre {1}\n"
    "ergab kein brauchbares Ergebnis!\n"
    "Bitte überprüfen Sie ihre Eingabedaten auf Plausibilität !\n"
    "und Realitätsnähe !",
    "The calculation by Cigre {1}\n"
    "did not lead to a usable result!\n"
    "Please check your input values for plausibility !"};

}  // namespace zel
