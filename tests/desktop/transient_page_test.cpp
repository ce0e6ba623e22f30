#include <QAction>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QToolButton>

#include "desktop/desktop_fixture.h"
#include "fakes/typed_rows.h"
#include "persistence/case_file.h"
#include "workflow/run/page_change.h"
#include "workflow/run/transient.h"

namespace zel {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class TransientPageTest : public DesktopTest {
protected:
    /// Opens the form on its transient page.
    void open_page(const CalcCase& c, LangId lang = LangId::English,
                   DecimalSeparator separator = DecimalSeparator::Point) {
        open(c, lang, separator);
        go_to(result_page);
        go_to(transient_page);
        ASSERT_EQ(pages().currentIndex(), transient_page);
    }
    void choose_kind(int row, int kind) {
        control<QRadioButton>(QString("Z%1_merker_db(%2)").arg(row).arg(kind).toUtf8().constData())
            .click();
        QApplication::processEvents();
    }
    void calculate() {
        control<QPushButton>("calculate_transient").click();
        QApplication::processEvents();
    }
    bool is_open(const char* cell) { return control(cell).isEnabled(); }
    /// What the same case gives without windows.
    TransientRunResult headless(CalcCase c) {
        ScriptedDialogs none;
        MethodMemory memory;
        const Session session = {state->session, RunMode::Messages, none, &memory};
        const SteadyRunResult steady = RunSteady(c, session);
        TransientBasis basis;
        take_over(basis, steady, c);
        TransientRunResult result;
        RunTransient(c, basis, session, {}, result);
        return result;
    }
};

TEST_F(TransientPageTest, kind_opens_the_cells_of_what_is_given) {
    open_page(bundle_with_rows({}));
    const std::array<std::array<bool, 4>, 3> open_cells = {
        {{false, true, true, true}, {true, false, true, true}, {true, true, false, false}}};
    const char* const cells[] = {"Text33(0)", "Text33(1)", "Text33(2)", "Text33(3)"};
    for (const char* cell : cells) EXPECT_FALSE(is_open(cell)) << cell;
    for (int kind = 1; kind <= 3; ++kind) {
        choose_kind(2, kind);
        EXPECT_EQ(calc_case().Z[1].merker, kind);
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_EQ(is_open(cells[i]), open_cells[static_cast<std::size_t>(kind - 1)][i]);
    }
    type("Text33(0)", "800");
    control<QToolButton>("off(1)").click();
    EXPECT_EQ(calc_case().Z[1].merker, row_unused);
    for (const char* cell : cells) EXPECT_FALSE(is_open(cell)) << cell;
    choose_kind(2, seeks_time);  // what was typed is still there
    EXPECT_EQ(typed_in("Text33(0)"), "800");
}

TEST_F(TransientPageTest, typed_rows_give_what_the_run_without_windows_gives) {
    open_page(bundle_with_rows({}), LangId::German, DecimalSeparator::Comma);
    choose_kind(1, seeks_temperature);
    type("Text32(0)", "1600");
    type("Text32(2)", "10");
    choose_kind(2, seeks_time);
    type("Text33(0)", "1000");
    type("Text33(1)", "85,5");
    choose_kind(3, seeks_current);
    type("Text34(1)", "90");
    type("Text34(2)", "5");
    type("Text34(3)", "30");
    calculate();
    EXPECT_THAT(dialogs.shown, IsEmpty());
    const TransientRunResult result =
        headless(bundle_with_rows({typed_temperature_row(1600, 10, 0), typed_time_row(1000, 85.5),
                                   typed_current_row(90, 5, 30)}));
    ASSERT_EQ(result.end, TransientEnd::Completed);
    EXPECT_EQ(typed_in("Text32(1)"), result.texts[0].Temp);
    EXPECT_EQ(typed_in("Text33(2)"), result.texts[1].Min);
    EXPECT_EQ(typed_in("Text33(3)"), result.texts[1].Sec);
    EXPECT_EQ(typed_in("Text34(0)"), result.texts[2].Strom);
    for (std::size_t row = 0; row < 3; ++row) {
        EXPECT_THAT(result.texts[row].total, HasSubstr("t 0-"));
        EXPECT_EQ(shown(("total(" + std::to_string(row) + ")").c_str()), result.texts[row].total);
    }
    EXPECT_EQ(shown("total(3)"), "");
    EXPECT_FALSE(control<QLabel>("stale_notice").isVisible());
    EXPECT_EQ(calc_case().Z[2].Strom.text, result.texts[2].Strom);
    EXPECT_DOUBLE_EQ(calc_case().Z[2].Strom.value, std::stod(result.texts[2].Strom) / 2);
}

TEST_F(TransientPageTest, can_be_typed_by_keys_alone) {
    open(bundle_with_rows({}));
    const auto here = [] { return QApplication::focusWidget()->objectName().toStdString(); };
    const auto key = [&](int code, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) {
        press(*QApplication::focusWidget(), code, text, modifiers);
        QKeyEvent up(QEvent::KeyRelease, code, modifiers, text);
        QApplication::sendEvent(QApplication::focusWidget(), &up);
        QApplication::processEvents();
    };
    const auto number = [&](const char* digits) {
        for (const char* digit = digits; *digit != '\0'; ++digit) key(0, QString(QChar(*digit)));
        key(Qt::Key_Return, "\r");
    };
    for (int page = input_page; page < transient_page; ++page)
        key(Qt::Key_Tab, {}, Qt::ControlModifier);
    ASSERT_EQ(here(), "Z1_merker_db(1)");
    key(Qt::Key_Right);
    key(Qt::Key_Space, " ");  // the temperature is sought
    key(Qt::Key_Return, "\r");
    ASSERT_EQ(here(), "Text32(0)");
    number("1600");
    ASSERT_EQ(here(), "Text32(2)");
    number("10");
    number("30");
    ASSERT_EQ(here(), "Z2_merker_db(1)");
    key(Qt::Key_Space, " ");  // the current is sought
    key(Qt::Key_Return, "\r");
    ASSERT_EQ(here(), "Text33(1)");
    number("70");
    number("20");
    number("");
    for (int row = 3; row <= 6; ++row) {
        ASSERT_EQ(here(), "Z" + std::to_string(row) + "_merker_db(1)");
        key(Qt::Key_Return, "\r");
    }
    ASSERT_EQ(here(), "calculate_transient");
    key(Qt::Key_Space, " ");
    EXPECT_THAT(dialogs.shown, IsEmpty());
    StateChange second = typed_current_row(70, 20, 0);
    second.sec = {};
    const TransientRunResult result =
        headless(bundle_with_rows({typed_temperature_row(1600, 10, 30), second}));
    EXPECT_EQ(typed_in("Text32(1)"), result.texts[0].Temp);
    EXPECT_EQ(typed_in("Text33(0)"), result.texts[1].Strom);
    EXPECT_EQ(shown("total(1)"), "t 0-2 = 30 min 30 sec");
}

TEST_F(TransientPageTest, start_is_the_state_of_the_last_run) {
    open_page(bundle_with_rows({}));
    EXPECT_EQ(shown("start_current"), control<QLabel>("result_TB207").text().toStdString());
    EXPECT_EQ(shown("start_temperature"), "80.0 °C");
    EXPECT_EQ(shown("transient_method"), "Cigre TB 207");
}

TEST_F(TransientPageTest, tb601_follows_the_rows_where_it_alone_is_selected) {
    CalcCase c = with_masses(line_264_34());
    c.Z[0] = typed_temperature_row(1600, 10, 0);
    open_page(c);
    EXPECT_EQ(shown("transient_method"), "Cigre TB 601");
    calculate();
    EXPECT_EQ(typed_in("Text32(1)"), headless(c).texts[0].Temp);
    const std::string first = typed_in("Text32(1)");
    calculate();  // starts from the steady state again, and not from where the first run ended
    EXPECT_EQ(typed_in("Text32(1)"), first);
}

TEST_F(TransientPageTest, start_of_a_former_run_says_so) {
    open_page(bundle_with_rows({}));
    auto& notice = control<QLabel>("former_start_notice");
    const std::string start = shown("start_current");
    EXPECT_FALSE(notice.isVisible());
    go_to(input_page);
    type("Text19", "90");  // warmer than the conductor may get: no current is found
    go_to(transient_page);
    EXPECT_TRUE(notice.isVisible());
    EXPECT_EQ(shown("start_current"), start);
    go_to(input_page);
    type("Text19", "35");
    go_to(transient_page);
    EXPECT_FALSE(notice.isVisible());
}

TEST_F(TransientPageTest, number_beyond_the_limit_is_told_emptied_and_keeps_the_focus) {
    open_page(bundle_with_rows({typed_temperature_row(1600, 10, 0)}));
    type("Text32(3)", "59.5", Qt::Key_Return);
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].lines.front(), "Maximum input value for seconds");
    EXPECT_EQ(typed_in("Text32(3)"), "");
    EXPECT_TRUE(control("Text32(3)").hasFocus());
    type("Text32(3)", "59.4");
    EXPECT_THAT(dialogs.shown, SizeIs(1));
}

TEST_F(TransientPageTest, keys_are_filtered) {
    open_page(bundle_with_rows({typed_temperature_row(1600, 10, 0)}));
    type("Text32(0)", "1a2x");
    EXPECT_EQ(typed_in("Text32(0)"), "12");
    type("Text32(0)", "1,5");
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].title, "Input inadmissible!");
}

TEST_F(TransientPageTest, refused_page_moves_the_focus_to_what_lacks) {
    open_page(bundle_with_rows({}));
    calculate();
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].lines.front(), "There is not input for the change-of-state 1. ");
    EXPECT_TRUE(control<QRadioButton>("Z1_merker_db(1)").hasFocus());
    choose_kind(1, seeks_temperature);
    type("Text32(0)", "1600");
    calculate();
    EXPECT_EQ(dialogs.shown.back().lines[1], "Period ( min/ sec) ");
    EXPECT_TRUE(control("Text32(2)").hasFocus());
    choose_kind(3, seeks_time);
    type("Text32(2)", "5");
    calculate();
    EXPECT_EQ(dialogs.shown.back().lines[1], "change-of-state 2 but for change-of-state 3. ");
    EXPECT_TRUE(control<QRadioButton>("Z2_merker_db(1)").hasFocus());
    EXPECT_EQ(state->transient.result(), nullptr);
}

TEST_F(TransientPageTest, failed_row_leaves_those_before_it) {
    // The conductor heats up, and the target of row 2 is below.
    open_page(bundle_with_rows({typed_temperature_row(1600, 10, 0), typed_time_row(1700, 20),
                                typed_temperature_row(1600, 10, 0)}));
    calculate();
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].title, "TS_S01_CigreTB207_temp_strom_transient_state");
    EXPECT_NE(typed_in("Text32(1)"), "");
    EXPECT_THAT(shown("total(0)"), HasSubstr("t 0-1 = 10 min 0 sec"));
    for (const char* cell : {"Text33(2)", "Text33(3)", "Text34(1)"}) EXPECT_EQ(typed_in(cell), "");
    EXPECT_EQ(shown("total(1)"), "");
    EXPECT_EQ(shown("total(2)"), "");
}

TEST_F(TransientPageTest, changed_input_makes_the_result_stale_until_it_is_changed_back) {
    open_page(bundle_with_rows({typed_temperature_row(1600, 10, 0)}));
    calculate();
    auto& notice = control<QLabel>("stale_notice");
    type("Text32(2)", "11");
    EXPECT_TRUE(notice.isVisible());
    EXPECT_EQ(notice.text().toStdString(), "The viewed change-of-state are no longer valid.");
    type("Text32(2)", "10");
    EXPECT_FALSE(notice.isVisible());
    go_to(input_page);
    type("Text11", "2");
    go_to(transient_page);
    EXPECT_TRUE(notice.isVisible());
    calculate();
    EXPECT_FALSE(notice.isVisible());
}

TEST_F(TransientPageTest, is_entered_with_the_steady_state_of_the_present_inputs) {
    open_page(bundle_with_rows({typed_temperature_row(1600, 10, 0)}));
    const std::string former = shown("start_current");
    go_to(input_page);
    type("Text11", "2");
    go_to(transient_page);
    EXPECT_EQ(pages().currentIndex(), transient_page);
    EXPECT_NE(shown("start_current"), former);
    EXPECT_EQ(shown("start_current"), control<QLabel>("result_TB207").text().toStdString());
    // A refused input keeps the page, and the former start.
    const std::string present = shown("start_current");
    go_to(input_page);
    type("Text11", "");
    go_to(transient_page);
    EXPECT_EQ(pages().currentIndex(), input_page);
    EXPECT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(shown("start_current"), present);
}

TEST_F(TransientPageTest, stale_result_is_copied_only_after_a_new_calculation) {
    open_page(bundle_with_rows({typed_temperature_row(1600, 10, 0)}));
    auto& copy = *form1().findChild<QAction*>("copy_result");
    EXPECT_FALSE(copy.isEnabled());
    calculate();
    ASSERT_TRUE(copy.isEnabled());
    copy.trigger();
    const QString first = QApplication::clipboard()->text();
    EXPECT_THAT(first.toStdString(), HasSubstr("1st change-of-state"));
    EXPECT_THAT(dialogs.shown, IsEmpty());
    type("Text32(2)", "11");
    dialogs.answers = {Answer::No, Answer::Yes};
    copy.trigger();
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].title, "change-of-state are no longer valid");
    EXPECT_EQ(QApplication::clipboard()->text(), first);
    EXPECT_TRUE(control<QLabel>("stale_notice").isVisible());
    copy.trigger();
    EXPECT_THAT(QApplication::clipboard()->text().toStdString(), HasSubstr("11 min 0 sec"));
    EXPECT_FALSE(control<QLabel>("stale_notice").isVisible());
}

TEST_F(TransientPageTest, another_number_of_sub_conductors_keeps_the_typed_current) {
    open_page(bundle_with_rows({typed_temperature_row(1600, 10, 0)}));
    go_to(input_page);
    choose("Combo3", 3);
    EXPECT_EQ(calc_case().Z[0].Strom, (Entry{"1600", 400}));
    go_to(transient_page);
    EXPECT_EQ(typed_in("Text32(0)"), "1600");
}

TEST_F(TransientPageTest, language_switch_keeps_what_is_shown) {
    open_page(bundle_with_rows({typed_temperature_row(1600, 10, 0)}));
    calculate();
    const std::string found = typed_in("Text32(1)");
    form1().findChild<QAction*>("m_userinterface_german")->trigger();
    EXPECT_EQ(typed_in("Text32(1)"), found);
    EXPECT_EQ(control<QRadioButton>("Z1_merker_db(2)").text(), "Temperatur");
    EXPECT_FALSE(control<QLabel>("stale_notice").isVisible());
}

TEST_F(TransientPageTest, cancelled_run_leaves_all_as_it_was) {
    open(bundle_with_rows({typed_temperature_row(1600, 10, 0), typed_current_row(150, 60, 0)}));
    state->patience_ms = 0;
    go_to(result_page);
    go_to(transient_page);
    /// Cancels as soon as there is a progress window, which keeps input from all others.
    class User : public QObject {
    public:
        bool blocked = false;

    private:
        bool eventFilter(QObject* shown, QEvent* event) override {
            if (event->type() != QEvent::Show || shown->objectName() != "run_progress")
                return false;
            blocked = static_cast<QWidget*>(shown)->isModal();
            shown->findChild<QPushButton*>()->click();
            return false;
        }
    } user;
    qApp->installEventFilter(&user);
    const CalcCase before = calc_case();
    calculate();
    EXPECT_TRUE(user.blocked);
    EXPECT_EQ(calc_case(), before);
    EXPECT_EQ(state->transient.result(), nullptr);
    EXPECT_EQ(typed_in("Text32(1)"), "");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(TransientPageTest, rows_live_in_the_file_of_the_case) {
    open_page(bundle_with_rows({}));
    choose_kind(1, seeks_temperature);
    type("Text32(0)", "1600");
    type("Text32(2)", "10");
    EXPECT_TRUE(form1().isWindowModified());
    chooser.paths = {"/cases/t.json"};
    form1().findChild<QAction*>("save_case")->trigger();
    EXPECT_FALSE(form1().isWindowModified());
    const FlatObject& saved = store.files.at("/cases/t.json");
    EXPECT_THAT(saved, testing::Contains(FlatMember{"Z1_Strom_db", 800.0}));
    calculate();  // what is found is no input
    EXPECT_FALSE(form1().isWindowModified());

    form1().findChild<QAction*>("new_case")->trigger();
    EXPECT_FALSE(pages().isTabEnabled(transient_page));
    EXPECT_EQ(typed_in("Text32(0)"), "");
    EXPECT_EQ(shown("start_current"), "-");
    chooser.paths = {"/cases/t.json"};
    form1().findChild<QAction*>("open_case")->trigger();
    EXPECT_EQ(typed_in("Text32(0)"), "1600");
    EXPECT_EQ(typed_in("Text32(1)"), "");
    EXPECT_EQ(calc_case().Z[0].Strom.value, 800);
}

TEST_F(TransientPageTest, minus_key_on_the_choice_switches_the_row_off) {
    open_page(bundle_with_rows({typed_temperature_row(1600, 10, 0)}));
    press(control<QRadioButton>("Z1_merker_db(2)"), Qt::Key_Minus, "-");
    EXPECT_EQ(calc_case().Z[0].merker, row_unused);
    EXPECT_FALSE(control<QRadioButton>("Z1_merker_db(2)").isChecked());
    EXPECT_TRUE(control<QRadioButton>("Z1_merker_db(1)").hasFocus());
}

}  // namespace
}  // namespace zel
