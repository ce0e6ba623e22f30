#pragma once

#include "shell/program_settings.h"
#include "shell/session.h"

namespace zel {

/// A stored case brings its own settings for g, the skin effect of Webs and summer time. Where one
/// differs from the present setting, the user is asked, and yes changes and writes the setting; one
/// that is none of the setting's values is none, and a silent run keeps the present settings. The
/// case then has the present settings.
void adopt_settings(MethodSelection& stored, Settings& settings, const Session& session);

/// What the settings tell the calculations of `session`.
void take_settings(Session& session, const ProgramSettings& settings);

}  // namespace zel
