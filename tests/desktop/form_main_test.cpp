#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QKeySequence>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include "desktop/desktop.h"
#include "desktop/desktop_fixture.h"
#include "fakes/memory_workbook.h"
#include "fakes/steady_cases.h"
#include "persistence/exchange_record.h"
#include "workflow/run/page_change.h"

namespace zel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class FormMainTest : public DesktopTest {
protected:
    QAction& action(QWidget& window, const char* name) {
        auto* found = window.findChild<QAction*>(name);
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    void expect_language(bool german) {
        const char* name = german ? "VOR V.8.2" : "ZEL V.8.2";
        EXPECT_EQ(form_main->windowTitle().toStdString(), name);
        EXPECT_THAT(form1().windowTitle().toStdString(), HasSubstr(name));
        EXPECT_EQ(action(*form_main, "mBeenden").text().toStdString(),
                  german ? "&Beenden" : "E&xit");
        EXPECT_EQ(pages().tabText(input_page).toStdString(),
                  german ? "&Eingabedaten" : "&Input data");
        EXPECT_EQ(QKeySequence("Ctrl+Q").toString(QKeySequence::NativeText).toStdString(),
                  german ? "Strg+Q" : "Ctrl+Q");
        for (QWidget* window :
             {static_cast<QWidget*>(form_main.get()), static_cast<QWidget*>(&form1())}) {
            EXPECT_EQ(action(*window, "m_userinterface_german").isChecked(), german);
            EXPECT_EQ(action(*window, "m_userinterface_english").isChecked(), !german);
        }
        for (QLabel* label : form1().findChildren<QLabel*>())
            if (label->buddy() == &control("Text11")) {
                EXPECT_EQ(label->text().toStdString(),
                          german ? "Windgeschwindigkeit :" : "Wind speed :");
            }
    }
};

TEST_F(FormMainTest, language_switch_changes_both_windows_at_once) {
    open(twin_264_34());
    expect_language(false);
    action(*form_main, "m_userinterface_german").trigger();
    expect_language(true);
    EXPECT_EQ(control<QComboBox>("Combo3").currentText().toStdString(), "Doppel-Leiter");
    EXPECT_EQ(calc_case(), twin_264_34());
    action(form1(), "m_userinterface_english").trigger();
    expect_language(false);
    action(form1(), "m_userinterface_english").trigger();  // chosen again, the mark stays
    expect_language(false);
}

TEST_F(FormMainTest, buttons_of_both_areas_have_one_width) {
    open();
    EXPECT_EQ(form_main->findChild<QAbstractButton*>("open_Form1")->width(),
              form_main->findChild<QAbstractButton*>("open_KS_Form1")->width());
}

TEST_F(FormMainTest, form1_opens_whole_on_the_screen) {
    open();
    state->change(&ProgramSettings::Vollbildmodus, 2);
    const QRect room = form_main->screen()->availableGeometry();
    for (const QPoint corner : {room.topLeft(), room.center(), room.bottomRight()}) {
        form1().close();
        form1().resize(1260, 2000);
        form_main->move(corner);
        form_main->findChild<QAbstractButton*>("open_Form1")->click();
        QApplication::processEvents();
        EXPECT_TRUE(room.contains(form1().frameGeometry().topLeft()));
        EXPECT_LE(form1().width(), std::max(room.width(), form1().minimumSizeHint().width()));
        EXPECT_LE(form1().frameGeometry().bottom(), room.bottom());
    }
}

TEST_F(FormMainTest, shown_result_is_told_in_the_new_language) {
    open(twin_264_34());
    go_to(result_page);
    action(form1(), "m_userinterface_german").trigger();
    EXPECT_EQ(shown("caption_TB207"), "Doppel-Leiter nach Cigre TB 207 :");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(FormMainTest, shown_result_is_told_anew_but_not_computed_anew) {
    CalcCase c = sunny_264_34();
    c.rechnung_cigre207_merker_db = 0;
    c.rechnung_webs_merker_db = 1;
    c.Winkel_S_S_db = typed(0);
    c.Windgeschwindigkeit_db = typed(0.15);
    open(c);
    dialogs.answers = {Answer::No};  // go on with the low wind as it is
    go_to(result_page);
    const std::string with_low_wind = shown("result_Webs");
    action(form1(), "m_userinterface_german").trigger();
    EXPECT_EQ(shown("caption_Webs"), "Doppel-Leiter nach Webs :");
    EXPECT_EQ(shown("result_Webs"), with_low_wind);
    EXPECT_THAT(dialogs.shown, SizeIs(1));
}

TEST_F(FormMainTest, opens_the_short_circuit_area_which_keeps_a_lower_number_after_a_switch) {
    open();
    auto& button = *form_main->findChild<QPushButton*>("open_KS_Form1");
    EXPECT_FALSE(form_main->ks_form1().isVisible());
    button.click();
    EXPECT_TRUE(form_main->ks_form1().isVisible());
    EXPECT_EQ(
        button.text().toStdString(),
        "Short-circuit current - Thermal effect on bare conductors and equipment\n(JOL V.3.0)");
    action(form_main->ks_form1(), "m_userinterface_german").trigger();
    EXPECT_EQ(button.text().toStdString(),
              "Thermische Kurzschlußfestigkeit nach IEC 865-1\n(QUV V.2.0)");
    EXPECT_THAT(form_main->ks_form1().windowTitle().toStdString(), HasSubstr("QUV V.2.0"));
    action(*form_main, "m_userinterface_english").trigger();
    EXPECT_THAT(form_main->ks_form1().windowTitle().toStdString(), HasSubstr("JOL V.2.0"));
}

TEST_F(FormMainTest, end_asks_for_changes_of_the_short_circuit_case_too) {
    open();
    auto& form = form_main->ks_form1();
    form.show();
    form.activateWindow();
    form.findChild<QLineEdit*>("Text3")->setText("50");
    dialogs.answers = {Answer::No};
    EXPECT_FALSE(form_main->close());
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_THAT(dialogs.shown[0].lines.at(0), HasSubstr("changed and is not saved"));
}

TEST_F(FormMainTest, return_opens_the_area_that_has_the_focus) {
    open();
    auto& button = *form_main->findChild<QPushButton*>("open_KS_Form1");
    press(button, Qt::Key_Return);
    EXPECT_TRUE(form_main->ks_form1().isVisible());
}

TEST_F(FormMainTest, short_circuit_area_follows_the_separator) {
    open();
    KsForm1& form = form_main->ks_form1();
    form.show();
    const auto choose = [&](const char* name, int index) {
        auto& list = *form.findChild<QComboBox*>(name);
        list.setCurrentIndex(index);
        emit list.activated(index);
    };
    choose("Combo1", 2);
    choose("Combo5", 2);
    for (const auto& [box, text] :
         {std::pair("Text3", "50"), std::pair("Text15", "16.5"), std::pair("Text16", "3"),
          std::pair("Text6", "1"), std::pair("Text7", "25")})
        form.findChild<QLineEdit*>(box)->setText(text);
    form.findChild<QTabWidget*>("SSTab1")->setCurrentIndex(2);
    const auto shown_current = [&] {
        return form.findChild<QLabel*>("value_0_1")->text().toStdString();
    };
    EXPECT_EQ(shown_current(), "14.43");
    state->change(&ProgramSettings::Punkt_Komma_Format_merker,
                  static_cast<std::int16_t>(DecimalSeparator::Comma));
    EXPECT_EQ(form.findChild<QLineEdit*>("Text15")->text().toStdString(), "16,5");
    EXPECT_EQ(shown_current(), "14,43");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(FormMainTest, short_circuit_area_starts_the_conductor_database) {
    open();
    auto& button = *form_main->ks_form1().findChild<QPushButton*>("Command3");
    settings.set(&ProgramSettings::Seildatenbanknamepluspfad, "/opt/rmox");
    button.click();
    EXPECT_THAT(launcher.started, ElementsAre("/opt/rmox"));
    launcher.works = false;
    button.click();
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].title, " Fehler bei Programmstart...");
    EXPECT_EQ(dialogs.shown[0].icon, Icon::Stop);
    EXPECT_THAT(dialogs.shown[0].lines,
                ElementsAre("Für das Seildatenbank-Programm wurde bisher kein Pfad festgelegt.",
                            "Sie müssen zunächst einen Pfad im Menü festlegen !",
                            " oder :", "Unter dem festgelegten Pfad befindet sich ",
                            "kein entsprechendes Programm mehr.",
                            "Legen Sie bitte den Pfad neu fest !"));
}

TEST_F(FormMainTest, short_circuit_area_takes_over_the_exchanged_conductor) {
    open();
    settings.set(&ProgramSettings::Einseil1_dat, "/r/einseil1.dat");
    KsForm1& form = form_main->ks_form1();
    auto& button = *form.findChild<QPushButton*>("Command4");
    button.click();
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].title, "Conductor data not selected !");
    ConductorData tube;  // of any kind
    tube.conductor_type_db = tubular_busbar;
    tube.Bezeichnung1_db = "TUBE 120x8";
    tube.Mantelquerschnitt_db = {"2814.9", 2814.9};
    tube.c_leiter20_db = {"897", 897};
    tube.DC_Resist_Leiter_db = {"33.333", 33.333};
    tube.T_Koeff_DC_Resist_Leiter_linear_db = {"3.6", 3.6};
    tube.Dichte_Leiterwerkstoff1_db = {"2703", 2703};
    disk.files["/r/einseil1.dat"] = written_record(tube);
    button.click();
    EXPECT_THAT(dialogs.shown, SizeIs(1));
    // The record holds 2814.9 in 32 bits, and the mask of the box has four digits behind the point.
    for (const auto& [box, text] :
         {std::pair("Text5", "2814.8999"), std::pair("Text8", "897"), std::pair("Text9", "30.0"),
          std::pair("Text10", "0.0036"), std::pair("Text12", "2703")})
        EXPECT_EQ(form.findChild<QLineEdit*>(box)->text().toStdString(), text);
    EXPECT_EQ(form.findChild<QLabel*>("werkstoff_ks")->text().toStdString(), "TUBE 120x8");
}

TEST_F(FormMainTest, both_ways_out_ask_and_no_keeps_the_program) {
    open({}, LangId::German, DecimalSeparator::Comma);
    dialogs.answers = {Answer::No, Answer::No};
    action(*form_main, "mBeenden").trigger();
    EXPECT_FALSE(form_main->close());
    ASSERT_THAT(dialogs.shown, SizeIs(2));
    for (const Box& box : dialogs.shown) {
        EXPECT_EQ(box.lines.at(0), "Wollen Sie das Programm wirklich abbrechen bzw. beenden? ");
        EXPECT_EQ(box.icon, Icon::Question);
    }
    EXPECT_TRUE(form_main->isVisible());
    EXPECT_TRUE(form1().isVisible());
}

TEST_F(FormMainTest, yes_ends_the_program_after_one_question) {
    open();
    dialogs.answers = {Answer::Yes};
    QTimer::singleShot(0, form_main.get(), [this] { action(*form_main, "mBeenden").trigger(); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_FALSE(form_main->isVisible());
    EXPECT_FALSE(form1().isVisible());
}

TEST(RunDesktop, without_a_display_says_so_and_fails) {
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        qunsetenv(variable);
    int argc = 0;
    MemoryCaseStore store;
    MemorySettings shared, user;
    Settings settings(shared, user, "/data");
    testing::internal::CaptureStderr();
    MemoryWorkbookStore workbooks;
    EXPECT_EQ(run_desktop(argc, nullptr, {}, {store, workbooks, settings, {}, {}, {}, {}}), 1);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("display"));
}

}  // namespace
}  // namespace zel
