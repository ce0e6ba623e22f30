#pragma once

#include <functional>
#include <optional>

#include "desktop/frame/file_chooser.h"
#include "platform/case_store.h"
#include "shell/session.h"
#include "short_circuit/short_circuit_form.h"

namespace zel {

/// What the short-circuit area works with: the case that its form shows and changes, and how it
/// talks to the user.
struct KsState {
    const Session& session;
    CaseStore& store;
    FileChooser& chooser;
    ShortCircuitForm form{};
    /// Starts the conductor database, and gives the conductor that was chosen there; what goes
    /// wrong is told. Empty where there is no link to the database.
    std::function<void()> start_conductor_database{};
    std::function<std::optional<ConductorData>()> chosen_conductor{};
};

}  // namespace zel
