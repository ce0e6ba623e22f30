#include <QAction>
#include <QComboBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>

#include "desktop/desktop_fixture.h"
#include "desktop/printing/preview_sheets.h"
#include "fakes/short_circuit_cases.h"
#include "fakes/transient_cases.h"
#include "workflow/run/page_change.h"

namespace zel {
namespace {

class PrintWindows : public DesktopTest {
protected:
    void print_by(const char* button) { control<QPushButton>(button).click(); }
    static void press_menu(QWidget& in, const char* name) {
        in.findChild<QAction*>(name)->trigger();
        QApplication::processEvents();
    }
    /// Runs `look` in the modal window that `open` brings up.
    template <class Open, class Look>
    void in_window(Open open, Look look) {
        bool seen = false;
        QTimer::singleShot(0, [&] {
            QWidget* modal = QApplication::activeModalWidget();
            ASSERT_NE(modal, nullptr);
            seen = true;
            look(*modal);
            modal->close();
        });
        open();
        EXPECT_TRUE(seen);
    }
    void open_result(const CalcCase& c, int preview) {
        open(c);
        state->settings.change(&ProgramSettings::Druckvorschau, static_cast<std::int16_t>(preview));
        go_to(result_page);
    }
};

TEST_F(PrintWindows, print_without_the_preview_in_the_language_of_reports) {
    open_result(twin_264_34(), 2);
    EXPECT_EQ(control<QPushButton>("print_steady").text(), "Print : Current calculation");
    print_by("print_steady");
    state->settings.change(&ProgramSettings::LangId_print, 1);
    press_menu(form1(), "print_report");
    ASSERT_EQ(printers.printed.size(), 2U);
    EXPECT_TRUE(printers.printed[0].title.starts_with("current load calculation: "))
        << printers.printed[0].title;
    EXPECT_TRUE(printers.printed[1].title.starts_with("Stromstärkeberechnung nach "));
    EXPECT_TRUE(printers.printed[1].pdf.starts_with("%PDF"));
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(PrintWindows, print_what_the_page_shows) {
    open_result(twin_264_34(), 2);
    type("Text8", "0.6");
    type("Schrittweite_Temp_db", "20");
    type("Text5", "40");
    type("Text6", "80");
    print_by("calculate_table");
    EXPECT_EQ(control<QPushButton>("print_steady").text(), "Print: table current calculation");
    type("Text6", "90");
    EXPECT_EQ(control<QPushButton>("print_steady").text(), "Print : Current calculation");
    go_to(0);
    EXPECT_FALSE(form1().findChild<QAction*>("print_report")->isEnabled());
}

TEST_F(PrintWindows, refuse_a_transient_whose_inputs_have_changed) {
    open_result(bundle_with_rows({typed_temperature_row(1800, 10, 0)}), 2);
    go_to(transient_page);
    print_by("calculate_transient");
    press_menu(form1(), "print_report");
    ASSERT_EQ(printers.printed.size(), 1U);
    EXPECT_NE(printers.printed[0].title.find("transient"), 0U);
    calc_case().Windgeschwindigkeit_db = typed(2);
    dialogs.answers = {Answer::No};
    press_menu(form1(), "print_report");
    EXPECT_EQ(printers.printed.size(), 1U);
    EXPECT_EQ(dialogs.shown.back().lines.front(),
              "There has been a change of input data, please run a new "
              "Unsteady-State-Calculation !");
}

TEST_F(PrintWindows, show_a_report_before_it_is_printed_or_saved) {
    open_result(twin_264_34(), 1);
    in_window([this] { print_by("print_steady"); },
              [this](QWidget& preview) {
                  EXPECT_EQ(preview.objectName(), "frm_print_preview");
                  EXPECT_EQ(preview.windowTitle(), "Print Preview");
                  auto& page_switch = *preview.findChild<QPushButton*>("Befehl1");
                  EXPECT_EQ(page_switch.text(), "Show print preview page 2 / 2 ...");
                  auto& first = *preview.findChild<QWidget*>("Picture3");
                  auto& second = *preview.findChild<QWidget*>("Picture4");
                  EXPECT_TRUE(first.isVisible() && !second.isVisible());
                  page_switch.click();
                  EXPECT_EQ(page_switch.text(), "Show print preview page 1 / 2 ...");
                  EXPECT_TRUE(!first.isVisible() && second.isVisible());
                  const int width = second.width();
                  press_menu(preview, "enlarge");
                  EXPECT_NEAR(second.width(), 1.25 * width, 1);
                  auto& bar = *preview.findChild<QScrollBar*>("VScroll1");
                  const int top = second.y();
                  bar.setValue(bar.maximum());
                  EXPECT_LT(second.y(), top);
                  EXPECT_LE(second.y() + second.height(), second.parentWidget()->height())
                      << "the end can be seen";
                  press_menu(preview, "mPrint");
                  EXPECT_EQ(printers.printed.size(), 1U);
                  chooser.paths = {"/d/a.pdf", "/d/a.txt"};
                  press_menu(preview, "save_report");
                  EXPECT_TRUE(disk.files["/d/a.pdf"].starts_with("%PDF"));
                  press_menu(preview, "save_report");
                  EXPECT_FALSE(disk.files.contains("/d/a.txt"));
                  EXPECT_NE(dialogs.shown.back().lines.back().find("/d/a.txt"), std::string::npos);
              });
}

TEST_F(PrintWindows, print_the_short_circuit_report_in_german) {
    short_circuit = copper_far();
    open({}, LangId::English, DecimalSeparator::Point);
    window = &form_main->ks_form1();
    window->show();
    window->activateWindow();
    state->settings.change(&ProgramSettings::LangId_print, 3);
    go_to(2);
    in_window([this] { print_by("Befehl6"); },
              [](QWidget& preview) {
                  EXPECT_EQ(preview.objectName(), "Ks_Form10b");
                  EXPECT_FALSE(preview.findChild<QPushButton*>("Befehl1")->isVisible());
                  EXPECT_NE(preview.findChild<QAction*>("mDruckereinrichtungks"), nullptr);
                  press_menu(preview, "mPrint");
              });
    ASSERT_EQ(printers.printed.size(), 1U);
    EXPECT_EQ(printers.printed[0].title, "Thermische Kurzschlußfestigkeit nach IEC 865");
    EXPECT_NE(printers.printed[0].pdf.find("/Lang (de)"), std::string::npos);
    EXPECT_EQ(settings.now().LangId_print, 3);
}

TEST_F(PrintWindows, print_a_diagram) {
    open_result(twin_264_34(), 2);
    type("Text8", "0.6");
    type("Schrittweite_Temp_db", "20");
    type("Text5", "40");
    type("Text6", "80");
    print_by("draw_diagram");
    auto& graph = *form1().findChild<QWidget*>("frm_graph_steady");
    auto& button = *graph.findChild<QPushButton*>("print");
    EXPECT_EQ(button.text(), "Print diagram");
    button.click();
    ASSERT_EQ(printers.printed.size(), 1U);
    EXPECT_TRUE(printers.printed[0].title.starts_with("graphic of steady-state"));
}

TEST_F(PrintWindows, choose_a_printer_that_is_there) {
    open();
    const auto choose = [this](const char* name, auto look) {
        in_window([this] { press_menu(form1(), "mDruckereinrichtung"); },
                  [&](QWidget& dialog) {
                      auto& list = *dialog.findChild<QComboBox*>("cboPrinter");
                      EXPECT_EQ(list.count(), 2);
                      list.setCurrentIndex(list.findText(name));
                      look(dialog);
                      dialog.findChild<QPushButton*>("cmdOK")->click();
                  });
        return dialogs.shown.empty() ? std::string() : dialogs.shown.back().lines.front();
    };
    const auto nothing = [](QWidget&) {};
    EXPECT_EQ(choose("none", nothing), "Please select a printer first.");
    EXPECT_EQ(choose("Plotter", [this](QWidget&) { printers.unreachable = true; }),
              "The printer could not be activated.");
    printers.unreachable = false;
    EXPECT_EQ(settings.now().DeviceName, "");
    dialogs.shown.clear();
    EXPECT_EQ(choose("Plotter", nothing), "");
    EXPECT_EQ(printers.current(), "Plotter");
    EXPECT_EQ(settings.now().DeviceName, "Plotter");
    EXPECT_EQ(shared_settings.read("Printer", "DeviceName"), "Plotter");
    EXPECT_EQ(choose("Laser", [this](QWidget&) { printers.names.erase(printers.names.begin()); }),
              "The selected printer is not installed.");
}

TEST(PreviewSheets, move_by_fixed_steps_in_sixteen_bits) {
    const PreviewScale scale = {1, 1.5};
    EXPECT_EQ(sheet_left(3, scale), -150);
    EXPECT_EQ(sheet_top(3, 0, scale), -158);  // -157.5 to the even neighbour
    EXPECT_EQ(sheet_top(3, 1, scale), -360);
    EXPECT_EQ(sheet_top(1000, 1, scale), -32768);
}

}  // namespace
}  // namespace zel
