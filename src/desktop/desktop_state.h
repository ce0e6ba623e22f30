#pragma once

#include "shell/session.h"
#include "steady/calc_case.h"

namespace zel {

/// What the windows share: the case that they show and change, and how they talk to the user.
struct DesktopState {
    CalcCase calc_case;
    Session session;
};

}  // namespace zel
