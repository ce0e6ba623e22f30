#include "desktop/frame/focus_chain.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include "desktop/frame/qt_text.h"

namespace zel {
namespace {

/// The next control of the chain, if it can take the focus now.
QWidget* successor(const QWidget& input, FocusChain::Chain chain) {
    const std::string_view name = chain(input.objectName().toStdString());
    if (name.empty()) return nullptr;
    auto* next = input.window()->findChild<QWidget*>(qt(name));
    const bool reachable = next != nullptr && next->isEnabled() && next->isVisible();
    return reachable ? next : nullptr;
}

}  // namespace

bool FocusChain::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool tab = key->key() == Qt::Key_Tab && key->modifiers() == Qt::NoModifier;
    const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    auto* input = qobject_cast<QWidget*>(watched);
    if (input == nullptr || (!tab && !enter)) return false;
    if (QWidget* next = successor(*input, chain_)) {
        next->setFocus(Qt::TabFocusReason);
        return true;
    }
    if (tab) return false;
    QKeyEvent as_tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    QApplication::sendEvent(input, &as_tab);
    return true;
}

}  // namespace zel
