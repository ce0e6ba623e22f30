#include <QAbstractButton>
#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <set>

#include "desktop/desktop.h"
#include "desktop/desktop_fixture.h"
#include "desktop/frame/application.h"
#include "desktop/frame/events.h"
#include "workflow/run/page_change.h"

namespace zel {
namespace {

using testing::HasSubstr;
using testing::SizeIs;

class FormMainTest : public DesktopTest {
protected:
    QAction& action(const char* name) { return *form_main->findChild<QAction*>(name); }
    std::vector<QWidget*> windows() { return {form_main.get(), &form1(), &form_main->ks_form1()}; }
};

TEST_F(FormMainTest, buttons_of_both_areas_have_one_width) {
    open();
    EXPECT_EQ(form_main->findChild<QAbstractButton*>("open_Form1")->width(),
              form_main->findChild<QAbstractButton*>("open_KS_Form1")->width());
}

TEST_F(FormMainTest, form1_opens_whole_on_the_screen) {
    open();
    state->settings.change(&ProgramSettings::Vollbildmodus, 2);
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

TEST_F(FormMainTest, yes_ends_the_program_after_one_question) {
    open();
    dialogs.answers = {Answer::Yes};
    QTimer::singleShot(0, form_main.get(), [this] { action("mBeenden").trigger(); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_FALSE(form_main->isVisible());
    EXPECT_FALSE(form1().isVisible());
}

TEST_F(FormMainTest, undefined_mode_ends_the_program) {
    CalcCase c = twin_264_34_at(600);
    c.Leitertemp_Merker_db = true;
    c.Leitertemp_db = typed(80);
    open(c);
    QTimer::singleShot(0, &pages(), [this] { pages().setCurrentIndex(result_page); });
    EXPECT_EQ(Application::exec(), Application::program_ended);
    EXPECT_THAT(dialogs.shown, SizeIs(1));
}

TEST_F(FormMainTest, an_error_of_an_event_is_told_where_it_came_up_and_does_not_leave_the_slot) {
    open();
    auto& application = dynamic_cast<Application&>(*QApplication::instance());
    application.tell_errors_by(&state->errors);
    const auto fail = [] { throw PlatformError(PlatformFault::PathMissing, "/x"); };
    auto& button = *form_main->findChild<QPushButton*>("open_Form1");
    on(&button, &QPushButton::pressed, fail);
    emit button.pressed();  // not by an event, which has a guard of its own
    on(&action("mBeenden"), &QAction::changed, fail);
    emit action("mBeenden").changed();
    later(control("Text11"), fail);
    QApplication::processEvents();
    application.tell_errors_by(nullptr);
    ASSERT_THAT(dialogs.shown, SizeIs(3));
    EXPECT_EQ(dialogs.shown[0].lines.at(0), "Error 76 in form_main.open_Form1");
    EXPECT_EQ(dialogs.shown[1].lines.at(0), "Error 76 in form_main.mBeenden");
    EXPECT_EQ(dialogs.shown[2].lines.at(0), "Error 76 in Form1.Text11");
}

TEST_F(FormMainTest, no_letter_opens_two_entries_of_a_menu) {
    for (const LangId lang : {LangId::German, LangId::English}) {
        open({}, lang, DecimalSeparator::Point);
        for (QWidget* form : windows()) {
            QList<QWidget*> menus = {form->findChild<QMenuBar*>()};
            for (QMenu* menu : form->findChildren<QMenu*>()) menus.append(menu);
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

TEST(RunDesktop, without_a_display_says_so_and_fails) {
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        qunsetenv(variable);
    int argc = 0;
    MemoryCaseStore store;
    MemorySettings shared, user;
    Settings settings(shared, user, "/data");
    testing::internal::CaptureStderr();
    MemoryWorkbookStore workbooks;
    MemoryTableStore tables;
    MemoryFiles files;
    ScriptedPrinters printers;
    ScriptedPorts sensor_ports;
    const ScriptedClock clock;
    const DesktopPlatform platform = {store,    workbooks, tables, sensor_ports, clock,
                                      settings, {},        {},     {},           {},
                                      files,    printers,  {}};
    EXPECT_EQ(run_desktop(argc, nullptr, {}, platform), 1);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("display"));
}

}  // namespace
}  // namespace zel
