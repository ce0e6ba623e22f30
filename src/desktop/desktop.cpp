#include "desktop/desktop.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QPalette>
#include <QStyleFactory>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "desktop/application.h"
#include "desktop/case_forms.h"
#include "desktop/form_main.h"
#include "desktop/qt_dialogs.h"
#include "desktop/qt_file_chooser.h"
#include "desktop/window_icon.h"

namespace zel {
namespace {

constexpr int font_size = 10;  // points
constexpr QColor greyed(0x82, 0x82, 0x82);
constexpr int no_display = 1;

bool is_set(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

/// Without any of these the application object would abort the process.
bool display_named() {
    return is_set("DISPLAY") || is_set("WAYLAND_DISPLAY") || is_set("QT_QPA_PLATFORM");
}

void set_look() {
    if (QStyle* style = QStyleFactory::create("Fusion")) QApplication::setStyle(style);
    QFont font = QApplication::font();
    font.setPointSize(font_size);
    QApplication::setFont(font);
    // The style's own grey is hard to read.
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::Disabled, QPalette::WindowText, greyed);
    QApplication::setPalette(palette);
    QApplication::setWindowIcon(window_icon());
    if (QFontDatabase::families().isEmpty() || QFontInfo(font).family().isEmpty())
        std::fputs("zel: no font is installed, texts cannot be read; "
                   "the package fonts-liberation has one\n",
                   stderr);
}

}  // namespace

int run_desktop(int& argc, char** argv, DesktopOptions options, CaseStore& store) {
    if (!display_named()) {
        std::fputs("zel: the windows need a display, and DISPLAY and WAYLAND_DISPLAY are not set\n",
                   stderr);
        return no_display;
    }
    Application application(argc, argv);
    set_look();
    QtDialogs dialogs;
    QtFileChooser chooser;
    DesktopState state{case_for_form(std::move(options.start_case)),
                       {options.lang, options.separator, RunMode::Messages, dialogs},
                       store,
                       chooser,
                       std::move(options.start_path)};
    state.session.memory = &state.memory;
    dialogs.follow(state.session.lang);
    chooser.follow(state.session.lang);
    FormMain form_main(state);
    form_main.show();
    return Application::exec();
}

}  // namespace zel
