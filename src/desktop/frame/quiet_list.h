#pragma once

#include <QComboBox>
#include <QWheelEvent>

namespace zel {

/// A list that the mouse wheel changes only while it has the focus: otherwise the wheel scrolls the
/// page, and no input changes unnoticed on the way.
class QuietList : public QComboBox {
public:
    QuietList() { setFocusPolicy(Qt::StrongFocus); }

protected:
    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }
};

}  // namespace zel
