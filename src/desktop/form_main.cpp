#include "desktop/form_main.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/conductors/conductor_desk.h"
#include "desktop/databases/measuring_desk.h"
#include "desktop/diagrams/frm_graph.h"
#include "desktop/frame/events.h"
#include "desktop/frame/language_menu.h"
#include "desktop/frame/window_icon.h"
#include "desktop/start_links.h"
#include "forms/file_sort.h"
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
constexpr Text measuring_caption = {"&Meßwertaufnahme", "&Measuring"};
constexpr Text version_line = {"{0} vom {1}", "{0} of {1}"};

QLabel* make_label(double scale, bool bold) {
    QLabel* label = plain_label(scale, bold);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    return label;
}

constexpr QPoint beside(40, 40);  // of a window that is not maximised, from this one

}  // namespace

FormMain::FormMain(DesktopState& state)
    : state_(state),
      recent_(state.settings.store.user_store()),
      printing_({state.session, state.settings, state.chooser, state.files, state.printers,
                 state.errors, state.print_time}),
      form1_({area_parts(), state.calc_case, state.transient, state.case_path, state.settings,
              state.workbooks, state.files, state.patience_ms, make_conductors(), make_diagrams()}),
      ks_form1_(area_parts(), state.short_circuit, state.program.short_circuit_short_name,
                make_conductors(), state.files),
      frm_mess_01_(measuring_parts()),
      help_(state.session, state.launcher, state.help_folders),
      help_key_(help_),
      drops_({this, &form1_, &ks_form1_, &frm_mess_01_},
             [this](const std::string& path, const QWidget& on) { open_file(path, &on); }),
      shown_full_screen_(full_screen()) {
    setObjectName("form_main");
    captions_.window_title(static_cast<QWidget*>(this), short_name);
    make_file_menu();
    const SettingsParts settings = {state.session, state.settings, state.chooser};
    const auto add_settings = [&](QMainWindow& window, MenuWindow kind, QMenu* next) {
        settings_menus_.push_back(
            std::make_unique<SettingsMenu>(window, kind, settings, captions_, next));
    };
    add_settings(*this, MenuWindow::FormMain, nullptr);
    add_settings(form1_, MenuWindow::Form1, &form1_.language_menu());
    add_settings(ks_form1_, MenuWindow::KS_Form1, &ks_form1_.language_menu());
    add_language_menu(*menuBar(), captions_, [this](LangId lang) { switch_language(lang); });
    for (QMainWindow* window :
         std::initializer_list<QMainWindow*>{this, &form1_, &ks_form1_, &frm_mess_01_})
        add_help_menu(*window->menuBar(), captions_, help_);
    state_.settings.changed = [this] { apply_settings(); };
    setCentralWidget(make_content());
    set_qt_language(state_.session.lang);
    captions_.show(state_.session.lang);
    size_window(*this, {720, 440});
}

AreaParts FormMain::area_parts() {
    return {state_.session,
            captions_,
            state_.store,
            state_.chooser,
            [this](LangId lang) { switch_language(lang); },
            make_databases(),
            state_.errors,
            printing_,
            {recent_, state_.files, [this](const std::string& path) { open_file(path); }}};
}

MakeDatabaseSource FormMain::make_databases() {
    return [this](AreaFrame& form, const forms::DatabaseForms& forms) {
        return std::make_unique<DatabaseDesk>(form, forms, database_parts());
    };
}

DatabaseParts FormMain::database_parts() {
    return {state_.session,     state_.settings,   state_.chooser, state_.errors,
            state_.tables,      state_.workbooks,  state_.files,   captions_,
            state_.data_folder, state_.patience_ms};
}

FrmMess01Parts FormMain::measuring_parts() {
    return {state_.session,
            captions_,
            state_.settings,
            state_.sensor_ports,
            state_.clock,
            state_.calc_case,
            [this] { form1_.show_changed_inputs(); },
            [this] { set_text_colour(form1_, Qt::black); },
            [this](QWidget& window) {
                return std::make_unique<MeasuringDesk>(window, database_parts(),
                                                       [this](const StoredRow& row) {
                                                           form1_.take_measured(row);
                                                           open(form1_);
                                                       });
            }};
}

MakeDiagramSource FormMain::make_diagrams() {
    return [this](QWidget& form, DiagramForm diagram) {
        const FrmGraphParts parts = {state_.session, captions_, state_.chooser, state_.files,
                                     printing_};
        return std::make_unique<FrmGraph>(form, std::move(diagram), parts);
    };
}

MakeConductorSource FormMain::make_conductors() {
    return [this](QWidget& form, std::function<void()> take_over) {
        const ConductorParts parts = {state_.session, state_.settings, state_.launcher,
                                      state_.files, state_.conductors};
        return std::make_unique<ConductorDesk>(form, parts, captions_, std::move(take_over));
    };
}

void FormMain::make_file_menu() {
    QMenu* menu = captions_.title(menuBar()->addMenu(QString()), file_caption);
    const auto add = [&](const char* name, const Text& caption, std::function<void()> act) {
        QAction* action = captions_.text(menu->addAction(QString()), caption);
        action->setObjectName(qt(name));
        on(action, &QAction::triggered, std::move(act));
        return action;
    };
    add("mForm1", form1_caption, [this] { open(form1_); });
    add("mKS_Form1", short_circuit_title, [this] { open(ks_form1_); });
    add("mMeßwertaufnahme", measuring_caption, [this] { open(frm_mess_01_); });
    menu->addSeparator();
    add("m_St_Temp_Excel", steady_excel_caption, [this] { open_excel(ExcelMode::Steady); });
    add("m_transient_Temp_Excel", transient_excel_caption,
        [this] { open_excel(ExcelMode::Transient); });
    menu->addSeparator();
    add("mDruckereinrichtung", printer_setup_caption, [this] { printing_.choose_printer(*this); });
    menu->addSeparator();
    add("mBeenden", exit_caption, [this] { close(); })->setShortcut(QKeySequence("Ctrl+Q"));
}

QWidget* FormMain::make_content() {
    auto* picture = new QLabel;
    picture->setPixmap(window_icon().pixmap(64, 64));
    picture->setAlignment(Qt::AlignCenter);
    auto* version_label = make_label(1, false);
    captions_.computed([version_label](LangId lang) {
        version_label->setText(qt(fill(version_line.in(lang), {version.in(lang), program_date})));
    });
    auto* open_form1 = captions_.text(new QPushButton, form1_caption);
    open_form1->setObjectName("open_Form1");
    open_form1->setDefault(true);
    on(open_form1, &QPushButton::clicked, [this] { open(form1_); });
    auto* open_short_circuit = new QPushButton;
    open_short_circuit->setObjectName("open_KS_Form1");
    on(open_short_circuit, &QPushButton::clicked, [this] { open(ks_form1_); });
    captions_.computed([this, open_short_circuit](LangId lang) {
        open_short_circuit->setText(qt(short_circuit_title, lang) + "\n(" +
                                    qt(state_.program.short_circuit_short_name, lang) + ")");
    });
    auto* areas = new QWidget;  // gives both the width of the wider one
    auto* column = new QVBoxLayout(areas);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(14);
    for (QPushButton* area : {open_form1, open_short_circuit}) {
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
    layout->addWidget(picture);
    layout->addWidget(captions_.text(make_label(2.4, true), short_name));
    layout->addWidget(captions_.text(make_label(1.3, false), long_title));
    layout->addSpacing(16);
    layout->addWidget(areas, 0, Qt::AlignHCenter);
    layout->addWidget(new StartLinks({recent_, state_.files,
                                      [this](const std::string& path) { open_file(path); }},
                                     state_.session, captions_,
                                     state_.conductors.shipped_folder + "/examples",
                                     [this](const std::string& path) { open_example(path); }),
                      0, Qt::AlignHCenter);
    layout->addStretch();
    layout->addWidget(version_label);
    return content;
}

void FormMain::switch_language(LangId lang) {
    state_.session.lang = lang;
    state_.settings.store.set(&ProgramSettings::LangId_screen, static_cast<std::int16_t>(lang));
    state_.program.language_switched();
    set_qt_language(lang);
    captions_.show(lang);
}

void FormMain::open(QWidget& form) {
    if (!form.isVisible()) {
        const bool maximised = form.isMaximized();  // by the user, before it was closed
        if (!maximised) place_beside(form);
        full_screen() || maximised ? form.showMaximized() : form.showNormal();
    }
    form.raise();
    form.activateWindow();
}

/// Down and to the right of this window, and whole on its screen.
void FormMain::place_beside(QWidget& window) const {
    const QRect room = screen()->availableGeometry();
    // The window system may not have told its frame yet: right after the start there is none.
    const QSize frame = (frameGeometry().size() - size())
                            .expandedTo({0, style()->pixelMetric(QStyle::PM_TitleBarHeight)});
    window.resize(window.size().boundedTo(room.size() - frame));
    const QPoint last = room.bottomRight() + QPoint(1, 1) -
                        QPoint(window.width() + frame.width(), window.height() + frame.height());
    const QPoint wanted = pos() + beside;
    window.move(std::max(room.left(), std::min(wanted.x(), last.x())),
                std::max(room.top(), std::min(wanted.y(), last.y())));
}

void FormMain::open_file(const std::string& path, const QWidget* from) {
    AreaFrame& area = from == &ks_form1_ ? static_cast<AreaFrame&>(ks_form1_) : form1_;
    switch (forms::sort_of(path, state_.store)) {
        case forms::FileSort::Workbook: return open_workbook(path);
        case forms::FileSort::Database: open(area); return area.open_database(path);
        case forms::FileSort::UnreadableCase: open(area); return area.open_file(path);
        case forms::FileSort::LineCase: open(form1_); return form1_.open_file(path);
        case forms::FileSort::ShortCircuitCase: open(ks_form1_); return ks_form1_.open_file(path);
    }
}

void FormMain::open_example(const std::string& path) {
    const bool short_circuit =
        forms::sort_of(path, state_.store) == forms::FileSort::ShortCircuitCase;
    AreaFrame& area = short_circuit ? static_cast<AreaFrame&>(ks_form1_) : form1_;
    open(area);
    area.open_file(path, true);
}

/// What is no workbook is told where it is calculated.
void FormMain::open_workbook(const std::string& path) {
    std::optional<excel_batch::WorkbookKind> kind;
    (void)trap(state_.errors, "frm_excel_IO", "S_01_io_excel_arbeitsmappe_auswaehlen",
               [&] { kind = excel_batch::kind_of(*state_.workbooks.open(path)); });
    open_excel(kind == excel_batch::WorkbookKind::Transient ? ExcelMode::Transient
                                                            : ExcelMode::Steady,
               path);
}

/// The conductor of the case is that of the input pages as they are now.
void FormMain::open_excel(ExcelMode mode, const std::string& workbook) {
    form1_.take_in();
    FrmExcelIO window(this, state_, mode);
    window.propose(workbook);
    const FileDrops drops({&window}, [&window](const std::string& path, const QWidget& /*on*/) {
        window.take_dropped(path);
    });
    window.exec();
}

bool FormMain::full_screen() const { return state_.settings.now().Vollbildmodus == 1; }

void FormMain::show_first() { full_screen() ? showMaximized() : showNormal(); }

void FormMain::apply_settings() {
    const ProgramSettings& now = state_.settings.now();
    take_settings(state_.session, now);
    take_settings(state_.calc_case, now);
    // Switching the preview on again does not take this back.
    apply_separator();
    apply_window_mode();
    for (const auto& menu : settings_menus_) menu->refresh();
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
    state_.short_circuit.respell(state_.session.separator, separator);
    state_.session.separator = separator;
    captions_.show(state_.session.lang);
    form1_.load();
    ks_form1_.load();
}

void FormMain::apply_window_mode() {
    if (full_screen() == shown_full_screen_) return;
    shown_full_screen_ = full_screen();
    for (QWidget* window : {static_cast<QWidget*>(this), static_cast<QWidget*>(&form1_),
                            static_cast<QWidget*>(&ks_form1_)})
        if (window->isMaximized() != shown_full_screen_)
            window->setWindowState(shown_full_screen_ ? Qt::WindowMaximized : Qt::WindowNoState);
}

/// The user who maximises or restores the window chooses the mode by that.
void FormMain::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange || !isVisible() || isMinimized()) return;
    guarded(*this, [this] {
        if (isMaximized() != full_screen())
            state_.settings.change(&ProgramSettings::Vollbildmodus, isMaximized() ? 1 : 2);
    });
}

void FormMain::closeEvent(QCloseEvent* event) {
    event->ignore();
    guarded(*this, [&] { end(*event); });
}

void FormMain::end(QCloseEvent& event) {
    const Box question = box_in(state_.session.lang, exit_question);
    if (!form1_.may_be_left() || !ks_form1_.may_be_left() || !frm_mess_01_.may_be_left() ||
        state_.session.dialogs.show(question) != Answer::Yes)
        return;
    event.accept();
    form1_.hide();
    ks_form1_.hide();
    frm_mess_01_.close();
    // Not quit(), which would close the windows, and ask, once more.
    QCoreApplication::exit(0);
}

}  // namespace zel
