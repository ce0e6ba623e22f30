#include "desktop/frame/inputs.h"

#include <QApplication>
#include <QChar>
#include <QKeyEvent>
#include <QWheelEvent>

#include "desktop/frame/events.h"
#include "desktop/frame/widgets.h"
#include "workflow/rules/entry_rules.h"

namespace zel {
namespace {

/// The next control of the chain, if it can take the focus now.
QWidget* successor(const QWidget& input, const FocusChain::Chain& chain) {
    const std::string_view name = chain(input.objectName().toStdString());
    if (name.empty()) return nullptr;
    auto* next = input.window()->findChild<QWidget*>(qt(name));
    const bool reachable = next != nullptr && next->isEnabled() && next->isVisible();
    return reachable ? next : nullptr;
}

/// Whether a box takes the key for a command and not for its characters.
bool is_command(const QKeyEvent& key) {
    const auto modifiers = key.modifiers() & ~Qt::KeypadModifier;
    return modifiers == Qt::ControlModifier ||
           modifiers == (Qt::ControlModifier | Qt::ShiftModifier);
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

bool NumberKeys::eventFilter(QObject* watched, QEvent* event) {
    bool refused = false;
    if (event->type() == QEvent::KeyPress) guarded(*watched, [&] { refused = refuses(*event); });
    return refused;
}

bool NumberKeys::refuses(const QEvent& event) const {
    const auto& key = static_cast<const QKeyEvent&>(event);
    if (is_command(key)) return false;
    for (const uint character : key.text().toUcs4()) {
        if (QChar::category(character) == QChar::Other_Control) continue;  // edits
        const FilteredKey filtered = filter_key(character, session_);
        if (filtered.passes) continue;
        if (filtered.refusal) session_.tell(*filtered.refusal);
        return true;
    }
    return false;
}

bool LeavingBox::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::FocusOut) return false;
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
        guarded(*watched, leave_);
    return false;
}

void FocusReturn::to(QWidget* input) {
    input_ = input;
    later(*input, [this] {
        if (input_) input_->setFocus();
        input_.clear();
    });
}

void QuietList::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

}  // namespace zel
