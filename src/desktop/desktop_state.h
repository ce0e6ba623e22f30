#pragma once

#include "shell/session.h"
#include "steady/calc_case.h"
#include "workflow/steady_methods.h"

namespace zel {

/// What the windows share: the case that they show and change, and how they talk to the user.
struct DesktopState {
    CalcCase calc_case;
    Session session;
    MethodMemory memory{};  // the session of a started program points to it
};

}  // namespace zel
