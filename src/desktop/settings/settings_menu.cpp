#include "desktop/settings/settings_menu.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <span>

#include "desktop/frame/events.h"
#include "desktop/settings/frm_prog_config.h"
#include "desktop/settings/frm_selectPath.h"

namespace zel {
namespace {

using S = ProgramSettings;

constexpr unsigned form_main = static_cast<unsigned>(MenuWindow::FormMain);
constexpr unsigned form1 = static_cast<unsigned>(MenuWindow::Form1);
constexpr unsigned ks_form1 = static_cast<unsigned>(MenuWindow::KS_Form1);
constexpr unsigned all_windows = form_main | form1 | ks_form1;

struct ChoiceRow {
    const char* name;
    Text caption;
    std::int16_t value;
    unsigned windows;
};

struct ChoiceMenu {
    const char* name;
    Text caption;
    NumberMember setting;
    std::span<const ChoiceRow> rows;
};

constexpr ChoiceRow start_rows[] = {
    {"mstart_startfenster", {"&Startfenster", "&Start window"}, 1, form_main | form1},
    {"mstartMesswertaufnahme", {"&Messwertaufnahme", "&Measuring window"}, 2, form_main | form1},
};
constexpr ChoiceRow preview_rows[] = {
    {"mDruckvorschau_ein", {"&Ein", "&On"}, 1, all_windows},
    {"mDruckvorschau_aus", {"&Aus", "O&ff"}, 2, all_windows},
};
constexpr ChoiceRow full_screen_rows[] = {
    {"MVollbildein", {"&Ein", "&On"}, 1, form_main},
    {"MVollbildaus", {"&Aus", "O&ff"}, 2, form_main},
};
constexpr ChoiceRow report_language_rows[] = {
    {"m_printer_german", {"&Deutsch", "&German"}, 1, all_windows},
    {"m_printer_english", {"&Englisch", "&English"}, 2, all_windows},
    {"m_printer_french", {"&Französisch", "&French"}, 3, ks_form1},
    {"m_printer_spanish", {"&Spanisch", "&Spanish"}, 4, ks_form1},
};
constexpr ChoiceMenu choice_menus[] = {
    {"mProgrammstart", {"&Programmstart mit", "&Program start with"}, &S::startfenster, start_rows},
    {"mDruckvorschau", {"&Druckvorschau", "Print pre&view"}, &S::Druckvorschau, preview_rows},
    {"mVollbildmodus", {"&Vollbildmodus", "&Full screen"}, &S::Vollbildmodus, full_screen_rows},
    {"m_printer",
     {"Sprache der &Ausdrucke", "&Language of printouts"},
     &S::LangId_print,
     report_language_rows},
};

constexpr Text menu_caption = {"Ei&nstellungen", "&Settings"};
constexpr Text config_caption = {"Berechnungs-u. Anzeige-&Einstellungen festlegen ...",
                                 "Specify calculation- and display &settings..."};
constexpr Text language_dialog_caption = {"Sprach&wahl beim Programmstart",
                                          "Language selection at program s&tart"};

}  // namespace

SettingsMenu::SettingsMenu(QMainWindow& window, MenuWindow kind, const SettingsParts& parts,
                           Captions& captions, QMenu* next)
    : window_(window),
      parts_(parts),
      captions_(captions),
      menu_(captions.title(new QMenu(window.menuBar()), menu_caption)) {
    menu_->setObjectName("mEinstellungen");
    window.menuBar()->insertMenu(next != nullptr ? next->menuAction() : nullptr, menu_);
    if (kind != MenuWindow::KS_Form1) add_forms();
    add_choices(static_cast<unsigned>(kind));
    if (kind != MenuWindow::KS_Form1) add_language_dialog();
    refresh();
}

QAction* SettingsMenu::add(QMenu& menu, const char* name, const Text& caption) {
    QAction* action = captions_.text(menu.addAction(QString()), caption);
    action->setObjectName(name);
    return action;
}

void SettingsMenu::add_forms() {
    on(add(*menu_, "open_frm_prog_config", config_caption), &QAction::triggered,
       [this] { FrmProgConfig(&window_, parts_.session, parts_.settings).exec(); });
    menu_->addSeparator();
    for (const PathRole& role : path_roles())
        on(add(*menu_, role.menu_entry, role.menu_caption), &QAction::triggered,
           [this, &role] { FrmSelectPath(&window_, parts_, role).exec(); });
    menu_->addSeparator();
}

void SettingsMenu::add_choices(unsigned window) {
    for (const ChoiceMenu& choice : choice_menus) {
        QMenu* submenu = nullptr;
        for (const ChoiceRow& row : choice.rows) {
            if ((row.windows & window) == 0) continue;
            if (submenu == nullptr) {
                submenu = captions_.title(menu_->addMenu(QString()), choice.caption);
                submenu->setObjectName(choice.name);
            }
            QAction* action = add(*submenu, row.name, row.caption);
            action->setCheckable(true);
            choices_.push_back({action, choice.setting, row.value});
            on(action, &QAction::triggered, [this, setting = choice.setting, value = row.value] {
                parts_.settings.change(setting, value);
            });
        }
    }
}

void SettingsMenu::add_language_dialog() {
    language_dialog_ = add(*menu_, "m_sprachwahlprogrammstart", language_dialog_caption);
    language_dialog_->setCheckable(true);
    on(language_dialog_, &QAction::triggered, [this] {
        const bool shown = parts_.settings.now().ShowDialog != 0;
        parts_.settings.change(&S::ShowDialog, shown ? 0 : -1);
    });
}

void SettingsMenu::refresh() {
    const ProgramSettings& now = parts_.settings.now();
    for (const auto& [action, setting, value] : choices_) action->setChecked(now.*setting == value);
    if (language_dialog_ != nullptr) language_dialog_->setChecked(now.ShowDialog != 0);
}

}  // namespace zel
