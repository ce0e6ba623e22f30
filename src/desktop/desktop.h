#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "persistence/conductor_library.h"
#include "platform/case_store.h"
#include "platform/clock.h"
#include "platform/printers.h"
#include "platform/sensor_port.h"
#include "platform/system.h"
#include "platform/table_store.h"
#include "platform/text/number_text.h"
#include "platform/text/text.h"
#include "platform/workbook.h"
#include "shell/program_settings.h"
#include "steady/case/calc_case.h"

namespace zel {

struct DesktopOptions {
    std::optional<LangId> lang{};  // of this run; without it the language of the settings
    DecimalSeparator separator = DecimalSeparator::Point;
    CalcCase start_case{};     // shown from the start
    std::string start_path{};  // the file that it comes from
    bool has_case = false;     // its form opens in front
    std::string open_path{};   // another file, to be opened in the window that it belongs to
};

/// The adapters that the windows work with.
struct DesktopPlatform {
    CaseStore& store;
    WorkbookStore& workbooks;
    TableStore& tables;
    SensorPorts& sensor_ports;  // of the measuring instruments
    const Clock& clock;
    Settings& settings;
    SystemFacts system;
    std::string data_folder;                // databases and the shipped templates
    std::vector<std::string> help_folders;  // where the help documents lie
    std::function<void()> start_companion;  // the first start of the conductor database
    Files& files;                           // of the conductors, and the exchange file
    Printers& printers;
    std::function<CalendarTime()> print_time;  // of a report, local
    LibraryPlaces conductors{};
};

/// The decimal separator of the user's locale.
[[nodiscard]] DecimalSeparator system_separator();

/// Starts the program with its windows and lives from their events until the user ends it. Gives
/// the exit status: 0; 1 where there is no display, which is told on stderr; 3 where start-up or a
/// calculation had to end the program.
int run_desktop(int& argc, char** argv, DesktopOptions options, DesktopPlatform platform);

}  // namespace zel
