#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desktop/frame/conductor_places.h"
#include "desktop/frame/file_chooser.h"
#include "platform/case_store.h"
#include "platform/system.h"
#include "platform/workbook.h"
#include "shell/error_handling.h"
#include "shell/program_settings.h"
#include "shell/session.h"
#include "shell/startup.h"
#include "steady/case/calc_case.h"
#include "workflow/run/steady_methods.h"
#include "workflow/run/transient_memory.h"

namespace zel {

/// What the windows share: the case that they show and change, where it is stored, the settings,
/// and how they talk to the user.
struct DesktopState {
    CalcCase calc_case;
    Session session;
    CaseStore& store;
    FileChooser& chooser;
    Settings& settings;
    Launcher& launcher;
    std::string case_path{};  // the file that the case comes from at the start; may be empty
    std::function<void()> case_changed = [] {};      // called by whoever changes the case
    std::function<void()> settings_changed = [] {};  // called by whoever changes a setting
    MethodMemory memory{};        // the session of a started program points to it
    TransientMemory transient{};  // where a transient starts, and the last one
    int patience_ms = 300;        // a longer run shows its progress
    ProgramState program{};
    std::vector<std::string> help_folders{};  // where the help documents lie
    WorkbookStore* workbooks = nullptr;       // of the Excel batch
    std::string data_folder{};                // with the shipped templates
    ErrorHandling errors{session.lang, session.dialogs};
    ConductorPlaces conductors{};

    /// Changes a setting, which takes effect in all windows and is stored at once.
    void change(NumberMember setting, std::int16_t value) {
        settings.set(setting, value);
        settings_changed();
    }
};

}  // namespace zel
