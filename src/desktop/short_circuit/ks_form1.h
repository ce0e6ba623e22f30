#pragma once

#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "desktop/frame/language_menu.h"
#include "desktop/short_circuit/ks_document.h"
#include "desktop/short_circuit/ks_state.h"
#include "short_circuit/short_circuit_run.h"

class QAction;
class QMenu;
class QTabWidget;

namespace zel {

class KsConductorPage;
class KsGeneralPage;
class KsResultView;

/// The form `KS_Form1` of the short-circuit area: three pages on the strip `SSTab1`, numbered from
/// 0. Going to the result page checks and calculates. The menu keeps the case in files; the title
/// tells the file and whether the case has changes that it lacks. Closing the form hides it, the
/// case stays.
class KsForm1 : public QMainWindow {
public:
    /// `name` is what the area calls itself; it may change with the language, which
    /// `switch_language` is called for by the language menu.
    KsForm1(KsState& state, const Text& name, const std::function<void(LangId)>& switch_language);

    /// Captions in the language of the session.
    void recaption();

    /// Shows what stands in the case, and a shown result, with the separator of the session.
    void load();
    /// Takes in what is typed but not yet finished.
    void take_in() { (void)commit(); }

    /// Takes over the conductor that was chosen in the database.
    void take_over_conductor();

    /// Takes in what is typed but not yet finished; false where a text was refused, or where the
    /// user does not want to lose changes that are not stored.
    [[nodiscard]] bool may_be_left();

private:
    struct MenuRow;

    void make_menus();
    QAction* add_action(QMenu& menu, const MenuRow& row);
    void recaption_title();
    [[nodiscard]] bool commit();
    void case_changed();
    void start_anew();
    void open();
    void save();
    void save_as();
    void hide_form();
    void show_new_case();
    void copy_result();
    void clear_result();
    void page_changed(int to);
    void run();
    void go_to(const KsRefusal& refusal);
    void refused(QWidget* input);
    void return_to_refused();

    KsState& state_;
    const Text& name_;
    KsDocument document_;
    QMenu* file_menu_;
    QMenu* edit_menu_;
    std::vector<std::pair<QAction*, Text>> actions_;  // with their captions
    QAction* copy_ = nullptr;
    LanguageMenu language_menu_;
    KsGeneralPage* general_;
    KsConductorPage* conductor_;
    KsResultView* result_;
    QTabWidget* pages_;
    int page_ = 0;                       // the page that was left, at a change
    std::optional<KsResultPage> shown_;  // the result, while it is shown
    QPointer<QWidget> refused_;          // its text was refused just now, the focus goes back to it
};

}  // namespace zel
