#include <QCheckBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QWheelEvent>

#include "desktop/desktop_fixture.h"
#include "fakes/transient_cases.h"
#include "workflow/run/page_change.h"

namespace zel {
namespace {

class DiagramWindows : public DesktopTest {
protected:
    QWidget& diagram_window(const char* name) {
        auto* found = form1().findChild<QWidget*>(name);
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    static void click(QWidget& in, const char* name) {
        in.findChild<QAbstractButton*>(name)->click();
        QApplication::processEvents();
    }
    static std::string text_of(QWidget& in, const char* name) {
        return in.findChild<QLabel*>(name)->text().toStdString();
    }
    /// What is saved under `path`.
    std::string saved(QWidget& in, const std::string& path) {
        chooser.paths.push_back(path);
        click(in, "save");
        return disk.files[path];
    }
    static bool has(const std::string& file, const std::string& text) {
        return file.find(text) != std::string::npos;
    }
    /// The values under the mouse in the middle of the plot, `share` of its height from the top.
    static std::string reading(QWidget& in, double share = 0.5) {
        auto& picture = *in.findChild<QWidget*>("diagram");
        picture.repaint();
        const QPointF place(picture.width() / 2.0, picture.height() * share);
        QMouseEvent move(QEvent::MouseMove, place, picture.mapToGlobal(place), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&picture, &move);
        return text_of(in, "reading");
    }

    void back_to_form() {
        form1().activateWindow();
        QApplication::processEvents();
    }
    void open_steady() {
        open(twin_264_34());
        go_to(result_page);
        type("Text8", "0.6");
        type("Text9", "3");
        type("Schrittweite_Temp_db", "20");
        type("Text5", "40");
        type("Text6", "80");
        click(form1(), "draw_diagram");
    }
};

TEST_F(DiagramWindows, save_what_they_show) {
    open_steady();
    QWidget& graph = diagram_window("frm_graph_steady");
    ASSERT_TRUE(graph.isVisible());
    EXPECT_EQ(graph.windowTitle(), "Diagram Steady-State-Calculation ");
    std::string svg = saved(graph, "/d/a.svg");
    for (const char* text : {"= Cigre TB 207", "0.6 m/s", "3 m/s", "1 auxiliary line unit x axis"})
        EXPECT_TRUE(has(svg, text)) << text;
    click(graph, "lines");
    EXPECT_FALSE(has(saved(graph, "/d/b.svg"), "1 auxiliary line unit"));
    EXPECT_TRUE(has(saved(graph, "/d/c.csv"), "method,wind_m_s,current_A,temperature_C\r\n") ||
                has(disk.files["/d/c.csv"], "method,wind_m_s,current_A,temperature_C\n"));
    EXPECT_TRUE(saved(graph, "/d/d.pdf").starts_with("%PDF"));
    dialogs.answers = {Answer::No};  // the file is there
    const std::string former = disk.files["/d/b.svg"];
    click(graph, "ground");
    EXPECT_EQ(saved(graph, "/d/b.svg"), former);
    (void)saved(graph, "/d/e.gif");
    EXPECT_TRUE(has(dialogs.shown.back().lines.back(), "/d/e.gif"));
}

TEST_F(DiagramWindows, read_values_and_enlarge_around_the_mouse) {
    open_steady();
    QWidget& graph = diagram_window("frm_graph_steady");
    auto& picture = *graph.findChild<QWidget*>("diagram");
    const std::string before = reading(graph);
    EXPECT_TRUE(has(before, " A, ") && has(before, " °C")) << before;
    const std::string above = reading(graph, 0.4);
    const QPointF middle(picture.width() / 2.0, picture.height() / 2.0);
    QWheelEvent wheel(middle, picture.mapToGlobal(middle), {}, {0, 480}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&picture, &wheel);
    EXPECT_EQ(reading(graph), before) << "what is under the mouse stays there";
    EXPECT_NE(reading(graph, 0.4), above) << "what is beside it moves away";
    press(picture, Qt::Key_Home);
    EXPECT_EQ(reading(graph), before);
}

TEST_F(DiagramWindows, follow_language_inputs_and_case) {
    open_steady();
    QWidget& graph = diagram_window("frm_graph_steady");
    auto& notice = *graph.findChild<QLabel*>("former_notice");
    EXPECT_FALSE(notice.isVisible());
    back_to_form();
    type("Text6", "90");
    EXPECT_TRUE(notice.isVisible());
    click(graph, "calculate");
    EXPECT_FALSE(notice.isVisible());
    form1().findChild<QAction*>("m_userinterface_german")->trigger();
    EXPECT_EQ(graph.windowTitle(), "Graphische Darstellung");
    EXPECT_TRUE(has(saved(graph, "/d/g.svg"), "Leitertemperatur in °C"));
    dialogs.answers = {Answer::Discard, Answer::Yes};
    form1().findChild<QAction*>("new_case")->trigger();
    EXPECT_FALSE(graph.isVisible());
}

TEST_F(DiagramWindows, draw_a_transient_that_is_that_of_its_inputs) {
    CalcCase c = with_masses(twin_264_34_at(800));
    c.Z[0] = typed_temperature_row(2400, 10, 0);
    open(c);
    go_to(result_page);
    go_to(transient_page);
    EXPECT_FALSE(control<QPushButton>("Command_graph").isEnabled());
    click(form1(), "calculate_transient");
    click(form1(), "Command_graph");
    QWidget& graph = diagram_window("frm_graph_unsteady");
    ASSERT_TRUE(graph.isVisible());
    EXPECT_TRUE(has(saved(graph, "/d/t.csv"), "t_s,temperature_C,current_A"));
    const std::size_t both = saved(graph, "/d/t1.svg").size();
    click(graph, "show_temperature");
    EXPECT_LT(saved(graph, "/d/t2.svg").size(), both) << "without the longer curve";
    graph.close();
    back_to_form();
    type("Text32(2)", "20");
    dialogs.shown.clear();
    dialogs.answers = {Answer::No};
    click(form1(), "Command_graph");
    EXPECT_FALSE(graph.isVisible());
    ASSERT_EQ(dialogs.shown.size(), 2U);
    EXPECT_EQ(dialogs.shown[1].lines.front(),
              "There has been a change of input data, please run a new "
              "Unsteady-State-Calculation !");
}

}  // namespace
}  // namespace zel
