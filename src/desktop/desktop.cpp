#include "desktop/desktop.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QLocale>
#include <QPalette>
#include <QStyleFactory>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>

#include "desktop/form_main.h"
#include "desktop/frame/application.h"
#include "desktop/frame/events.h"
#include "desktop/frame/qt_dialogs.h"
#include "desktop/frame/qt_file_chooser.h"
#include "desktop/frame/widgets.h"
#include "desktop/frame/window_icon.h"
#include "desktop/frame/window_memory.h"
#include "desktop/frm_languageselect.h"
#include "desktop/help.h"
#include "forms/line_form.h"
#include "platform/text/utf8.h"
#include "shell/case_settings.h"
#include "shell/startup.h"

namespace zel {
namespace {

constexpr int font_size = 10;  // points
constexpr int no_display = 1;

bool is_set(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

/// Without any of these the application object would abort the process.
bool display_named() {
    return is_set("DISPLAY") || is_set("WAYLAND_DISPLAY") || is_set("QT_QPA_PLATFORM");
}

/// While the application object is made, which would tell in many lines that the display cannot be
/// reached, and abort.
void tell_no_display(QtMsgType type, const QMessageLogContext& /*place*/, const QString& /*text*/) {
    if (type != QtFatalMsg) return;
    std::string told;
    for (const char* variable : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"})
        if (is_set(variable))
            told += (told.empty() ? "" : ", ") + std::string(variable) + "=" +
                    printable(std::getenv(variable));
    told = "zel: the windows need a display, and the named one cannot be reached: " + told + "\n";
    std::fputs(told.c_str(), stderr);
    std::_Exit(no_display);
}

/// Says in one line where there is none.
class DisplayWatch {
public:
    DisplayWatch() : former_(qInstallMessageHandler(tell_no_display)) {}
    ~DisplayWatch() { qInstallMessageHandler(former_); }
    DisplayWatch(const DisplayWatch&) = delete;
    DisplayWatch& operator=(const DisplayWatch&) = delete;

private:
    QtMessageHandler former_;
};

void set_look() {
    if (QStyle* style = QStyleFactory::create("Fusion")) QApplication::setStyle(style);
    QFont font = QApplication::font();
    font.setPointSize(font_size);
    QApplication::setFont(font);
    QApplication::setPalette(with_readable_grey(QApplication::palette()));
    QApplication::setWindowIcon(window_icon());
    QApplication::setDesktopFileName(QStringLiteral("zel"));  // names the windows in panels
    if (QFontDatabase::families().isEmpty() || QFontInfo(font).family().isEmpty())
        std::fputs("zel: no font is installed, texts cannot be read; "
                   "the package fonts-liberation has one\n",
                   stderr);
}

/// The help has the language that is set as long as no other one is chosen.
std::optional<LanguageChoice> ask_language(const LanguageChoice& marked, const Session& session,
                                           Launcher& launcher,
                                           const std::vector<std::string>& help_folders) {
    Session asking = session;
    asking.lang = marked.lang;
    const Help help(asking, launcher, help_folders);
    const HelpKey key(help);
    FrmLanguageselect form(marked);
    if (form.exec() != QDialog::Accepted) return std::nullopt;
    return form.choice();
}

/// Start-up before the first window. Boxes of it follow the language as far as it is known.
Started start_up(const DesktopOptions& options, const DesktopPlatform& platform, Dialogs& dialogs,
                 Launcher& launcher) {
    const Session session = {{LangId::English, options.separator}, RunMode::Messages, dialogs};
    StartupPlatform startup{platform.system, dialogs, options.separator, options.lang};
    startup.ask_language = [&](const LanguageChoice& marked) {
        return ask_language(marked, session, launcher, platform.help_folders);
    };
    startup.start_companion = platform.start_companion;
    startup.printers = &platform.printers;
    return S00_Start_Programminitialisierung(platform.settings, startup, true);
}

int exit_status_of(StartEnd end) {
    return end == StartEnd::LanguageCancelled ? 0 : Application::program_ended;
}

}  // namespace

DecimalSeparator system_separator() {
    return QLocale::system().decimalPoint() == "," ? DecimalSeparator::Comma
                                                   : DecimalSeparator::Point;
}

int run_desktop(int& argc, char** argv, DesktopOptions options, DesktopPlatform platform) {
    if (!display_named()) {
        std::fputs("zel: the windows need a display, and DISPLAY and WAYLAND_DISPLAY are not set\n",
                   stderr);
        return no_display;
    }
    std::optional<DisplayWatch> watch(std::in_place);
    Application application(argc, argv);
    watch.reset();
    set_look();
    QtDialogs dialogs;
    QtFileChooser chooser;
    QtLauncher launcher;
    Started started = start_up(options, platform, dialogs, launcher);
    if (started.end != StartEnd::Ready) return exit_status_of(started.end);
    DesktopState state{forms::case_for_form(std::move(options.start_case)),
                       {started.lang, options.separator, RunMode::Messages, dialogs},
                       platform.store,
                       chooser,
                       {platform.settings},
                       launcher,
                       platform.files,
                       platform.workbooks,
                       platform.tables,
                       platform.printers,
                       std::move(platform.print_time),
                       platform.sensor_ports,
                       platform.clock,
                       std::move(platform.conductors),
                       std::move(options.start_path)};
    state.session.memory = &state.memory;
    state.program = std::move(started.state);
    state.help_folders = std::move(platform.help_folders);
    state.data_folder = std::move(platform.data_folder);
    dialogs.follow(state.session.lang);
    chooser.follow(state.session.lang);
    take_settings(state.session, state.settings.now());
    if (state.case_path.empty())
        take_settings(state.calc_case, state.settings.now());
    else
        adopt_settings(state.calc_case, state.settings.store, state.session);
    application.tell_errors_by(&state.errors);
    const WindowMemory memory(platform.settings.user_store());
    FormMain form_main(state);
    form_main.show_first();
    if (options.has_case) form_main.show_form1();
    if (!options.open_path.empty())
        later(form_main, [&] { form_main.open_file(options.open_path); });
    const int status = Application::exec();
    application.tell_errors_by(nullptr);
    return status;
}

}  // namespace zel
