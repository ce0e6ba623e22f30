#pragma once

#include <functional>
#include <string>

#include "desktop/file_chooser.h"
#include "platform/case_store.h"
#include "shell/session.h"
#include "steady/calc_case.h"
#include "workflow/steady_methods.h"
#include "workflow/transient_memory.h"

namespace zel {

/// What the windows share: the case that they show and change, where it is stored, and how they
/// talk to the user.
struct DesktopState {
    CalcCase calc_case;
    Session session;
    CaseStore& store;
    FileChooser& chooser;
    std::string case_path{};                     // the file of the case; empty where there is none
    std::function<void()> case_changed = [] {};  // called by whoever changes the case
    MethodMemory memory{};                       // the session of a started program points to it
    TransientMemory transient{};                 // where a transient starts, and the last one
    int patience_ms = 300;                       // a longer run shows its progress
};

}  // namespace zel
