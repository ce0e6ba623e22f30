#pragma once

#include <functional>
#include <string>

#include "desktop/file_chooser.h"
#include "platform/case_store.h"
#include "shell/session.h"
#include "steady/calc_case.h"
#include "workflow/steady_methods.h"

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
};

}  // namespace zel
