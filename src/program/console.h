#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/message_box.h"
#include "platform/text/locale.h"
#include "platform/text/utf8.h"
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

    [[nodiscard]] RunMode Meldung_merker() const {
        return silent ? RunMode::Silent : RunMode::Messages;
    }
};

/// A box as a run on the command line met it; `field` names the key of a case file that it is
/// about, where there is one.
struct Message {
    Box box;
    std::string field;
};

/// Shows no window: records every box, tells it on standard error unless the output is JSON, and
/// answers so that the program keeps running.
class Console : public Dialogs {
public:
    explicit Console(const CommonOptions& options) : options_(options) {}

    Answer show(const Box& box) override;

    /// Records and tells a box about one key of a case file.
    void show(const Box& box, std::string_view field);

    /// Tells on standard error why nothing was calculated, or why the program ends: always, where
    /// no box told it.
    static void tell_reason(std::string_view reason);

    [[nodiscard]] const std::vector<Message>& messages() const { return messages_; }

private:
    const CommonOptions& options_;
    std::vector<Message> messages_;
};

/// The box in one paragraph for a terminal.
[[nodiscard]] std::string paragraph_of(const Box& box);

/// Writes `text` to standard output; false where it could not all be written.
[[nodiscard]] bool print(std::string_view text);

/// Writes `document` to standard output and gives `status`; where it could not all be written, that
/// is told and the status is a failure.
[[nodiscard]] int print_or_fail(std::string_view document, int status = exit_done);

}  // namespace zel
