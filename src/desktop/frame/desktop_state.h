#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desktop/frame/file_chooser.h"
#include "desktop/frame/live_settings.h"
#include "persistence/conductor_library.h"
#include "platform/case_store.h"
#include "platform/clock.h"
#include "platform/printers.h"
#include "platform/sensor_port.h"
#include "platform/system.h"
#include "platform/table_store.h"
#include "platform/workbook.h"
#include "shell/error_handling.h"
#include "shell/session.h"
#include "shell/startup.h"
#include "short_circuit/short_circuit_form.h"
#include "workflow/run/steady_methods.h"
#include "workflow/run/transient_memory.h"

namespace zel {

/// What the program with its windows keeps and works with. The start window parts it among the
/// others.
struct DesktopState {
    CalcCase calc_case;
    Session session;
    CaseStore& store;
    FileChooser& chooser;
    LiveSettings settings;
    Launcher& launcher;
    Files& files;  // of the conductors, and the exchange file
    WorkbookStore& workbooks;
    TableStore& tables;
    Printers& printers;
    std::function<CalendarTime()> print_time;  // of a report, local
    SensorPorts& sensor_ports;
    const Clock& clock;
    LibraryPlaces conductors{};
    std::string case_path{};  // the file that the case comes from at the start; may be empty
    ShortCircuitForm short_circuit{};
    MethodMemory memory{};        // the session of a started program points to it
    TransientMemory transient{};  // where a transient starts, and the last one
    int patience_ms = 300;        // a longer run shows its progress
    ProgramState program{};
    std::vector<std::string> help_folders{};  // where the help documents lie
    std::string data_folder{};                // with the shipped templates
    ErrorHandling errors{session.lang, session.dialogs};
};

}  // namespace zel
