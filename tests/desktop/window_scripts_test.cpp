// Scripts of tests/data/windows/: what a user does in the windows, and what he then sees. A step is
// a list of its verb and what the verb needs; controls go by their names in the present window.
// Each box that comes up must be told by a step.

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QTabBar>
#include <QTableView>
#include <QTimer>
#include <map>

#include "desktop/desktop_fixture.h"
#include "desktop/window_checks.h"
#include "fakes/short_circuit_cases.h"
#include "fakes/steady_cases.h"
#include "fakes/tb601_cases.h"
#include "fakes/test_data.h"
#include "fakes/transient_cases.h"
#include "persistence/case_file.h"
#include "persistence/database/case_table.h"
#include "persistence/exchange_record.h"

namespace zel {
namespace {

using nlohmann::json;

CalcCase without_conductor(CalcCase c) {
    static_cast<ConductorData&>(c) = ConductorData{};
    return c;
}

CalcCase case_named(const std::string& name) {
    const std::map<std::string, CalcCase> cases = {
        {"", {}},
        {"twin", twin_264_34()},
        {"twin_at_600", twin_264_34_at(600)},
        {"sunny", sunny_264_34()},
        {"twin_without_conductor", without_conductor(twin_264_34())},
        {"bundle", bundle_with_rows({})},
        {"bundle_with_row", bundle_with_rows({typed_temperature_row(1600, 10, 0)})},
        {"failing_rows",
         bundle_with_rows({typed_temperature_row(1600, 10, 0), typed_time_row(1700, 20),
                           typed_temperature_row(1600, 10, 0)})}};
    return cases.at(name);
}

ShortCircuitForm form_named(const std::string& name) {
    if (name == "copper_far") return copper_far();
    if (name == "limited_equipment") return limited_equipment();
    return {};
}

FlatObject flat(const json& object) {
    FlatObject values;
    for (const auto& [key, value] : object.items())
        values.push_back({key, value.is_number()    ? FlatValue(value.get<double>())
                               : value.is_boolean() ? FlatValue(value.get<bool>())
                                                    : FlatValue(value.get<std::string>())});
    return values;
}

/// "@" stands before the name of a record of a conductor.
std::string disk_file(const std::string& content) {
    ConductorData c;
    c.conductor_type_db = tubular_busbar;
    if (content == "@tube") return written_record(c);
    if (content == "@no_number")
        return written_record(c).replace(496, 4, std::string("\x00\x00\xC0\x7F", 4));
    if (content == "@heavy") {
        c.Bezeichnung1_db = "TUBE 120x8";
        c.Mantelquerschnitt_db = typed(2814.9);  // the record holds 32 bits
        c.c_leiter20_db = typed(897);
        c.DC_Resist_Leiter_db = typed(33.333);
        c.T_Koeff_DC_Resist_Leiter_linear_db = typed(3.6);
        c.Dichte_Leiterwerkstoff1_db = typed(50);  // is refused
        return written_record(c);
    }
    if (content == "@other") {
        c.Bezeichnung1_db = "Größe";
        c.conductor_type_db = homogeneous_conductor;
        return written_record(c);
    }
    return content;
}

/// A table of calculations with this number of columns.
MemoryTable empty_table(const std::string& name, std::size_t columns) {
    MemoryTable table = {name, {}};
    const auto& all = case_tables().columns;
    for (std::size_t i = 0; i < columns; ++i)
        table.columns.push_back(i < all.size() ? all[i].name : "more" + std::to_string(i));
    return table;
}

Answer answer_named(const std::string& name) {
    const std::map<std::string, Answer> answers = {{"yes", Answer::Yes},
                                                   {"no", Answer::No},
                                                   {"save", Answer::Save},
                                                   {"discard", Answer::Discard},
                                                   {"cancel", Answer::Cancel}};
    return answers.at(name);
}

/// "~" stands before a part of the text.
bool fits(const std::string& text, const std::string& expected) {
    if (!expected.starts_with('~')) return text == expected;
    return text.find(expected.substr(1)) != std::string::npos;
}

std::string shown_in(const QWidget& widget) {
    if (const auto* list = qobject_cast<const QComboBox*>(&widget))
        return list->currentText().toStdString();
    return widget.property("text").toString().toStdString();
}

class WindowScript : public DesktopTest {
public:
    explicit WindowScript(json script) : script_(std::move(script)) {}

    void TestBody() override {
        const json disk_files = part("disk"), case_files = part("files"),
                   settings_file = part("settings");
        for (const char* name : {"conductors.csv", "materials.csv"})
            disk.files[std::string("/shipped/") + name] = shipped_file(name);
        shared_settings.write("Seildatei", "Seildatenbanknamepluspfad", "/usr/bin/zel");
        shared_settings.write("Seildatei", "Einseil1_dat", "/link/einseil1.dat");
        for (const auto& [path, content] : disk_files.items())
            content == "@nothing" ? void(disk.files.erase(path))
                                  : void(disk.files[path] = disk_file(content));
        for (const auto& [path, values] : case_files.items()) store.files[path] = flat(values);
        const json databases = part("databases");
        for (const auto& [path, columns] : databases.items())
            for (const auto& [table, count] : columns.items())
                tables.files[path].push_back(empty_table(table, count));
        const LangId lang = script_.value("lang", LangId::English);
        short_circuit = form_named(script_.value("short_circuit", ""));
        CalcCase c = case_named(script_.value("case", ""));
        set_fields(c, part("with"));
        for (const auto& [key, value] : settings_file.items())
            shared_settings.write("Seildatei", key, value.get<std::string>());
        open(c, lang, lang == LangId::German ? DecimalSeparator::Comma : DecimalSeparator::Point);
        if (script_.contains("window")) to_window(script_["window"]);
        run(script_.at("steps"));
        for (; told < dialogs.shown.size(); ++told)
            ADD_FAILURE() << "box " << as_json({dialogs.shown[told]}).dump();
    }

private:
    json part(const char* name) const { return script_.value(name, json::object()); }

    static QWidget& top_window(const std::string& name) {
        for (QWidget* candidate : QApplication::topLevelWidgets())
            if (candidate->objectName() == qt(name)) return *candidate;
        throw std::invalid_argument("no window " + name);
    }
    void to_window(const std::string& name) {
        window = &top_window(name);
        window->show();
        window->activateWindow();
        QApplication::processEvents();
    }

    template <class Object = QWidget>
    Object& part_of_window(const std::string& name) {
        auto* found = window->findChild<Object*>(qt(name));
        if (found == nullptr) throw std::invalid_argument("no " + name);
        return *found;
    }
    QWidget& widget(const json& name) { return part_of_window(name.get<std::string>()); }

    void run(const json& steps) {
        for (const json& step : steps) {
            SCOPED_TRACE(step.dump());
            run_step(step);
            QApplication::processEvents();
        }
    }
    void run_step(const json& step) {
        const std::string verb = step.at(0);
        if (!act(verb, step)) expect(verb, step);
    }

    void key(QWidget& target, const std::string& name) {
        const auto pressed = QKeySequence::fromString(qt(name))[0];
        const QString typed = name.size() == 1 ? qt(name) : name == "Backspace" ? "\b" : "";
        press(target, pressed.key(), typed, pressed.keyboardModifiers());
    }
    static void leave(QWidget& box) {
        QFocusEvent left(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(&box, &left);
    }

    bool act(const std::string& verb, const json& step) {
        const std::string first =
            step.size() > 1 && step[1].is_string() ? step[1].get<std::string>() : "";
        const int leaves = step.size() > 3 && step[3] == "Return" ? Qt::Key_Return : Qt::Key_Tab;
        if (verb == "window")
            to_window(first);
        else if (verb == "type")
            type(first.c_str(), step.at(2), leaves);
        else if (verb == "paste")
            paste(first.c_str(), step.at(2), leaves);
        else if (verb == "set")
            part_of_window<QLineEdit>(first).setText(qt(step.at(2).get<std::string>()));
        else if (verb == "fill") {
            auto& box = part_of_window<QLineEdit>(first);
            box.setText(qt(step.at(2).get<std::string>()));
            emit box.textEdited(box.text());
            leave(box);
        } else if (verb == "enter")
            widget(first).setFocus();
        else if (verb == "choose") {
            auto& list = part_of_window<QComboBox>(first);
            list.setCurrentIndex(step.at(2));
            emit list.activated(step.at(2));
        } else if (verb == "click")
            part_of_window<QAbstractButton>(first).click();
        else if (verb == "press")
            key(widget(first), step.at(2));
        else if (verb == "page")
            part_of_window<QTabWidget>("SSTab1").setCurrentIndex(step.at(1));
        else if (verb == "do")
            part_of_window<QAction>(first).trigger();
        else if (verb == "answers")
            for (std::size_t i = 1; i < step.size(); ++i)
                dialogs.answers.push_back(answer_named(step[i]));
        else if (verb == "paths")
            for (std::size_t i = 1; i < step.size(); ++i) chooser.paths.push_back(step[i]);
        else if (verb == "disk")
            disk.files[first] = disk_file(step.at(2));
        else if (verb == "sort")
            list().sortByColumn(step.at(1), Qt::AscendingOrder);
        else if (verb == "select")
            list().selectRow(step.at(1));
        else if (verb == "bar")
            part_of_window<QScrollBar>("HScroll1").setValue(step.at(1));
        else if (verb == "gone")
            table_at(step).rows.erase(step.at(3).get<RowKey>());
        else if (verb == "keep")
            kept = shown_in(widget(first));
        else if (verb == "seen_behind_box")
            dialogs.while_shown = [this, first] {
                seen = shown_in(*form1().findChild<QLineEdit*>(qt(first)));
            };
        else if (verb == "calculate")
            part_of_window<QAbstractButton>("calculate_transient").click();
        else if (verb == "chain")
            for (std::size_t i = 2; i + 1 < step.size(); ++i) {
                widget(step[i]).setFocus();
                key(widget(step[i]), step[1]);
                EXPECT_TRUE(widget(step[i + 1]).hasFocus()) << step[i];
            }
        else if (verb == "leaves_chains")
            dialogs.leaves_chains = true;
        else if (verb == "launcher_works")
            launcher.works = step.at(1);
        else if (verb == "close")
            window->close();
        else if (verb == "size")
            window->resize(step.at(1), step.at(2));
        else if (verb == "time")
            pass(std::chrono::milliseconds(step.at(1).get<int>()));
        else if (verb == "timer")
            QMetaObject::invokeMethod(window->findChild<QTimer*>(qt(first)), "timeout");
        else if (verb == "sends")
            sensor_ports.waiting[first] += step.at(2).get<std::string>();
        else if (verb == "unplug")
            sensor_ports.waiting.erase(first);
        else if (verb == "modal")
            in_modal(step);
        else
            return false;
        return true;
    }

    /// Time goes by for a measuring cycle.
    void pass(std::chrono::milliseconds time) {
        clock.gone += time;
        QMetaObject::invokeMethod(window->findChild<QTimer*>("Timer1"), "timeout");
    }

    /// A step that opens a modal window, and the steps in it.
    void in_modal(const json& step) {
        QTimer::singleShot(0, [&] {
            QWidget* behind = std::exchange(window, QApplication::activeModalWidget());
            if (window == nullptr) {
                window = behind;
                ADD_FAILURE() << "no modal window";
                return;
            }
            auto* dialog = qobject_cast<QDialog*>(window);
            run(step.at(2));
            window = behind;
            if (dialog->isVisible()) dialog->reject();
        });
        run_step(step.at(1));
    }

    template <class Look>
    void each(const json& step, const Look& look) {
        for (std::size_t i = 1; i < step.size(); ++i) look(step[i]);
    }

    void expect(const std::string& verb, const json& step) {
        if (verb == "box") return expect_box(step);
        if (verb == "text") {
            for (std::size_t i = 1; i + 1 < step.size(); i += 2)
                EXPECT_PRED2(fits, shown_in(widget(step[i])), step[i + 1].get<std::string>());
        } else if (verb == "not_text")
            EXPECT_NE(shown_in(widget(step.at(1))), step.at(2).get<std::string>());
        else if (verb == "kept" || verb == "changed")
            EXPECT_EQ(shown_in(widget(step.at(1))) == kept, verb == "kept") << kept;
        else if (verb == "saw")
            EXPECT_EQ(seen, step.at(1).get<std::string>());
        else if (verb == "needed" || verb == "not_needed")
            each(step, [&](const json& name) {
                EXPECT_EQ(label_of(name).isEnabled(), verb == "needed") << name;
            });
        else if (verb == "label")
            EXPECT_EQ(shown_in(label_of(step.at(1))), step.at(2).get<std::string>());
        else if (verb == "tip")
            EXPECT_EQ(widget(step.at(1)).toolTip().toStdString(), step.at(2).get<std::string>());
        else if (verb == "rows")
            expect_rows(step);
        else if (verb == "read_only")
            EXPECT_EQ(part_of_window<QLineEdit>(step.at(1)).isReadOnly(), step.at(2).get<bool>());
        else if (verb == "do_checked")
            EXPECT_EQ(part_of_window<QAction>(step.at(1)).isChecked(), step.at(2).get<bool>());
        else if (verb == "do_text")
            EXPECT_EQ(part_of_window<QAction>(step.at(1)).text().toStdString(),
                      step.at(2).get<std::string>());
        else if (verb == "is_open")
            EXPECT_TRUE(top_window(step.at(1)).isVisible());
        else if (verb == "unique_keys")
            EXPECT_THAT(shared_keys(*window, step.size() > 1 ? step[1].get<std::string>() : ""),
                        testing::IsEmpty());
        else if (verb == "sound_looks") {
            for (int layout = 0; layout < 3; ++layout) QApplication::processEvents();
            EXPECT_THAT(cut_texts(*window), testing::IsEmpty());
            EXPECT_THAT(untold_controls(*window), testing::IsEmpty());
        } else if (verb == "in_sight")
            EXPECT_EQ(widget(step.at(1)).visibleRegion(), QRegion(widget(step[1]).rect()));
        else if (verb == "focus")
            EXPECT_TRUE(widget(step.at(1)).hasFocus());
        else if (verb == "open")
            each(step, [&](const json& name) { EXPECT_TRUE(widget(name).isEnabled()) << name; });
        else if (verb == "closed")
            each(step, [&](const json& name) { EXPECT_FALSE(widget(name).isEnabled()) << name; });
        else if (verb == "visible")
            each(step, [&](const json& name) { EXPECT_TRUE(widget(name).isVisible()) << name; });
        else if (verb == "hidden")
            each(step, [&](const json& name) { EXPECT_FALSE(widget(name).isVisible()) << name; });
        else if (verb == "absent")
            each(step, [&](const json& name) {
                EXPECT_EQ(window->findChild<QObject*>(qt(name.get<std::string>())), nullptr);
            });
        else if (verb == "checked" || verb == "unchecked")
            each(step, [&](const json& name) {
                EXPECT_EQ(widget(name).property("checked").toBool(), verb == "checked") << name;
            });
        else if (verb == "can" || verb == "cannot")
            each(step, [&](const json& name) {
                EXPECT_EQ(part_of_window<QAction>(name).isEnabled(), verb == "can") << name;
            });
        else if (verb == "at")
            EXPECT_EQ(part_of_window<QTabWidget>("SSTab1").currentIndex(), step.at(1));
        else if (verb == "tab_open")
            EXPECT_EQ(part_of_window<QTabWidget>("SSTab1").isTabEnabled(step.at(1)), step.at(2));
        else if (verb == "title")
            EXPECT_PRED2(fits, window->windowTitle().toStdString(), step.at(1).get<std::string>());
        else if (verb == "modified")
            EXPECT_EQ(window->isWindowModified(), step.at(1).get<bool>());
        else if (verb == "shown")
            EXPECT_EQ(window->isVisible(), step.at(1).get<bool>());
        else if (verb == "clipboard")
            EXPECT_PRED2(fits, QApplication::clipboard()->text().toStdString(),
                         step.at(1).get<std::string>());
        else if (verb == "case")
            expect_value(values_of(calc_case()), step.at(1), step.at(2));
        else if (verb == "file")
            expect_value(store.files.at(step.at(1)), step.at(2), step.at(3));
        else if (verb == "disk_has")
            EXPECT_PRED2(fits, on_disk(step.at(1)), step.at(2).get<std::string>());
        else if (verb == "disk_lacks")
            EXPECT_FALSE(fits(on_disk(step.at(1)), step.at(2)));
        else if (verb == "stored")
            EXPECT_EQ(table_at(step).rows.size(), step.at(3));
        else if (verb == "asked")
            expect_asked(step);
        else if (verb == "started")
            EXPECT_EQ(launcher.started.back(), step.at(1).get<std::string>());
        else if (verb == "colour")
            EXPECT_EQ(
                widget(step.at(1))
                    .palette()
                    .color(widget(step[1]).isEnabled() ? QPalette::Active : QPalette::Disabled,
                           step.at(2) == "text"   ? QPalette::WindowText
                           : step.at(2) == "base" ? QPalette::Base
                                                  : QPalette::Window)
                    .name()
                    .toStdString(),
                step.at(3).get<std::string>());
        else
            ADD_FAILURE() << "no such verb";
    }

    std::string on_disk(const std::string& path) {
        return disk.files.contains(path) ? disk.files.at(path) : std::string();
    }
    QLabel& label_of(const json& input) {
        for (QLabel* label : window->findChildren<QLabel*>())
            if (label->buddy() == &widget(input)) return *label;
        throw std::invalid_argument("no label");
    }
    QTableView& list() { return *window->findChild<QTableView*>(); }
    MemoryTable& table_at(const json& step) {
        for (MemoryTable& table : tables.files.at(step.at(1)))
            if (table.name == step.at(2)) return table;
        throw std::invalid_argument("no table");
    }
    /// How many lines are listed, and the first and the last.
    void expect_rows(const json& step) {
        const auto& model = *list().model();
        ASSERT_EQ(model.rowCount(), step.at(1));
        const auto name = [&](int row) { return model.index(row, 0).data().toString(); };
        if (step.size() < 4) return;
        EXPECT_EQ(name(0).toStdString(), step[2].get<std::string>());
        EXPECT_EQ(name(model.rowCount() - 1).toStdString(), step[3].get<std::string>());
    }

    /// No two controls in sight, and no two entries of a menu, have the same alt key, but for
    /// `shared`.
    /// Title, folder and preset name of the last question for a path.
    void expect_asked(const json& step) {
        const PathQuestion& question = chooser.questions.back();
        EXPECT_EQ(json({question.title, question.folder, question.name}),
                  json({step.at(1), step.at(2), step.at(3)}));
        EXPECT_EQ(question.suffix, "mdb");
    }

    /// The next box: all parts stand in its title or lines.
    void expect_box(const json& step) {
        ASSERT_LT(told, dialogs.shown.size()) << "no box";
        const Box& box = dialogs.shown[told++];
        const std::string text = box.title + "\n" + joined(box.lines, "\n");
        each(step, [&](const json& part) { EXPECT_THAT(text, testing::HasSubstr(part)); });
    }
    static void expect_value(const FlatObject& values, const std::string& key, const json& value) {
        const auto found =
            std::find_if(values.begin(), values.end(),
                         [&](const FlatMember& member) { return member.key == key; });
        if (value.is_null()) {
            EXPECT_TRUE(found == values.end()) << key;
            return;
        }
        ASSERT_NE(found, values.end()) << key;
        EXPECT_EQ(found->value, flat({{key, value}}).front().value) << key;
    }

    json script_;
    std::size_t told = 0;  // boxes
    std::string kept, seen;
};

const bool registered = [] {
    for (const char* area :
         {"form1", "case_files", "keys", "parameter_table", "transient_page", "ks_form1",
          "conductors", "settings", "databases", "measuring", "messages"})
        for (const json& script : test_data(std::string("windows/") + area))
            testing::RegisterTest(area, script.at("name").get<std::string>().c_str(), nullptr,
                                  nullptr, __FILE__, __LINE__,
                                  [script]() -> WindowScript* { return new WindowScript(script); });
    return true;
}();

}  // namespace
}  // namespace zel
