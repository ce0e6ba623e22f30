#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QToolButton>

#include "desktop/desktop_fixture.h"
#include "fakes/cancelling_user.h"
#include "fakes/transient_cases.h"
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
    /// What the same case gives without windows.
    TransientResult headless(CalcCase c) {
        ScriptedDialogs none;
        MethodMemory memory;
        const Session session = {state->session, RunMode::Messages, none, &memory};
        const SteadyRunResult steady = RunSteady(c, session);
        TransientBasis basis;
        take_over(basis, steady, c);
        TransientResult result;
        RunTransient(c, basis, session, {}, result);
        return result;
    }
};

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
    const TransientResult result =
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
    const TransientResult result =
        headless(bundle_with_rows({typed_temperature_row(1600, 10, 30), second}));
    EXPECT_EQ(typed_in("Text32(1)"), result.texts[0].Temp);
    EXPECT_EQ(typed_in("Text33(0)"), result.texts[1].Strom);
    EXPECT_EQ(shown("total(1)"), "t 0-2 = 30 min 30 sec");
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

TEST_F(TransientPageTest, what_a_run_tells_in_a_box_stays_beside_the_tabs) {
    open_page(bundle_with_rows({typed_time_row(1000, 300)}));
    calculate();
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    const auto& bar = control<QWidget>("message_bar");
    EXPECT_TRUE(bar.isVisible());
    EXPECT_THAT(bar.findChild<QLabel*>("message(bar)")->accessibleName().toStdString(),
                HasSubstr("do not converge"));
    go_to(input_page);
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(TransientPageTest, cancelled_run_leaves_all_as_it_was) {
    patience_ms = 0;
    open(bundle_with_rows({typed_temperature_row(1600, 10, 0), typed_current_row(150, 60, 0)}));
    go_to(result_page);
    go_to(transient_page);
    CancellingUser user;
    const CalcCase before = calc_case();
    calculate();
    EXPECT_TRUE(user.blocked);
    EXPECT_EQ(calc_case(), before);
    EXPECT_EQ(state->transient.result(), nullptr);
    EXPECT_EQ(typed_in("Text32(1)"), "");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

}  // namespace
}  // namespace zel
