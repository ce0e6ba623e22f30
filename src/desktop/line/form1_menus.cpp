#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QTabWidget>

#include "desktop/frame/qt_text.h"
#include "desktop/line/form1.h"
#include "desktop/line/form1_input_pages.h"
#include "desktop/line/form1_result_page.h"
#include "desktop/line/form1_transient_page.h"
#include "steady/case/state_change.h"
#include "workflow/run/page_change.h"
#include "workflow/run/steady_texts.h"

// The menus of Form1 and what they do.

namespace zel {

struct Form1::MenuRow {
    const char* name;
    Text caption;
    const char* shortcut;
    void (Form1::*act)();
};

namespace {

constexpr Text file_caption = {"&Datei", "&File"};
constexpr Text edit_caption = {"&Bearbeiten", "&Edit"};

}  // namespace

void Form1::make_menus() {
    constexpr MenuRow file_rows[] = {
        {"new_case", {"&Neu", "&New"}, "Ctrl+N", &Form1::start_anew},
        {"open_case", {"Ö&ffnen ...", "&Open ..."}, "Ctrl+O", &Form1::open},
        {"save_case", {"&Speichern", "&Save"}, "Ctrl+S", &Form1::save},
        {"save_case_as", {"Speichern &unter ...", "Save &as ..."}, "Ctrl+Shift+S", &Form1::save_as},
        {"close_Form1", {"S&chließen", "&Close"}, "Ctrl+W", &Form1::hide_form},
    };
    constexpr MenuRow edit_rows[] = {
        {"copy_result",
         {"Ergebnis &kopieren", "&Copy result"},
         "Ctrl+Shift+C",
         &Form1::copy_result},
    };
    for (const MenuRow& row : file_rows) add_action(*file_menu_, row);
    for (const MenuRow& row : edit_rows) copy_ = add_action(*edit_menu_, row);
    file_menu_->insertSeparator(file_menu_->actions().constLast());
    copy_->setEnabled(false);
}

QAction* Form1::add_action(QMenu& menu, const MenuRow& row) {
    QAction* action = menu.addAction(QString());
    action->setObjectName(row.name);
    action->setShortcut(QKeySequence(row.shortcut));
    connect(action, &QAction::triggered, this, [this, act = row.act] { (this->*act)(); });
    actions_.emplace_back(action, row.caption);
    return action;
}

void Form1::recaption_menus() {
    const LangId lang = state_.session.lang;
    file_menu_->setTitle(qt(file_caption, lang));
    edit_menu_->setTitle(qt(edit_caption, lang));
    for (const auto& [action, caption] : actions_) action->setText(qt(caption, lang));
    settings_menu_.refresh();
    language_menu_.recaption(lang);
}

void Form1::start_anew() {
    if (commit() && document_.start_anew()) show_new_case();
}

void Form1::open() {
    if (commit() && document_.open()) show_new_case();
}

void Form1::save() {
    if (commit() && document_.save()) recaption_title();
}

void Form1::save_as() {
    if (commit() && document_.save_as()) recaption_title();
}

void Form1::hide_form() { close(); }

/// Results and an opened transient belong to the former case.
void Form1::show_new_case() {
    state_.transient.forget();
    sharing_ = sharing_conductors(state_.calc_case);
    load();
    result_->clear();
    shown_run_.reset();
    pages_->setTabEnabled(transient_page, false);
    pages_->setCurrentIndex(input_page);
    general_->focus_first();
    recaption_title();
}

void Form1::copy_result() {
    std::string text;
    if (page_ == transient_page)
        text = transient_->text_to_copy();
    else if (shown_run_)
        text = result_text(*shown_run_, state_.session.lang);
    if (!text.empty()) QGuiApplication::clipboard()->setText(qt(text));
}

}  // namespace zel
