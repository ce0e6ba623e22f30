#include "desktop/short_circuit/ks_form1.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QSignalBlocker>
#include <QTabWidget>

#include "desktop/frame/qt_text.h"
#include "desktop/short_circuit/ks_form1_pages.h"
#include "desktop/short_circuit/ks_form1_result.h"
#include "shell/program_texts.h"

namespace zel {
namespace {

constexpr std::string_view page_captions[] = {"&Eingabedaten", "&Leiterdaten ", "E&rgebnis"};
constexpr Text form_title = {"Thermische Kurzschlußstromfestigkeit nach IEC 865-1",
                             short_circuit_title.en};
constexpr Text no_name = {"Unbenannt", "Untitled"};
constexpr Text file_caption = {"&Datei", "&File"};
constexpr Text edit_caption = {"&Bearbeiten", "&Edit"};

/// Shows that the program works, as long as it lives.
class WaitCursor {
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace

struct KsForm1::MenuRow {
    const char* name;
    Text caption;
    const char* shortcut;
    void (KsForm1::*act)();
};

KsForm1::KsForm1(KsState& state, const Text& name,
                 const std::function<void(LangId)>& switch_language)
    : state_(state),
      name_(name),
      document_(state),
      file_menu_(menuBar()->addMenu(QString())),
      edit_menu_(menuBar()->addMenu(QString())),
      language_menu_(*menuBar(), switch_language),
      result_(new KsResultView),
      pages_(new QTabWidget) {
    setObjectName("KS_Form1");
    pages_->setObjectName("SSTab1");
    const KsPanel::Notify notify = {[this](QWidget* input) { refused(input); },
                                    [this] { case_changed(); }};
    general_ = new KsGeneralPage(state, notify);
    conductor_ = new KsConductorPage(state, notify);
    for (QWidget* page : std::initializer_list<QWidget*>{general_, conductor_, result_})
        pages_->addTab(page, qt(page_captions[pages_->count()]).trimmed());
    setCentralWidget(pages_);
    make_menus();
    connect(pages_, &QTabWidget::currentChanged, this, [this](int to) { page_changed(to); });
    recaption();
    general_->focus_first();
    resize(1260, 750);
}

void KsForm1::make_menus() {
    constexpr MenuRow file_rows[] = {
        {"mneu", {"&Neu", "&New"}, "Ctrl+N", &KsForm1::start_anew},
        {"open_case", {"Ö&ffnen ...", "&Open ..."}, "Ctrl+O", &KsForm1::open},
        {"save_case", {"&Speichern", "&Save"}, "Ctrl+S", &KsForm1::save},
        {"save_case_as",
         {"Speichern &unter ...", "Save &as ..."},
         "Ctrl+Shift+S",
         &KsForm1::save_as},
        {"close_KS_Form1", {"S&chließen", "&Close"}, "Ctrl+W", &KsForm1::hide_form},
    };
    constexpr MenuRow copy_row = {"copy_result",
                                  {"Ergebnis &kopieren", "&Copy result"},
                                  "Ctrl+Shift+C",
                                  &KsForm1::copy_result};
    for (const MenuRow& row : file_rows) add_action(*file_menu_, row);
    copy_ = add_action(*edit_menu_, copy_row);
    file_menu_->insertSeparator(file_menu_->actions().constLast());
    copy_->setEnabled(false);
}

QAction* KsForm1::add_action(QMenu& menu, const MenuRow& row) {
    QAction* action = menu.addAction(QString());
    action->setObjectName(row.name);
    action->setShortcut(QKeySequence(row.shortcut));
    connect(action, &QAction::triggered, this, [this, act = row.act] { (this->*act)(); });
    actions_.emplace_back(action, row.caption);
    return action;
}

void KsForm1::recaption() {
    const LangId lang = state_.session.lang;
    recaption_title();
    file_menu_->setTitle(qt(file_caption, lang));
    edit_menu_->setTitle(qt(edit_caption, lang));
    for (const auto& [action, caption] : actions_) action->setText(qt(caption, lang));
    language_menu_.recaption(lang);
    general_->recaption();
    conductor_->recaption();
}

void KsForm1::recaption_title() {
    const LangId lang = state_.session.lang;
    const std::string name = document_.name();
    // "[*]" is where the window shows that there are changes.
    setWindowTitle(qt(name.empty() ? no_name.in(lang) : name) + "[*] - " + qt(name_, lang) + " - " +
                   qt(form_title, lang));
    setWindowModified(document_.modified());
}

/// A change of one input may open, close and empty others.
void KsForm1::case_changed() {
    general_->load();
    conductor_->load();
    pages_->setTabEnabled(ks_conductor_page, state_.form.conductor_page_is_open());
    setWindowModified(document_.modified());
}

void KsForm1::load() {
    general_->load_anew();
    conductor_->load_anew();
    case_changed();
    if (shown_) run();
}

bool KsForm1::commit() {
    general_->commit();
    conductor_->commit();
    return refused_.isNull();
}

void KsForm1::take_over_conductor() { conductor_->take_over(); }

bool KsForm1::may_be_left() { return commit() && document_.may_be_left(); }

void KsForm1::start_anew() {
    if (commit() && document_.start_anew()) show_new_case();
}

void KsForm1::open() {
    if (commit() && document_.open()) show_new_case();
}

void KsForm1::save() {
    if (commit() && document_.save()) recaption_title();
}

void KsForm1::save_as() {
    if (commit() && document_.save_as()) recaption_title();
}

void KsForm1::hide_form() { close(); }

/// A result belongs to the former case.
void KsForm1::show_new_case() {
    clear_result();
    load();
    pages_->setCurrentIndex(ks_input_page);
    general_->focus_first();
    recaption_title();
}

void KsForm1::copy_result() {
    if (shown_) QGuiApplication::clipboard()->setText(qt(result_text(*shown_)));
}

void KsForm1::clear_result() {
    result_->clear();
    shown_.reset();
    copy_->setEnabled(false);
}

void KsForm1::page_changed(int to) {
    const bool sound = commit();
    clear_result();
    if (!sound) {  // the page with the refused input stays
        const QSignalBlocker quiet(pages_);
        pages_->setCurrentIndex(page_);
        return;
    }
    page_ = to;
    if (to == ks_result_page) run();
}

void KsForm1::run() {
    const ShortCircuitRun run = [&] {
        const WaitCursor waiting;
        return RunShortCircuit(state_.form.content(), state_.session.separator);
    }();
    if (run.refusal) {
        state_.session.tell(run.refusal->box);
        go_to(*run.refusal);
        return;
    }
    shown_ = run.page;
    result_->show_page(run.page);
    copy_->setEnabled(true);
}

void KsForm1::go_to(const KsRefusal& refusal) {
    pages_->setCurrentIndex(refusal.page);
    QWidget* input = general_->input(refusal.focus);
    if (input == nullptr) input = conductor_->input(refusal.focus);
    if (input != nullptr) input->setFocus();
}

void KsForm1::refused(QWidget* input) {
    refused_ = input;
    QMetaObject::invokeMethod(
        this, [this] { return_to_refused(); }, Qt::QueuedConnection);
}

void KsForm1::return_to_refused() {
    if (refused_) refused_->setFocus();
    refused_.clear();
}

}  // namespace zel
