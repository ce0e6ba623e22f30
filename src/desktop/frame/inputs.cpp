#include "desktop/frame/inputs.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QChar>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QStyleOption>
#include <QStylePainter>
#include <QWheelEvent>
#include <algorithm>

#include "desktop/frame/events.h"
#include "desktop/frame/widgets.h"
#include "platform/text/pasted_number.h"
#include "workflow/rules/entry_rules.h"

namespace zel {
namespace {

constexpr int box_margin = 4;  // pixels between the frame of a box and its text

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

constexpr const char* readings_name = "pasted_readings";
constexpr Text which_number = {"Welche Zahl ist gemeint?", "Which number is meant?"};

/// Watches what is put into a box at once, which no key types.
class PastedNumbers : public QObject {
public:
    PastedNumbers(QLineEdit& edit, const Session& session)
        : QObject(&edit), edit_(edit), session_(session) {
        on(&edit, &QLineEdit::textChanged, [this](const QString& text) {
            // What the program shows counts as known at once.
            if (!edit_.isModified()) known_ = text;
        });
        on(&edit, &QLineEdit::textEdited, [this] { look(); });
    }

private:
    void look() {
        const QString text = edit_.text();
        const bool pasted = is_put_in(text);
        known_ = text;
        if (!pasted || edit_.isRedoAvailable()) return;  // taken back, it stays as it was
        const auto readings = readings_of(text.toStdString(), session_.separator);
        if (readings.size() == 1) return put(qt(readings.front()));
        if (readings.size() > 1) ask(readings);
    }

    /// Whether more than one letter of the text is new, at one place.
    [[nodiscard]] bool is_put_in(const QString& text) const {
        qsizetype same = 0;
        const qsizetype shorter = std::min(text.size(), known_.size());
        while (same < shorter && text[same] == known_[same]) ++same;
        qsizetype end = 0;
        while (end < shorter - same &&
               text[text.size() - 1 - end] == known_[known_.size() - 1 - end])
            ++end;
        return text.size() - same - end > 1;
    }

    void put(const QString& number) {
        edit_.selectAll();
        edit_.insert(number);
    }

    void ask(const std::vector<std::string>& readings) {
        auto* list = new QMenu(&edit_);
        list->setObjectName(readings_name);
        list->setAttribute(Qt::WA_DeleteOnClose);
        list->addAction(qt(which_number, session_.lang))->setEnabled(false);
        for (const std::string& reading : readings)
            on(list->addAction(qt(reading)), &QAction::triggered,
               [this, number = qt(reading)] { put(number); });
        list->setActiveAction(list->actions().at(1));
        list->popup(edit_.mapToGlobal(QPoint(0, edit_.height())));
    }

    QLineEdit& edit_;
    const Session& session_;
    QString known_;
};

}  // namespace

void understand_pasted_numbers(QLineEdit& edit, const Session& session) {
    new PastedNumbers(edit, session);
}

bool asks_for_reading(const QLineEdit& edit) {
    const auto* list = edit.findChild<QMenu*>(readings_name);
    return list != nullptr && list->isVisible();
}

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
    if (event->type() != QEvent::FocusOut || panel_.isNull()) return false;
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

QuietList::QuietList() {
    setFocusPolicy(Qt::StrongFocus);
    // As high as its lines need, and no higher than that where the layout has room to give.
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    on(this, &QComboBox::currentTextChanged, [this] { updateGeometry(); });
}

void QuietList::set_read_only(bool read_only) {
    read_only_ = read_only;
    setFocusPolicy(read_only ? Qt::NoFocus : Qt::StrongFocus);
    updateGeometry();
}

void QuietList::showPopup() {
    if (read_only_) return;
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + bar);
    QComboBox::showPopup();
}

QRect QuietList::room_for_text(const QRect& whole) const {
    if (read_only_) return whole.adjusted(box_margin, 0, -box_margin, 0);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.rect = whole;
    return style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField,
                                   this);
}

int QuietList::heightForWidth(int width) const {
    const int least = sizeHint().height();
    const QRect room = room_for_text({0, 0, width, least});
    const QRect lines =
        fontMetrics().boundingRect({0, 0, room.width(), 0}, Qt::TextWordWrap, currentText());
    return std::max(least, lines.height() + 2 * box_margin);
}

void QuietList::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    if (read_only_) {
        QStyleOptionFrame frame;
        frame.initFrom(this);
        frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &frame, this);
        frame.state |= QStyle::State_Sunken | QStyle::State_ReadOnly;
        painter.drawPrimitive(QStyle::PE_PanelLineEdit, frame);
    } else {
        QStyleOptionComboBox list;
        initStyleOption(&list);
        painter.drawComplexControl(QStyle::CC_ComboBox, list);
    }
    painter.setPen(palette().color(read_only_ ? QPalette::Text : QPalette::ButtonText));
    painter.drawText(room_for_text(rect()), Qt::AlignVCenter | Qt::TextWordWrap, currentText());
}

void QuietList::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

}  // namespace zel
