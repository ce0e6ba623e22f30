#include "desktop/frame/message_strip.h"

#include <QApplication>
#include <QEvent>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/frame/area_frame.h"
#include "desktop/frame/events.h"
#include "messages/message_texts.h"

namespace zel {
namespace {

constexpr int line_gap = 6;  // pixels between lines, and around them
constexpr int bar_gap = 16;  // pixels between the tabs and the line beside them

/// The list on the page of results: as high as its lines, as long as they leave the page its part.
class MessageList : public QScrollArea {
public:
    MessageList() {
        setObjectName("message_list");
        make_scrolling(*this);
        setFocusPolicy(Qt::NoFocus);
    }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override {
        return widget()->layout()->totalHeightForWidth(width);
    }
};

}  // namespace

MessageStrip::MessageStrip(Parts parts)
    : QObject(&parts.tabs),
      parts_(std::move(parts)),
      list_(new MessageList),
      bar_(make_line(MessageLine::Shape::OneLine, 0)) {
    auto* content = new QWidget;
    layout_ = new QVBoxLayout(content);
    layout_->setContentsMargins(0, line_gap, 0, line_gap);
    layout_->setSpacing(line_gap);
    list_->setWidget(content);
    parts_.results.put_above(list_);
    bar_->setParent(&parts_.tabs);
    bar_->setObjectName("message_bar");
    bar_->hide();
    parts_.tabs.installEventFilter(this);
}

MessageLine* MessageStrip::make_line(MessageLine::Shape shape, int number) {
    auto* line = new MessageLine(shape, number);
    line->go_to = [this](const FieldInfo& field) { parts_.go_to(field); };
    line->unfolded = [this] { parts_.results.show_above(true); };
    line->put_back = [this](const AreaMessage& message) { parts_.put_back(message); };
    return line;
}

bool MessageStrip::on_results() const { return parts_.tabs.currentWidget() == &parts_.results; }

MessagePage MessageStrip::page() const {
    if (on_results()) return MessagePage::Results;
    const bool further = parts_.tabs.currentWidget() == parts_.further;
    return further ? MessagePage::Further : MessagePage::Inputs;
}

const AreaMessage* MessageStrip::to_put_back() const {
    const auto found = std::find_if(lines_.begin(), lines_.end(),
                                    [](const AreaMessage& line) { return !line.put_back.empty(); });
    return found == lines_.end() ? nullptr : &*found;
}

/// One key stands for one line.
QString MessageStrip::key_of(std::size_t line) const {
    return &lines_[line] == to_put_back() ? parts_.put_back_key : QString();
}

void MessageStrip::show_lines() {
    const LangId lang = parts_.session.lang;
    list_->setAccessibleName(qt(message_texts::strip_name, lang));
    bar_->setAccessibleName(qt(message_texts::strip_name, lang));
    lines_ = parts_.messages.lines(page());
    if (on_results()) show_list();
    parts_.results.show_above(on_results() && !lines_.empty());
    in_bar_ = std::min(in_bar_, lines_.empty() ? 0 : lines_.size() - 1);
    // Also a line that is not there has its names.
    bar_->show_message(lines_.empty() ? AreaMessage() : lines_[in_bar_], static_cast<int>(in_bar_),
                       static_cast<int>(lines_.size()),
                       lines_.empty() ? QString() : key_of(in_bar_), lang);
    bar_->setVisible(!on_results() && !lines_.empty());
    place_bar();
}

void MessageStrip::show_list() {
    while (list_lines_.size() < lines_.size()) {
        list_lines_.push_back(
            make_line(MessageLine::Shape::Whole, static_cast<int>(list_lines_.size())));
        layout_->addWidget(list_lines_.back());
    }
    for (std::size_t i = 0; i < list_lines_.size(); ++i) {
        list_lines_[i]->setVisible(i < lines_.size());
        if (i < lines_.size())
            list_lines_[i]->show_message(lines_[i], static_cast<int>(i),
                                         static_cast<int>(lines_.size()), key_of(i),
                                         parts_.session.lang);
    }
}

void MessageStrip::place_bar() {
    const QTabBar& bar = *parts_.tabs.tabBar();
    const int left = std::min(bar.sizeHint().width(), parts_.tabs.width()) + bar_gap;
    bar_->setGeometry(left, 0, std::max(0, parts_.tabs.width() - left), bar.sizeHint().height());
    bar_->raise();
}

void MessageStrip::focus_next() {
    if (lines_.empty()) return;
    const QWidget* focus = QApplication::focusWidget();
    if (on_results()) {
        const auto holds = [focus](const MessageLine* line) {
            return focus != nullptr && line->isAncestorOf(focus);
        };
        const auto here = std::find_if(list_lines_.begin(), list_lines_.end(), holds);
        const auto next = here == list_lines_.end()
                              ? 0
                              : static_cast<std::size_t>(here - list_lines_.begin()) + 1;
        return list_lines_[next % lines_.size()]->take_focus();
    }
    if (focus != nullptr && bar_->isAncestorOf(focus)) in_bar_ = (in_bar_ + 1) % lines_.size();
    show_lines();
    bar_->take_focus();
}

bool MessageStrip::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
        guarded(*this, [this] { place_bar(); });
    return QObject::eventFilter(watched, event);
}

}  // namespace zel
