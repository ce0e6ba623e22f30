#include <QCheckBox>
#include <QTimer>

#include "desktop/desktop_fixture.h"
#include "desktop/frame/application.h"
#include "forms/given_value.h"
#include "workflow/run/page_change.h"

namespace zel {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

using Form1Test = DesktopTest;

TEST_F(Form1Test, conductor_page_is_refused_without_a_method) {
    open();
    go_to(conductor_page);
    EXPECT_EQ(pages().currentIndex(), input_page);
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].title, "Input verification");
    control<QCheckBox>("rechnung_cigre207_merker_db").click();
    go_to(conductor_page);
    EXPECT_EQ(pages().currentIndex(), conductor_page);
    EXPECT_THAT(dialogs.shown, SizeIs(1));
}

TEST_F(Form1Test, refused_text_is_told_emptied_and_keeps_the_focus) {
    for (const int key : {Qt::Key_Tab, Qt::Key_Return}) {
        dialogs.shown.clear();
        open();
        paste("Text11", "abc", key);
        ASSERT_THAT(dialogs.shown, SizeIs(1));
        EXPECT_EQ(dialogs.shown[0].title, "Incorrect input data");
        EXPECT_EQ(typed_in("Text11"), "");
        EXPECT_TRUE(control("Text11").hasFocus());
        EXPECT_FALSE(calc_case().Windgeschwindigkeit_db.given());
    }
}

TEST_F(Form1Test, other_separator_is_no_number) {
    open({}, LangId::German, DecimalSeparator::Comma);
    paste("Text11", "0.6");
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].title, "Fehlerhafte Eingabe");
}

TEST_F(Form1Test, page_with_a_refused_text_is_not_left) {
    open(twin_264_34());
    control("Text11").setFocus();
    control("Text11").setText("abc");
    go_to(result_page);
    EXPECT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(pages().currentIndex(), input_page);
    EXPECT_TRUE(control("Text11").hasFocus());
    type("Text11", "0.6");
    go_to(result_page);
    EXPECT_EQ(pages().currentIndex(), result_page);
    EXPECT_THAT(dialogs.shown, SizeIs(1));
}

TEST_F(Form1Test, text_still_being_typed_counts_for_the_run) {
    open(twin_264_34());
    control("Text16").setFocus();
    control("Text16").setText("60");
    go_to(result_page);
    EXPECT_EQ(calc_case().Leitertemp_db.value, 60);
    EXPECT_THAT(shown("head_line"), testing::HasSubstr("60.0 °C"));
}

TEST_F(Form1Test, every_arrival_at_the_result_page_runs_again) {
    open(twin_264_34());
    go_to(result_page);
    EXPECT_EQ(shown("result_TB207"), "1331 A");
    go_to(input_page);
    choose("Combo3", 2);
    EXPECT_EQ(shown("result_TB207"), "1331 A");
    go_to(result_page);
    EXPECT_EQ(shown("caption_TB207"), "3-conductor-bundle by Cigre TB 207 :");
    EXPECT_NE(shown("result_TB207"), "1331 A");
    calc_case().Anzahl_Teilleiter_db = 2;
    go_to(transient_page);
    go_to(result_page);
    EXPECT_EQ(shown("result_TB207"), "1331 A");
}

TEST_F(Form1Test, refused_input_shows_nothing_new) {
    open(twin_264_34());
    go_to(result_page);
    go_to(input_page);
    type("Text19", "");
    go_to(result_page);
    EXPECT_EQ(pages().currentIndex(), result_page);
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(shown("result_TB207"), "1331 A");
    EXPECT_FALSE(control<QLabel>("result_TB207").isEnabled());  // greyed: of other inputs
    EXPECT_EQ(shown("balance_line"), "");
}

TEST_F(Form1Test, emptied_diameter_is_asked_for_and_not_computed_with) {
    open(twin_264_34());
    go_to(conductor_page);
    type("Seildurchmesser_db", "");
    go_to(result_page);
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_THAT(dialogs.shown[0].lines, testing::Contains("Conductor diameter "));
    EXPECT_FALSE(control<QLabel>("result_TB207").isVisible());
}

TEST_F(Form1Test, transient_page_opens_with_the_first_result) {
    open();
    go_to(result_page);
    EXPECT_FALSE(pages().isTabEnabled(transient_page));
    open(twin_264_34());
    EXPECT_FALSE(pages().isTabEnabled(transient_page));
    go_to(result_page);
    EXPECT_TRUE(pages().isTabEnabled(transient_page));
}

TEST_F(Form1Test, failing_method_shows_error) {
    CalcCase c = twin_264_34();
    c.Windgeschwindigkeit_db = typed(80);
    open(c);
    go_to(result_page);
    EXPECT_EQ(shown("result_TB207"), " Error");
    EXPECT_EQ(shown("balance_line"), "");
}

TEST_F(Form1Test, mode_opens_the_box_that_belongs_to_it) {
    open();
    for (const GivenValueRow& mode : given_value_rows()) {
        choose("Combo1", static_cast<int>(mode.value));
        EXPECT_EQ(given_value(calc_case()), mode.value);
        for (const std::string box : {"Text16", "Text18", "Text39"})
            EXPECT_EQ(control(box.c_str()).isEnabled(), box == mode.control) << box;
    }
}

TEST_F(Form1Test, method_that_the_program_lacks_cannot_be_chosen) {
    open();
    for (const forms::MethodRow& row : forms::method_rows()) {
        const auto& box = control<QCheckBox>(row.control);
        EXPECT_EQ(box.isEnabled(), find_method(row.method) != nullptr) << row.control;
        EXPECT_EQ(box.toolTip().isEmpty(), box.isEnabled());
    }
}

TEST_F(Form1Test, labels_of_inputs_that_are_not_needed_are_greyed) {
    const auto label_of = [this](QWidget* box) {
        for (QLabel* label : form1().findChildren<QLabel*>())
            if (label->buddy() == box) return label;
        return static_cast<QLabel*>(nullptr);
    };
    open();
    EXPECT_TRUE(label_of(&control("Text43"))->isEnabled());
    control<QCheckBox>("rechnung_cigre207_merker_db").click();
    EXPECT_FALSE(label_of(&control("Text43"))->isEnabled());
    EXPECT_TRUE(label_of(&control("Text11"))->isEnabled());
    go_to(conductor_page);
    EXPECT_FALSE(label_of(&control("Text23"))->isEnabled());
    EXPECT_TRUE(label_of(&control("DCR_20_db"))->isEnabled());
}

TEST_F(Form1Test, every_box_brings_its_text_to_the_case) {
    open();
    control<QCheckBox>("rechnung_cigre207_merker_db").click();
    for (const forms::Section& section : forms::line_sections()) {
        go_to(section.page);
        for (const forms::Row& row : section.rows) {
            if (row.is_list()) continue;
            for (const GivenValueRow& mode : given_value_rows())
                if (std::string_view(mode.control) == row.control)
                    choose("Combo1", static_cast<int>(mode.value));
            type(row.control, "12");
            const std::string year = row.field->mask == "0000" ? "00" : "";
            EXPECT_EQ(forms::LineForm(calc_case(), Locale{}).shown(row), year + "12")
                << row.control;
            if (const auto* entry = std::get_if<Entry CalcCase::*>(&key_of<CalcCase>(*row.field))) {
                EXPECT_EQ(calc_case().**entry, (Entry{"12", 12})) << row.control;
            }
        }
    }
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(Form1Test, every_list_brings_its_choice_to_the_case) {
    open();
    for (const forms::Section& section : forms::line_sections())
        for (const forms::Row& row : section.rows) {
            if (!row.is_list()) continue;
            const auto field = std::get<std::int16_t CalcCase::*>(key_of<CalcCase>(*row.field));
            for (std::size_t i = 0; i < row.choices.size(); ++i) {
                choose(row.control, static_cast<int>(i));
                EXPECT_EQ(calc_case().*field, row.choices[i].value) << row.control;
            }
        }
}

TEST_F(Form1Test, shows_the_case_that_it_starts_with) {
    CalcCase c = twin_264_34();
    c.Projekt_db = "Süd";
    open(c, LangId::German, DecimalSeparator::Comma);
    EXPECT_EQ(typed_in("Text4"), "Süd");
    EXPECT_EQ(typed_in("Text16"), "80");
    EXPECT_EQ(control<QComboBox>("Combo3").currentText().toStdString(), "Doppel-Leiter");
    EXPECT_EQ(control<QComboBox>("Combo1").currentIndex(),
              static_cast<int>(GivenValue::Temperature));
    EXPECT_EQ(control<QComboBox>("conductor_type_db").currentIndex(), 2);
    EXPECT_TRUE(control<QCheckBox>("rechnung_cigre207_merker_db").isChecked());
    EXPECT_EQ(typed_in("DrahtzahlLeiter_db"), "24");
}

TEST_F(Form1Test, unknown_kind_shows_as_not_defined) {
    CalcCase c;
    c.conductor_type_db = 7;
    open(c);
    EXPECT_EQ(control<QComboBox>("conductor_type_db").currentText().toStdString(),
              "Conductor type is not defined");
}

TEST_F(Form1Test, tab_and_return_follow_the_chain) {
    open();
    for (const int key : {Qt::Key_Tab, Qt::Key_Return}) {
        type("Text4", "x", key);
        EXPECT_TRUE(control("Text20").hasFocus());
        type("Text26", "1", key);
        EXPECT_TRUE(control("Text30").hasFocus());
        type("Text31", "1", key);
        EXPECT_TRUE(control<QComboBox>("Combo3").hasFocus());
        type("Text19", "1", key);  // the end of a chain: the next row
        EXPECT_TRUE(control("Text36").hasFocus());
    }
    control<QCheckBox>("rechnung_cigre207_merker_db").click();
    go_to(conductor_page);
    type("Text23", "1");
    EXPECT_TRUE(control("Text7").hasFocus());
}

TEST_F(Form1Test, undefined_mode_ends_the_program) {
    CalcCase c = twin_264_34_at(600);
    c.Leitertemp_Merker_db = true;
    c.Leitertemp_db = typed(80);
    open(c);
    QTimer::singleShot(0, &pages(), [this] { pages().setCurrentIndex(result_page); });
    EXPECT_EQ(Application::exec(), Application::program_ended);
    EXPECT_THAT(dialogs.shown, SizeIs(1));
}

TEST_F(Form1Test, closing_hides_the_form_and_keeps_the_case) {
    open(twin_264_34());
    form1().close();
    EXPECT_FALSE(form1().isVisible());
    EXPECT_THAT(dialogs.shown, IsEmpty());
    form_main->findChild<QWidget*>("open_Form1")->setFocus();
    emit form_main->findChild<QAbstractButton*>("open_Form1")->clicked();
    EXPECT_TRUE(form1().isVisible());
    EXPECT_EQ(typed_in("Text16"), "80");
}

}  // namespace
}  // namespace zel
