#pragma once

#include <QComboBox>
#include <QPointer>
#include <functional>
#include <string_view>

#include "shell/session.h"

class QLineEdit;

// What inputs do beyond those of the library.

namespace zel {

/// Installed on an input, it lets tab and return lead to the next control of the fixed chain, and
/// return to the next input by tab order where the chain ends.
class FocusChain : public QObject {
public:
    /// The control behind another; empty at the end of a chain, and everywhere without one.
    using Chain = std::function<std::string_view(std::string_view control)>;

    explicit FocusChain(
        QObject* parent, Chain chain = [](std::string_view) { return std::string_view{}; })
        : QObject(parent), chain_(std::move(chain)) {}

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Chain chain_;
};

/// Installed on a box, it lets only those keys type that the key filter of numeric fields passes.
/// Keys that edit (cursor, delete, copy, paste, undo) are not touched; a pasted text is judged when
/// the editing of the box is finished.
class NumberKeys : public QObject {
public:
    NumberKeys(QObject* parent, const Session& session) : QObject(parent), session_(session) {}

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool refuses(const QEvent& event) const;

    const Session& session_;
};

/// A number that is pasted into `edit` as another program writes it, with the other separator or
/// with groups of digits, becomes one of the session. Where it has two readings ("1.000"), a list
/// below the box asks which; left without a choice, the text stays as it is.
void understand_pasted_numbers(QLineEdit& edit, const Session& session);

/// Whether the list of readings of a pasted number is open below `edit`.
[[nodiscard]] bool asks_for_reading(const QLineEdit& edit);

/// Installed on a box, it calls `leave` when the focus goes to another input, and not when only the
/// window is left. A box that is deleted while it has the focus loses it: `panel`, for which it is
/// called, is to end before the boxes of its panel are deleted.
class LeavingBox : public QObject {
public:
    LeavingBox(QObject* parent, const QObject& panel, std::function<void()> leave)
        : QObject(parent), panel_(&panel), leave_(std::move(leave)) {}

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<const QObject> panel_;
    std::function<void()> leave_;
};

/// Gives the focus back to an input whose text was refused, once it has gone where it was going.
class FocusReturn {
public:
    void to(QWidget* input);
    /// Whether an input waits for it.
    [[nodiscard]] bool waits() const { return !input_.isNull(); }

private:
    QPointer<QWidget> input_;
};

/// A list that the mouse wheel changes only while it has the focus: otherwise the wheel scrolls the
/// page, and no input changes unnoticed on the way. No text of it is cut: it has as many lines as
/// the chosen one needs, and opens as wide as its widest one.
class QuietList : public QComboBox {
public:
    QuietList();

    /// What is only shown looks like a box that is only shown and cannot be opened.
    void set_read_only(bool read_only);

    void showPopup() override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    [[nodiscard]] QRect room_for_text(const QRect& whole) const;

    bool read_only_ = false;
};

}  // namespace zel
