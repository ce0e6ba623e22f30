#include "desktop/frame/message_line.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>

#include "desktop/frame/events.h"
#include "desktop/frame/widgets.h"
#include "messages/message_texts.h"

namespace zel {
namespace {

constexpr std::size_t most_folded = 300;  // bytes of a text that is not unfolded
constexpr int above_text = 4;             // pixels: the text stands level with the buttons
constexpr int room_for_buttons = 320;     // pixels: a narrower line is told by its text alone

QStyle::StandardPixmap sign_of(const AreaMessage& message) {
    switch (message.icon) {
        case Icon::Stop: return QStyle::SP_MessageBoxCritical;
        case Icon::Warning: return QStyle::SP_MessageBoxWarning;
        default: break;
    }
    return message.sort == AreaMessage::Sort::OutOfDate ? QStyle::SP_MessageBoxWarning
                                                        : QStyle::SP_MessageBoxInformation;
}

/// A bold caption and a text in one line, which ends in "..." where it has no room. A click and the
/// key return on it lead to where the message does, also where there is no room for its button.
class OneLineLabel : public QLabel {
public:
    void show_line(const QString& caption, const QString& line) {
        caption_ = caption + "  ";
        line_ = line;
        setText(caption_ + line);
        update();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::WindowText));
        if (hasFocus()) {
            QStyleOptionFocusRect option;
            option.initFrom(this);
            style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
        }
        QRect room = contentsRect();
        const auto draw = [&](const QString& text) {
            const QFontMetrics metrics = painter.fontMetrics();
            painter.drawText(room, Qt::AlignVCenter,
                             metrics.elidedText(text, Qt::ElideRight, room.width()));
            room.setLeft(std::min(room.right(), room.left() + metrics.horizontalAdvance(text)));
        };
        QFont bold = font();
        bold.setBold(true);
        painter.setFont(bold);
        draw(caption_);
        painter.setFont(font());
        draw(line_);
    }
    void mousePressEvent(QMouseEvent* /*event*/) override { emit linkActivated({}); }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            emit linkActivated({});
        else
            QLabel::keyPressEvent(event);
    }

private:
    QString caption_;
    QString line_;
};

QPushButton* make_button(const QString& name) {
    auto* button = new QPushButton;
    button->setObjectName(name);
    button->setAutoDefault(true);
    return button;
}

}  // namespace

MessageLine::MessageLine(Shape shape, int number)
    : shape_(shape),
      sign_(new QLabel),
      text_(shape == Shape::OneLine ? new OneLineLabel : new QLabel),
      number_(plain_label()) {
    const QString place = shape == Shape::OneLine ? QString("bar") : QString::number(number);
    unfold_ = make_button("unfold(" + place + ")");
    go_to_ = make_button("go_to(" + place + ")");
    put_back_ = make_button("put_back(" + place + ")");
    text_->setObjectName("message(" + place + ")");
    text_->setTextFormat(shape == Shape::Whole ? Qt::RichText : Qt::PlainText);
    text_->setWordWrap(shape == Shape::Whole);
    text_->setFocusPolicy(Qt::StrongFocus);
    if (shape == Shape::Whole)
        text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 0, 8, 0);
    layout->setSpacing(8);
    const Qt::Alignment top = shape == Shape::Whole ? Qt::AlignTop : Qt::AlignVCenter;
    if (shape == Shape::Whole)
        for (QLabel* label : {sign_, text_}) label->setContentsMargins(0, above_text, 0, 0);
    layout->addWidget(sign_, 0, top);
    layout->addWidget(text_, 1);
    for (QWidget* part : {static_cast<QWidget*>(number_), static_cast<QWidget*>(unfold_),
                          static_cast<QWidget*>(go_to_), static_cast<QWidget*>(put_back_)})
        layout->addWidget(part, 0, top);
    if (shape == Shape::Whole) text_->setAlignment(Qt::AlignTop);
    number_->setVisible(shape == Shape::OneLine);
    on(unfold_, &QPushButton::clicked, [this] {
        is_unfolded_ = !is_unfolded_;
        show_text();
        unfolded();
    });
    on(go_to_, &QPushButton::clicked, [this] { go_to(*message_.field); });
    on(text_, &QLabel::linkActivated, [this] {
        if (message_.field != nullptr) go_to(*message_.field);
    });
    on(put_back_, &QPushButton::clicked, [this] { put_back(message_); });
}

void MessageLine::show_message(const AreaMessage& message, int index, int count, const QString& key,
                               LangId lang) {
    using namespace message_texts;
    if (message.text != message_.text) is_unfolded_ = false;
    message_ = message;
    lang_ = lang;
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    sign_->setPixmap(style()->standardIcon(sign_of(message)).pixmap(size));
    const std::string spoken =
        fill(place_in_strip.in(lang), {std::to_string(index + 1), std::to_string(count),
                                       message.caption + ": " + in_one_line(message.text)});
    text_->setAccessibleName(qt(spoken));
    number_->setText(QString("%1/%2").arg(index + 1).arg(count));
    const QString label = qt(put_back_label, lang);
    put_back_->setText(key.isEmpty() ? label : label + " (" + key + ")");
    go_to_->setText(qt(go_to_field, lang));
    go_to_->setAccessibleName(message.field == nullptr
                                  ? QString()
                                  : qt(go_to_field, lang) + ": " +
                                        qt(long_label_of(*message.field), lang));
    show_text();
}

void MessageLine::show_text() {
    const std::string line = in_one_line(message_.text);
    const QString caption = qt(message_.caption);
    bool fits = true;
    bool long_text = false;
    if (auto* one = dynamic_cast<OneLineLabel*>(text_)) {
        one->show_line(caption, qt(line));
        one->setToolTip("<p>" + (caption + ": " + qt(line)).toHtmlEscaped() + "</p>");
        fits = width() >= room_for_buttons;
    } else {
        const std::string folded = shortened(line, most_folded);
        long_text = folded != line;
        QString text = qt(folded).toHtmlEscaped();
        if (is_unfolded_) text = "<br>" + qt(message_.text).toHtmlEscaped().replace("\n", "<br>");
        text_->setText("<b>" + caption.toHtmlEscaped() + "</b>&nbsp; " + text);
    }
    unfold_->setText(qt(is_unfolded_ ? message_texts::fold : message_texts::unfold, lang_));
    unfold_->setVisible(long_text);
    go_to_->setVisible(fits && message_.field != nullptr);
    put_back_->setVisible(fits && !message_.put_back.empty());
}

void MessageLine::take_focus() {
    for (QPushButton* button : {go_to_, put_back_, unfold_})
        if (!button->isHidden()) return button->setFocus(Qt::ShortcutFocusReason);
    text_->setFocus(Qt::ShortcutFocusReason);
}

void MessageLine::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (shape_ == Shape::OneLine) later(*this, [this] { show_text(); });
}

}  // namespace zel
