#pragma once

#include <QMainWindow>

#include "desktop/batch/frm_excel_IO.h"
#include "desktop/conductors/conductor_desk.h"
#include "desktop/frame/desktop_state.h"
#include "desktop/frame/help_menu.h"
#include "desktop/frame/language_menu.h"
#include "desktop/frame/settings_menu.h"
#include "desktop/line/form1.h"
#include "desktop/short_circuit/ks_form1.h"

class QAction;
class QLabel;
class QMenu;
class QPushButton;

namespace zel {

/// The start window `form_main`: opens the program areas, switches the language of all windows,
/// lets a changed setting take effect in them, and ends the program after a question; changes of
/// the case that are not stored are asked for before.
class FormMain : public QMainWindow {
public:
    explicit FormMain(DesktopState& state);

    [[nodiscard]] Form1& form1() { return form1_; }
    [[nodiscard]] KsForm1& ks_form1() { return ks_form1_; }

    /// Shows the window as `Vollbildmodus` says.
    void show_first();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] QWidget* make_content();
    void switch_language(LangId lang);
    void recaption();
    void open(QWidget& form);
    void place_beside(QWidget& window) const;
    void open_excel(ExcelMode mode);
    void start_conductor_database();
    void apply_settings();
    void apply_separator();
    void apply_window_mode();
    [[nodiscard]] bool full_screen() const;

    DesktopState& state_;
    Form1 form1_;
    KsState ks_state_;
    KsForm1 ks_form1_;
    SettingsMenu ks_settings_menu_;
    ConductorDesk ks_conductors_;
    QMenu* file_menu_;
    QAction* go_to_form1_;
    QAction* go_to_short_circuit_;
    QAction* steady_excel_;
    QAction* transient_excel_;
    QAction* exit_;
    SettingsMenu settings_menu_;
    LanguageMenu language_menu_;
    HelpMenu help_menu_;
    QLabel* name_;
    QLabel* title_;
    QLabel* version_;
    QPushButton* open_form1_;
    QPushButton* open_short_circuit_;
    bool shown_full_screen_ = false;  // what the windows follow now
};

}  // namespace zel
