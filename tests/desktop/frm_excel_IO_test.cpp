#include "desktop/batch/frm_excel_IO.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTimer>

#include "desktop/desktop_fixture.h"
#include "excel_batch/batch_fixture.h"
#include "forms/config_options.h"

namespace zel {
namespace {

using excel_batch::line_of_all_methods;
using excel_batch::WorkbookKind;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FrmExcelIOTest : public DesktopTest {
protected:
    void SetUp() override { open_window(); }

    void open_window(ExcelMode mode = ExcelMode::Steady, LangId lang = LangId::English) {
        window.reset();
        used_workbooks = &batch.store;
        open(line_of_all_methods(), lang, DecimalSeparator::Point);
        settings.set(&ProgramSettings::Excel_Leiterdaten_Merker, 2);
        show_window(mode);
    }
    void show_window(ExcelMode mode = ExcelMode::Steady) {
        state->data_folder = "/data/templates";
        window = std::make_unique<FrmExcelIO>(nullptr, *state, mode);
        window->show();
    }
    template <class Widget>
    Widget& at(const char* name) {
        auto* found = window->findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    std::string line(const char* name) { return at<QLabel>(name).text().toStdString(); }
    bool can_click(const char* name) { return at<QPushButton>(name).isEnabled(); }
    /// Clicks a button; the user chooses the workbook where one is asked for.
    void click(const char* name) {
        chooser.paths.emplace_back(excel_batch::BatchOfRows::path);
        at<QPushButton>(name).click();
        chooser.paths.clear();
    }
    void fill(int rows) {
        batch.start(WorkbookKind::SteadyFix, line_of_all_methods());
        for (int i = 0; i < rows; ++i) batch.add_row(line_of_all_methods());
    }

    excel_batch::BatchOfRows batch;
    std::unique_ptr<FrmExcelIO> window;
};

TEST_F(FrmExcelIOTest, calculates_the_chosen_workbook) {
    fill(3);
    EXPECT_FALSE(can_click("Command3"));
    EXPECT_FALSE(can_click("Command2"));
    click("Command1");
    EXPECT_EQ(batch.result(7, 34), "1300");
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(at<QProgressBar>("progress").value(), at<QProgressBar>("progress").maximum());
    EXPECT_EQ(at<QProgressBar>("progress").format().toStdString(), "100 %");
    EXPECT_EQ(line("active_rows"), "number of active calculation rows: 3");
    EXPECT_EQ(line("status"), "Calculation of worksheet   variable_input_result   is finished.");
    EXPECT_THAT(line("elapsed"), HasSubstr("elapsed calculation time: 0 h 00 min 0"));
    EXPECT_THAT(line("summary"), HasSubstr("3 data sets with  3 active data sets"));
    ASSERT_EQ(chooser.questions.size(), 1U);
    EXPECT_EQ(chooser.questions[0].title, "Select excel calculation workbook ...");
    EXPECT_TRUE(chooser.questions[0].existing);

    EXPECT_TRUE(can_click("Command2"));
    click("Command2");
    EXPECT_THAT(launcher.opened, ElementsAre(excel_batch::BatchOfRows::path));
}

TEST_F(FrmExcelIOTest, wrong_input_is_told_in_boxes) {
    fill(1);
    batch.set_fixed(19, 5000);
    click("Command1");
    ASSERT_EQ(dialogs.shown.size(), 2U);
    EXPECT_EQ(dialogs.shown[0].lines[0], "Maximum value for altitude is 4500 m above sea level !");
    EXPECT_EQ(batch.store.saved, 0);
    EXPECT_EQ(line("summary"), "");
    EXPECT_EQ(line("done_rows"), "Nothing was saved, the workbook is unchanged.");
    EXPECT_EQ(at<QProgressBar>("progress").format().toStdString(), "0 %");
    EXPECT_TRUE(can_click("Command1"));
}

TEST_F(FrmExcelIOTest, wrong_cells_stay_in_a_list_that_leads_to_them) {
    fill(1);
    auto& list = at<QTableWidget>("wrong_cells");
    EXPECT_FALSE(list.isVisible());
    batch.set_fixed(19, 5000);
    batch.set_fixed(46, 900);
    dialogs.leaves_chains = true;
    dialogs.while_shown = [&] { EXPECT_EQ(list.rowCount(), 2) << "behind the first box"; };
    click("Command1");
    EXPECT_EQ(dialogs.shown.size(), 1U);
    EXPECT_THAT(line("summary"), HasSubstr("incorrect input data in excel sheet"));
    ASSERT_TRUE(list.isVisible());
    list.setCurrentCell(1, 0);
    press(list, Qt::Key_Return);
    EXPECT_THAT(launcher.opened, ElementsAre(excel_batch::BatchOfRows::path));
    EXPECT_EQ(QApplication::clipboard()->text(), "C46");
    EXPECT_THAT(line("status"), HasSubstr("The clipboard holds C46 (worksheet fixed_input)"));
    click("copy_summary");
    EXPECT_THAT(QApplication::clipboard()->text().toStdString(),
                HasSubstr("fixed_input\tC19\t5000"));
    batch.set_fixed(19, 100);
    batch.set_fixed(46, 80);
    click("Command1");
    EXPECT_FALSE(list.isVisible());
}

TEST_F(FrmExcelIOTest, an_empty_template_is_that_of_the_chosen_form) {
    for (const auto& [option, kind] :
         {std::pair{"Option7", WorkbookKind::SteadyVar}, {"Option8", WorkbookKind::SteadyFix}}) {
        at<QRadioButton>(option).click();
        click("save_template");
        EXPECT_EQ(batch.workbook(), excel_batch::cells_of(excel_batch::template_design(
                                        kind, LangId::English, std::nullopt)));
    }
    EXPECT_TRUE(can_click("Command2"));
    chooser.paths.emplace_back("/data/templates/Template_out_german.xlsx");
    at<QPushButton>("save_template").click();
    EXPECT_EQ(dialogs.shown.back().lines[1], "Template_out_german.xlsx");
}

TEST_F(FrmExcelIOTest, failing_files_are_told_by_the_error_table) {
    click("Command1");  // there is no workbook of the name
    ASSERT_EQ(dialogs.shown.size(), 1U);
    EXPECT_EQ(dialogs.shown[0].lines[0],
              "Error 3044 in MOD02EXCEL.S_00_io_excel_gesamt_rahmen_stat");
    EXPECT_EQ(at<QProgressBar>("progress").value(), 0);
    fill(1);
    batch.store.at_save = [] {
        throw OutputError("a.xlsx: No space left on device", PlatformFault::DiskFull);
    };
    dialogs.shown.clear();
    click("Command1");
    ASSERT_EQ(dialogs.shown.size(), 1U);
    EXPECT_EQ(dialogs.shown[0].lines[0], "Error 61 in MOD02EXCEL.S_00_io_excel_gesamt_rahmen_stat");
}

TEST_F(FrmExcelIOTest, a_run_can_be_cancelled_behind_a_row) {
    fill(3000);
    const auto cancel_soon = [this] {
        QTimer::singleShot(0, window.get(), [this] { at<QPushButton>("Command3").click(); });
    };
    cancel_soon();
    click("Command1");
    EXPECT_THAT(line("summary"), HasSubstr("The calculation was cancelled. The rows"));
    EXPECT_EQ(line("status"), "");
    EXPECT_THAT(line("done_rows"), testing::MatchesRegex("[0-9]+ of 3000 active rows are .*"));
    EXPECT_LT(at<QProgressBar>("progress").value(), at<QProgressBar>("progress").maximum());
    EXPECT_EQ(batch.store.saved, 1);
    EXPECT_EQ(batch.result(3004, 34), "");

    settings.set_excel_height(excel_height_with_tests);
    show_window();
    for (const char* button : {"Command4", "Command5"}) {
        cancel_soon();
        click(button);
        EXPECT_THAT(line("summary"), HasSubstr("The workbook is unchanged."));
        EXPECT_EQ(batch.store.saved, 1);
    }
}

TEST_F(FrmExcelIOTest, closing_a_running_window_cancels_first) {
    fill(3000);
    QTimer::singleShot(0, window.get(), [this] {
        EXPECT_FALSE(can_click("Command6"));
        window->close();
    });
    click("Command1");
    EXPECT_TRUE(window->isVisible());
    EXPECT_THAT(line("summary"), HasSubstr("The calculation was cancelled."));
    click("Command6");
    EXPECT_FALSE(window->isVisible());
}

TEST_F(FrmExcelIOTest, the_form_of_the_workbook_is_a_setting) {
    EXPECT_TRUE(at<QRadioButton>("Option8").isChecked());
    at<QRadioButton>("Option7").click();
    EXPECT_EQ(settings.now().Excel_Leiterdaten_Merker, 1);
    fill(1);
    click("Command1");
    EXPECT_THAT(joined(dialogs.shown.at(0).lines, "\n"),
                HasSubstr("with editing option for conductor data"));
    show_window();
    EXPECT_TRUE(at<QRadioButton>("Option7").isChecked());
}

TEST_F(FrmExcelIOTest, the_conductor_of_the_case_fills_what_no_cell_names) {
    fill(1);
    for (const int row : {77, 83, 88}) batch.fixed().erase({row, 3});
    click("Command1");
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(batch.result(5, 34), "1300");
}

TEST_F(FrmExcelIOTest, a_shipped_template_is_asked_for_again) {
    fill(1);
    chooser.paths.emplace_back("/data/templates/Template_out_german.xlsx");
    click("Command1");
    ASSERT_EQ(dialogs.shown.size(), 1U);
    EXPECT_EQ(dialogs.shown[0].lines[1], "Template_out_german.xlsx");
    EXPECT_EQ(chooser.asked.size(), 2U);
    EXPECT_EQ(batch.store.saved, 1);
}

TEST_F(FrmExcelIOTest, the_transient_batch_has_no_choice_of_form) {
    open_window(ExcelMode::Transient, LangId::German);
    EXPECT_EQ(window->windowTitle(), "Excel-Berechnung instationär (PATL / TATL)");
    EXPECT_EQ(window->findChild<QRadioButton*>("Option7"), nullptr);
    fill(1);  // a steady workbook
    click("Command1");
    EXPECT_THAT(joined(dialogs.shown.at(0).lines, "\n"),
                HasSubstr("DS81a_G_Conductor_fix_transient"));
}

TEST_F(FrmExcelIOTest, test_buttons_show_where_the_settings_make_room) {
    EXPECT_EQ(window->findChild<QPushButton*>("Command4"), nullptr);
    settings.set_excel_height(excel_height_with_tests);
    show_window();
    fill(2);
    at<QLineEdit>("seed").setText("7");
    click("Command4");
    EXPECT_EQ(line("summary"), "2 rows were written.");
    const auto rows = batch.rows();
    click("Command4");
    EXPECT_EQ(batch.rows(), rows);
    click("Command5");
    EXPECT_EQ(line("summary"), "2 rows were written.");
    EXPECT_EQ(batch.result(2, 65), "Kirn - Cigre TB 601 (% / K)");
}

TEST_F(FrmExcelIOTest, the_start_window_opens_it) {
    window.reset();
    for (const auto& [entry, title] :
         {std::pair{"m_St_Temp_Excel", "Excel calculation steady-state"},
          {"m_transient_Temp_Excel", "Excel calculation transient (PATL / TATL)"}}) {
        std::string shown;
        QTimer::singleShot(0, form_main.get(), [&] {
            QWidget* opened = QApplication::activeModalWidget();
            if (opened == nullptr) return;
            shown = opened->windowTitle().toStdString();
            opened->close();
        });
        form_main->findChild<QAction*>(entry)->trigger();
        EXPECT_EQ(shown, title);
    }
}

}  // namespace
}  // namespace zel
