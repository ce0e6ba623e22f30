#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/errors.h"
#include "shell/error_table.h"

// The central handling of failures: every procedure that meets one hands it over and does what the
// answer says. docs/errors.md tells which failure of this platform has which number.

namespace zel {

/// What the handling keeps between calls, and what it needs of the program around it.
struct ErrorHandling {
    /// The messages follow `program_lang` as it changes.
    ErrorHandling(const LangId& program_lang, Dialogs& program_dialogs)
        : lang(program_lang), dialogs(program_dialogs) {}
    ErrorHandling(const ErrorHandling&) = delete;
    ErrorHandling& operator=(const ErrorHandling&) = delete;

    const LangId& lang;
    Dialogs& dialogs;
    std::function<void()> close_workbook = [] {};  // of a batch, so that nobody touches it again

    std::string Fehler_Modulname;
    std::string Fehler_Prozedurname;
    std::int16_t Fehler_Aktion = 0;        // of the last call
    std::int16_t Druck_Fehlerzaehler = 0;  // set to 0 where a print begins
    std::int16_t Zeile = 0;                // the last numbered row that a procedure has passed
    std::string message;                   // of the last call, with a line end behind each line
};

/// Tells `error` in `procedure` of `module` by its row of the table and gives the action code.
std::int16_t Fehlerbehandlung(ErrorHandling& program, const ErrorObject& error, std::int16_t Zeile,
                              std::string_view module, std::string_view procedure);

/// The message by which a procedure tells some failures itself; nothing for those of the table.
/// After it the procedure is left.
using OwnMessage = std::optional<Box> (*)(const ErrorObject& error, std::int16_t Zeile,
                                          std::string_view procedure, LangId lang);

/// What `trap` does with the exception that is being caught now.
std::int16_t handle_caught(ErrorHandling& program, std::string_view module,
                           std::string_view procedure, OwnMessage own = nullptr);

/// Runs `body` as the work of `procedure` of `module`. A `PlatformError` out of it goes to
/// `Fehlerbehandlung`; so does every other exception but `ProgramEnd`. Gives the action code, 0
/// where nothing failed: after `next_statement` the caller goes on, after the others it leaves.
/// Throws `ProgramEnd` where the program must end.
std::int16_t trap(ErrorHandling& program, std::string_view module, std::string_view procedure,
                  const std::function<void()>& body, OwnMessage own = nullptr);

}  // namespace zel
