#include "desktop/frame/application.h"

#include <QWidget>
#include <clocale>

#include "desktop/frame/events.h"
#include "platform/errors.h"

namespace zel {
namespace {

/// The window that `object` belongs to. A menu or a list that is open is none.
QString form_of(const QObject* object) {
    for (; object != nullptr; object = object->parent())
        if (const auto* widget = qobject_cast<const QWidget*>(object);
            widget != nullptr && widget->isWindow() && widget->windowType() != Qt::Popup)
            return widget->objectName();
    return "zel";
}

}  // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    std::setlocale(LC_NUMERIC, "C");  // the application object has just set the user's
    setQuitOnLastWindowClosed(false);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        tell_caught(*receiver);
    }
    return true;
}

void Application::tell_caught(const QObject& where) {
    try {
        throw;
    } catch (const ProgramEnd&) {
        exit(program_ended);
    } catch (const std::exception&) {
        if (errors_ == nullptr) throw;
        tell(where);
    }
}

void Application::tell(const QObject& where) {
    try {
        handle_caught(*errors_, form_of(&where).toStdString(), where.objectName().toStdString());
    } catch (const ProgramEnd&) {
        exit(program_ended);
    }
}

void guarded(const QObject& where, const std::function<void()>& act) {
    try {
        act();
    } catch (...) {
        auto* application = dynamic_cast<Application*>(QCoreApplication::instance());
        if (application == nullptr) throw;
        application->tell_caught(where);
    }
}

void later(QObject& where, const std::function<void()>& act) {
    QMetaObject::invokeMethod(
        &where, [&where, act] { guarded(where, act); }, Qt::QueuedConnection);
}

}  // namespace zel
