#include "desktop/window_checks.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <algorithm>
#include <map>

namespace zel {
namespace {

void add_shared(const QStringList& texts, const std::string& shared,
                std::vector<std::string>& found) {
    std::map<QString, QString> taken;
    for (const QString& text : texts) {
        const QString key = QKeySequence::mnemonic(text).toString();
        if (key.isEmpty() || key.toStdString() == shared) continue;
        const auto [former, is_free] = taken.try_emplace(key, text);
        if (!is_free) found.push_back(former->second.toStdString() + " / " + text.toStdString());
    }
}

template <class Part>
std::vector<const Part*> in_sight(const QWidget& window) {
    std::vector<const Part*> parts;
    for (const Part* part : window.findChildren<Part*>())
        if (part->isVisible() && part->window() == &window) parts.push_back(part);
    return parts;
}

std::string of(const QWidget& part, const QString& text) {
    return part.objectName().toStdString() + " \"" + text.toStdString() + "\"";
}

bool is_cut(const QLabel& label) {
    if (label.text().isEmpty() || label.textFormat() == Qt::RichText) return false;
    const QSize room = label.contentsRect().size();
    if (label.wordWrap()) return label.heightForWidth(label.width()) > label.height();
    const QSize needed = label.fontMetrics().size(Qt::TextShowMnemonic, label.text());
    return needed.width() > room.width() + 1 || needed.height() > room.height() + 1;
}

}  // namespace

std::vector<std::string> shared_keys(const QWidget& window, const std::string& shared) {
    std::vector<std::string> found;
    QStringList texts;
    for (const QMenuBar* bar : window.findChildren<QMenuBar*>())
        for (const QAction* menu : bar->actions()) texts << menu->text();
    for (const QTabBar* bar : in_sight<QTabBar>(window))
        for (int i = 0; i < bar->count(); ++i) texts << bar->tabText(i);
    for (const QAbstractButton* button : in_sight<QAbstractButton>(window)) texts << button->text();
    for (const QLabel* label : in_sight<QLabel>(window))
        if (label->buddy() != nullptr) texts << label->text();
    add_shared(texts, shared, found);
    for (const QMenu* menu : window.findChildren<QMenu*>()) {
        texts.clear();
        for (const QAction* entry : menu->actions()) texts << entry->text();
        add_shared(texts, shared, found);
    }
    return found;
}

std::vector<std::string> cut_texts(const QWidget& window) {
    std::vector<std::string> found;
    for (const QLabel* label : in_sight<QLabel>(window))
        if (is_cut(*label)) found.push_back(of(*label, label->text()));
    for (const QAbstractButton* button : in_sight<QAbstractButton>(window))
        if (!button->text().isEmpty() && button->width() < button->minimumSizeHint().width())
            found.push_back(of(*button, button->text()));
    for (const QTabBar* bar : in_sight<QTabBar>(window))
        if (bar->count() > 0 && bar->tabRect(bar->count() - 1).right() > bar->width())
            found.push_back(of(*bar, "tabs"));
    return found;
}

std::vector<std::string> nameless_controls(const QWidget& window) {
    std::vector<std::string> found;
    for (QWidget* part : window.findChildren<QWidget*>()) {
        const bool is_control = qobject_cast<QLineEdit*>(part) != nullptr ||
                                qobject_cast<QComboBox*>(part) != nullptr ||
                                qobject_cast<QAbstractButton*>(part) != nullptr ||
                                (qobject_cast<QAbstractItemView*>(part) != nullptr &&
                                 qobject_cast<QHeaderView*>(part) == nullptr);
        const bool belongs_to_another =
            part->parentWidget() != nullptr &&
            (qobject_cast<QComboBox*>(part->parentWidget()) != nullptr ||
             part->objectName().startsWith("qt_") ||
             part->parentWidget()->objectName().startsWith("qt_"));
        if (!is_control || belongs_to_another || part->window() != &window ||
            part->focusPolicy() == Qt::NoFocus)
            continue;
        const QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(part);
        if (reader == nullptr || reader->text(QAccessible::Name).trimmed().isEmpty())
            found.push_back(of(*part, part->metaObject()->className()));
    }
    return found;
}

}  // namespace zel
