#pragma once

#include <QPalette>
#include <QSize>
#include <QString>
#include <QWidget>
#include <string>
#include <string_view>

#include "platform/text/text.h"

class QGroupBox;
class QLabel;
class QScrollArea;
class QTableView;

// What all windows are made of. Texts of the program are UTF-8.

namespace zel {

[[nodiscard]] inline QString qt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline QString qt(const Text& text, LangId lang) { return qt(text.in(lang)); }

/// A label whose text is shown as it is, without formats.
[[nodiscard]] QLabel* plain_label(const QString& text = {});

/// The same, `scale` times as large as other texts.
[[nodiscard]] QLabel* plain_label(double scale, bool bold);

/// The widget for the content of `group`; the title stands out by its bold type.
[[nodiscard]] QWidget* inside_of(QGroupBox& group);

/// Lets the content of `area` scroll where the window is too small for it.
void make_scrolling(QScrollArea& area);

/// Gives `window`, which has its content, this size, or what its screen has room for. Without a
/// height it gets the one that its texts need at that width.
void size_window(QWidget& window, QSize wanted);

/// How much ink stands out from its ground, 1 (not at all) to 21 (black on white); texts that are
/// read without effort have 4.5, large ones 3 (WCAG 2.1, relative luminance in sRGB).
[[nodiscard]] double contrast(const QColor& ink, const QColor& ground);

/// Whether a theme writes light on dark.
[[nodiscard]] bool is_dark(const QPalette& palette);

/// Gives the text of `window` this colour, but for what is greyed. Black, where it could not be
/// read in a dark theme, is the theme's own colour.
void set_text_colour(QWidget& window, Qt::GlobalColor colour);

/// Makes the columns of `table` as wide as their content, up to `widest` pixels; the last one stays
/// where it takes what room is left. Once the user has chosen widths, only those from `first` on.
void fit_columns(QTableView& table, int first, int widest);

/// `palette` with another ink for what is closed, where that of the theme is hard to read.
[[nodiscard]] QPalette with_readable_grey(QPalette palette);

/// Shows that the program works, as long as it lives.
class WaitCursor {
public:
    WaitCursor();
    ~WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

/// A remark beside a result: a small sign and a text, which wraps and can be selected. The line is
/// hidden as long as it has no text.
class NoteLine : public QWidget {
public:
    enum class Sign : bool { Note, Warning };

    /// The text bears the name `name`.
    NoteLine(Sign sign, const QString& name);
    void tell(std::string_view text);

private:
    QLabel* text_;
};

}  // namespace zel
