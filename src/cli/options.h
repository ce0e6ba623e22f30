#pragma once

#include <string>

#include "platform/text/locale.h"
#include "steady/steady_report.h"

namespace zel {

/// What a command ends with, for scripts.
enum ExitStatus : int {
    exit_done = 0,           // the command did its work
    exit_failed = 1,         // it ran, but a selected method, row or field ended in an error
    exit_refused = 2,        // the input was refused, nothing was calculated or written
    exit_program_ended = 3,  // the calculation had to end the program
};

/// The options that every command takes.
struct CommonOptions : Locale {
    bool json = false;
    bool silent = false;
    std::string conductor{};  // record or name of the one that the case takes; empty for its own
    bool lang_given = false;  // on the command line
    bool separator_given = false;

    [[nodiscard]] RunMode Meldung_merker() const {
        return silent ? RunMode::Silent : RunMode::Messages;
    }
};

}  // namespace zel
