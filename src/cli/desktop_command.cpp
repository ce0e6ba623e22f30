#include <filesystem>
#include <utility>

#include "adapters/posix/posix_files.h"
#include "cli/case_source.h"
#include "cli/commands.h"
#include "cli/conductor_source.h"
#include "cli/console.h"
#include "cli/json_case_store.h"
#include "cli/program_stores.h"
#include "cli/xlsx_store.h"
#include "desktop/desktop.h"
#include "platform/errors.h"
#include "shell/startup.h"

namespace zel {
namespace {

/// What cannot be made is missing when start-up reads it, which tells so.
void start_companion(ProgramStores& stores) {
    try {
        start_companion_once(stores);
    } catch (const OutputError& error) {
        Console::tell_reason(error.what());
    }
}

}  // namespace

int desktop_command(int& argc, char** argv, const std::string& case_path,
                    const CommonOptions& options) {
    ProgramStores stores;
    Settings settings = stores.settings();
    DesktopOptions desktop;
    CommonOptions of_run = options;
    if (options.lang_given)
        desktop.lang = options.lang;
    else
        of_run.lang = stored_choice(settings.now()).lang;
    if (!options.separator_given) of_run.separator = system_separator();
    desktop.separator = of_run.separator;
    if (!case_path.empty()) {
        Console console(of_run);
        desktop.start_case = load_case(case_path, of_run, console).c;
        if (case_path != "-") desktop.start_path = case_path;
    }
    JsonCaseStore store;
    XlsxStore workbooks;
    const auto documents = std::filesystem::path(program_folder()).parent_path() / "share/doc/zel";
    PosixFiles files;
    return run_desktop(argc, argv, std::move(desktop),
                       {store,
                        workbooks,
                        settings,
                        stores.system,
                        stores.paths.data_folder,
                        {stores.paths.data_folder, documents},
                        [&stores] { start_companion(stores); },
                        {&files, library_places()}});
}

}  // namespace zel
