#include "desktop/frame/application.h"

#include <QWidget>
#include <clocale>

#include "platform/errors.h"

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
    } catch (const std::exception&) {
        if (errors_ == nullptr) throw;
        tell(receiver);
    }
    return true;
}

/// The error being caught now, in the form and control that it came up in.
void Application::tell(const QObject* receiver) {
    const auto* widget = qobject_cast<const QWidget*>(receiver);
    const QString form = widget != nullptr ? widget->window()->objectName() : QString("zel");
    try {
        handle_caught(*errors_, form.toStdString(), receiver->objectName().toStdString());
    } catch (const ProgramEnd&) {
        exit(program_ended);
    }
}

}  // namespace zel
