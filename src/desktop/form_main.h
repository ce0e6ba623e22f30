#pragma once

#include <QMainWindow>

#include "desktop/desktop_state.h"
#include "desktop/form1.h"
#include "desktop/ks_form1.h"
#include "desktop/language_menu.h"

class QAction;
class QLabel;
class QMenu;
class QPushButton;

namespace zel {

/// The start window `form_main`: opens the program areas, switches the language of all windows, and
/// ends the program after a question; changes of the case that are not stored are asked for before.
class FormMain : public QMainWindow {
public:
    explicit FormMain(DesktopState& state);

    [[nodiscard]] Form1& form1() { return form1_; }
    [[nodiscard]] KsForm1& ks_form1() { return ks_form1_; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] QWidget* make_content();
    void switch_language(LangId lang);
    void recaption();
    static void open(QWidget& form);

    DesktopState& state_;
    Text short_circuit_name_;
    Form1 form1_;
    KsState ks_state_;
    KsForm1 ks_form1_;
    QMenu* file_menu_;
    QAction* exit_;
    LanguageMenu language_menu_;
    QLabel* name_;
    QLabel* title_;
    QLabel* version_;
    QPushButton* open_form1_;
    QPushButton* open_ks_form1_;
};

}  // namespace zel
