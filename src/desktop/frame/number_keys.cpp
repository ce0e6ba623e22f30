#include "desktop/frame/number_keys.h"

#include <QChar>
#include <QKeyEvent>

#include "workflow/rules/entry_rules.h"

namespace zel {
namespace {

/// Whether a box takes the key for a command and not for its characters.
bool is_command(const QKeyEvent& key) {
    const auto modifiers = key.modifiers() & ~Qt::KeypadModifier;
    return modifiers == Qt::ControlModifier ||
           modifiers == (Qt::ControlModifier | Qt::ShiftModifier);
}

}  // namespace

bool NumberKeys::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
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

}  // namespace zel
