#include "desktop/frame/area_frame.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <algorithm>
#include <utility>

#include "desktop/frame/edit_actions.h"
#include "desktop/frame/events.h"
#include "desktop/frame/language_menu.h"

namespace zel {
namespace {

constexpr int most_width = 1300;  // pixels, of a page's content
constexpr QSize window_size(1260, 750);

constexpr Text no_name = {"Unbenannt", "Untitled"};
constexpr Text file_caption = {"&Datei", "&File"};
constexpr Text recent_caption = {"Zuletzt &geöffnet", "Open &recent"};
constexpr Text edit_caption = {"&Bearbeiten", "E&dit"};

}  // namespace

struct AreaFrame::MenuRow {
    const char* name;
    Text caption;
    const char* shortcut;
    void (AreaFrame::*act)();
};

void AreaPage::set_content(QWidget* content) {
    content->setMaximumWidth(most_width);
    setWidget(content);
}

AreaFrame::AreaFrame(const AreaFacts& facts, const AreaParts& parts,
                     std::unique_ptr<DocumentRecord> record, std::string path)
    : facts_(facts),
      session_(parts.session),
      captions_(parts.captions),
      record_(std::move(record)),
      document_(*record_, parts.session, parts.store, parts.chooser, facts.question_title,
                std::move(path)),
      errors_(parts.errors),
      printing_(parts.printing),
      recent_(parts.recent),
      strip_(new QTabWidget) {
    setObjectName(facts.form);
    strip_->setObjectName("SSTab1");
    captions_.computed([this](LangId) { tell_title(); });
    make_menus();
    databases_ = parts.make_databases(*this, facts.databases);
    language_menu_ = add_language_menu(*menuBar(), captions_, parts.switch_language);
}

void AreaFrame::make_menus() {
    const MenuRow file_rows[] = {
        {facts_.new_entry, {"&Neu", "&New"}, "Ctrl+N", &AreaFrame::start_anew},
        {"open_case", {"Ö&ffnen ...", "&Open ..."}, "Ctrl+O", &AreaFrame::open},
        {"save_case", {"&Speichern", "&Save"}, "Ctrl+S", &AreaFrame::save},
        {"save_case_as",
         {"Speichern &unter ...", "Save &as ..."},
         "Ctrl+Shift+S",
         &AreaFrame::save_as},
        {facts_.close_entry, {"S&chließen", "&Close"}, "Ctrl+W", &AreaFrame::hide_form},
    };
    QMenu* file = captions_.title(menuBar()->addMenu(QString()), file_caption);
    for (const MenuRow& row : file_rows) add_action(*file, row);
    auto* recent = captions_.title(new QMenu(file), recent_caption);
    recent->setObjectName("open_recent");
    file->insertMenu(file->actions().at(2), recent);
    keep_filled(*recent, recent_, session_);
    file->insertSeparator(file->actions().constLast());
    print_ = new QAction(file);
    print_->setObjectName("print_report");
    print_->setShortcut(QKeySequence::Print);
    print_->setEnabled(false);
    on(print_, &QAction::triggered, [this] { print_report(); });
    file->insertAction(file->actions().constLast(), print_);
    QAction* printer = captions_.text(new QAction(file), printer_setup_caption);
    printer->setObjectName("mDruckereinrichtung");
    on(printer, &QAction::triggered, [this] { choose_printer(); });
    file->insertAction(file->actions().constLast(), printer);
    file->insertSeparator(file->actions().constLast());
    add_edit_menu();
}

void AreaFrame::add_edit_menu() {
    constexpr MenuRow copy_row = {"copy_result",
                                  {"Ergebnis &kopieren", "&Copy result"},
                                  "Ctrl+Shift+C",
                                  &AreaFrame::copy_result};
    constexpr MenuRow calculate_row = {
        "calculate", {"&Berechnen", "Ca&lculate"}, "F5", &AreaFrame::calculate};
    QMenu* edit = captions_.title(menuBar()->addMenu(QString()), edit_caption);
    add_edit_actions(*edit, captions_);
    edit->addSeparator();
    copy_ = add_action(*edit, copy_row);
    copy_->setEnabled(false);
    add_action(*edit, calculate_row);
}

QAction* AreaFrame::add_action(QMenu& menu, const MenuRow& row) {
    QAction* action = captions_.text(menu.addAction(QString()), row.caption);
    action->setObjectName(row.name);
    action->setShortcut(QKeySequence(row.shortcut));
    on(action, &QAction::triggered, [this, act = row.act] { (this->*act)(); });
    return action;
}

void AreaFrame::add_page(AreaPage* page, const Text& caption) {
    const int index = strip_->addTab(page, QString());
    pages_.push_back(page);
    captions_.computed([this, index, caption](LangId lang) {
        strip_->setTabText(index, qt(caption, lang).trimmed());
    });
}

void AreaFrame::finish() {
    setCentralWidget(strip_);
    on(strip_, &QTabWidget::currentChanged, [this](int to) { page_changed(to); });
    captions_.computed([this](LangId) { show_print_caption(); });
    pages_.front()->focus_first();
    if (!document_.path().empty()) document_stored();
    size_window(*this, window_size);
}

void AreaFrame::tell_title() {
    const LangId lang = session_.lang;
    const std::string name = document_.name();
    // "[*]" is where the window shows that there are changes.
    setWindowTitle(qt(name.empty() ? no_name.in(lang) : name) + "[*] - " +
                   qt(facts_.short_name, lang) + " - " + qt(facts_.title, lang));
    show_modified();
}

void AreaFrame::show_modified() {
    setWindowModified(document_.modified() ||
                      std::any_of(pages_.begin(), pages_.end(),
                                  [](const AreaPage* page) { return page->is_unfinished(); }));
}

void AreaFrame::load() {
    for (AreaPage* page : pages_) page->load_anew();
}

bool AreaFrame::commit() {
    for (AreaPage* page : pages_) page->commit();
    return !refused_.waits();
}

bool AreaFrame::may_be_left() { return commit() && may_be_replaced(); }

bool AreaFrame::may_be_replaced() {
    const bool may = document_.may_be_left();
    tell_title();  // of a case that was saved
    return may;
}

void AreaFrame::page_changed(int to) {
    const bool sound = commit();
    leave_page();
    sound ? turn_to(to) : show_page(page_);
}

void AreaFrame::show_page(int page) {
    const QSignalBlocker quiet(strip_);
    page_ = page;
    strip_->setCurrentIndex(page);
    show_print_caption();
}

void AreaFrame::start_anew() {
    if (commit() && document_.start_anew()) show_new_case();
}

/// As arriving at the result page does.
void AreaFrame::calculate() {
    if (page_ == facts_.result_page)
        page_changed(page_);
    else
        strip_->setCurrentIndex(facts_.result_page);
}

void AreaFrame::open() {
    if (!commit() || !document_.open()) return;
    show_new_case();
    document_stored();
}

void AreaFrame::open_file(const std::string& path, bool as_copy) {
    if (!commit() || !(as_copy ? document_.open_copy(path) : document_.open(path))) return;
    show_new_case();
    document_stored();
}

/// The file of the case is one of the recent ones, and the title tells it.
void AreaFrame::document_stored() {
    if (!document_.path().empty()) recent_.files.add(document_.path());
    tell_title();
}

void AreaFrame::take(const StoredRow& row, const std::string& origin) {
    document_.take(row, origin);
    show_new_case();
}

void AreaFrame::stored_in(const std::string& origin) {
    document_.stored_in(origin);
    tell_title();
}

void AreaFrame::save() {
    if (commit() && document_.save()) document_stored();
}

void AreaFrame::save_as() {
    if (commit() && document_.save_as()) document_stored();
}

void AreaFrame::hide_form() { close(); }

void AreaFrame::show_new_case() {
    leave_page();
    show_page(0);
    allow_output(false);
    forget_results();
    load();
    pages_.front()->focus_first();
    tell_title();
}

void AreaFrame::allow_output(bool allowed) {
    copy_->setEnabled(allowed);
    print_->setEnabled(allowed);
    for (QPushButton* button : print_buttons_) button->setEnabled(allowed);
}

void AreaFrame::add_print_button(QPushButton& button) {
    print_buttons_.push_back(&button);
    on(&button, &QPushButton::clicked, [this] { print_report(); });
}

void AreaFrame::show_print_caption() {
    QString caption = qt(print_caption()).trimmed();
    print_->setText(caption);
    caption.remove('&');  // the key of an entry in its menu, which may be that of a page
    for (QPushButton* button : print_buttons_) button->setText(caption);
}

void AreaFrame::print_report() {
    if (!commit()) return;
    if (const auto order = report_of_page()) print_order(*order);
}

void AreaFrame::choose_printer() { printing_.choose_printer(*this); }

void AreaFrame::copy_result() {
    const std::string text = text_to_copy();
    if (!text.empty()) QGuiApplication::clipboard()->setText(qt(text));
}

}  // namespace zel
