#include <QAbstractButton>
#include <QAction>
#include <QClipboard>

#include "desktop/desktop_fixture.h"
#include "persistence/case_file.h"
#include "workflow/run/page_change.h"

namespace zel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class CaseFiles : public DesktopTest {
protected:
    void choose_action(const char* name) {
        auto* found = form1().findChild<QAction*>(name);
        ASSERT_NE(found, nullptr) << name;
        found->trigger();
        QApplication::processEvents();
    }
    std::string title() { return form1().windowTitle().toStdString(); }
};

TEST_F(CaseFiles, saved_case_is_opened_as_it_was) {
    open(twin_264_34());
    type("Text4", "Süd");
    chooser.paths = {"/home/u/süd.json"};
    choose_action("save_case");
    const CalcCase saved = calc_case();
    EXPECT_EQ(store.files.at("/home/u/süd.json"), values_of(saved));
    EXPECT_THAT(title(), StartsWith("süd.json[*] - ZEL V.8.2"));
    choose_action("new_case");
    EXPECT_EQ(calc_case(), forms::case_for_form({}));
    EXPECT_EQ(typed_in("Text4"), "");
    EXPECT_THAT(title(), StartsWith("Untitled[*] - "));
    chooser.paths = {"/home/u/süd.json"};
    choose_action("open_case");
    EXPECT_EQ(calc_case(), saved);
    EXPECT_EQ(typed_in("Text4"), "Süd");
    EXPECT_FALSE(form1().isWindowModified());
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(CaseFiles, file_reads_under_the_other_separator) {
    open({}, LangId::German, DecimalSeparator::Comma);
    type("Text11", "0,6");
    chooser.paths = {"a.json"};
    choose_action("save_case");
    const auto files = store.files;
    open();
    store.files = files;
    chooser.paths = {"a.json"};
    choose_action("open_case");
    EXPECT_EQ(calc_case().Windgeschwindigkeit_db, (Entry{"0.6", 0.6}));
}

TEST_F(CaseFiles, second_save_goes_to_the_same_file_and_save_as_asks_again) {
    open();
    chooser.paths = {"a.json", "b.json"};
    choose_action("save_case");
    type("Text11", "3");
    EXPECT_TRUE(form1().isWindowModified());
    choose_action("save_case");
    EXPECT_FALSE(form1().isWindowModified());
    EXPECT_THAT(chooser.asked, ElementsAre(""));
    choose_action("save_case_as");
    EXPECT_THAT(chooser.asked, ElementsAre("", "a.json"));
    EXPECT_EQ(store.files.at("b.json"), store.files.at("a.json"));
    EXPECT_THAT(title(), StartsWith("b.json"));
}

TEST_F(CaseFiles, other_file_is_replaced_only_after_a_yes) {
    open(twin_264_34());
    const FlatObject other = {{"Projekt_db", std::string("other")}};
    store.files["other.json"] = other;
    chooser.paths = {"other.json", "other.json"};
    dialogs.answers = {Answer::No, Answer::Yes};
    choose_action("save_case");
    EXPECT_EQ(store.files.at("other.json"), other);
    EXPECT_THAT(title(), StartsWith("Untitled"));
    choose_action("save_case");
    EXPECT_EQ(store.files.at("other.json"), values_of(twin_264_34()));
    ASSERT_THAT(dialogs.shown, SizeIs(2));
    EXPECT_EQ(dialogs.shown[1].lines.at(1), "other.json");
    choose_action("save_case");
    EXPECT_THAT(dialogs.shown, SizeIs(2));
}

TEST_F(CaseFiles, every_change_shows_until_it_is_undone_or_stored) {
    open(twin_264_34());
    EXPECT_FALSE(form1().isWindowModified());
    type("Text11", "5");
    EXPECT_TRUE(form1().isWindowModified());
    type("Text11", "0.6");
    EXPECT_FALSE(form1().isWindowModified());
    choose("Combo3", 0);
    EXPECT_TRUE(form1().isWindowModified());
    choose("Combo3", 1);
    choose("Combo1", 0);
    EXPECT_TRUE(form1().isWindowModified());
    choose("Combo1", 1);
    control<QAbstractButton>("rechnung_webs_merker_db").click();
    EXPECT_TRUE(form1().isWindowModified());
}

TEST_F(CaseFiles, derived_current_is_no_change) {
    open(twin_264_34_at(600));
    go_to(result_page);
    go_to(input_page);
    EXPECT_EQ(typed_in("Text39"), "1200");
    EXPECT_FALSE(form1().isWindowModified());
    choose_action("new_case");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(CaseFiles, changes_are_lost_only_after_a_yes) {
    for (const char* action : {"new_case", "open_case"}) {
        dialogs.shown.clear();
        open(twin_264_34());
        store.files["other.json"] = {{"Projekt_db", std::string("other")}};
        chooser.paths = {"other.json"};
        type("Text11", "5");
        dialogs.answers = {Answer::No};
        choose_action(action);
        ASSERT_THAT(dialogs.shown, SizeIs(1));
        EXPECT_EQ(dialogs.shown[0].buttons, Buttons::YesNo);
        EXPECT_EQ(calc_case().Windgeschwindigkeit_db.value, 5);
        dialogs.answers = {Answer::Yes};
        choose_action(action);
        EXPECT_FALSE(calc_case().Windgeschwindigkeit_db.given());
    }
    EXPECT_EQ(calc_case().Projekt_db, "other");
}

TEST_F(CaseFiles, text_still_being_typed_is_saved) {
    open();
    control("Text11").setFocus();
    control("Text11").setText("7");
    chooser.paths = {"a.json"};
    choose_action("save_case");
    EXPECT_THAT(store.files.at("a.json"),
                testing::Contains(FlatMember{"Windgeschwindigkeit_db", 7.0}));
    control("Text11").setText("-");
    choose_action("save_case");
    EXPECT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_THAT(store.files.at("a.json"),
                testing::Contains(FlatMember{"Windgeschwindigkeit_db", 7.0}));
}

TEST_F(CaseFiles, failures_name_file_and_reason_and_change_nothing) {
    open(twin_264_34());
    store.files["bad.json"] = {{"wind", 1.0}};
    chooser.paths = {"missing.json", "bad.json", "/locked/a.json"};
    choose_action("open_case");
    choose_action("open_case");
    choose_action("save_case_as");
    ASSERT_THAT(dialogs.shown, SizeIs(3));
    EXPECT_THAT(dialogs.shown[0].lines, ElementsAre("The file can not be read :",
                                                    "missing.json: No such file or directory"));
    EXPECT_THAT(dialogs.shown[1].lines,
                ElementsAre("The file can not be read :", "bad.json: wind: unknown key"));
    EXPECT_THAT(dialogs.shown[2].lines,
                ElementsAre("The file can not be written :", "/locked/a.json: Permission denied"));
    EXPECT_EQ(calc_case(), twin_264_34());
    EXPECT_THAT(title(), StartsWith("Untitled"));
}

TEST_F(CaseFiles, refused_texts_of_a_file_are_told_with_their_field) {
    open();
    store.files["typed.json"] = {{"Windgeschwindigkeit_db", std::string("80.1")}};
    chooser.paths = {"typed.json"};
    choose_action("open_case");
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].lines.at(0), "Windgeschwindigkeit_db :");
    EXPECT_EQ(typed_in("Text11"), "");
}

TEST_F(CaseFiles, results_of_the_former_case_are_gone) {
    open(twin_264_34());
    go_to(result_page);
    choose_action("new_case");
    EXPECT_EQ(pages().currentIndex(), input_page);
    EXPECT_FALSE(pages().isTabEnabled(transient_page));
    dialogs.shown.clear();
    go_to(result_page);
    EXPECT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_FALSE(control<QLabel>("result_TB207").isVisible());
}

TEST_F(CaseFiles, exit_asks_for_the_changes_first) {
    open();
    type("Text11", "5");
    dialogs.answers = {Answer::No};
    EXPECT_FALSE(form_main->close());
    EXPECT_THAT(dialogs.shown, SizeIs(1));
    dialogs.answers = {Answer::Yes, Answer::No};
    EXPECT_FALSE(form_main->close());
    ASSERT_THAT(dialogs.shown, SizeIs(3));
    EXPECT_THAT(dialogs.shown[2].lines.at(0), HasSubstr("close the application"));
    EXPECT_EQ(calc_case().Windgeschwindigkeit_db.value, 5);
}

TEST_F(CaseFiles, result_is_copied_while_it_is_shown) {
    open(twin_264_34());
    const auto* copy = form1().findChild<QAction*>("copy_result");
    EXPECT_FALSE(copy->isEnabled());
    go_to(result_page);
    choose_action("copy_result");
    const std::string text = QApplication::clipboard()->text().toStdString();
    EXPECT_THAT(text, HasSubstr(shown("head_line")));
    EXPECT_THAT(text, HasSubstr("by Cigre TB 207 :  1331 A"));
    EXPECT_THAT(text, HasSubstr(shown("balance_line")));
    go_to(input_page);
    EXPECT_FALSE(copy->isEnabled());
    type("Text19", "");
    go_to(result_page);
    EXPECT_FALSE(copy->isEnabled());
}

}  // namespace
}  // namespace zel
