#include "desktop/form_main.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/frame/qt_language.h"
#include "desktop/frame/qt_text.h"
#include "desktop/frame/window_icon.h"
#include "shell/case_settings.h"
#include "shell/program_texts.h"
#include "steady/case/case_fields.h"

namespace zel {
namespace {

constexpr Text file_caption = {"&Datei", "&File"};
constexpr Text exit_caption = {"&Beenden", "E&xit"};
constexpr Text form1_caption = {"Strom- und &Temperaturberechnung",
                                "Current and &temperature calculation"};
constexpr Text steady_excel_caption = {"Stationäre Berechnung mit &Excel ...",
                                       "Steady-state calculation with &Excel ..."};
constexpr Text transient_excel_caption = {"&Instationäre Berechnung mit Excel (PATL / TATL) ...",
                                          "T&ransient calculation with Excel (PATL / TATL) ..."};
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

constexpr QPoint beside(40, 40);  // of a window that is not maximised, from this one

}  // namespace

FormMain::FormMain(DesktopState& state)
    : state_(state),
      form1_(state, [this](LangId lang) { switch_language(lang); }),
      ks_state_{state.session,
                state.store,
                state.chooser,
                {},
                [this] { start_conductor_database(); },
                [this] { return ks_conductors_.chosen_conductor(); }},
      ks_form1_(ks_state_, state.program.short_circuit_short_name,
                [this](LangId lang) { switch_language(lang); }),
      ks_settings_menu_(*ks_form1_.menuBar(), ks_form1_, state, MenuWindow::KS_Form1),
      ks_conductors_(ks_form1_, "KS_Form1", state, [this] { ks_form1_.take_over_conductor(); }),
      file_menu_(menuBar()->addMenu(QString())),
      go_to_form1_(file_menu_->addAction(QString())),
      go_to_short_circuit_(file_menu_->addAction(QString())),
      steady_excel_(file_menu_->addAction(QString())),
      transient_excel_(file_menu_->addAction(QString())),
      exit_(file_menu_->addAction(QString())),
      settings_menu_(*menuBar(), *this, state, MenuWindow::FormMain),
      language_menu_(*menuBar(), [this](LangId lang) { switch_language(lang); }),
      help_menu_(*menuBar(), *this, state, state.help_folders),
      name_(make_label(2.4, true)),
      title_(make_label(1.3, false)),
      version_(make_label(1, false)),
      open_form1_(new QPushButton),
      open_short_circuit_(new QPushButton),
      shown_full_screen_(full_screen()) {
    setObjectName("form_main");
    go_to_form1_->setObjectName("mForm1");
    go_to_short_circuit_->setObjectName("mKS_Form1");
    steady_excel_->setObjectName("m_St_Temp_Excel");
    transient_excel_->setObjectName("m_transient_Temp_Excel");
    file_menu_->insertSeparator(steady_excel_);
    file_menu_->insertSeparator(exit_);
    exit_->setObjectName("mBeenden");
    exit_->setShortcut(QKeySequence("Ctrl+Q"));
    connect(exit_, &QAction::triggered, this, &QWidget::close);
    connect(open_form1_, &QPushButton::clicked, this, [this] { open(form1_); });
    connect(go_to_form1_, &QAction::triggered, this, [this] { open(form1_); });
    connect(open_short_circuit_, &QPushButton::clicked, this, [this] { open(ks_form1_); });
    connect(go_to_short_circuit_, &QAction::triggered, this, [this] { open(ks_form1_); });
    connect(steady_excel_, &QAction::triggered, this, [this] { open_excel(ExcelMode::Steady); });
    connect(transient_excel_, &QAction::triggered, this,
            [this] { open_excel(ExcelMode::Transient); });
    state_.settings_changed = [this] { apply_settings(); };
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
    open_short_circuit_->setObjectName("open_KS_Form1");
    auto* areas = new QWidget;  // gives both the width of the wider one
    auto* column = new QVBoxLayout(areas);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(14);
    for (QPushButton* area : {open_form1_, open_short_circuit_}) {
        column->addWidget(area);
        area->setMinimumSize(460, 56);
        area->setAutoDefault(true);  // the return key opens the area that has the focus
        QFont font = area->font();
        font.setPointSizeF(font.pointSizeF() * 1.2);
        area->setFont(font);
    }
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(32, 24, 32, 24);
    layout->setSpacing(14);
    layout->addStretch();
    for (QWidget* widget : std::initializer_list<QWidget*>{picture, name_, title_})
        layout->addWidget(widget);
    layout->addSpacing(16);
    layout->addWidget(areas, 0, Qt::AlignHCenter);
    layout->addStretch();
    layout->addWidget(version_);
    return content;
}

void FormMain::switch_language(LangId lang) {
    state_.session.lang = lang;
    state_.settings.set(&ProgramSettings::LangId_screen, static_cast<std::int16_t>(lang));
    state_.program.language_switched();
    recaption();
    form1_.recaption();
    ks_form1_.recaption();
    ks_conductors_.recaption();
}

void FormMain::recaption() {
    const LangId lang = state_.session.lang;
    set_qt_language(lang);
    setWindowTitle(qt(short_name, lang));
    name_->setText(qt(short_name, lang));
    title_->setText(qt(long_title, lang));
    version_->setText(qt(fill(version_line.in(lang), {version.in(lang), program_date})));
    file_menu_->setTitle(qt(file_caption, lang));
    exit_->setText(qt(exit_caption, lang));
    go_to_form1_->setText(qt(form1_caption, lang));
    steady_excel_->setText(qt(steady_excel_caption, lang));
    transient_excel_->setText(qt(transient_excel_caption, lang));
    open_form1_->setText(qt(form1_caption, lang));
    const std::string_view area = state_.program.short_circuit_short_name.in(lang);
    go_to_short_circuit_->setText(qt(short_circuit_title, lang));
    open_short_circuit_->setText(qt(short_circuit_title, lang) + "\n(" + qt(area) + ")");
    settings_menu_.refresh();
    ks_settings_menu_.refresh();
    language_menu_.recaption(lang);
    help_menu_.recaption(lang);
}

void FormMain::open(QWidget& form) {
    if (!form.isVisible()) {
        place_beside(form);
        full_screen() ? form.showMaximized() : form.showNormal();
    }
    form.raise();
    form.activateWindow();
}

void FormMain::start_conductor_database() {
    if (!ks_conductors_.start_database()) state_.session.tell(conductor_database_not_started());
}

/// Down and to the right of this window, and whole on its screen.
void FormMain::place_beside(QWidget& window) const {
    const QRect room = screen()->availableGeometry();
    const QSize frame = frameGeometry().size() - size();
    window.resize(window.size().boundedTo(room.size() - frame));
    const QPoint last = room.bottomRight() + QPoint(1, 1) -
                        QPoint(window.width() + frame.width(), window.height() + frame.height());
    const QPoint wanted = pos() + beside;
    window.move(std::max(room.left(), std::min(wanted.x(), last.x())),
                std::max(room.top(), std::min(wanted.y(), last.y())));
}

/// The conductor of the case is that of the input pages as they are now.
void FormMain::open_excel(ExcelMode mode) {
    form1_.take_in();
    FrmExcelIO(this, state_, mode).exec();
}

bool FormMain::full_screen() const { return state_.settings.now().Vollbildmodus == 1; }

void FormMain::show_first() { full_screen() ? showMaximized() : showNormal(); }

void FormMain::apply_settings() {
    const ProgramSettings& now = state_.settings.now();
    take_settings(state_.session, now);
    take_settings(state_.calc_case, now);
    // Switching the preview on again does not take this back.
    if (now.Druckvorschau == 2) state_.program.Druck_direkt = true;
    apply_separator();
    apply_window_mode();
    settings_menu_.refresh();
    ks_settings_menu_.refresh();
    form1_.apply_settings();
}

/// What is typed stays: its texts follow the separator.
void FormMain::apply_separator() {
    const auto separator =
        static_cast<DecimalSeparator>(state_.settings.now().Punkt_Komma_Format_merker);
    if (separator == state_.session.separator) return;
    form1_.take_in();
    ks_form1_.take_in();
    respell(state_.calc_case, state_.session.separator, separator);
    ks_state_.form.respell(state_.session.separator, separator);
    state_.session.separator = separator;
    form1_.recaption();
    form1_.load();
    ks_form1_.load();
}

void FormMain::apply_window_mode() {
    if (full_screen() == shown_full_screen_) return;
    shown_full_screen_ = full_screen();
    for (QWidget* window : {static_cast<QWidget*>(this), static_cast<QWidget*>(&form1_),
                            static_cast<QWidget*>(&ks_form1_)})
        if (window->isVisible() && window->isMaximized() != shown_full_screen_)
            shown_full_screen_ ? window->showMaximized() : window->showNormal();
}

/// The user who maximises or restores the window chooses the mode by that.
void FormMain::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange || !isVisible() || isMinimized()) return;
    if (isMaximized() != full_screen())
        state_.change(&ProgramSettings::Vollbildmodus, isMaximized() ? 1 : 2);
}

void FormMain::closeEvent(QCloseEvent* event) {
    const Box question = box_in(state_.session.lang, exit_question);
    if (!form1_.may_be_left() || !ks_conductors_.may_be_left() || !ks_form1_.may_be_left() ||
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
