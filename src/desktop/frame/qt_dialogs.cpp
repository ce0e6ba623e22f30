#include "desktop/frame/qt_dialogs.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QUrl>
#include <algorithm>

#include "desktop/frame/widgets.h"
#include "messages/message_texts.h"

namespace zel {
namespace {

// Pixels.
constexpr int longest_line = 760;
constexpr int margin = 8;
constexpr int beside_text = 86;  // the icon, and what is around it

constexpr Text ok_caption = {"OK", "OK"};
constexpr Text yes_caption = {"&Ja", "&Yes"};
constexpr Text no_caption = {"&Nein", "&No"};
constexpr Text save_caption = {"&Speichern", "&Save"};
constexpr Text discard_caption = {"&Verwerfen", "&Discard"};
constexpr Text cancel_caption = {"&Abbrechen", "&Cancel"};

QMessageBox::Icon qt_icon(Icon icon) {
    switch (icon) {
        case Icon::None: return QMessageBox::NoIcon;
        case Icon::Stop: return QMessageBox::Critical;
        case Icon::Warning: return QMessageBox::Warning;
        case Icon::Question: return QMessageBox::Question;
    }
    return QMessageBox::NoIcon;
}

/// What the library lets a box have of the width of its screen.
int widest_box(int screen) {
    constexpr int small = 1024;
    return screen <= small ? screen - 2 * margin : screen - 480;
}

/// Lines break where the text says so, as long as they are not too long for that. A text that is
/// too high for the screen scrolls: the buttons are always there.
int run(QMessageBox& window) {
    auto* text = window.findChild<QLabel*>("qt_msgbox_label");
    const auto* buttons = window.findChild<QDialogButtonBox*>();
    if (text == nullptr || buttons == nullptr) return window.exec();
    const QSize lines = text->fontMetrics().size(0, window.text());
    const QSize room = window.screen()->availableGeometry().size();
    const int width =
        std::min({lines.width() + margin, longest_line, widest_box(room.width()) - beside_text});
    text->setMinimumWidth(width);
    text->setWordWrap(true);
    const int highest = room.height() - window.style()->pixelMetric(QStyle::PM_TitleBarHeight) -
                        buttons->sizeHint().height() - 6 * margin;
    if (text->heightForWidth(width) > highest) {
        auto* area = new QScrollArea;
        make_scrolling(*area);
        area->setMinimumSize(width + area->verticalScrollBar()->sizeHint().width(), highest);
        delete window.layout()->replaceWidget(text, area);
        area->setWidget(text);
    }
    return window.exec();
}

/// Cancel is the escape key, Save the default.
Answer asked_to_save(QMessageBox& window, LangId lang) {
    window.addButton(QMessageBox::Save)->setText(qt(save_caption, lang));
    window.addButton(QMessageBox::Discard)->setText(qt(discard_caption, lang));
    window.addButton(QMessageBox::Cancel)->setText(qt(cancel_caption, lang));
    window.setDefaultButton(QMessageBox::Save);
    window.setEscapeButton(QMessageBox::Cancel);
    switch (run(window)) {
        case QMessageBox::Save: return Answer::Save;
        case QMessageBox::Discard: return Answer::Discard;
        default: return Answer::Cancel;
    }
}

void fill_in(QMessageBox& window, const Box& box) {
    window.setIcon(qt_icon(box.icon));
    window.setWindowTitle(qt(box.title));
    window.setTextFormat(Qt::PlainText);
    window.setText(qt(joined(box.lines, "\n")));
}

}  // namespace

Answer QtDialogs::show(const Box& box) {
    const LangId lang = lang_ != nullptr ? *lang_ : LangId::English;
    QMessageBox window(QApplication::activeWindow());
    fill_in(window, box);
    if (box.buttons == Buttons::Ok) {
        window.addButton(QMessageBox::Ok)->setText(qt(ok_caption, lang));
        run(window);
        return Answer::Ok;
    }
    if (box.buttons == Buttons::SaveDiscardCancel) return asked_to_save(window, lang);
    window.addButton(QMessageBox::Yes)->setText(qt(yes_caption, lang));
    window.addButton(QMessageBox::No)->setText(qt(no_caption, lang));
    window.setDefaultButton(QMessageBox::No);
    window.setEscapeButton(QMessageBox::No);
    return run(window) == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

bool QtDialogs::show_before_others(const Box& box) {
    const LangId lang = lang_ != nullptr ? *lang_ : LangId::English;
    QMessageBox window(QApplication::activeWindow());
    fill_in(window, box);
    QPushButton* ok = window.addButton(QMessageBox::Ok);
    ok->setText(qt(ok_caption, lang));
    const QPushButton* rest =
        window.addButton(qt(message_texts::rest_in_list, lang), QMessageBox::ActionRole);
    window.setDefaultButton(ok);
    window.setEscapeButton(ok);
    run(window);
    return window.clickedButton() == rest;
}

bool QtLauncher::open_document(const std::string& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(qt(path)));
}

bool QtLauncher::start_program(const std::string& path) {
    return QProcess::startDetached(qt(path), {});
}

}  // namespace zel
