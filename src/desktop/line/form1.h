#pragma once

#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "desktop/conductors/conductor_desk.h"
#include "desktop/frame/desktop_state.h"
#include "desktop/frame/language_menu.h"
#include "desktop/frame/settings_menu.h"
#include "desktop/line/case_document.h"
#include "workflow/run/steady_run.h"

class QAction;
class QMenu;
class QTabWidget;

namespace zel {

class ConductorPage;
class GeneralPage;
class ResultPage;
class TransientPage;

/// The form of the current and temperature calculation: four pages on the strip `SSTab1`, numbered
/// from 0. Going to the result page calculates; so does going to the transient page where inputs
/// have changed since, for that is where a transient starts. The menu keeps the case in files; the
/// title tells the file and whether the case has changes that it lacks. Closing the form hides it,
/// the case stays.
class Form1 : public QMainWindow {
public:
    /// `switch_language` is called by the language menu.
    Form1(DesktopState& state, const std::function<void(LangId)>& switch_language);

    /// Captions in the language of the session. A result that is being shown is told anew in it.
    void recaption();
    /// Shows what stands in the case.
    void load();
    /// Shows the settings as they are now.
    void apply_settings();
    /// Takes in what is typed but not yet finished.
    void take_in() { (void)commit(); }

    /// Takes in what is typed but not yet finished; false where a text was refused, or where the
    /// user does not want to lose changes that are not stored.
    [[nodiscard]] bool may_be_left();

private:
    struct MenuRow;

    void make_menus();
    QAction* add_action(QMenu& menu, const MenuRow& row);
    void recaption_menus();
    void recaption_title();
    [[nodiscard]] bool commit();
    void start_anew();
    void open();
    void save();
    void save_as();
    void hide_form();
    void show_new_case();
    void copy_result();
    void take_over_conductor();
    void page_changed(int to);
    void case_changed();
    bool run();
    void allow_copy();
    void refused(QWidget* input);
    void return_to_refused();

    DesktopState& state_;
    CaseDocument document_;
    ConductorDesk conductors_;
    QMenu* file_menu_;
    QMenu* edit_menu_;
    std::vector<std::pair<QAction*, Text>> actions_;  // with their captions
    QAction* copy_ = nullptr;
    SettingsMenu settings_menu_;
    LanguageMenu language_menu_;
    GeneralPage* general_;
    ConductorPage* conductor_;
    ResultPage* result_;
    TransientPage* transient_;
    QTabWidget* pages_;
    int page_ = 0;                              // the page that was left, at a change
    std::optional<SteadyRunResult> shown_run_;  // the last valid run
    bool shown_run_is_stale_ = false;           // a refused run came after it
    int sharing_ = 1;                           // sub-conductors that share the typed currents
    QPointer<QWidget> refused_;  // its text was refused just now, the focus goes back to it
};

}  // namespace zel
