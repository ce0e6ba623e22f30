#include "desktop/frame/qt_dialogs.h"

#include <QApplication>
#include <QDesktopServices>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QUrl>
#include <algorithm>

#include "desktop/frame/widgets.h"
#include "messages/message_texts.h"

namespace zel {
namespace {

constexpr int longest_line = 760;  // pixels
constexpr int margin = 8;
constexpr int beside_text = 110;  // pixels: the icon, and what is around it

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

/// Lines break where the text says so, as long as they are not too long for that.
void widen(QMessageBox& window) {
    auto* text = window.findChild<QLabel*>("qt_msgbox_label");
    if (text == nullptr) return;
    const QSize lines = text->fontMetrics().size(0, window.text());
    // The library lets no box come nearer to the width of the screen.
    const int widest_box = window.screen()->availableGeometry().width() - 480;
    text->setMinimumWidth(
        std::min({lines.width() + margin, longest_line, widest_box - beside_text}));
}

/// Cancel is the escape key, Save the default.
Answer asked_to_save(QMessageBox& window, LangId lang) {
    window.addButton(QMessageBox::Save)->setText(qt(save_caption, lang));
    window.addButton(QMessageBox::Discard)->setText(qt(discard_caption, lang));
    window.addButton(QMessageBox::Cancel)->setText(qt(cancel_caption, lang));
    window.setDefaultButton(QMessageBox::Save);
    window.setEscapeButton(QMessageBox::Cancel);
    switch (window.exec()) {
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
    widen(window);
}

}  // namespace

Answer QtDialogs::show(const Box& box) {
    const LangId lang = lang_ != nullptr ? *lang_ : LangId::English;
    QMessageBox window(QApplication::activeWindow());
    fill_in(window, box);
    if (box.buttons == Buttons::Ok) {
        window.addButton(QMessageBox::Ok)->setText(qt(ok_caption, lang));
        window.exec();
        return Answer::Ok;
    }
    if (box.buttons == Buttons::SaveDiscardCancel) return asked_to_save(window, lang);
    window.addButton(QMessageBox::Yes)->setText(qt(yes_caption, lang));
    window.addButton(QMessageBox::No)->setText(qt(no_caption, lang));
    window.setDefaultButton(QMessageBox::No);
    window.setEscapeButton(QMessageBox::No);
    return window.exec() == QMessageBox::Yes ? Answer::Yes : Answer::No;
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
    window.exec();
    return window.clickedButton() == rest;
}

bool QtLauncher::open_document(const std::string& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(qt(path)));
}

bool QtLauncher::start_program(const std::string& path) {
    return QProcess::startDetached(qt(path), {});
}

}  // namespace zel
