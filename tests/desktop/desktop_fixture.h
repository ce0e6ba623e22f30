#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include "desktop/form_main.h"
#include "fakes/memory_stores.h"
#include "fakes/memory_tables.h"
#include "fakes/memory_workbook.h"
#include "fakes/scripted_chooser.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/scripted_ports.h"
#include "fakes/scripted_printers.h"
#include "fakes/steady_cases.h"
#include "forms/line_form.h"

namespace zel {

/// The windows of the program over a scripted user, with controls found by their names.
class DesktopTest : public testing::Test {
protected:
    void open(const CalcCase& c, LangId lang, DecimalSeparator separator) {
        form_main.reset();
        user_settings.write("MultiLang", "LangId", lang == LangId::German ? "1" : "2");
        settings.reread_all();
        settings.set_for_this_run(&ProgramSettings::Punkt_Komma_Format_merker,
                                  static_cast<std::int16_t>(separator));
        shared_settings.written.clear();
        user_settings.written.clear();
        // NOLINTNEXTLINE(modernize-make-unique): an aggregate that refers to itself
        state.reset(new DesktopState{forms::case_for_form(c),
                                     {lang, separator, RunMode::Messages, dialogs},
                                     store,
                                     chooser,
                                     {settings},
                                     launcher,
                                     disk,
                                     *used_workbooks,
                                     *used_tables,
                                     printers,
                                     [this] { return print_time; },
                                     sensor_ports,
                                     clock,
                                     {"/shipped", "/data/conductors.csv"}});
        state->session.memory = &state->memory;
        state->short_circuit = short_circuit;
        state->patience_ms = patience_ms;
        form_main = std::make_unique<FormMain>(*state);
        form_main->show();
        window = &form1();
        window->show();
        window->activateWindow();
        QApplication::processEvents();
    }
    void open(const CalcCase& c = {}) { open(c, LangId::English, DecimalSeparator::Point); }

    Form1& form1() { return form_main->form1(); }
    CalcCase& calc_case() { return state->calc_case; }

    /// A file of the conductors that come with the program.
    static std::string shipped_file(const std::string& name) {
        std::ostringstream content;
        content << std::ifstream(ZEL_SOURCE_DIR "/data/" + name).rdbuf();
        return content.str();
    }

    /// In the window that the test works with.
    template <class Widget = QLineEdit>
    Widget& control(const char* name) {
        auto* found = window->findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    std::string shown(const char* label) { return control<QLabel>(label).text().toStdString(); }
    std::string typed_in(const char* box) { return control(box).text().toStdString(); }

    void press(QWidget& widget, int key, const QString& text = {},
               Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(&widget, &down);
    }
    /// Types into a box and leaves it by `key`, as a user does.
    void type(const char* name, const std::string& text, int key = Qt::Key_Tab) {
        auto& box = control(name);
        box.setFocus();
        ASSERT_TRUE(box.hasFocus()) << name;
        box.selectAll();
        press(box, Qt::Key_Delete);
        for (const QChar letter : qt(text)) press(box, 0, letter);
        press(box, key);
        QApplication::processEvents();
    }
    /// Pastes into a box in place of its text and leaves it by `key`.
    void paste(const char* name, const std::string& text, int key = Qt::Key_Tab) {
        auto& box = control(name);
        box.setFocus();
        box.selectAll();
        QApplication::clipboard()->setText(qt(text));
        press(box, Qt::Key_V, "\x16", Qt::ControlModifier);
        press(box, key);
        QApplication::processEvents();
    }
    void choose(const char* name, int index) {
        auto& list = control<QComboBox>(name);
        list.setCurrentIndex(index);
        emit list.activated(index);
    }

    QTabWidget& pages() { return control<QTabWidget>("SSTab1"); }
    void go_to(int page) {
        pages().setCurrentIndex(page);
        QApplication::processEvents();
    }

    ScriptedDialogs dialogs;
    MemoryCaseStore store;
    ScriptedChooser chooser;
    MemorySettings shared_settings, user_settings;
    Settings settings{shared_settings, user_settings, "/data"};
    RecordingLauncher launcher;
    MemoryFiles disk;
    MemoryWorkbookStore workbooks;
    WorkbookStore* used_workbooks = &workbooks;
    MemoryTableStore tables;
    TableStore* used_tables = &tables;
    ScriptedPrinters printers;
    CalendarTime print_time = {22, 11, 2026, 9, 5};
    ShortCircuitForm short_circuit;  // of the short-circuit area at the start
    ScriptedPorts sensor_ports;
    ScriptedClock clock;
    int patience_ms = 300;
    QWidget* window = nullptr;
    std::unique_ptr<DesktopState> state;
    std::unique_ptr<FormMain> form_main;
};

}  // namespace zel
