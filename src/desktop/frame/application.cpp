#include "desktop/frame/application.h"

#include <QFocusEvent>
#include <QScrollArea>
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

/// A click shows that the input is in sight, and a window that only comes back stays as it was.
bool may_be_out_of_sight(const QFocusEvent& event) {
    const Qt::FocusReason reason = event.reason();
    return reason != Qt::MouseFocusReason && reason != Qt::ActiveWindowFocusReason &&
           reason != Qt::PopupFocusReason;
}

/// All of it, not only its cursor.
void bring_into_sight(const QWidget& input, QScrollArea& area) {
    constexpr int margin = 12;  // pixels
    const QSize half =
        (input.size() / 2 + QSize(margin, margin)).boundedTo(area.viewport()->size() / 2);
    const QPoint middle = input.mapTo(area.widget(), input.rect().center());
    area.ensureVisible(middle.x(), middle.y(), half.width(), half.height());
}

void bring_into_sight(const QWidget& input) {
    // A window that belongs to an input of another stands above it, not in it.
    for (const QWidget* part = &input; !part->isWindow(); part = part->parentWidget())
        if (auto* area = qobject_cast<QScrollArea*>(part->parentWidget()))
            if (area->widget() != nullptr && area->widget()->isAncestorOf(&input))
                bring_into_sight(input, *area);
}

}  // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    std::setlocale(LC_NUMERIC, "C");  // the application object has just set the user's
    setQuitOnLastWindowClosed(false);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        if (event->type() == QEvent::FocusIn && receiver->isWidgetType() &&
            may_be_out_of_sight(*static_cast<QFocusEvent*>(event)))
            bring_into_sight(*static_cast<QWidget*>(receiver));
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
