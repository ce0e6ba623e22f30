#pragma once

#include <QApplication>
#include <QEvent>
#include <QPushButton>

namespace zel {

/// Cancels as soon as there is a progress window, which keeps input from all others.
class CancellingUser : public QObject {
public:
    CancellingUser() { qApp->installEventFilter(this); }
    bool blocked = false;

private:
    bool eventFilter(QObject* shown, QEvent* event) override {
        if (event->type() != QEvent::Show || shown->objectName() != "run_progress") return false;
        blocked = static_cast<QWidget*>(shown)->isModal();
        shown->findChild<QPushButton*>()->click();
        return false;
    }
};

}  // namespace zel
