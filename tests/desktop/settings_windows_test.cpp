#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <set>
#include <utility>
#include <vector>

#include "desktop/desktop_fixture.h"
#include "desktop/frame/application.h"
#include "desktop/frame/frm_languageselect.h"
#include "desktop/frame/frm_prog_config.h"
#include "desktop/frame/frm_selectPath.h"
#include "desktop/frame/help_menu.h"
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
    Widget& in(QWidget& window, const char* name) {
        auto* found = window.findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    void trigger(QWidget& window, const char* name) { in<QAction>(window, name).trigger(); }
    bool checked(QWidget& window, const char* name) {
        return in<QAction>(window, name).isChecked();
    }
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
            FrmProgConfig form(nullptr, *state);
            in<QRadioButton>(form, option.control).click();
            EXPECT_EQ(settings.now().*option.setting, option.value) << option.control;
            const bool is_read = option.setting != &S::Punkt_Komma_Format_merker;
            EXPECT_EQ(is_read ? read_again().*option.setting : option.value, option.value)
                << option.control;
            FrmProgConfig again(nullptr, *state);
            EXPECT_TRUE(in<QRadioButton>(again, option.control).isChecked()) << option.control;
        }
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(shared_settings.read("VOR", "Punkt_Komma_Format_merker"), "2");
}

TEST_F(SettingsWindows, options_reach_case_and_session) {
    open(twin_264_34());
    FrmProgConfig form(nullptr, *state);
    for (const char* option : {"Option2", "Option7", "Option9", "Option6"})
        in<QRadioButton>(form, option).click();
    EXPECT_EQ(calc_case().Gravi_merker1_db, 2);
    EXPECT_EQ(calc_case().Formel_merker1_db, 1);
    EXPECT_EQ(calc_case().wzsz_merker_db, 1);
    EXPECT_FALSE(state->session.wi_v_wi_merker);
    EXPECT_FALSE(form1().isWindowModified());
}

TEST_F(SettingsWindows, fields_of_measured_values_are_shown_where_wanted) {
    english();
    auto& field = control("Messwert_Strom_db");
    EXPECT_FALSE(field.isVisible());
    FrmProgConfig form(nullptr, *state);
    in<QRadioButton>(form, "Option15").click();
    EXPECT_TRUE(field.isVisible());
    type("Messwert_Strom_db", "620.5");
    EXPECT_EQ(calc_case().Messwert_Strom_db, (Entry{"620.5", 620.5}));
    in<QRadioButton>(form, "Option14").click();
    EXPECT_FALSE(field.isVisible());
}

TEST_F(SettingsWindows, heat_capacity_without_coefficient_is_told_and_not_kept) {
    english();
    FrmProgConfig form(nullptr, *state);
    in<QRadioButton>(form, "Option18").click();
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].icon, Icon::Stop);
    EXPECT_EQ(dialogs.shown[0].title, "Option temperature coeffizient heat capacity");
    EXPECT_EQ(dialogs.shown[0].lines.back(), "nach unserer Meinung evtl. anwenden.");
    EXPECT_EQ(state->session.cigre_TKW_merker, HeatCapacityOption::At20Degrees);
    EXPECT_THAT(shared_settings.written, IsEmpty());
    in<QRadioButton>(form, "Option19").click();
    EXPECT_EQ(state->session.cigre_TKW_merker, HeatCapacityOption::WithTemperature);
    EXPECT_EQ(shared_settings.read("VOR", "cigre_TKW_merker"), "1");
}

TEST_F(SettingsWindows, test_buttons_lower_the_workbook_form_until_the_settings_open_again) {
    english();
    for (const char* option : {"Option10", "Option11"}) {
        FrmProgConfig form(nullptr, *state);
        EXPECT_EQ(settings.now().frm_excel_IO_height, 10700);
        in<QRadioButton>(form, option).click();
        EXPECT_EQ(settings.now().frm_excel_IO_height, 9500);
    }
}

TEST_F(SettingsWindows, standard_settings_are_shown_and_kept) {
    open({}, LangId::German, DecimalSeparator::Comma);
    FrmProgConfig form(nullptr, *state);
    for (const char* option : {"Option3", "Option7", "Option5", "Option9", "Option15", "Option12"})
        in<QRadioButton>(form, option).click();
    EXPECT_EQ(in<QPushButton>(form, "Command4").text().toStdString(), "Stan&dard-Voreinstellungen");
    in<QPushButton>(form, "Command4").click();
    for (const char* option :
         {"Option1", "Option8", "Option5", "Option4", "Option14", "Option19", "Option13"})
        EXPECT_TRUE(in<QRadioButton>(form, option).isChecked()) << option;
    EXPECT_EQ(read_again().Gravi_merker, 1);
    EXPECT_EQ(calc_case().Gravi_merker1_db, 1);
    EXPECT_EQ(state->session.separator, DecimalSeparator::Comma);
}

TEST_F(SettingsWindows, settings_form_is_captioned_in_both_languages) {
    const std::pair<LangId, std::array<const char*, 3>> rows[] = {
        {LangId::German,
         {"Berechnungs-u. Anzeige-Einstellungen festlegen", " Erdbeschleunigung: ", "Zurück"}},
        {LangId::English,
         {"Specify calculation- and display settings...", "constant of gravity: ", "Back"}}};
    for (const auto& [lang, texts] : rows) {
        open({}, lang, DecimalSeparator::Point);
        FrmProgConfig form(nullptr, *state);
        EXPECT_EQ(form.windowTitle().toStdString(), texts[0]);
        EXPECT_EQ(form.findChildren<QGroupBox*>().first()->title().toStdString(), texts[1]);
        EXPECT_EQ(in<QPushButton>(form, "Command3").text().toStdString(), texts[2]);
    }
}

TEST_F(SettingsWindows, a_separator_respells_what_is_typed) {
    open(twin_264_34(), LangId::English, DecimalSeparator::Point);
    go_to(2);
    const std::string result = shown("result_TB207");
    FrmProgConfig form(nullptr, *state);
    in<QRadioButton>(form, "Option17").click();
    EXPECT_EQ(state->session.separator, DecimalSeparator::Comma);
    EXPECT_EQ(typed_in("Text11"), "0,6");
    EXPECT_EQ(calc_case().Windgeschwindigkeit_db.value, 0.6);
    EXPECT_FALSE(form1().isWindowModified());
    go_to(0);
    go_to(2);
    EXPECT_EQ(shown("result_TB207"), result);
    EXPECT_THAT(dialogs.shown, IsEmpty());
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

TEST_F(SettingsWindows, language_is_kept_and_the_short_circuit_area_gets_its_lower_number) {
    english();
    const auto area = [&] {
        return in<QPushButton>(*form_main, "open_KS_Form1").text().toStdString();
    };
    EXPECT_THAT(area(), HasSubstr("JOL V.3.0"));
    trigger(*form_main, "m_userinterface_german");
    EXPECT_EQ(user_settings.read("MultiLang", "LangId"), "1");
    EXPECT_THAT(area(), HasSubstr("QUV V.2.0"));
    trigger(form1(), "m_userinterface_english");
    EXPECT_EQ(user_settings.read("MultiLang", "LangId"), "2");
    EXPECT_THAT(area(), HasSubstr("JOL V.2.0"));
}

TEST_F(SettingsWindows, kind_of_conductor_is_told_in_the_language_of_reports_when_a_case_is_read) {
    CalcCase tube = twin_264_34();
    tube.conductor_type_db = 3;
    open(tube, LangId::English, DecimalSeparator::Point);
    const auto type = [&] {
        return control<QComboBox>("conductor_type_db").currentText().toStdString();
    };
    EXPECT_EQ(type(), "Tubular busbar");
    trigger(form1(), "m_printer_german");
    EXPECT_EQ(type(), "Tubular busbar");
    form1().load();
    EXPECT_EQ(type(), "Kreisring-Stromschiene");
    trigger(form1(), "m_printer_english");
    trigger(form1(), "m_userinterface_german");
    EXPECT_EQ(type(), "Tubular busbar");
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
        FrmSelectPath form(nullptr, *state, role);
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

TEST(StartFolder, is_that_of_the_path_or_the_root) {
    const std::pair<const char*, const char*> rows[] = {
        {"/a/b.mdb", "/a/"}, {"b.mdb", "/"}, {"/", "/"}, {"", "/"}, {"/b", "/"}};
    for (const auto& [path, folder] : rows) EXPECT_EQ(start_folder(path), folder) << path;
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
    folder.write("zel_usermanual.pdf", "%PDF");
    folder.write("vor_leiterdaten1_2.pdf", "%PDF");
    QMainWindow window;
    english();
    HelpMenu menu(*window.menuBar(), window, *state, {"/nowhere", folder.path()});
    menu.recaption(LangId::English);
    trigger(window, "mBenutzerhandbuch");
    trigger(window, "mLeiterdatenblatt");
    EXPECT_THAT(launcher.opened, ElementsAre(folder.file("zel_usermanual.pdf"),
                                             folder.file("vor_leiterdaten1_2.pdf")));
    trigger(window, "mKurzanleitung");
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_THAT(dialogs.shown[0].lines,
                ElementsAre("The document <zel_quicktutorial.pdf> was not found in any of these "
                            "folders :",
                            "/nowhere", folder.path().string()));
    launcher.works = false;
    trigger(window, "mBenutzerhandbuch");
    EXPECT_THAT(dialogs.shown.back().lines.at(0), HasSubstr("no program to show"));
}

TEST_F(SettingsWindows, an_opened_case_asks_before_it_changes_a_setting) {
    english();
    store.files["/c.json"] = {{"Gravi_merker1_db", 2.0}};
    store.files["/d.json"] = {{"Windgeschwindigkeit_db", 1.0}};
    chooser.paths = {"/c.json", "/c.json", "/d.json"};
    dialogs.answers = {Answer::No, Answer::Yes};
    trigger(form1(), "open_case");
    EXPECT_EQ(calc_case().Gravi_merker1_db, 1);
    trigger(form1(), "open_case");
    EXPECT_EQ(calc_case().Gravi_merker1_db, 2);
    EXPECT_EQ(read_again().Gravi_merker, 2);
    trigger(form1(), "open_case");  // names no setting, so there is nothing to ask
    EXPECT_EQ(calc_case().Gravi_merker1_db, 2);
    EXPECT_THAT(dialogs.shown, SizeIs(2));
    trigger(form1(), "new_case");
    EXPECT_EQ(calc_case().Gravi_merker1_db, 2);
}

TEST_F(SettingsWindows, an_error_out_of_a_handler_is_told_and_the_program_goes_on) {
    english();
    auto& application = dynamic_cast<Application&>(*QApplication::instance());
    application.tell_errors_by(&state->errors);
    auto& button = in<QPushButton>(*form_main, "open_Form1");
    QObject::connect(&button, &QPushButton::pressed, &button,
                     [] { throw PlatformError(PlatformFault::PathMissing, "/x"); });
    press(button, Qt::Key_Space);
    application.tell_errors_by(nullptr);
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].lines.at(0), "Error 76 in form_main.open_Form1");
}

TEST_F(SettingsWindows, no_letter_opens_two_entries_of_a_menu) {
    for (const LangId lang : {LangId::German, LangId::English}) {
        open({}, lang, DecimalSeparator::Point);
        for (QWidget* window : windows()) {
            QList<QWidget*> menus = {window->findChild<QMenuBar*>()};
            for (QMenu* menu : window->findChildren<QMenu*>()) menus.append(menu);
            for (const QWidget* menu : menus) {
                std::set<QString> letters;
                for (const QAction* action : menu->actions()) {
                    const QString keys = QKeySequence::mnemonic(action->text()).toString();
                    EXPECT_TRUE(keys.isEmpty() || letters.insert(keys).second)
                        << action->text().toStdString();
                }
            }
        }
    }
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
