#include "desktop/window_checks.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOption>
#include <QTabBar>
#include <QTableView>
#include <algorithm>
#include <map>

#include "desktop/frame/widgets.h"
#include "messages/message_texts.h"

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
    const QString name =
        part.objectName().isEmpty() ? part.metaObject()->className() : part.objectName();
    return (name + " (" + text + ")").toStdString();
}

/// A text on a part of a window, and what it would need.
struct SeenText {
    const QWidget* part;
    QRect place;  // in the part
    QString text;
    QSize needed;
    bool enabled = true;
};

SeenText of_label(const QLabel& label) {
    QSize needed = label.fontMetrics().size(Qt::TextShowMnemonic, label.text());
    if (label.wordWrap())
        needed = {0, label.heightForWidth(label.width())};
    else if (label.textFormat() == Qt::RichText)
        needed = label.sizeHint();
    return {&label, label.wordWrap() ? label.rect() : label.contentsRect(), label.text(), needed,
            label.isEnabled()};
}

/// A number must be seen whole; what is typed in words may be longer than its box.
SeenText of_box(const QLineEdit& box) {
    const QRect place = box.rect().adjusted(4, 4, -4, -4);
    const bool number = (box.alignment() & Qt::AlignRight) != 0;
    const int width = number ? box.fontMetrics().horizontalAdvance(box.text()) : 0;
    return {&box, place, box.text(), {width, 0}, box.isEnabled()};
}

SeenText of_list(const QComboBox& list) {
    QStyleOptionComboBox option;
    option.initFrom(&list);
    option.editable = list.isEditable();
    const QRect place = list.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                     QStyle::SC_ComboBoxEditField, &list);
    QSize needed(list.fontMetrics().horizontalAdvance(list.currentText()), 0);
    if (list.hasHeightForWidth())  // it wraps
        needed = {0, list.heightForWidth(list.width()) - list.height() + place.height()};
    return {&list, place, list.currentText(), needed, list.isEnabled()};
}

void add_heads(const QHeaderView& head, std::vector<SeenText>& found) {
    constexpr int margins = 6;
    const bool across = head.orientation() == Qt::Horizontal;
    for (int i = 0; i < head.count(); ++i) {
        const QRect place =
            across ? QRect(head.sectionViewportPosition(i), 0, head.sectionSize(i), head.height())
                   : QRect(0, head.sectionViewportPosition(i), head.width(), head.sectionSize(i));
        const QString text = head.model()->headerData(i, head.orientation()).toString();
        QFont font = head.font();
        font.setBold(
            head.model()->headerData(i, head.orientation(), Qt::FontRole).value<QFont>().bold());
        const QSize needed = QFontMetrics(font).size(0, text) + QSize(margins, 0);
        if (!head.isSectionHidden(i)) found.push_back({head.viewport(), place, text, needed});
    }
}

QSize wrapped_size(const QAbstractItemView& view, const QModelIndex& index, int width) {
    constexpr int margins = 6;
    const bool ticked = index.data(Qt::CheckStateRole).isValid();
    const int room = width - margins - (ticked ? 22 : 0);
    QFont font = view.font();
    font.setBold(index.data(Qt::FontRole).value<QFont>().bold());
    const QRect lines =
        QFontMetrics(font).boundingRect({0, 0, room, 0}, Qt::TextWordWrap, index.data().toString());
    return {lines.width() + width - room, lines.height()};
}

bool wraps_texts(const QAbstractItemView& view) {
    if (const auto* table = qobject_cast<const QTableView*>(&view)) return table->wordWrap();
    const auto* list = qobject_cast<const QListView*>(&view);
    return list != nullptr && list->wordWrap();
}

void add_cells(const QAbstractItemView& view, std::vector<SeenText>& found) {
    const bool wraps = wraps_texts(view);
    const QAbstractItemModel* model = view.model();
    const bool is_list = qobject_cast<const QListView*>(&view) != nullptr;
    for (int row = 0; model != nullptr && row < model->rowCount(view.rootIndex()); ++row)
        for (int column = 0; column < model->columnCount(view.rootIndex()); ++column) {
            const QModelIndex index = model->index(row, column, view.rootIndex());
            QRect place = view.visualRect(index);
            if (!place.intersects(view.viewport()->rect())) continue;
            // A list shows one text a line: it must not go on beyond the edge.
            if (is_list) place.setRight(view.viewport()->width() - 1);
            const QString text = index.data().toString();
            found.push_back({view.viewport(), place, text,
                             wraps ? wrapped_size(view, index, place.width())
                                   : QSize(view.sizeHintForIndex(index).width(), 0),
                             (index.flags() & Qt::ItemIsEnabled) != 0});
        }
}

std::vector<SeenText> texts_in_sight(const QWidget& window) {
    std::vector<SeenText> found;
    for (const QLabel* label : in_sight<QLabel>(window)) found.push_back(of_label(*label));
    for (const QLineEdit* box : in_sight<QLineEdit>(window)) found.push_back(of_box(*box));
    for (const QComboBox* list : in_sight<QComboBox>(window))
        if (!list->isEditable()) found.push_back(of_list(*list));
    for (const QAbstractButton* button : in_sight<QAbstractButton>(window))
        found.push_back({button, button->rect().adjusted(4, 4, -4, -4), button->text(),
                         QSize(button->minimumSizeHint().width() - 8, 0), button->isEnabled()});
    for (const QGroupBox* group : in_sight<QGroupBox>(window))
        found.push_back({group, QRect(0, 0, group->width(), group->fontMetrics().height()),
                         group->title(), QSize(group->minimumSizeHint().width(), 0),
                         group->isEnabled()});
    for (const QTabBar* bar : in_sight<QTabBar>(window))
        for (int i = 0; i < bar->count(); ++i)
            found.push_back({bar, bar->tabRect(i) & bar->rect(), bar->tabText(i),
                             bar->tabRect(i).size(), bar->isTabEnabled(i) && bar->isEnabled()});
    for (const QAbstractItemView* view : in_sight<QAbstractItemView>(window)) {
        if (const auto* head = qobject_cast<const QHeaderView*>(view))
            add_heads(*head, found);
        else
            add_cells(*view, found);
    }
    std::erase_if(found, [](const SeenText& seen) { return seen.text.trimmed().isEmpty(); });
    return found;
}

/// How much the ink at `place` stands out from the colour that most of it has.
double contrast_at(const QImage& shot, const QRect& place) {
    std::map<QRgb, int> colours;
    for (int y = place.top(); y <= place.bottom(); ++y)
        for (int x = place.left(); x <= place.right(); ++x) ++colours[shot.pixel(x, y)];
    const auto ground = std::max_element(colours.begin(), colours.end(),
                                         [](auto& a, auto& b) { return a.second < b.second; });
    double most = 1;
    for (const auto& [colour, count] : colours)
        most = std::max(most, contrast(QColor(colour), QColor(ground->first)));
    return most;
}

bool says(const QString& told, const QString& word) {
    return told.split(QRegularExpression("[ ,;:]+")).contains(word);
}

/// The unit that stands behind an input; empty where none does.
QString unit_behind(const QWidget& input) {
    constexpr int near = 24;  // pixels
    const QRect place(input.mapTo(input.window(), QPoint()), input.size());
    for (const QLabel* label : in_sight<QLabel>(*input.window())) {
        const QRect beside(label->mapTo(input.window(), QPoint()), label->size());
        const bool behind = beside.left() > place.right() && beside.left() - place.right() < near &&
                            beside.top() <= place.center().y() &&
                            beside.bottom() >= place.center().y();
        // What is shown there and is no unit has a name.
        if (behind && label->buddy() == nullptr && label->objectName().isEmpty() &&
            label->parentWidget() == input.parentWidget())
            return label->text().section(' ', 0, 0);
    }
    return {};
}

/// What is told of `part` that is not so, or is so and not told.
QStringList untold_of(const QWidget& part, const QAccessibleInterface& reader) {
    QStringList untold;
    const QString told =
        reader.text(QAccessible::Name) + ", " + reader.text(QAccessible::Description);
    if (reader.text(QAccessible::Name).trimmed().isEmpty()) untold << "name";
    const bool typed = qobject_cast<const QLineEdit*>(&part) != nullptr ||
                       qobject_cast<const QComboBox*>(&part) != nullptr;
    const QString unit = typed ? unit_behind(part) : QString();
    if (!unit.isEmpty() && !says(told, unit)) untold << "unit " + unit;
    const QAccessible::State state = reader.state();
    if (static_cast<bool>(state.disabled) == part.isEnabled()) untold << "whether it is open";
    if (const auto* button = qobject_cast<const QAbstractButton*>(&part))
        if (static_cast<bool>(state.checked) != (button->isCheckable() && button->isChecked()))
            untold << "whether it is ticked";
    if (const auto* box = qobject_cast<const QLineEdit*>(&part))
        if (static_cast<bool>(state.readOnly) != box->isReadOnly()) untold << "whether it is fixed";
    const auto* mark = part.findChild<const QLabel*>("mark_" + part.objectName());
    if (mark != nullptr && mark->isVisible() && !mark->text().isEmpty()) {
        using namespace message_texts;
        bool is_told = false;
        for (const Text& word : {needed_word, missing_word, wrong_word})
            is_told = is_told || says(told, qt(word.de)) || says(told, qt(word.en));
        if (!is_told) untold << "mark " + mark->text();
    }
    return untold;
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
    for (const SeenText& seen : texts_in_sight(window))
        if (seen.needed.width() > seen.place.width() + 1 ||
            seen.needed.height() > seen.place.height() + 1)
            found.push_back(of(*seen.part, seen.text));
    return found;
}

std::vector<std::string> faint_texts(QWidget& window) {
    constexpr double least = 3;
    constexpr double least_of_closed = 1.9;  // still to be seen
    std::vector<std::string> found;
    QPixmap shot(window.size());
    shot.setDevicePixelRatio(1);
    window.render(&shot);
    const QImage image = shot.toImage();
    for (const SeenText& seen : texts_in_sight(window)) {
        const QRect place = seen.place & seen.part->visibleRegion().boundingRect();
        // What is scrolled half out of sight may show none of its letters.
        if (place.width() < seen.place.width() ||
            place.height() < std::min(seen.place.height(), seen.part->fontMetrics().height()))
            continue;
        const double there =
            contrast_at(image, place.translated(seen.part->mapTo(&window, QPoint())));
        const bool closed = !seen.enabled || !seen.part->isEnabled();
        if (there < (closed ? least_of_closed : least))
            found.push_back(of(*seen.part, seen.text) + " " + std::to_string(there));
    }
    return found;
}

std::vector<std::string> scrolled_sideways(const QWidget& window) {
    std::vector<std::string> found;
    for (const QScrollArea* area : in_sight<QScrollArea>(window))
        if (area->horizontalScrollBar()->maximum() > 0)
            found.push_back(of(*area, QString::number(area->horizontalScrollBar()->maximum())));
    return found;
}

std::vector<std::string> untold_controls(const QWidget& window) {
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
            part->focusPolicy() == Qt::NoFocus || !part->isVisible())
            continue;
        const QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(part);
        const QStringList untold =
            reader == nullptr ? QStringList("all") : untold_of(*part, *reader);
        if (!untold.isEmpty()) found.push_back(of(*part, untold.join(", ")));
    }
    return found;
}

bool is_in_sight(const QWidget& part) {
    QRect seen = part.rect();
    for (const QWidget* at = &part; !at->isWindow(); at = at->parentWidget())
        seen = seen.translated(at->pos()) & at->parentWidget()->rect();
    return !seen.isEmpty();
}

}  // namespace zel
