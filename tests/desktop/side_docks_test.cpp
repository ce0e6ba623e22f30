#include <QAction>
#include <QDockWidget>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QShortcut>
#include <QTableWidget>

#include "desktop/desktop_fixture.h"
#include "desktop/frame/window_memory.h"
#include "fakes/short_circuit_cases.h"
#include "workflow/run/page_change.h"

namespace zel {
namespace {

using testing::HasSubstr;

class SideDocks : public DesktopTest {
protected:
    QDockWidget& dock(const char* name) { return control<QDockWidget>(name); }
    void make_wide() {
        window->resize(1800, 900);
        QApplication::processEvents();
    }
    std::vector<std::string> pictures() {
        std::vector<std::string> names;
        for (const QWidget* view : window->findChildren<QWidget*>("picture"))
            names.push_back(view->accessibleName().toStdString());
        return names;
    }
};

TEST_F(SideDocks, pictures_stand_beside_pages_where_there_is_room) {
    open(twin_264_34());
    EXPECT_TRUE(dock("pictures_dock").isHidden());
    make_wide();
    ASSERT_TRUE(dock("pictures_dock").isVisible());
    EXPECT_FALSE(dock("pictures_dock").isFloating());
    EXPECT_THAT(pictures(),
                testing::ElementsAre("Line, wind and sun", "Cross-section of the conductor"));
    go_to(result_page);
    EXPECT_THAT(pictures(), testing::Contains("Heat balance by Cigre TB 207"));
    go_to(input_page);
    type("Text11", "2");
    EXPECT_THAT(shown("picture_note"), HasSubstr("The inputs have changed"));
    go_to(result_page);
    EXPECT_EQ(shown("picture_note"), "");
    window->resize(1000, 700);
    QApplication::processEvents();
    EXPECT_TRUE(dock("pictures_dock").isHidden());
}

TEST_F(SideDocks, pictures_open_as_a_window_where_there_is_none) {
    open(twin_264_34());
    auto& entry = control<QAction>("show_pictures_dock");
    entry.trigger();
    EXPECT_TRUE(dock("pictures_dock").isVisible());
    EXPECT_TRUE(dock("pictures_dock").isFloating());
    dock("pictures_dock").close();
    EXPECT_FALSE(entry.isChecked());
    make_wide();
    EXPECT_TRUE(dock("pictures_dock").isHidden());  // as the user has left it
}

TEST_F(SideDocks, dock_of_a_wide_window_never_takes_the_width_of_the_inputs) {
    open(twin_264_34());
    const auto resize = [this](int width) {
        window->resize(width, 800);
        QApplication::processEvents();
    };
    resize(2600);
    auto& entry = control<QAction>("show_comparison_dock");
    entry.trigger();
    auto& form = dynamic_cast<QMainWindow&>(*window);
    form.resizeDocks({&dock("comparison_dock")}, {1200}, Qt::Horizontal);
    QApplication::processEvents();
    const QByteArray wide = form.saveState();
    resize(1280);
    EXPECT_FALSE(dock("comparison_dock").isVisible());
    EXPECT_FALSE(entry.isChecked());
    for (const auto& [width, shown] : {std::pair{1280, false}, {1700, true}}) {
        resize(width);
        dock("comparison_dock").setProperty(WindowMemory::dock_chosen, {});
        form.hide();
        form.restoreState(wide);
        dock("comparison_dock").setProperty(WindowMemory::dock_chosen, true);
        form.show();
        QApplication::processEvents();
        EXPECT_EQ(dock("comparison_dock").isVisible(), shown) << width;
        EXPECT_GE(form.centralWidget()->width(), std::min(width, 1250)) << width;
    }
}

TEST_F(SideDocks, chosen_picture_is_saved) {
    open(twin_264_34(), LangId::German, DecimalSeparator::Comma);
    make_wide();
    go_to(result_page);
    auto& list = control<QComboBox>("picture_list");
    list.setCurrentText("Was das Ergebnis bewegt, Cigre TB 207");
    ASSERT_THAT(pictures(), testing::ElementsAre("Was das Ergebnis nach Cigre TB 207 bewegt"));
    chooser.paths = {"/p.svg", "/p.gif"};
    control<QPushButton>("save_picture").click();
    EXPECT_THAT(disk.files["/p.svg"], HasSubstr(">Windgeschwindigkeit + 0,1 m/s</text>"));
    control<QPushButton>("save_picture").click();
    ASSERT_EQ(dialogs.shown.size(), 1U);
    EXPECT_THAT(dialogs.shown.back().lines.back(), HasSubstr("/p.gif"));
}

TEST_F(SideDocks, steps_are_chosen_below_the_bars_and_remembered) {
    open(twin_264_34());
    make_wide();
    go_to(result_page);
    auto& steps = control<QTableWidget>("sensitivity_steps");
    EXPECT_FALSE(steps.isVisible());
    control<QComboBox>("picture_list").setCurrentText("What moves the result, Cigre TB 207");
    EXPECT_TRUE(steps.isVisible());
    const auto step = [&]() -> QTableWidgetItem& {
        return *steps.item(steps.findItems("Wind speed", Qt::MatchStartsWith).front()->row(), 1);
    };
    for (const auto& [typed, shown, stored] :
         {std::tuple{"0,5", "0.5", "0.5"}, {"zero", "0.1", ""}, {"-2", "-2", "-2"}}) {
        step().setText(typed);
        QApplication::processEvents();
        EXPECT_EQ(step().text(), shown);
        EXPECT_EQ(user_settings.read("SensitivitySteps", "Windgeschwindigkeit_db"), stored);
        disk.files.clear();
        chooser.paths = {"/p.svg"};
        control<QPushButton>("save_picture").click();
        EXPECT_THAT(disk.files["/p.svg"],
                    HasSubstr(std::string(" ") + (shown + (*shown == '-')) + " m/s</text>"));
    }
}

TEST_F(SideDocks, what_is_calculated_while_typing_says_so_and_can_be_cancelled) {
    open(twin_264_34());
    make_wide();
    auto& key = control<QShortcut>("live_cancel_key");
    type("Text11", "2");
    EXPECT_THAT(shown("live_outlook"), HasSubstr("Esc cancels"));
    EXPECT_TRUE(key.isEnabled());
    emit key.activated();
    EXPECT_THAT(shown("live_outlook"), testing::StartsWith("Cancelled"));
    EXPECT_FALSE(key.isEnabled());
    type("Text11", "3");
    EXPECT_THAT(shown("live_outlook"), HasSubstr("Esc cancels"));
}

TEST_F(SideDocks, picture_in_sight_is_printed_in_the_language_of_reports) {
    open(twin_264_34(), LangId::German, DecimalSeparator::Comma);
    state->settings.change(&ProgramSettings::Druckvorschau, 2);
    state->settings.change(&ProgramSettings::LangId_print, 2);
    make_wide();
    auto& list = control<QComboBox>("picture_list");
    press(list, Qt::Key_P, "\x10", Qt::ControlModifier);
    list.setCurrentText("Querschnitt des Leiters");
    control<QPushButton>("print_picture").click();
    ASSERT_EQ(printers.printed.size(), 2U);
    for (const auto& printed : printers.printed)
        EXPECT_EQ(printed.title, "Picture of the calculation");
    EXPECT_NE(printers.printed[0].pdf.size(), printers.printed[1].pdf.size());
}

TEST_F(SideDocks, pinned_runs_stand_beside_the_next) {
    open(twin_264_34());
    go_to(result_page);
    auto& runs = control<QListWidget>("runs");
    auto& table = control<QTableWidget>("comparison");
    ASSERT_EQ(runs.count(), 1);
    runs.item(0)->setCheckState(Qt::Checked);
    go_to(input_page);
    type("Text11", "2");
    go_to(result_page);
    ASSERT_EQ(table.columnCount(), 2);
    std::string changed;
    for (int row = 0; row < table.rowCount(); ++row)
        if (table.item(row, 0)->font().bold())
            changed += table.verticalHeaderItem(row)->text().toStdString() + " " +
                       table.item(row, 0)->text().toStdString() + " " +
                       table.item(row, 1)->text().toStdString() + "; ";
    EXPECT_THAT(changed, testing::EndsWith("; Wind speed [m/s] 0.6 2; "));
    control<QPushButton>("copy_comparison").click();
    EXPECT_THAT(QApplication::clipboard()->text().toStdString(),
                HasSubstr("Wind speed\tm/s\t0.6\t2"));
    control<QPushButton>("copy_command").click();
    EXPECT_THAT(
        QApplication::clipboard()->text().toStdString(),
        testing::AllOf(testing::StartsWith("zel steady -"), HasSubstr("Windgeschwindigkeit_db\n")));
    runs.setCurrentRow(1);
    dialogs.answers = {Answer::Discard};
    control<QPushButton>("open_run").click();
    EXPECT_EQ(pages().currentIndex(), input_page);
    EXPECT_EQ(typed_in("Text11"), "0.6");
}

TEST_F(SideDocks, oldest_tick_goes_visibly_where_six_runs_stand_side_by_side) {
    open(twin_264_34());
    auto& runs = control<QListWidget>("runs");
    for (int i = 0; i < 7; ++i) {
        go_to(input_page);
        type("Text11", std::to_string(1 + i));
        go_to(result_page);
        if (i < 6) runs.item(0)->setCheckState(Qt::Checked);
    }
    EXPECT_EQ(control<QTableWidget>("comparison").columnCount(), 6);
    EXPECT_EQ(runs.item(6)->checkState(), Qt::Unchecked);
    EXPECT_EQ(runs.item(5)->checkState(), Qt::Checked);
    EXPECT_THAT(shown("let_go"), HasSubstr("no more than six"));
    runs.item(6)->setCheckState(Qt::Checked);
    EXPECT_EQ(runs.item(5)->checkState(), Qt::Unchecked);
    EXPECT_EQ(runs.item(6)->checkState(), Qt::Checked);
}

TEST_F(SideDocks, run_that_is_opened_leaves_the_file_of_another_case_alone) {
    store.files = {{"a.json", values_of(twin_264_34())}, {"b.json", values_of(sunny_264_34())}};
    open();
    for (const char* file : {"a.json", "b.json"}) {
        form1().open_file(file);
        go_to(result_page);
    }
    auto& runs = control<QListWidget>("runs");
    runs.setCurrentRow(1);
    control<QPushButton>("open_run").click();
    EXPECT_TRUE(form1().windowTitle().startsWith("Untitled[*]"));
    EXPECT_TRUE(form1().isWindowModified());
    chooser.paths = {"c.json"};
    form1().findChild<QAction*>("save_case")->trigger();
    EXPECT_EQ(store.files.at("b.json"), values_of(sunny_264_34()));
    EXPECT_TRUE(store.files.contains("c.json"));
}

TEST_F(SideDocks, utilisation_stands_beside_the_verdict) {
    short_circuit = copper_far();
    open();
    window = &form_main->ks_form1();
    window->show();
    make_wide();
    EXPECT_THAT(shown("picture_note"), HasSubstr("as soon as it is calculated"));
    go_to(2);
    EXPECT_THAT(pictures(), testing::ElementsAre("Thermal short-circuit strength"));
    go_to(0);
    EXPECT_TRUE(pictures().empty());
}

}  // namespace
}  // namespace zel
