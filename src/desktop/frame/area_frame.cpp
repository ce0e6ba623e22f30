#include "desktop/frame/area_frame.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <utility>

#include "desktop/frame/edit_actions.h"
#include "desktop/frame/events.h"
#include "desktop/frame/language_menu.h"
#include "desktop/frame/message_strip.h"
#include "desktop/frame/reading_width.h"
#include "messages/message_texts.h"

namespace zel {
namespace {

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
    content->setMaximumWidth(reading_width(*content));
    setWidget(content);
}

void AreaPage::put_above(QScrollArea* widget) {
    above_ = widget;
    widget->setParent(this);
    widget->hide();
}

void AreaPage::show_above(bool shown) {
    above_->setVisible(shown);
    place_above();
}

void AreaPage::place_above() {
    if (above_ == nullptr) return;
    constexpr int most = 2;                // the page keeps one part of so many
    const int room = viewport()->width();  // beside the bar, which is as high as page and widget
    const int wanted = above_->isHidden() ? 0 : above_->heightForWidth(room);
    const QMargins margins(0, std::min(wanted, height() / most), 0, 0);
    // A bar that was needed once would make its lines wrap, and stay needed.
    above_->setVerticalScrollBarPolicy(wanted > margins.top() ? Qt::ScrollBarAsNeeded
                                                              : Qt::ScrollBarAlwaysOff);
    above_->setGeometry(0, 0, room, margins.top());
    if (viewportMargins() != margins) setViewportMargins(margins);
}

void AreaPage::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    place_above();
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
      strip_(new QTabWidget),
      messages_(parts.session) {
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
    add_message_actions(*edit);
}

void AreaFrame::add_message_actions(QMenu& edit) {
    using namespace message_texts;
    edit.addSeparator();
    next_message_ = captions_.text(edit.addAction(QString()), next_message);
    next_message_->setObjectName("next_message");
    next_message_->setShortcut(QKeySequence("F6"));
    on(next_message_, &QAction::triggered, [this] { message_strip_->focus_next(); });
    put_back_ = captions_.text(edit.addAction(QString()), put_back_text);
    put_back_->setObjectName("put_back");
    put_back_->setShortcut(QKeySequence("F8"));
    on(put_back_, &QAction::triggered, [this] {
        if (const AreaMessage* message = message_strip_->to_put_back()) put_back(*message);
    });
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
    page_captions_.push_back(caption);
    captions_.computed([this, index](LangId) { show_tab(index); });
}

/// Needed and wrong inputs are counted apart.
void AreaFrame::show_tab(int page) {
    using namespace message_texts;
    const LangId lang = session_.lang;
    const QString caption = qt(page_captions_[static_cast<std::size_t>(page)], lang).trimmed();
    const MarkCount count = messages_.count(page);
    QString text = caption;
    QStringList words;
    const auto add = [&](int number, std::string_view sign, const Text& word) {
        if (number == 0) return;
        text += QString("  %1%2").arg(qt(sign)).arg(number);
        words << qt(fill(word.in(lang), {std::to_string(number)}));
    };
    add(count.needed, needed_sign, needed_count);
    add(count.wrong, wrong_sign, wrong_count);
    if (strip_->tabText(page) != text) strip_->setTabText(page, text);
    strip_->setTabToolTip(page, words.join(", "));
    strip_->tabBar()->setAccessibleTabName(
        page, words.isEmpty() ? QString() : QString(caption).remove('&') + ", " + words.join(", "));
}

void AreaFrame::finish(AreaPage& results, const forms::Record& record, const AreaPage* further) {
    setCentralWidget(strip_);
    message_strip_ = new MessageStrip({*strip_, results, further, messages_, session_,
                                       [this](const FieldInfo& field) { go_to(field); },
                                       [this](const AreaMessage& message) { put_back(message); },
                                       put_back_->shortcut().toString(QKeySequence::NativeText)});
    messages_.changed = [this] { show_messages(); };
    captions_.computed([this](LangId) { messages_.inputs_changed(); });
    messages_.watch(record);
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

void AreaFrame::show_messages() {
    for (int page = 0; page < static_cast<int>(pages_.size()); ++page) {
        show_tab(page);
        pages_[static_cast<std::size_t>(page)]->show_marks();
    }
    message_strip_->show_lines();
    put_back_->setEnabled(message_strip_->to_put_back() != nullptr);
}

void AreaFrame::go_to(const FieldInfo& field) {
    for (int page = 0; page < static_cast<int>(pages_.size()); ++page) {
        QWidget* input = pages_[static_cast<std::size_t>(page)]->input(field);
        if (input == nullptr) continue;
        strip_->setCurrentIndex(page);
        if (strip_->currentIndex() != page || !input->isEnabled()) return;
        input->setFocus(Qt::ShortcutFocusReason);
        if (auto* box = qobject_cast<QLineEdit*>(input)) box->selectAll();
        return;
    }
}

void AreaFrame::put_back(const AreaMessage& message) {
    const FieldInfo& field = *message.field;
    const QString text = qt(message.put_back);
    go_to(field);  // the line that the message comes from may go meanwhile
    QWidget* input = pages_[static_cast<std::size_t>(page_)]->input(field);
    // Only into its own input, which may have closed; as if it were typed: the box can undo it.
    if (auto* box = qobject_cast<QLineEdit*>(input); box != nullptr && box->hasFocus())
        box->insert(text);
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
    if (message_strip_ != nullptr) show_messages();
}

void AreaFrame::start_anew() {
    if (commit() && document_.start_anew()) show_new_case();
}

/// What the page in sight calculates itself, or as arriving at the result page does.
void AreaFrame::calculate() {
    if (pages_[static_cast<std::size_t>(page_)]->start_own_calculation()) return;
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

void AreaFrame::detach_document() {
    document_.detach();
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
    messages_.forget();
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
