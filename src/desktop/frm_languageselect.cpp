#include "desktop/frm_languageselect.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>

#include "desktop/frame/events.h"

namespace zel {
namespace {

constexpr QSize picture_size(96, 60);

// The user may know only one of the languages.
constexpr const char* lines[] = {"Bitte wählen Sie die gewünschte Sprache...",
                                 "Please select your desired language..."};
constexpr Text show_caption = {"Diese Auswahl bei jedem &Programmstart anzeigen",
                               "&Show this selection at each start of the program"};
constexpr Text ok_caption = {"OK", "OK"};
constexpr Text cancel_caption = {"Abbrechen", "Cancel"};

void draw_german_flag(QPainter& painter) {
    const int third = picture_size.height() / 3;
    const QColor colours[] = {Qt::black, QColor(0xdd, 0x00, 0x00), QColor(0xff, 0xce, 0x00)};
    for (int i = 0; i < 3; ++i)
        painter.fillRect(0, i * third, picture_size.width(), third, colours[i]);
}

void draw_british_flag(QPainter& painter) {
    const QRect all(QPoint(0, 0), picture_size);
    const QColor red(0xc8, 0x10, 0x2e);
    painter.fillRect(all, QColor(0x01, 0x21, 0x69));
    painter.setRenderHint(QPainter::Antialiasing);
    const auto cross = [&](const QColor& colour, int width, bool diagonal) {
        painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::FlatCap));
        if (diagonal) {
            painter.drawLine(all.topLeft(), all.bottomRight());
            painter.drawLine(all.topRight(), all.bottomLeft());
        } else {
            painter.drawLine(all.center().x(), 0, all.center().x(), all.bottom() + 1);
            painter.drawLine(0, all.center().y(), all.right() + 1, all.center().y());
        }
    };
    cross(Qt::white, 12, true);
    cross(red, 5, true);
    cross(Qt::white, 20, false);
    cross(red, 12, false);
}

QIcon flag(LangId lang) {
    QPixmap picture(picture_size);
    QPainter painter(&picture);
    lang == LangId::German ? draw_german_flag(painter) : draw_british_flag(painter);
    return {picture};
}

}  // namespace

FrmLanguageselect::FrmLanguageselect(const LanguageChoice& marked)
    : german_(new QRadioButton("Deutsch")),
      english_(new QRadioButton("English")),
      show_(captions_.text(new QCheckBox, show_caption)) {
    setObjectName("frm_languageselect");
    setWindowTitle("Select Language");
    german_->setObjectName("Option1");
    english_->setObjectName("Option2");
    show_->setObjectName("Check1");
    (marked.lang == LangId::English ? english_ : german_)->setChecked(true);
    show_->setChecked(marked.show_dialog);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(24, 20, 24, 20);
    grid->setVerticalSpacing(12);
    for (int i = 0; i < 2; ++i) grid->addWidget(new QLabel(qt(lines[i])), i, 0, 1, 2);
    grid->addWidget(make_picture(LangId::German, german_), 2, 0, Qt::AlignHCenter);
    grid->addWidget(make_picture(LangId::English, english_), 2, 1, Qt::AlignHCenter);
    grid->addWidget(german_, 3, 0, Qt::AlignHCenter);
    grid->addWidget(english_, 3, 1, Qt::AlignHCenter);
    grid->addWidget(show_, 4, 0, 1, 2);
    auto* ok = captions_.text(new QPushButton, ok_caption);
    auto* cancel = captions_.text(new QPushButton, cancel_caption);
    ok->setObjectName("OkButton");
    cancel->setObjectName("CancelButton");
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    grid->addLayout(buttons, 5, 0, 1, 2);
    ok->setDefault(true);
    on(ok, &QPushButton::clicked, [this] { accept(); });
    on(cancel, &QPushButton::clicked, [this] { reject(); });
    on(english_, &QRadioButton::toggled, [this] { captions_.show(choice().lang); });
    captions_.show(marked.lang);
    (marked.lang == LangId::English ? english_ : german_)->setFocus();
}

QPushButton* FrmLanguageselect::make_picture(LangId lang, QRadioButton* option) {
    auto* picture = new QPushButton;
    picture->setObjectName(lang == LangId::German ? "Picture1" : "Picture2");
    picture->setIcon(flag(lang));
    picture->setIconSize(picture_size);
    picture->setFlat(true);
    picture->setFocusPolicy(Qt::NoFocus);  // the option beside it has the focus
    picture->setAccessibleName(option->text());
    on(picture, &QPushButton::clicked, [option] {
        option->setChecked(true);
        option->setFocus();
    });
    return picture;
}

LanguageChoice FrmLanguageselect::choice() const {
    return {english_->isChecked() ? LangId::English : LangId::German, show_->isChecked()};
}

}  // namespace zel
