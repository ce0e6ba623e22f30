#pragma once

#include "platform/message_box.h"
#include "platform/text/locale.h"
#include "steady/constants.h"
#include "steady/steady_report.h"

namespace zel {

struct MethodMemory;  // what methods keep from one calculation to the next

/// What a run of the program keeps between calls, made once and handed down: language, number
/// format, message mode, and who shows boxes.
struct Session : Locale {
    RunMode Meldung_merker = RunMode::Messages;
    Dialogs& dialogs;
    /// Null for a calculation that starts from nothing, as one of several side by side does.
    MethodMemory* memory = nullptr;
    bool wi_v_wi_merker = true;  // warn where values fall below the minimum for surveying a span
    HeatCapacityOption cigre_TKW_merker = HeatCapacityOption::WithTemperature;

    [[nodiscard]] Reporting reporting() const { return {Meldung_merker, lang, dialogs}; }

    /// The same for a run with dialogs and a memory of its own.
    [[nodiscard]] Session apart(Dialogs& own_dialogs, MethodMemory* own_memory) const {
        return {*this, Meldung_merker, own_dialogs, own_memory, wi_v_wi_merker, cigre_TKW_merker};
    }

    /// Shows `box` unless the message mode is silent.
    void tell(const Box& box) const {
        if (Meldung_merker == RunMode::Messages) dialogs.show(box);
    }
};

/// The session of a calculation that nobody watches, with all that `of` chooses: no box comes up,
/// and it goes on from `memory` alone (null: each method starts from nothing).
[[nodiscard]] Session silent(const Session& of, MethodMemory* memory = nullptr);

}  // namespace zel
