#pragma once

#include <QMainWindow>
#include <QScrollArea>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/frame/captions.h"
#include "desktop/frame/database_source.h"
#include "desktop/frame/document.h"
#include "desktop/frame/inputs.h"
#include "desktop/frame/print_source.h"
#include "desktop/frame/recent_menu.h"
#include "messages/area_messages.h"

class QMenu;
class QPushButton;
class QTabWidget;

namespace zel {

class MessageStrip;

/// A page of an area, which scrolls where the window is too small for it. Most pages only show.
class AreaPage : public QScrollArea {
public:
    AreaPage() { make_scrolling(*this); }

    /// Shows what stands in the case.
    virtual void load() {}
    /// The same where the case is another one: texts that wait to be corrected are forgotten.
    virtual void load_anew() { load(); }
    /// Takes in what is typed but not yet finished.
    virtual void commit() {}
    /// Whether there is any.
    [[nodiscard]] virtual bool is_unfinished() const { return false; }
    virtual void focus_first() {}
    /// The input of `field`, or null.
    [[nodiscard]] virtual QWidget* input(const FieldInfo& /*field*/) const { return nullptr; }
    /// False where the page has no calculation of its own; otherwise it was started as by its
    /// button.
    virtual bool start_own_calculation() { return false; }
    /// Shows which inputs are needed or wrong.
    virtual void show_marks() {}

    /// Puts a widget above the page, which has room there only as long as it is shown.
    void put_above(QScrollArea* widget);
    void show_above(bool shown);

protected:
    /// Shows `content`, no wider than is good for reading.
    void set_content(QWidget* content);
    void resizeEvent(QResizeEvent* event) override;

private:
    void place_above();

    QScrollArea* above_ = nullptr;
};

/// What tells one area from another.
struct AreaFacts {
    const char* form;         // object name
    const char* new_entry;    // of the menu
    const char* close_entry;  // of the menu
    const Text& short_name;   // what the area calls itself; it may change with the language
    Text question_title;      // of questions about its case
    Text title;
    const forms::DatabaseForms& databases;
    int result_page = 2;
};

/// What every area works with.
struct AreaParts {
    const Session& session;
    Captions& captions;
    CaseStore& store;
    FileChooser& chooser;
    std::function<void(LangId)> switch_language;  // called by the language menu
    MakeDatabaseSource make_databases;
    ErrorHandling& errors;
    PrintSource& printing;
    RecentParts recent;  // their files may be of another area
};

/// The form of a program area: pages on the strip `SSTab1`, numbered from 0, and the menus. The
/// file menu keeps the case in files; the title tells the file and whether the case has changes
/// that it lacks. A page with a refused text is not left, the text gets the focus back. Closing the
/// form hides it, the case stays.
class AreaFrame : public QMainWindow {
public:
    /// Takes in what is typed but not yet finished; false where a text was refused.
    bool take_in() { return commit(); }
    /// Shows the case, which has become another one.
    virtual void load();
    /// Takes in what is typed but not yet finished; false where a text was refused, or where
    /// changes that are not stored would be lost against the will of the user.
    [[nodiscard]] virtual bool may_be_left();

    /// Opens a case file in the area; `as_copy` leaves the file as it is ever after.
    void open_file(const std::string& path, bool as_copy = false);
    /// Lets the user take over a record of the database at `path`.
    void open_database(const std::string& path) { databases_->open_file(path); }

    // ---- for the databases of the area

    [[nodiscard]] DocumentRecord& record() const { return *record_; }
    /// False where changes of the case that are not stored would be lost against the user's will.
    [[nodiscard]] bool may_be_replaced();
    /// Makes a row of the table `origin` the case and goes to the first page.
    void take(const StoredRow& row, const std::string& origin);
    /// The case was saved into the table `origin`.
    void stored_in(const std::string& origin);

    /// The pages, by their numbers.
    [[nodiscard]] const std::vector<AreaPage*>& pages() const { return pages_; }
    [[nodiscard]] int page() const { return page_; }

    /// The menu that stands behind those of a file and its contents.
    [[nodiscard]] QMenu& language_menu() const { return *language_menu_; }

protected:
    /// `path` is the file that the case comes from; it may be empty.
    AreaFrame(const AreaFacts& facts, const AreaParts& parts,
              std::unique_ptr<DocumentRecord> record, std::string path);

    void add_page(AreaPage* page, const Text& caption);
    /// To be called once all pages are there. Messages stand on the page of `results`, and beside
    /// the tabs; they mark the inputs of `record`. `further` is the page of a calculation that goes
    /// on from the results.
    void finish(AreaPage& results, const forms::Record& record, const AreaPage* further = nullptr);

    /// Goes to another page after the present one could be left; it calls `show_page`.
    virtual void turn_to(int page) { show_page(page); }
    /// At every change of the page, also where it is refused.
    virtual void leave_page() {}
    /// After another case has come: forgets what belongs to the former one.
    virtual void forget_results() = 0;
    [[nodiscard]] virtual std::string text_to_copy() = 0;
    /// What the report of the present page is called where it is asked for, in the language of the
    /// moment.
    [[nodiscard]] virtual std::string print_caption() const = 0;
    /// The report of the present page; nothing where it cannot be printed, which was told.
    [[nodiscard]] virtual std::optional<PrintOrder> report_of_page() = 0;
    /// In the language of reports, where the area has no other.
    virtual void print_order(const PrintOrder& order) { printing_.print(*this, order); }

    /// The case has become another one: goes to the first page and forgets the results.
    void show_new_case();
    /// The case has become one that stands in no file; results stay what they are.
    void detach_document();
    void show_page(int page);
    [[nodiscard]] QTabWidget& strip() const { return *strip_; }
    [[nodiscard]] DatabaseSource& databases() const { return *databases_; }
    /// Whether there is a result to be copied and printed.
    void allow_output(bool allowed);
    /// A button of a page that prints its report, beside the entry of the menu.
    void add_print_button(QPushButton& button);
    void show_print_caption();
    /// False where a text was refused.
    [[nodiscard]] bool commit();
    /// The focus goes back to `input`, whose text was refused, once it has gone where it was going.
    void refused(QWidget* input) { refused_.to(input); }
    /// Also what is typed but not yet finished is a change.
    void show_modified();
    [[nodiscard]] AreaMessages& messages() { return messages_; }
    /// Goes to the page of `field`, and to its input.
    void go_to(const FieldInfo& field);
    [[nodiscard]] const Session& session() const { return session_; }
    [[nodiscard]] Captions& captions() const { return captions_; }
    [[nodiscard]] ErrorHandling& errors() const { return errors_; }
    [[nodiscard]] PrintSource& printing() const { return printing_; }

private:
    struct MenuRow;

    void make_menus();
    void add_message_actions(QMenu& edit);
    void show_messages();
    void show_tab(int page);
    void put_back(const AreaMessage& message);
    QAction* add_action(QMenu& menu, const MenuRow& row);
    void tell_title();
    void page_changed(int to);
    void start_anew();
    void calculate();
    void add_edit_menu();
    void document_stored();
    void open();
    void save();
    void save_as();
    void hide_form();
    void copy_result();
    void print_report();
    void choose_printer();

    AreaFacts facts_;
    const Session& session_;
    Captions& captions_;
    std::unique_ptr<DocumentRecord> record_;
    Document document_;
    QMenu* language_menu_ = nullptr;
    ErrorHandling& errors_;
    PrintSource& printing_;
    RecentParts recent_;
    QAction* copy_ = nullptr;
    QAction* print_ = nullptr;
    std::vector<QPushButton*> print_buttons_;
    std::unique_ptr<DatabaseSource> databases_;
    QTabWidget* strip_;
    std::vector<AreaPage*> pages_;
    int page_ = 0;  // the page that was left, at a change
    FocusReturn refused_;
    AreaMessages messages_;
    std::vector<Text> page_captions_;
    QAction* next_message_ = nullptr;
    QAction* put_back_ = nullptr;
    MessageStrip* message_strip_ = nullptr;
};

}  // namespace zel
