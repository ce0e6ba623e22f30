#include "desktop/frame/field_mark.h"

#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QLineEdit>

#include "desktop/frame/events.h"
#include "desktop/frame/widgets.h"
#include "messages/message_texts.h"

namespace zel {
namespace {

constexpr int gap = 4;      // pixels between the mark and the frame of its input
constexpr int padding = 2;  // and between its text and its own edge
constexpr int arrow = 22;   // pixels of a list that its arrow takes

struct MarkWords {
    std::string_view sign;
    Text word;
};

MarkWords words_of(Mark mark) {
    using namespace message_texts;
    switch (mark) {
        case Mark::Needed: return {needed_sign, needed_word};
        case Mark::Missing: return {wrong_sign, missing_word};
        case Mark::Wrong: return {wrong_sign, wrong_word};
        case Mark::None: break;
    }
    return {};
}

/// What stands in an input leaves the mark so much room.
int room_in(const QWidget& input) {
    const QFontMetrics metrics = input.fontMetrics();
    if (const auto* box = qobject_cast<const QLineEdit*>(&input))
        return box->width() - metrics.horizontalAdvance(box->text()) - 2 * gap;
    if (const auto* list = qobject_cast<const QComboBox*>(&input))
        return list->width() - metrics.horizontalAdvance(list->currentText()) - arrow - 2 * gap;
    return input.width() / 2;
}

}  // namespace

FieldMark::FieldMark(QWidget& input) : QLabel(&input), input_(input) {
    setObjectName("mark_" + input.objectName());
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    input.installEventFilter(this);
    hide();
}

void FieldMark::show_mark(Mark mark, LangId lang) {
    const auto [sign, word] = words_of(mark);
    if (sign_.isEmpty() && sign.empty()) return;
    sign_ = qt(sign);
    word_ = qt(word, lang);
    input_.setAccessibleDescription(word_);
    // What needs mending stands out in any palette: bold, in the colour of texts.
    const bool stands_out = mark == Mark::Missing || mark == Mark::Wrong;
    QFont font = input_.font();
    font.setBold(stands_out);
    font.setItalic(false);
    setFont(font);
    setForegroundRole(stands_out ? QPalette::Text : QPalette::PlaceholderText);
    setContentsMargins(padding, 0, padding, 0);
    place();
}

void FieldMark::place() {
    const auto fits = [this](const QString& text) {
        return fontMetrics().horizontalAdvance(text) + 2 * padding <= room_in(input_);
    };
    // What needs mending keeps its sign.
    const QString whole = sign_ + " " + word_;
    setText(fits(whole) ? whole : fits(word_) && !font().bold() ? word_ : sign_);
    if (!sign_.isEmpty()) {
        adjustSize();
        const int right = input_.width() - width();
        if (qobject_cast<QComboBox*>(&input_) != nullptr)
            move(right - arrow, (input_.height() - height()) / 2);
        else if (qobject_cast<QGroupBox*>(&input_) != nullptr)
            move(right - gap, 0);
        else
            move(gap, (input_.height() - height()) / 2);
        raise();
    }
    setVisible(!sign_.isEmpty());
}

bool FieldMark::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) guarded(*this, [this] { place(); });
    return QLabel::eventFilter(watched, event);
}

}  // namespace zel
