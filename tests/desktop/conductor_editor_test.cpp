#include "desktop/conductors/conductor_editor.h"

#include <QHeaderView>
#include <QPushButton>
#include <QTableView>
#include <fstream>
#include <sstream>

#include "desktop_fixture.h"
#include "persistence/exchange_record.h"

namespace zel {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr const char* exchange = "/link/einseil1.dat";
constexpr const char* own_file = "/data/conductors.csv";

std::string shipped_file(const char* name) {
    std::ostringstream content;
    content << std::ifstream(std::string(ZEL_SOURCE_DIR "/data/") + name).rdbuf();
    return content.str();
}

class ConductorEditorTest : public DesktopTest {
protected:
    ConductorEditorTest() {
        disk.files["/shipped/conductors.csv"] = shipped_file("conductors.csv");
        disk.files["/shipped/materials.csv"] = shipped_file("materials.csv");
        shared_settings.write("Seildatei", "Seildatenbanknamepluspfad", "/usr/bin/zel");
        shared_settings.write("Seildatei", "Einseil1_dat", exchange);
    }
    void open_editor(const CalcCase& c = {}, LangId lang = LangId::English,
                     DecimalSeparator separator = DecimalSeparator::Point) {
        open(c, lang, separator);
        control<QPushButton>("Command3").click();
        QApplication::processEvents();
    }

    ConductorEditor& editor() {
        auto* found = form1().findChild<ConductorEditor*>();
        EXPECT_NE(found, nullptr);
        return *found;
    }
    template <class Widget>
    Widget& part(const char* name) {
        auto* found = editor().findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    void click(const char* button) {
        part<QPushButton>(button).click();
        QApplication::processEvents();
    }
    void find(const std::string& words) { part<QLineEdit>("find").setText(qt(words)); }
    /// Types into a box of the sheet and leaves it.
    void fill_in(const char* name, const std::string& text) {
        auto& box = part<QLineEdit>(name);
        box.setText(qt(text));
        QFocusEvent left(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(&box, &left);
    }
    std::string in_box(const char* name) { return part<QLineEdit>(name).text().toStdString(); }
    std::string told(const char* label) { return part<QLabel>(label).text().toStdString(); }
    std::vector<std::string> listed() {
        std::vector<std::string> names;
        const auto& model = *part<QTableView>("conductors").model();
        for (int row = 0; row < model.rowCount(); ++row)
            names.push_back(model.index(row, 0).data().toString().toStdString());
        return names;
    }
    std::string exchanged_name() {
        return read_record(disk.files[exchange], DecimalSeparator::Point).Bezeichnung1_db;
    }
};

TEST_F(ConductorEditorTest, opens_from_the_conductor_page_with_all_conductors) {
    open_editor();
    EXPECT_TRUE(editor().isVisible());
    EXPECT_THAT(listed(), SizeIs(99));
    EXPECT_EQ(told("count"), "99 of 99 conductors");
    EXPECT_EQ(in_box("Bezeichnung1_db"), "15-AL1/3-ST1A");
    EXPECT_TRUE(part<QLineEdit>("Bezeichnung1_db").isReadOnly());
    EXPECT_FALSE(part<QPushButton>("change").isEnabled());
    EXPECT_FALSE(part<QPushButton>("keep").isVisible());
}

TEST_F(ConductorEditorTest, finds_as_words_are_typed_and_shows_the_first) {
    open_editor();
    find("tube 120");
    EXPECT_THAT(listed(), ElementsAre("TUBE 120x6 E-AlMgSi0.5", "TUBE 120x8 E-AlMgSi0.5",
                                      "TUBE 120x10 E-AlMgSi0.5"));
    EXPECT_EQ(in_box("Bezeichnung1_db"), "TUBE 120x6 E-AlMgSi0.5");
    find("no such");
    EXPECT_THAT(listed(), IsEmpty());
    EXPECT_EQ(in_box("Bezeichnung1_db"), "");
    EXPECT_FALSE(part<QPushButton>("choose").isEnabled());
    find("");
    EXPECT_TRUE(part<QPushButton>("choose").isEnabled());
}

TEST_F(ConductorEditorTest, sorts_by_names_and_numbers) {
    open_editor();
    auto& view = part<QTableView>("conductors");
    find("-AL1/");
    view.sortByColumn(0, Qt::AscendingOrder);
    EXPECT_EQ(listed().front(), "15-AL1/3-ST1A");
    EXPECT_EQ(listed().back(), "1046-AL1/45-ST1A");
    find("tube");
    view.sortByColumn(5, Qt::AscendingOrder);  // the resistance
    EXPECT_EQ(listed().front(), "TUBE 250x10 E-AlMgSi0.5");
    EXPECT_EQ(listed().back(), "TUBE 80x5 E-AlMgSi0.5");
}

TEST_F(ConductorEditorTest, tells_which_methods_cannot_run) {
    open_editor();
    find("435/55");
    EXPECT_THAT(told("runs_TB601"), HasSubstr("knee-point"));
    EXPECT_EQ(told("runs_TB207"), "can run");
    EXPECT_EQ(told("runs_TBB"), "not for this type of conductor");
    find("tube 80x5");
    EXPECT_EQ(told("runs_TBB"), "can run");
    EXPECT_EQ(told("runs_Webs"), "not for this type of conductor");
}

TEST_F(ConductorEditorTest, writes_the_record_and_takes_it_over_on_wish) {
    CalcCase c = twin_264_34();
    c.KniepunktTemperatur_db = typed(100);
    open_editor(c);
    find("435/55");
    click("choose");
    EXPECT_FALSE(editor().isVisible());
    EXPECT_EQ(exchanged_name(), "434-AL1/56-ST1A");
    EXPECT_EQ(calc_case().Bezeichnung1_db, c.Bezeichnung1_db);

    control<QPushButton>("Command3").click();
    std::string seen;  // on the form, behind the box
    dialogs.while_shown = [&] { seen = typed_in("Bezeichnung1_db"); };
    click("choose_and_take_over");
    EXPECT_EQ(seen, "434-AL1/56-ST1A");
    EXPECT_EQ(calc_case().Bezeichnung1_db, "434-AL1/56-ST1A");
    EXPECT_EQ(calc_case().KniepunktTemperatur_db, typed(100));
    EXPECT_EQ(typed_in("DCR_20_db"), "0.0666");
    EXPECT_EQ(typed_in("Seildurchmesser_db"), "28.8");
    EXPECT_EQ(typed_in("T_Koeff_DC_Resist_Leiter_quadrat_db"), "0.00");
    EXPECT_EQ(typed_in("Normjahr_db"), "2001");
    EXPECT_EQ(typed_in("Normmonat_db"), "00");
    EXPECT_EQ(typed_in("DrahtzahlLeiter_db"), "54");
    // What the record lacks and the case has not is filled from the library, and told.
    EXPECT_EQ(typed_in("Text23"), "1.5");
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_THAT(joined(dialogs.shown.front().lines, "\n"), HasSubstr("below the knee point: 1.5"));
    EXPECT_TRUE(form1().isWindowModified());
}

TEST_F(ConductorEditorTest, command4_tells_why_nothing_is_taken_over) {
    open(twin_264_34());
    auto& Command4 = control<QPushButton>("Command4");
    Command4.click();  // no exchange file
    ConductorData tube;
    tube.conductor_type_db = tubular_busbar;
    disk.files[exchange] = written_record(tube);
    Command4.click();
    disk.files[exchange].replace(496, 4, std::string("\x00\x00\xC0\x7F", 4));  // no number
    Command4.click();
    ASSERT_THAT(dialogs.shown, SizeIs(3));
    EXPECT_EQ(dialogs.shown[0].title, "Conductor data not selected !");
    EXPECT_EQ(dialogs.shown[1].title, " Invalid choice of conductor");
    EXPECT_THAT(dialogs.shown[2].lines.back(), HasSubstr("DCR_20_db"));
    EXPECT_EQ(calc_case(), forms::case_for_form(twin_264_34()));
}

TEST_F(ConductorEditorTest, a_record_from_elsewhere_is_taken_over_without_a_word) {
    ConductorData other;
    other.Bezeichnung1_db = "Größe";
    other.conductor_type_db = homogeneous_conductor;
    disk.files[exchange] = written_record(other);
    open(twin_264_34());
    control<QPushButton>("Command4").click();
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(typed_in("Bezeichnung1_db"), "Größe");
    EXPECT_EQ(typed_in("DCR_20_db"), "0.0");
}

TEST_F(ConductorEditorTest, starts_another_conductor_database_where_the_settings_name_one) {
    shared_settings.write("Seildatei", "Seildatenbanknamepluspfad", "/opt/other/database");
    open_editor();
    EXPECT_THAT(launcher.started, ElementsAre("/opt/other/database"));
    EXPECT_EQ(form1().findChild<ConductorEditor*>(), nullptr);
    launcher.works = false;
    control<QPushButton>("Command3").click();
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown.front().title, "Error extern program start...");
    EXPECT_THAT(dialogs.shown.front().lines.front(), HasSubstr("Error 53 in Form1.Command3_click"));
}

TEST_F(ConductorEditorTest, copies_changes_and_deletes_a_conductor_of_ones_own) {
    open_editor({}, LangId::German, DecimalSeparator::Comma);
    find("265/35");
    click("copy");
    EXPECT_FALSE(part<QLineEdit>("find").isEnabled());
    EXPECT_EQ(in_box("Bezeichnung1_db"), "264-AL1/34-ST1A - Kopie");
    fill_in("Bezeichnung1_db", "Hausseil");
    fill_in("Text7", "95,5");
    fill_in("mass", "1000,5");
    EXPECT_EQ(told("runs_TB601"), "kann rechnen");
    click("keep");
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(in_box("Bezeichnung1_db"), "Hausseil");
    EXPECT_THAT(disk.files[own_file],
                AllOf(HasSubstr("Hausseil"), HasSubstr(",95.5,"), HasSubstr(",1000.5,")));
    EXPECT_EQ(told("count"), "2 von 100 Leitern");

    click("change");
    fill_in("DCR_20_db", "0,11");
    click("keep");
    EXPECT_EQ(in_box("DCR_20_db"), "0,11");
    EXPECT_THAT(disk.files[own_file], Not(HasSubstr("0.1095")));

    click("remove");  // without a user's yes
    EXPECT_THAT(disk.files[own_file], HasSubstr("Hausseil"));
    dialogs.answers = {Answer::Yes};
    click("remove");
    EXPECT_THAT(disk.files[own_file], Not(HasSubstr("Hausseil")));
    EXPECT_EQ(told("count"), "1 von 99 Leitern");
}

TEST_F(ConductorEditorTest, keeps_nothing_without_name_and_kind_or_with_a_name_that_is_taken) {
    open_editor();
    click("add");
    click("keep");
    fill_in("Bezeichnung1_db", "New");
    click("keep");
    auto& type = part<QComboBox>("conductor_type_db");
    type.setCurrentIndex(1);
    emit type.activated(1);
    click("keep");
    ASSERT_THAT(dialogs.shown, SizeIs(2));
    EXPECT_THAT(dialogs.shown[0].lines.front(), HasSubstr("designation 1"));
    EXPECT_THAT(dialogs.shown[1].lines.front(), HasSubstr("type and shape"));
    EXPECT_THAT(disk.files[own_file], HasSubstr("New"));

    click("copy");
    fill_in("Bezeichnung1_db", "new");
    click("keep");
    EXPECT_THAT(dialogs.shown.back().lines.front(), HasSubstr("these two designations already"));
    fill_in("Bezeichnung1_db", std::string(51, 'x'));
    click("keep");
    EXPECT_THAT(dialogs.shown.back().lines.back(), HasSubstr("a record holds 50"));
}

TEST_F(ConductorEditorTest, figures_that_contradict_each_other_are_kept_on_a_yes_only) {
    open_editor();
    find("265/35");
    click("copy");
    fill_in("DCR_20_db", "0.9015");
    click("keep");
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_THAT(joined(dialogs.shown.front().lines, "\n"), HasSubstr("DC resistance at 20 °C"));
    EXPECT_FALSE(disk.files.contains(own_file));
    dialogs.answers = {Answer::Yes};
    click("keep");
    EXPECT_THAT(disk.files[own_file], HasSubstr("confirmed by the user"));
    EXPECT_FALSE(part<QPushButton>("keep").isVisible());
}

TEST_F(ConductorEditorTest, a_refused_number_keeps_the_sheet_open) {
    open_editor();
    click("copy");
    part<QLineEdit>("DCR_20_db").setText("much");
    click("keep");
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_TRUE(part<QPushButton>("keep").isVisible());
    EXPECT_FALSE(disk.files.contains(own_file));
}

TEST_F(ConductorEditorTest, asks_before_changes_are_lost) {
    open_editor();
    click("copy");
    editor().reject();  // answered with No
    EXPECT_TRUE(editor().isVisible());
    EXPECT_TRUE(part<QPushButton>("keep").isVisible());
    dialogs.answers = {Answer::Yes};
    click("discard");
    EXPECT_FALSE(part<QPushButton>("keep").isVisible());
    EXPECT_THAT(dialogs.shown, SizeIs(2));
    editor().reject();
    EXPECT_FALSE(editor().isVisible());
    EXPECT_THAT(dialogs.shown, SizeIs(2));
}

TEST_F(ConductorEditorTest, does_not_ask_where_nothing_was_changed) {
    open_editor();
    click("copy");
    click("keep");
    click("change");
    click("discard");
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_FALSE(part<QPushButton>("keep").isVisible());
}

TEST_F(ConductorEditorTest, tells_a_refused_own_file_and_leaves_it) {
    disk.files[own_file] = "colour\nred\n";
    open_editor();
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_THAT(joined(dialogs.shown.front().lines, "\n"), HasSubstr("unknown column \"colour\""));
    EXPECT_THAT(listed(), SizeIs(99));
    click("copy");
    click("keep");
    EXPECT_EQ(disk.files[own_file], "colour\nred\n");
}

TEST_F(ConductorEditorTest, tells_what_is_missing_to_work) {
    disk.files.erase("/shipped/conductors.csv");
    open_editor();
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_THAT(dialogs.shown.front().lines.back(), HasSubstr("/shipped/conductors.csv"));
    EXPECT_EQ(form1().findChild<ConductorEditor*>(), nullptr);
}

TEST_F(ConductorEditorTest, tells_an_exchange_file_that_cannot_be_written) {
    shared_settings.write("Seildatei", "Einseil1_dat", "/locked/einseil1.dat");
    open_editor();
    click("choose");
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_THAT(dialogs.shown.front().lines.back(), HasSubstr("/locked/einseil1.dat"));
    EXPECT_TRUE(editor().isVisible());
}

TEST_F(ConductorEditorTest, changes_its_language_with_the_program) {
    open_editor();
    form1().findChild<QAction*>("m_userinterface_german")->trigger();
    QApplication::processEvents();
    EXPECT_EQ(editor().windowTitle().toStdString(), "Leiterdatenbank");
    EXPECT_EQ(told("count"), "99 von 99 Leitern");
    EXPECT_EQ(part<QPushButton>("copy").text().toStdString(), "&Kopieren");
    EXPECT_EQ(told("runs_TB207"), "kann rechnen");
}

TEST_F(ConductorEditorTest, a_picked_conductor_rates) {
    CalcCase c = twin_264_34();
    static_cast<ConductorData&>(c) = ConductorData{};
    open_editor(c);
    find("265/35");
    click("choose_and_take_over");
    go_to(2);
    EXPECT_EQ(dialogs.shown.size(), 1U);  // what was filled from the library, and no refusal
    EXPECT_EQ(pages().currentIndex(), 2);
    EXPECT_THAT(
        form1().findChildren<QLabel*>(),
        testing::Contains(testing::ResultOf(
            [](const QLabel* label) { return label->text().toStdString(); }, HasSubstr(" A"))));
}

}  // namespace
}  // namespace zel
