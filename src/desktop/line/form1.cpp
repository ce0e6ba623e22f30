#include "desktop/line/form1.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>

#include "desktop/frame/qt_text.h"
#include "desktop/line/form1_input_pages.h"
#include "desktop/line/form1_result_page.h"
#include "desktop/line/form1_transient_page.h"
#include "shell/program_texts.h"
#include "steady/case/state_change.h"
#include "workflow/run/page_change.h"
#include "workflow/run/steady_texts.h"

namespace zel {
namespace {

constexpr Text page_captions[] = {
    {"&Eingabedaten", "&Input data"},
    {"&Leiterdaten", "&Conductor data"},
    {"E&rgebnis", "&Results"},
    {"&Transient", "&Transient"},
};
constexpr Text no_name = {"Unbenannt", "Untitled"};

}  // namespace

Form1::Form1(DesktopState& state, const std::function<void(LangId)>& switch_language)
    : state_(state),
      document_(state),
      conductors_(*this, "Form1", state, [this] { take_over_conductor(); }),
      file_menu_(menuBar()->addMenu(QString())),
      edit_menu_(menuBar()->addMenu(QString())),
      settings_menu_(*menuBar(), *this, state, MenuWindow::Form1),
      language_menu_(*menuBar(), switch_language),
      general_(new GeneralPage(state, [this](QWidget* input) { refused(input); })),
      conductor_(new ConductorPage(state, [this](QWidget* input) { refused(input); })),
      result_(new ResultPage),
      transient_(new TransientPage(state, [this](QWidget* input) { refused(input); })),
      pages_(new QTabWidget) {
    setObjectName("Form1");
    pages_->setObjectName("SSTab1");
    for (QWidget* page : std::initializer_list<QWidget*>{general_, conductor_, result_, transient_})
        pages_->addTab(page, QString());
    pages_->setTabEnabled(transient_page, false);
    setCentralWidget(pages_);
    make_menus();
    connect(&conductor_->Command3(), &QPushButton::clicked, this,
            [this] { conductors_.open_database(); });
    connect(&conductor_->Command4(), &QPushButton::clicked, this,
            [this] { take_over_conductor(); });
    connect(pages_, &QTabWidget::currentChanged, this, [this](int to) { page_changed(to); });
    sharing_ = sharing_conductors(state_.calc_case);
    state_.case_changed = [this] { case_changed(); };
    transient_->calculated = [this] { allow_copy(); };
    recaption();
    general_->focus_first();
    resize(1260, 750);
}

void Form1::recaption() {
    const LangId lang = state_.session.lang;
    recaption_title();
    recaption_menus();
    for (int page = input_page; page <= transient_page; ++page)
        pages_->setTabText(page, qt(page_captions[page], lang));
    general_->recaption();
    conductor_->recaption();
    result_->recaption(lang);
    conductors_.recaption();
    transient_->recaption();
    if (!shown_run_) return;
    // The shown result is told again, not computed again.
    write_texts(*shown_run_, state_.session);
    result_->show_run(*shown_run_);
    if (shown_run_is_stale_) result_->show_nothing_new();
}

void Form1::recaption_title() {
    const LangId lang = state_.session.lang;
    const std::string name = document_.name();
    // "[*]" is where the window shows that there are changes.
    setWindowTitle(qt(name.empty() ? no_name.in(lang) : name) + "[*] - " + qt(short_name, lang) +
                   " - " + qt(long_title, lang));
    setWindowModified(document_.modified());
}

void Form1::load() {
    general_->load();
    conductor_->load();
    transient_->load();
}

/// Follows every change of the case: what hangs on it is brought into line.
void Form1::case_changed() {
    const int sharing = sharing_conductors(state_.calc_case);
    if (sharing != sharing_) share_bundle_currents(state_.calc_case, state_.session.separator);
    sharing_ = sharing;
    transient_->load();
    setWindowModified(document_.modified());
}

void Form1::allow_copy() {
    copy_->setEnabled(page_ == transient_page ? state_.transient.result() != nullptr
                                              : page_ == result_page && !shown_run_is_stale_);
}

void Form1::apply_settings() {
    settings_menu_.refresh();
    general_->show_measured();
}

bool Form1::commit() {
    general_->commit();
    conductor_->commit();
    transient_->commit();
    return refused_.isNull();
}

bool Form1::may_be_left() {
    return conductors_.may_be_left() && commit() && document_.may_be_left();
}

void Form1::take_over_conductor() {
    if (!commit()) return;
    (void)trap(state_.errors, "Form1", "Command4_click", [this] {
        conductors_.take_over([this] {
            load();
            state_.case_changed();
        });
    });
}

void Form1::page_changed(int to) {
    const bool sound = commit();
    const QSignalBlocker quiet(pages_);
    if (!sound) {  // the page with the refused input stays
        pages_->setCurrentIndex(page_);
        return;
    }
    const PageChange change = change_page(state_.calc_case, page_, to, state_.session.lang);
    if (change.clears_balance) result_->clear_balance();
    // A transient starts from the steady state of the inputs as they are now.
    if (to == transient_page && state_.transient.basis_is_stale(state_.calc_case) && !run()) {
        pages_->setCurrentIndex(page_);
        return;
    }
    page_ = change.page;
    pages_->setCurrentIndex(change.page);
    if (change.refusal) state_.session.tell(*change.refusal);
    if (change.page == conductor_page) conductor_->mark_needed();
    if (change.runs) run();
    if (change.page == transient_page) transient_->focus_first();
    allow_copy();
}

/// False where the input was refused.
bool Form1::run() {
    const SteadyRunResult result = RunSteady(state_.calc_case, state_.session);
    shown_run_is_stale_ = !result.input_valid;
    if (!result.input_valid) {
        result_->show_nothing_new();
        return false;
    }
    result_->show_run(result);
    shown_run_ = result;
    state_.transient.keep(result, state_.calc_case);
    load();  // the run reconciles the currents of sub-conductor and bundle
    pages_->setTabEnabled(transient_page, true);
    for (const Box& box : result.advice) state_.session.tell(box);
    return true;
}

void Form1::refused(QWidget* input) {
    refused_ = input;
    QMetaObject::invokeMethod(
        this, [this] { return_to_refused(); }, Qt::QueuedConnection);
}

void Form1::return_to_refused() {
    if (refused_) refused_->setFocus();
    refused_.clear();
}

}  // namespace zel
