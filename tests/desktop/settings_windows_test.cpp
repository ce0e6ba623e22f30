#include <QAction>
#include <QCheckBox>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <utility>
#include <vector>

#include "desktop/desktop_fixture.h"
#include "desktop/frm_languageselect.h"
#include "desktop/help_menu.h"
#include "desktop/settings/frm_prog_config.h"
#include "desktop/settings/frm_selectPath.h"
#include "fakes/scratch_folder.h"
#include "forms/config_options.h"

namespace zel {
namespace {

using S = ProgramSettings;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class SettingsWindows : public DesktopTest {
protected:
    template <class Widget>
    Widget& in(QWidget& form, const char* name) {
        auto* found = form.findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    void trigger(QWidget& form, const char* name) { in<QAction>(form, name).trigger(); }
    bool checked(QWidget& form, const char* name) { return in<QAction>(form, name).isChecked(); }
    /// What the next start would read.
    ProgramSettings read_again() { return Settings(shared_settings, user_settings, "/data").now(); }
    void english() { open({}, LangId::English, DecimalSeparator::Point); }
    std::vector<QWidget*> windows() { return {form_main.get(), &form1(), &form_main->ks_form1()}; }
};

TEST_F(SettingsWindows, every_option_takes_effect_is_kept_and_is_shown_again) {
    english();
    for (const ConfigGroup& group : config_groups())
        for (const ConfigOption& option : group.options) {
            if (option.effect != ConfigOption::Kept) continue;
            FrmProgConfig form(nullptr, state->session, state->settings);
            in<QRadioButton>(form, option.control).click();
            EXPECT_EQ(settings.now().*option.setting, option.value) << option.control;
            const bool is_read = option.setting != &S::Punkt_Komma_Format_merker;
            EXPECT_EQ(is_read ? read_again().*option.setting : option.value, option.value)
                << option.control;
            FrmProgConfig again(nullptr, state->session, state->settings);
            EXPECT_TRUE(in<QRadioButton>(again, option.control).isChecked()) << option.control;
        }
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(shared_settings.read("VOR", "Punkt_Komma_Format_merker"), "2");
}

TEST_F(SettingsWindows, test_buttons_lower_the_workbook_form_until_the_settings_open_again) {
    english();
    for (const char* option : {"Option10", "Option11"}) {
        FrmProgConfig form(nullptr, state->session, state->settings);
        EXPECT_EQ(settings.now().frm_excel_IO_height, 10700);
        in<QRadioButton>(form, option).click();
        EXPECT_EQ(settings.now().frm_excel_IO_height, 9500);
    }
}

TEST_F(SettingsWindows, menus_keep_each_choice_and_mark_it_in_all_windows) {
    english();
    const struct {
        const char *off, *on;
        NumberMember setting;
        std::int16_t off_value, on_value;
        int windows;  // form_main, Form1, KS_Form1, in this order
    } rows[] = {
        {"mstartMesswertaufnahme", "mstart_startfenster", &S::startfenster, 2, 1, 2},
        {"mDruckvorschau_aus", "mDruckvorschau_ein", &S::Druckvorschau, 2, 1, 3},
        {"MVollbildaus", "MVollbildein", &S::Vollbildmodus, 2, 1, 1},
        {"m_printer_german", "m_printer_english", &S::LangId_print, 1, 2, 3},
    };
    const std::vector<QWidget*> all = windows();
    for (const auto& [off, on, setting, off_value, on_value, count] : rows)
        for (const bool to_on : {false, true}) {
            trigger(*form_main, to_on ? on : off);
            EXPECT_EQ(read_again().*setting, to_on ? on_value : off_value) << on;
            for (std::size_t i = 0; i < all.size(); ++i) {
                const bool has_it = std::cmp_less(i, count);
                EXPECT_EQ(all[i]->findChild<QAction*>(on) != nullptr, has_it) << on;
                if (!has_it) continue;
                EXPECT_EQ(checked(*all[i], on), to_on) << on;
                EXPECT_EQ(checked(*all[i], off), !to_on) << off;
            }
        }
    EXPECT_EQ(form1().findChild<QAction*>("m_printer_french"), nullptr);
    trigger(form_main->ks_form1(), "m_printer_spanish");
    EXPECT_EQ(read_again().LangId_print, 4);
}

TEST_F(SettingsWindows, language_dialog_at_start_is_flipped) {
    english();
    EXPECT_TRUE(checked(form1(), "m_sprachwahlprogrammstart"));
    trigger(form1(), "m_sprachwahlprogrammstart");
    EXPECT_EQ(user_settings.read("MultiLang", "ShowDialog"), "0");
    EXPECT_FALSE(checked(*form_main, "m_sprachwahlprogrammstart"));
    trigger(*form_main, "m_sprachwahlprogrammstart");
    EXPECT_EQ(user_settings.read("MultiLang", "ShowDialog"), "-1");
    EXPECT_TRUE(checked(form1(), "m_sprachwahlprogrammstart"));
}

TEST_F(SettingsWindows, window_mode_is_followed_and_written_by_the_window_itself) {
    english();
    trigger(*form_main, "MVollbildaus");
    EXPECT_FALSE(form_main->isMaximized());
    EXPECT_FALSE(form1().isMaximized());
    trigger(*form_main, "MVollbildein");
    EXPECT_TRUE(form_main->isMaximized());
    EXPECT_TRUE(form1().isMaximized());
    form_main->showNormal();
    QApplication::processEvents();
    EXPECT_EQ(read_again().Vollbildmodus, 2);
    EXPECT_FALSE(form1().isMaximized());
    form_main->showMaximized();
    QApplication::processEvents();
    EXPECT_EQ(read_again().Vollbildmodus, 1);
    EXPECT_TRUE(checked(*form_main, "MVollbildein"));
}

TEST_F(SettingsWindows, each_path_is_chosen_shown_and_kept) {
    const char* keys[] = {"Seildatenbanknamepluspfad", "Berechnungsdaten", "worstcasedatenVORV81",
                          "Standardfalldaten"};
    english();
    for (std::size_t i = 0; i < 4; ++i) {
        const PathRole& role = path_roles()[i];
        const std::string former = settings.now().*role.path;
        FrmSelectPath form(nullptr, {state->session, state->settings, chooser}, role);
        EXPECT_EQ(in<QLabel>(form, "Bezeichnung2").text().toStdString(), former);
        in<QPushButton>(form, "Befehl3").click();  // cancelled
        EXPECT_EQ(settings.now().*role.path, former);
        EXPECT_EQ(chooser.questions.back().folder, i == 0 ? "/" : "/data/");
        EXPECT_EQ(chooser.questions.back().title, form.windowTitle().toStdString() + "...");
        chooser.paths = {"/Größe/neu.mdb"};
        in<QPushButton>(form, "Befehl3").click();
        EXPECT_EQ(in<QLabel>(form, "Bezeichnung2").text().toStdString(), "/Größe/neu.mdb ");
        EXPECT_EQ(find_setting(keys[i])->member,
                  (std::variant<NumberMember, TextMember>(role.path)));
        EXPECT_EQ(read_again().*role.path, "/Größe/neu.mdb");
        in<QAction>(*form_main, role.menu_entry);
        in<QAction>(form1(), role.menu_entry);
    }
}

TEST_F(SettingsWindows, language_dialog_marks_and_gives_the_choice) {
    FrmLanguageselect form({LangId::German, false});
    EXPECT_EQ(form.windowTitle().toStdString(), "Select Language");
    EXPECT_EQ(form.choice(), (LanguageChoice{LangId::German, false}));
    EXPECT_EQ(in<QPushButton>(form, "CancelButton").text().toStdString(), "Abbrechen");
    in<QPushButton>(form, "Picture2").click();
    EXPECT_TRUE(in<QRadioButton>(form, "Option2").isChecked());
    EXPECT_EQ(in<QPushButton>(form, "CancelButton").text().toStdString(), "Cancel");
    in<QCheckBox>(form, "Check1").click();
    EXPECT_EQ(form.choice(), (LanguageChoice{LangId::English, true}));
    in<QPushButton>(form, "Picture1").click();
    EXPECT_EQ(form.choice().lang, LangId::German);
    in<QPushButton>(form, "OkButton").click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    in<QPushButton>(form, "CancelButton").click();
    EXPECT_EQ(form.result(), QDialog::Rejected);
}

TEST_F(SettingsWindows, a_help_document_is_opened_and_a_missing_one_is_told) {
    const ScratchFolder folder;
    for (const char* name : {"zel_usermanual.pdf", "vor_leiterdaten1_2.pdf", "en/about.html"})
        folder.write(name, "%PDF");
    QMainWindow form;
    english();
    Captions captions;
    const Help help(state->session, launcher, {"/nowhere", folder.path()});
    add_help_menu(*form.menuBar(), captions, help);
    // The last of them has no document, but a topic of the guide.
    for (const char* entry : {"mBenutzerhandbuch", "mLeiterdatenblatt", "mKurzbeschreibung"})
        trigger(form, entry);
    EXPECT_THAT(launcher.opened,
                ElementsAre(folder.file("zel_usermanual.pdf"),
                            folder.file("vor_leiterdaten1_2.pdf"), folder.file("en/about.html")));
    trigger(form, "mKurzanleitung");
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_THAT(dialogs.shown[0].lines,
                ElementsAre("The document <zel_quicktutorial.pdf> was not found in any of these "
                            "folders :",
                            "/nowhere", folder.path().string()));
    launcher.works = false;
    trigger(form, "mBenutzerhandbuch");
    EXPECT_THAT(dialogs.shown.back().lines.at(0), HasSubstr("no program to show"));
}

TEST_F(SettingsWindows, f1_opens_the_guide_at_what_fits) {
    const ScratchFolder folder;
    for (const char* name : {"en/reports.html", "de/reports.html"}) folder.write(name, "");
    open(twin_264_34());
    EXPECT_EQ(help_topic(control("Text11")), "first-rating");
    go_to(1);
    press(form1(), Qt::Key_F1);
    const Help help(state->session, launcher, {folder.path().string()});
    const HelpKey key(help);
    const auto press_in = [&](QDialog& dialog, Qt::KeyboardModifiers modifiers) {
        dialog.show();
        dialog.activateWindow();
        QApplication::processEvents();
        press(dialog, Qt::Key_F1, {}, modifiers);
    };
    FrmSelectPath paths(form_main.get(), {state->session, state->settings, chooser},
                        path_roles()[0]);
    press_in(paths, Qt::NoModifier);
    QDialog of_form(&form1());
    of_form.setObjectName("frm_printer_select");
    press_in(of_form, Qt::NoModifier);
    press_in(of_form, Qt::ControlModifier);
    state->session.lang = LangId::German;
    press_in(of_form, Qt::NoModifier);
    EXPECT_THAT(launcher.opened,
                ElementsAre(folder.file("en/reports.html"), folder.file("de/reports.html")));
    ASSERT_THAT(dialogs.shown, SizeIs(2));
    EXPECT_THAT(dialogs.shown[0].lines[0], HasSubstr("<en/choose-conductor.html>"));
    EXPECT_THAT(dialogs.shown[1].lines[0], HasSubstr("<en/settings.html>"));
}

TEST_F(SettingsWindows, a_setting_that_cannot_be_written_holds_for_the_run) {
    shared_settings.locked = true;
    english();
    trigger(*form_main, "mDruckvorschau_aus");
    EXPECT_TRUE(checked(form1(), "mDruckvorschau_aus"));
    EXPECT_EQ(read_again().Druckvorschau, 1);
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

}  // namespace
}  // namespace zel
