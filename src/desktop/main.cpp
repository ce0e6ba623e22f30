#include <utility>

#include "adapters/printers/cups_printers.h"
#include "desktop/desktop.h"
#include "forms/file_sort.h"
#include "platform/errors.h"
#include "program/case_source.h"
#include "program/command_line.h"
#include "program/database_files.h"
#include "program/places.h"
#include "program/print_time.h"
#include "program/stores.h"
#include "shell/startup.h"

namespace zel {
namespace {

/// What cannot be made is missing when start-up reads it, which tells so.
void start_companion(ProgramStores& stores, LangId lang) {
    try {
        provide_exchange_file(stores);
    } catch (const OutputError& error) {
        Console::tell_reason(error.told(lang));
    }
}

/// A case of a line is there from the start, and what cannot be read is refused before any window
/// comes up.
bool opens_in_a_window(const std::string& path, CaseStore& cases) {
    const forms::FileSort sort = forms::sort_of(path, cases);
    return sort != forms::FileSort::LineCase && sort != forms::FileSort::UnreadableCase;
}

int open_windows(int& argc, char** argv, const DesktopWords& words) {
    ProgramStores stores;
    Settings settings = stores.settings();
    CommonOptions options;
    options.lang = words.lang.value_or(stored_choice(settings.now()).lang);
    options.separator = words.separator.value_or(system_separator());
    DesktopOptions desktop = {words.lang, options.separator};
    JsonCaseStore cases;
    const bool is_file = words.case_path != "-";
    if (is_file && opens_in_a_window(words.case_path, cases)) {
        desktop.open_path = words.case_path;
    } else if (!words.case_path.empty()) {
        Console console(options);
        desktop.start_case = load_case(words.case_path, options, console).c;
        if (is_file) desktop.start_path = words.case_path;
        desktop.has_case = true;
    }
    XlsxStore workbooks;
    DatabaseFiles tables;
    CupsPrinters printers;
    return run_desktop(argc, argv, std::move(desktop),
                       {cases,
                        workbooks,
                        tables,
                        stores.sensor_ports,
                        stores.clock,
                        settings,
                        stores.system,
                        stores.paths.data_folder,
                        {stores.paths.data_folder, document_folder(), help_folder()},
                        [&stores, &options] { start_companion(stores, options.lang); },
                        stores.disk,
                        printers,
                        print_time,
                        library_places(stores.paths)});
}

}  // namespace
}  // namespace zel

/// The program of the windows. "zel desktop" becomes it, with the words behind "desktop".
int main(int argc, char** argv) {
    using namespace zel;
    return guarded([&] {
        DesktopWords words;
        CLI::App app("Open the windows", "zel desktop");
        add_desktop_words(app, words);
        if (const auto status = refused_words(app, argc, argv)) return *status;
        return guarded([&] { return open_windows(argc, argv, words); },
                       words.lang.value_or(LangId::English));
    });
}
