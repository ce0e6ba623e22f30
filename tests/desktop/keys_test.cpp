#include "desktop/desktop_fixture.h"
#include "workflow/run/page_change.h"

namespace zel {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

using Keys = DesktopTest;

TEST_F(Keys, only_those_of_a_number_type) {
    open({}, LangId::German, DecimalSeparator::Comma);
    type("Text19", "a-1e2 x,+5%");
    EXPECT_EQ(typed_in("Text19"), "-12,5");
    EXPECT_EQ(calc_case().Umgebungstemperatur_db, (Entry{"-12,5", -12.5}));
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(Keys, other_separator_is_dropped_with_its_box) {
    open({}, LangId::German, DecimalSeparator::Comma);
    type("Text11", "1.5");
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].title, "Unzulässige Eingabe!");
    EXPECT_EQ(typed_in("Text11"), "15");
    open();
    type("Text11", "1,5");
    ASSERT_THAT(dialogs.shown, SizeIs(2));
    EXPECT_EQ(dialogs.shown[1].title, "Input inadmissible!");
}

TEST_F(Keys, every_numeric_box_is_filtered_and_no_free_text_is) {
    CalcCase c;
    c.rechnung_cigre601_merker_db = 1;
    open(c);
    for (const forms::Section& section : forms::line_sections()) {
        go_to(section.page);
        for (const forms::Row& row : section.rows) {
            if (row.is_list()) continue;
            auto& box = control(row.control);
            box.clear();
            press(box, Qt::Key_A, "a");
            const bool free = row.is_free_text();
            EXPECT_EQ(box.text().toStdString(), free ? "a" : "") << row.control;
            box.clear();
        }
    }
}

TEST_F(Keys, editing_keys_keep_working) {
    open();
    auto& box = control("Text11");
    box.setFocus();
    for (const QChar letter : qt("123")) press(box, 0, letter);
    press(box, Qt::Key_Backspace, "\b");
    EXPECT_EQ(box.text().toStdString(), "12");
    press(box, Qt::Key_Home);
    press(box, Qt::Key_Delete, "\x7F");
    EXPECT_EQ(box.text().toStdString(), "2");
    press(box, Qt::Key_Z, "\x1A", Qt::ControlModifier);
    EXPECT_EQ(box.text().toStdString(), "12");
    press(box, Qt::Key_A, "\x01", Qt::ControlModifier);
    press(box, Qt::Key_X, "\x18", Qt::ControlModifier);
    EXPECT_EQ(box.text().toStdString(), "");
    press(box, Qt::Key_V, "\x16", Qt::ControlModifier);
    EXPECT_EQ(box.text().toStdString(), "12");
}

TEST_F(Keys, finished_text_can_still_be_undone) {
    open();
    type("Text11", "12");
    auto& box = control("Text11");
    box.setFocus();
    press(box, Qt::Key_Z, "\x1A", Qt::ControlModifier);
    EXPECT_EQ(box.text().toStdString(), "");
    press(box, Qt::Key_Tab);
    EXPECT_FALSE(calc_case().Windgeschwindigkeit_db.given());
}

TEST_F(Keys, pasted_text_is_judged_when_the_box_is_left) {
    const struct {
        const char* pasted;
        const char* title;  // of the box; empty where the text is taken
        double value;
    } rows[] = {
        {"12\r\n", "", 12},
        {" 12 ", "", 12},
        {"1e1", "", 10},
        {"79,9", "", 79.9},
        {"abc", "Incorrect input data", 79.9},
        {"-", "Incorrect input data", 79.9},
        {"1.5", "Incorrect input data", 79.9},
        {"80,1", "Incorrect input data", 79.9},
    };
    open({}, LangId::English, DecimalSeparator::Comma);
    for (const auto& [pasted, title, value] : rows) {
        dialogs.shown.clear();
        paste("Text11", pasted);
        const bool taken = *title == '\0';
        EXPECT_EQ(calc_case().Windgeschwindigkeit_db.value, value) << pasted;
        EXPECT_EQ(calc_case().Windgeschwindigkeit_db.given(), taken) << pasted;
        ASSERT_THAT(dialogs.shown, SizeIs(taken ? 0 : 1)) << pasted;
        if (taken) continue;
        EXPECT_EQ(dialogs.shown[0].title, title) << pasted;
        EXPECT_EQ(typed_in("Text11"), "") << pasted;
        EXPECT_TRUE(control("Text11").hasFocus()) << pasted;
    }
}

TEST_F(Keys, typed_day_and_time_show_the_whole_number_that_counts) {
    open({}, LangId::German, DecimalSeparator::Comma);
    for (const char* box : {"Text30", "Text29", "Text28", "Text15"}) {
        type(box, "6,5");
        EXPECT_EQ(typed_in(box), "6") << box;
    }
    EXPECT_EQ(calc_case().Stunden_db, (Entry{"6", 6}));
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(Keys, typed_number_beyond_its_limit_is_told_and_emptied) {
    open();
    choose("Combo1", 1);
    type("Text16", "500.1");
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].title, "Incorrect Input");
    EXPECT_EQ(typed_in("Text16"), "");
    EXPECT_TRUE(control("Text16").hasFocus());
}

}  // namespace
}  // namespace zel
