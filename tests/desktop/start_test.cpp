// From the start of the program to a case: the command line's, an example, a file that was open
// last or is dropped; and windows that come back as they were.

#include <QDialog>
#include <QDockWidget>
#include <QDropEvent>
#include <QHeaderView>
#include <QMainWindow>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>

#include "desktop/desktop_fixture.h"
#include "desktop/frame/window_memory.h"
#include "forms/file_sort.h"

namespace zel {
namespace {

using testing::ElementsAre;

class Start : public DesktopTest {
protected:
    void SetUp() override {
        store.files["/c/line.json"] = {{"Projekt_db", std::string("line")}};
        store.files["/c/ks.json"] = {{"Projekt_ks", std::string("ks")}};
        store.files["/shipped/examples/tube-120x8.json"] = {{"Projekt_db", std::string("tube")}};
        disk.files["/c/line.json"] = "";
        open();
        form1().hide();
    }
    short_circuit::KsForm1& ks() { return form_main->ks_form1(); }

    void drop(QWidget& on, const std::string& path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(qt(path))});
        QDragEnterEvent entry({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&on, &entry);
        QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&on, &event);
        QApplication::processEvents();
    }
    QAction& entry(const char* name) { return *form_main->findChild<QAction*>(name); }
    QList<QAction*> recent_entries() {
        auto* menu = form_main->findChild<QPushButton*>("open_recent")->menu();
        emit menu->aboutToShow();
        return menu->actions();
    }
};

TEST_F(Start, dropped_file_opens_where_it_belongs_whatever_it_is_dropped_on) {
    drop(*form_main, "/c/ks.json");
    EXPECT_TRUE(ks().isVisible());
    window = &ks();
    EXPECT_EQ(typed_in("Text4"), "ks");
    drop(control("Text4"), "/c/line.json");
    EXPECT_TRUE(form1().isVisible());
    EXPECT_EQ(typed_in("Text4"), "ks") << "the path is no text";
    EXPECT_EQ(calc_case().Projekt_db, "line");
    EXPECT_THAT(settings.user_store().read("Recent", "File1"), "/c/line.json");
}

TEST_F(Start, file_dropped_on_a_window_above_another_belongs_to_that) {
    form1().show();
    auto& dock = *form1().findChild<QDockWidget*>("comparison_dock");
    dock.show();
    dock.setFloating(true);
    QApplication::processEvents();
    EXPECT_TRUE(dock.acceptDrops());
    drop(dock, "/c/line.json");
    EXPECT_EQ(calc_case().Projekt_db, "line");
}

TEST_F(Start, file_of_either_area_opens_in_the_one_that_it_is_dropped_on) {
    for (const char* path : {"/c/missing.json", "/c/missing.mdb"}) {
        dialogs.shown.clear();
        drop(ks(), path);
        EXPECT_TRUE(ks().isVisible());
        EXPECT_FALSE(form1().isVisible()) << path;
        EXPECT_GE(dialogs.shown.size(), 1U) << path;
        ks().hide();
    }
}

TEST_F(Start, dropped_workbook_is_proposed_to_the_batch_that_it_is_for) {
    std::string title;
    QTimer::singleShot(0, form_main.get(), [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        title = dialog->windowTitle().toStdString();
        dialog->findChild<QPushButton*>("Command1")->click();
        drop(*dialog, "/c/b.xlsx");
        dialog->findChild<QPushButton*>("Command1")->click();
        dialog->reject();
    });
    workbooks.files["/c/a.xlsx"]["fixed_input"][{2, 2}] =
        std::string("DS81a_E_Conductor_fix_transient");
    form_main->open_file("/c/a.xlsx");
    EXPECT_EQ(title, "Excel calculation transient (PATL / TATL)");
    EXPECT_EQ(chooser.questions.at(0).name, "a.xlsx");
    EXPECT_EQ(chooser.questions[0].folder, "/c/");
    EXPECT_EQ(chooser.questions.at(1).name, "b.xlsx");
}

TEST_F(Start, example_opens_without_a_file_that_could_be_overwritten) {
    EXPECT_TRUE(form_main->findChild<QWidget*>("first_steps")->isVisible());
    entry("example_tube").trigger();
    EXPECT_EQ(calc_case().Projekt_db, "tube");
    EXPECT_THAT(form1().windowTitle().toStdString(), testing::StartsWith("Untitled"));
    EXPECT_FALSE(form1().isWindowModified());
    EXPECT_FALSE(recent_entries().front()->isEnabled()) << "none yet";
}

TEST_F(Start, recent_file_opens_again_and_a_missing_one_says_so) {
    form_main->open_file("/c/ks.json");  // on no disk, where the list looks
    form_main->open_file("/c/line.json");
    calc_case() = {};
    const auto entries = recent_entries();
    ASSERT_EQ(entries.size(), 2);
    EXPECT_FALSE(entries[1]->isEnabled());
    EXPECT_EQ(entries[1]->text(), "&2  /c/ks.json (file is missing)");
    dialogs.answers = {Answer::Discard};
    entries[0]->trigger();
    EXPECT_EQ(calc_case().Projekt_db, "line");
}

TEST_F(Start, about_box_names_the_program_and_each_library) {
    int rows = 0;
    QTimer::singleShot(0, form_main.get(), [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        rows = dialog->findChild<QTableWidget*>("libraries")->rowCount();
        dialog->reject();
    });
    entry("about").trigger();
    EXPECT_GT(rows, 8);
}

TEST(FileSort, goes_by_the_ending_and_by_the_fields_of_a_case) {
    MemoryCaseStore cases;
    cases.files["ks.json"] = {{"tk1", 1.0}};
    cases.files["line.json"] = {{"Projekt_db", std::string()}};
    using forms::FileSort;
    for (const auto& [path, sort] : {std::pair{"A.XLSX", FileSort::Workbook},
                                     {"a.mdb", FileSort::Database},
                                     {"ks.json", FileSort::ShortCircuitCase},
                                     {"line.json", FileSort::LineCase},
                                     {"missing.json", FileSort::UnreadableCase}})
        EXPECT_EQ(forms::sort_of(path, cases), sort) << path;
}

TEST_F(Start, maximised_window_is_so_again_when_it_is_opened_again) {
    state->settings.change(&ProgramSettings::Vollbildmodus, 2);
    for (const bool maximised : {true, false}) {
        form_main->show_form1();
        maximised ? form1().showMaximized() : form1().showNormal();
        form1().close();
        form_main->show_form1();
        EXPECT_EQ(form1().isMaximized(), maximised);
    }
}

TEST(WindowMemory, window_that_would_lie_off_the_screens_comes_back_whole) {
    const QList<QRect> screens = {{0, 0, 1000, 800}, {1000, 0, 600, 600}};
    for (const auto& [place, fitted] :
         {std::pair{QRect(100, 100, 400, 300), QRect(100, 100, 400, 300)},
          {QRect(5000, -900, 400, 300), QRect(600, 0, 400, 300)},
          {QRect(1200, 400, 500, 300), QRect(1100, 300, 500, 300)},
          {QRect(-50, -50, 3000, 2000), QRect(0, 0, 1000, 800)}})
        EXPECT_EQ(WindowMemory::on_screens(place, screens), fitted);
}

TEST(WindowMemory, windows_come_back_where_they_were_with_the_widths_of_the_user) {
    MemorySettings store;
    const WindowMemory memory(store);
    store.write("Windows", "w.t.columns", "90,120");
    for (const bool again : {false, true}) {
        QWidget window;
        window.setObjectName("w");
        auto* table = new QTableWidget(1, 2, &window);
        table->setObjectName("t");
        window.show();
        EXPECT_EQ(table->horizontalHeader()->sectionSize(1), 120);
        EXPECT_EQ(window.geometry() == QRect(40, 50, 333, 222), again);
        window.setGeometry(40, 50, 333, 222);
        window.hide();
    }
    EXPECT_EQ(store.read("Windows", "w.place"), "40,50,333,222");
}

TEST(WindowMemory, dock_comes_back_as_the_user_has_left_it) {
    MemorySettings store;
    const WindowMemory memory(store);
    for (const bool again : {false, true}) {
        QMainWindow window;
        window.setObjectName("w");
        auto* dock = new QDockWidget(&window);
        dock->setObjectName("d");
        window.addDockWidget(Qt::RightDockWidgetArea, dock);
        window.show();
        EXPECT_EQ(dock->isHidden(), again);
        EXPECT_EQ(dock->property(WindowMemory::dock_chosen).isValid(), again);
        dock->hide();
        dock->setProperty(WindowMemory::dock_chosen, false);
        window.hide();
    }
}

}  // namespace
}  // namespace zel
