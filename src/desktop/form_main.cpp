#include "desktop/form_main.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/qt_text.h"
#include "desktop/window_icon.h"
#include "shell/program_texts.h"

namespace zel {
namespace {

constexpr Text file_caption = {"&Datei", "&File"};
constexpr Text exit_caption = {"&Beenden", "E&xit"};
constexpr Text form1_caption = {"Strom- und &Temperaturberechnung",
                                "Current and &temperature calculation"};
constexpr Text version_line = {"{0} vom {1}", "{0} of {1}"};

QLabel* make_label(double scale, bool bold) {
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

}  // namespace

FormMain::FormMain(DesktopState& state)
    : state_(state),
      short_circuit_name_(short_circuit_name),
      form1_(state, [this](LangId lang) { switch_language(lang); }),
      ks_state_{state.session, state.store, state.chooser},
      ks_form1_(ks_state_, short_circuit_name_, [this](LangId lang) { switch_language(lang); }),
      file_menu_(menuBar()->addMenu(QString())),
      exit_(file_menu_->addAction(QString())),
      language_menu_(*menuBar(), [this](LangId lang) { switch_language(lang); }),
      name_(make_label(2.4, true)),
      title_(make_label(1.3, false)),
      version_(make_label(1, false)),
      open_form1_(new QPushButton),
      open_ks_form1_(new QPushButton) {
    setObjectName("form_main");
    exit_->setObjectName("mBeenden");
    exit_->setShortcut(QKeySequence("Ctrl+Q"));
    connect(exit_, &QAction::triggered, this, &QWidget::close);
    connect(open_form1_, &QPushButton::clicked, this, [this] { open(form1_); });
    connect(open_ks_form1_, &QPushButton::clicked, this, [this] { open(ks_form1_); });
    setCentralWidget(make_content());
    recaption();
    resize(720, 440);
}

QWidget* FormMain::make_content() {
    auto* picture = new QLabel;
    picture->setPixmap(window_icon().pixmap(64, 64));
    picture->setAlignment(Qt::AlignCenter);
    open_form1_->setObjectName("open_Form1");
    open_form1_->setDefault(true);
    open_ks_form1_->setObjectName("open_KS_Form1");
    for (QPushButton* button : {open_form1_, open_ks_form1_}) {
        button->setMinimumSize(460, 56);
        QFont font = button->font();
        font.setPointSizeF(font.pointSizeF() * 1.2);
        button->setFont(font);
    }
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(32, 24, 32, 24);
    layout->setSpacing(14);
    layout->addStretch();
    for (QWidget* widget : std::initializer_list<QWidget*>{picture, name_, title_})
        layout->addWidget(widget);
    layout->addSpacing(16);
    layout->addWidget(open_form1_, 0, Qt::AlignHCenter);
    layout->addWidget(open_ks_form1_, 0, Qt::AlignHCenter);
    layout->addStretch();
    layout->addWidget(version_);
    return content;
}

void FormMain::switch_language(LangId lang) {
    state_.session.lang = lang;
    short_circuit_name_ = short_circuit_name_after_switch;
    recaption();
    form1_.recaption();
    ks_form1_.recaption();
}

void FormMain::recaption() {
    const LangId lang = state_.session.lang;
    setWindowTitle(qt(short_name, lang));
    name_->setText(qt(short_name, lang));
    title_->setText(qt(long_title, lang));
    version_->setText(qt(fill(version_line.in(lang), {version.in(lang), program_date})));
    file_menu_->setTitle(qt(file_caption, lang));
    exit_->setText(qt(exit_caption, lang));
    open_form1_->setText(qt(form1_caption, lang));
    open_ks_form1_->setText(qt(short_circuit_title, lang) + "\n(" + qt(short_circuit_name_, lang) +
                            ")");
    language_menu_.recaption(lang);
}

void FormMain::open(QWidget& form) {
    form.show();
    form.raise();
    form.activateWindow();
}

void FormMain::closeEvent(QCloseEvent* event) {
    const Box question = box_in(state_.session.lang, exit_question);
    if (!form1_.may_be_left() || !ks_form1_.may_be_left() ||
        state_.session.dialogs.show(question) != Answer::Yes) {
        event->ignore();
        return;
    }
    event->accept();
    form1_.hide();
    ks_form1_.hide();
    // Not quit(), which would close the windows, and ask, once more.
    QCoreApplication::exit(0);
}

}  // namespace zel
