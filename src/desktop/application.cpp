#include "desktop/application.h"

#include <clocale>

#include "platform/program_end.h"

namespace zel {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    std::setlocale(LC_NUMERIC, "C");  // the application object has just set the user's
    setQuitOnLastWindowClosed(false);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const ProgramEnd&) {
        exit(program_ended);
        return true;
    }
}

}  // namespace zel
