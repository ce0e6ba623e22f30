#pragma once

#include <QWidget>
#include <functional>

#include "messages/area_messages.h"

class QLabel;
class QPushButton;

namespace zel {

/// A line of the strip: sign, text, and the buttons by which the user mends what it tells.
class MessageLine : public QWidget {
public:
    enum class Shape : std::uint8_t {
        OneLine,  // a text too long for it ends in "..."
        Whole,    // a long text can be unfolded
    };

    /// Line `number`, from 0.
    MessageLine(Shape shape, int number);

    std::function<void(const FieldInfo&)> go_to;
    std::function<void(const AreaMessage&)> put_back;
    std::function<void()> unfolded = [] {};  // or folded again: it has another height

    /// AreaMessage `index` (from 0) of `count`. `key` puts its text back; empty where another line
    /// has it.
    void show_message(const AreaMessage& message, int index, int count, const QString& key,
                      LangId lang);
    /// To the first button, or to the text.
    void take_focus();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void show_text();

    Shape shape_;
    LangId lang_ = LangId::English;
    AreaMessage message_;
    bool is_unfolded_ = false;
    QLabel* sign_;
    QLabel* text_;
    QLabel* number_;
    QPushButton* unfold_;
    QPushButton* go_to_;
    QPushButton* put_back_;
};

}  // namespace zel
