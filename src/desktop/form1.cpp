#include "desktop/form1.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSignalBlocker>
#include <QTabWidget>

#include "desktop/form1_input_pages.h"
#include "desktop/form1_result_page.h"
#include "desktop/qt_text.h"
#include "shell/program_texts.h"
#include "workflow/page_change.h"
#include "workflow/steady_texts.h"

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
      file_menu_(menuBar()->addMenu(QString())),
      edit_menu_(menuBar()->addMenu(QString())),
      settings_menu_(*menuBar(), *this, state, MenuWindow::Form1),
      language_menu_(*menuBar(), switch_language),
      general_(new GeneralPage(state, [this](QWidget* input) { refused(input); })),
      conductor_(new ConductorPage(state, [this](QWidget* input) { refused(input); })),
      result_(new ResultPage),
      pages_(new QTabWidget) {
    setObjectName("Form1");
    pages_->setObjectName("SSTab1");
    for (QWidget* page : std::initializer_list<QWidget*>{general_, conductor_, result_})
        pages_->addTab(page, QString());
    pages_->addTab(new QWidget, QString());
    pages_->setTabEnabled(transient_page, false);
    setCentralWidget(pages_);
    make_menus();
    connect(pages_, &QTabWidget::currentChanged, this, [this](int to) { page_changed(to); });
    state_.case_changed = [this] { setWindowModified(document_.modified()); };
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
    if (!shown_run_) return;
    // The shown result is told again, not computed again.
    write_texts(*shown_run_, lang, state_.session.separator);
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
}

void Form1::apply_settings() {
    settings_menu_.refresh();
    general_->show_measured();
}

bool Form1::commit() {
    general_->commit();
    conductor_->commit();
    return refused_.isNull();
}

bool Form1::may_be_left() { return commit() && document_.may_be_left(); }

void Form1::page_changed(int to) {
    const bool sound = commit();
    const QSignalBlocker quiet(pages_);
    if (!sound) {  // the page with the refused input stays
        pages_->setCurrentIndex(page_);
        return;
    }
    const PageChange change = change_page(state_.calc_case, page_, to, state_.session.lang);
    if (change.clears_balance) result_->clear_balance();
    page_ = change.page;
    pages_->setCurrentIndex(change.page);
    copy_->setEnabled(false);
    if (change.refusal) state_.session.tell(*change.refusal);
    if (change.page == conductor_page) conductor_->mark_needed();
    if (change.runs) run();
}

void Form1::run() {
    const SteadyRunResult result = RunSteady(state_.calc_case, state_.session);
    shown_run_is_stale_ = !result.input_valid;
    if (!result.input_valid) {
        result_->show_nothing_new();
        return;
    }
    result_->show_run(result);
    shown_run_ = result;
    copy_->setEnabled(true);
    load();  // the run reconciles the currents of sub-conductor and bundle
    pages_->setTabEnabled(transient_page, true);
    for (const Box& box : result.advice) state_.session.tell(box);
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
