#include "desktop/frame/edit_actions.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>

#include "desktop/frame/events.h"

namespace zel {
namespace {

struct EditRow {
    const char* name;
    Text caption;
    QKeySequence::StandardKey key;
    bool (*possible)(const QLineEdit& box);
};

const EditRow rows[] = {
    {"edit_undo",
     {"&Rückgängig", "&Undo"},
     QKeySequence::Undo,
     [](const QLineEdit& box) { return box.isUndoAvailable(); }},
    {"edit_cut",
     {"&Ausschneiden", "Cu&t"},
     QKeySequence::Cut,
     [](const QLineEdit& box) { return box.hasSelectedText() && !box.isReadOnly(); }},
    {"edit_copy",
     {"K&opieren", "C&opy"},
     QKeySequence::Copy,
     [](const QLineEdit& box) { return box.hasSelectedText(); }},
    {"edit_paste",
     {"&Einfügen", "&Paste"},
     QKeySequence::Paste,
     [](const QLineEdit& box) {
         return !box.isReadOnly() && !QApplication::clipboard()->text().isEmpty();
     }},
};

/// Other inputs than boxes have something to copy, and nothing to change.
bool is_possible(const EditRow& row, const QWidget* focus) {
    if (const auto* box = qobject_cast<const QLineEdit*>(focus)) return row.possible(*box);
    return focus != nullptr && row.key == QKeySequence::Copy;
}

/// As the key itself, so that what filters keys sees it.
void press(QKeySequence::StandardKey standard) {
    QWidget* focus = QApplication::focusWidget();
    if (focus == nullptr) return;
    const QKeyCombination key = QKeySequence(standard)[0];
    QKeyEvent event(QEvent::KeyPress, key.key(), key.keyboardModifiers());
    QApplication::sendEvent(focus, &event);
}

}  // namespace

void add_edit_actions(QMenu& menu, Captions& captions) {
    for (const EditRow& row : rows) {
        QAction* action = captions.text(menu.addAction(QString()), row.caption);
        action->setObjectName(row.name);
        action->setShortcut(row.key);
        action->setShortcutContext(Qt::WidgetShortcut);  // shown here; the input has the key itself
        on(action, &QAction::triggered, [key = row.key] { press(key); });
        on(&menu, &QMenu::aboutToShow,
           [action, &row] { action->setEnabled(is_possible(row, QApplication::focusWidget())); });
        on(&menu, &QMenu::aboutToHide,
           [action] { later(*action, [action] { action->setEnabled(true); }); });
    }
}

}  // namespace zel
