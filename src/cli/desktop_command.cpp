#include "cli/case_source.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/json_case_store.h"
#include "desktop/desktop.h"

namespace zel {

int desktop_command(int& argc, char** argv, const std::string& case_path,
                    const CommonOptions& options) {
    DesktopOptions desktop;
    desktop.lang = options.lang;
    desktop.separator = options.separator;
    if (!case_path.empty()) {
        Console console(options);
        desktop.start_case = load_case(case_path, options, console).c;
        if (case_path != "-") desktop.start_path = case_path;
    }
    JsonCaseStore store;
    return run_desktop(argc, argv, std::move(desktop), store);
}

}  // namespace zel
