#pragma once

#include <QMainWindow>

#include "desktop/batch/frm_excel_IO.h"
#include "desktop/databases/database_desk.h"
#include "desktop/frame/desktop_state.h"
#include "desktop/frame/file_drops.h"
#include "desktop/help_menu.h"
#include "desktop/line/form1.h"
#include "desktop/measuring/frm_mess_01.h"
#include "desktop/printing/print_desk.h"
#include "desktop/settings/settings_menu.h"
#include "desktop/short_circuit/ks_form1.h"

class QPushButton;

namespace zel {

/// The start window `form_main`: opens the program areas, switches the language of all windows,
/// lets a changed setting take effect in them, and ends the program after a question; changes of
/// the case that are not stored are asked for before.
class FormMain : public QMainWindow {
public:
    explicit FormMain(DesktopState& state);

    [[nodiscard]] Form1& form1() { return form1_; }
    [[nodiscard]] short_circuit::KsForm1& ks_form1() { return ks_form1_; }

    /// Shows the window as `Vollbildmodus` says.
    void show_first();
    void show_form1() { open(form1_); }
    /// Opens a file in the window that it belongs to. A database, which may be of both areas, and
    /// what cannot be read go to the area of the window `from`, where the user has named the file.
    void open_file(const std::string& path, const QWidget* from = nullptr);

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] AreaParts area_parts();
    [[nodiscard]] MakeConductorSource make_conductors();
    [[nodiscard]] DatabaseParts database_parts();
    MakeDatabaseSource make_databases();
    [[nodiscard]] FrmMess01Parts measuring_parts();
    [[nodiscard]] MakeDiagramSource make_diagrams();
    void make_file_menu();
    [[nodiscard]] QWidget* make_content();
    void switch_language(LangId lang);
    void open(QWidget& form);
    void place_beside(QWidget& window) const;
    /// `workbook` is proposed; it may be empty.
    void open_excel(ExcelMode mode, const std::string& workbook = {});
    void open_workbook(const std::string& path);
    void open_example(const std::string& path);
    void end(QCloseEvent& event);
    void apply_settings();
    void apply_separator();
    void apply_window_mode();
    [[nodiscard]] bool full_screen() const;

    DesktopState& state_;
    Captions captions_;  // of all windows
    RecentFiles recent_;
    PrintDesk printing_;
    Form1 form1_;
    short_circuit::KsForm1 ks_form1_;
    FrmMess01 frm_mess_01_;
    std::vector<std::unique_ptr<SettingsMenu>> settings_menus_;
    Help help_;
    HelpKey help_key_;
    FileDrops drops_;
    bool shown_full_screen_ = false;  // what the windows follow now
};

}  // namespace zel
