#include "desktop/short_circuit/ks_form1.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <memory>

#include "desktop/frame/qt_text.h"
#include "fakes/memory_stores.h"
#include "fakes/scripted_chooser.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/short_circuit_cases.h"
#include "shell/program_texts.h"
#include "short_circuit/short_circuit_file.h"

namespace zel {
namespace {

using C = ShortCircuitCase;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

/// The form over a scripted user, with controls found by their names.
class KsForm1Test : public testing::Test {
protected:
    void open(const ShortCircuitForm& form = {}, LangId lang = LangId::English,
              DecimalSeparator separator = DecimalSeparator::Point) {
        window.reset();
        session = std::make_unique<Session>(Session{lang, separator, RunMode::Messages, dialogs});
        state = std::make_unique<KsState>(KsState{*session, store, chooser, form});
        link();
        window = std::make_unique<KsForm1>(*state, name, [this](LangId to) { switched = to; });
        window->show();
        window->activateWindow();
        QApplication::processEvents();
    }
    virtual void link() {}

    template <class Widget = QLineEdit>
    Widget& control(const char* control_name) {
        auto* found = window->findChild<Widget*>(control_name);
        EXPECT_NE(found, nullptr) << control_name;
        return *found;
    }
    std::string text_in(const char* box) { return control(box).text().toStdString(); }
    std::string shown(const char* label) { return control<QLabel>(label).text().toStdString(); }
    bool is_open(const char* input) { return control<QWidget>(input).isEnabled(); }
    QTabWidget& pages() { return control<QTabWidget>("SSTab1"); }
    const C& content() { return state->form.content(); }

    void press(QWidget& widget, int key, const QString& text = {}) {
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(&widget, &down);
    }
    /// Types into a box and leaves it by `key`, as a user does.
    void type(const char* box_name, const std::string& text, int key = Qt::Key_Tab) {
        auto& box = control(box_name);
        box.setFocus();
        ASSERT_TRUE(box.hasFocus()) << box_name;
        box.selectAll();
        press(box, Qt::Key_Delete);
        for (const QChar letter : qt(text)) press(box, 0, letter);
        press(box, key);
        QApplication::processEvents();
    }
    void choose(const char* list_name, int index) {
        auto& list = control<QComboBox>(list_name);
        list.setCurrentIndex(index);
        emit list.activated(index);
    }
    void go_to(int page) {
        pages().setCurrentIndex(page);
        QApplication::processEvents();
    }
    void trigger(const char* action) {
        control<QAction>(action).trigger();
        QApplication::processEvents();
    }

    ScriptedDialogs dialogs;
    MemoryCaseStore store;
    ScriptedChooser chooser;
    Text name = short_circuit_name;
    std::optional<LangId> switched;
    std::unique_ptr<Session> session;
    std::unique_ptr<KsState> state;
    std::unique_ptr<KsForm1> window;
};

TEST_F(KsForm1Test, typed_case_is_judged_on_the_result_page) {
    open({}, LangId::German, DecimalSeparator::Comma);
    choose("Combo1", 1);
    choose("Combo2", 2);
    choose("Combo3", 1);
    choose("Combo5", 1);
    type("Text3", "50");
    type("Text25", "20");
    type("Text26", "1,8");
    type("Text27", "1");
    type("Text6", "1");
    type("Text11", "80");
    type("Text14", "200");
    go_to(ks_conductor_page);
    choose("Combo4", 1);
    type("Text5", "185");
    go_to(ks_result_page);
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(shown("verdict"), "Der Leiter ist thermisch kurzschlußfest !");
    EXPECT_EQ(control<QLabel>("verdict").palette().color(QPalette::WindowText), QColor(0, 192, 0));
    EXPECT_EQ(shown("value_0_2"), "20,44");
    EXPECT_EQ(shown("value_1_0"), "126,59");
    EXPECT_EQ(shown("value_0_3"), "");
    EXPECT_EQ(control<QLabel>("value_0_3").palette().color(QPalette::Window),
              QColor(192, 192, 192));
    trigger("copy_result");
    EXPECT_THAT(QApplication::clipboard()->text().toStdString(),
                HasSubstr("S_th <= S_thr * SQR(T_kr / T_k) :                   ja"));
}

TEST_F(KsForm1Test, verdict_of_weak_equipment_is_red) {
    open(limited_equipment());
    go_to(ks_result_page);
    EXPECT_EQ(shown("verdict"), "Das Betriebsmittel ist thermisch nicht kurzschlußfest !");
    EXPECT_EQ(control<QLabel>("verdict").palette().color(QPalette::WindowText), QColor(255, 0, 0));
    EXPECT_EQ(window->findChild<QWidget*>("group_1"), nullptr) << "the flows are not shown";
}

TEST_F(KsForm1Test, results_are_hidden_by_each_change_of_the_page) {
    open(copper_far());
    go_to(ks_result_page);
    ASSERT_TRUE(control<QLabel>("verdict").isVisible());
    EXPECT_TRUE(control<QAction>("copy_result").isEnabled());
    go_to(ks_input_page);
    type("Text3", "");
    go_to(ks_result_page);
    EXPECT_FALSE(control<QLabel>("verdict").isVisibleTo(&pages()));
    EXPECT_EQ(window->findChild<QWidget*>("group_0"), nullptr);
    EXPECT_FALSE(control<QAction>("copy_result").isEnabled());
}

TEST_F(KsForm1Test, refused_check_leads_to_its_page_and_input) {
    KsTyping typing{copper_far()};
    open(typing.type(&C::kappa20_ks, "").form);
    go_to(ks_result_page);
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].title, "Unvollständige Eingabe");
    EXPECT_EQ(pages().currentIndex(), ks_conductor_page);
    EXPECT_TRUE(control("Text9").hasFocus());

    open();
    go_to(ks_result_page);
    EXPECT_EQ(pages().currentIndex(), ks_input_page);
    EXPECT_TRUE(control("Text3").hasFocus());
    type("Text3", "50");
    go_to(ks_result_page);
    EXPECT_TRUE(control<QComboBox>("Combo1").hasFocus());
}

TEST_F(KsForm1Test, selections_close_and_empty_inputs_at_once) {
    open(copper_far());
    choose("Combo1", 2);
    for (const char* closed :
         {"Combo2", "Combo3", "Text25", "Text24", "Text26", "Text27", "Text1", "Text2"})
        EXPECT_FALSE(is_open(closed)) << closed;
    EXPECT_TRUE(is_open("Text15"));
    EXPECT_EQ(text_in("Text25"), "");
    EXPECT_EQ(control<QComboBox>("Combo3").currentIndex(), 0);
    EXPECT_EQ(control("Text25").palette().color(QPalette::Disabled, QPalette::Base),
              QColor(192, 192, 192));
    choose("Combo5", 2);
    EXPECT_FALSE(pages().isTabEnabled(ks_conductor_page));
    EXPECT_FALSE(is_open("Text11"));
    choose("Combo5", 1);
    EXPECT_TRUE(pages().isTabEnabled(ks_conductor_page));
    EXPECT_EQ(text_in("Text11"), "");
}

TEST_F(KsForm1Test, what_is_no_number_stays_to_be_corrected) {
    open(copper_far());
    type("Text26", "1,8");
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].title, "Incorrect input data");
    EXPECT_EQ(text_in("Text26"), "1,8");
    EXPECT_TRUE(control("Text26").hasFocus());
    EXPECT_EQ(content().Kappa, Entry{});
    choose("Combo2", 1);
    EXPECT_EQ(text_in("Text26"), "1,8") << "other changes leave it there";
    go_to(ks_result_page);
    ASSERT_THAT(dialogs.shown, SizeIs(2)) << "told once, then by the check";
    EXPECT_THAT(dialogs.shown[1].lines,
                ElementsAre("Es wurde keine Angabe zum", "Dauerkurzschlußwechselstrom Ik",
                            "gemacht !", "Bitte vervollständigen Sie ihre Eingabe !"));
    type("Text26", "1.7");
    EXPECT_EQ(content().Kappa.value, 1.7F);
    choose("Combo1", 2);
    EXPECT_EQ(text_in("Text26"), "");
}

TEST_F(KsForm1Test, closed_box_loses_a_text_that_waits_to_be_corrected) {
    open(copper_far());
    type("Text26", "abc");
    choose("Combo1", 2);
    EXPECT_EQ(text_in("Text26"), "");
    choose("Combo1", 1);
    EXPECT_EQ(text_in("Text26"), "");
}

TEST_F(KsForm1Test, number_beyond_its_limit_is_emptied) {
    open(copper_far());
    type("Text3", "100");
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].title, " Fehlerhafte Eingabe");
    EXPECT_EQ(text_in("Text3"), "");
    EXPECT_TRUE(control("Text3").hasFocus());
    EXPECT_EQ(content().Frequenz_ks, Entry{});
}

TEST_F(KsForm1Test, page_with_a_refused_input_stays) {
    open(copper_far());
    auto& box = control("Text3");
    box.setFocus();
    box.selectAll();
    for (const QChar digit : QString("100")) press(box, 0, digit);
    go_to(ks_result_page);
    EXPECT_EQ(pages().currentIndex(), ks_input_page);
    EXPECT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_TRUE(box.hasFocus());
}

TEST_F(KsForm1Test, typing_a_value_of_the_material_resets_the_list) {
    open(copper_far());
    go_to(ks_conductor_page);
    EXPECT_EQ(text_in("Text10"), "0,0039") << "the comma is part of the text";
    type("Text9", "58");
    EXPECT_EQ(control<QComboBox>("Combo4").currentIndex(), 0);
    EXPECT_EQ(text_in("Text8"), "390");
    choose("Combo4", 3);
    EXPECT_EQ(text_in("Text9"), "7,25");
    EXPECT_EQ(control<QComboBox>("Combo4").currentIndex(), 3);
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(KsForm1Test, return_and_tab_lead_to_the_next_open_input) {
    open(copper_far());  // one flow, far from the generator
    const char* order[] = {"Text4",  "Text21", "Text22", "Text20", "Text3",
                           "Combo1", "Combo2", "Text25", "Text26", "Combo3",
                           "Text27", "Combo5", "Text6",  "Text11", "Text14"};
    for (const int key : {Qt::Key_Return, Qt::Key_Tab}) {
        control("Text4").setFocus();
        for (std::size_t i = 0; i + 1 < std::size(order); ++i) {
            press(control<QWidget>(order[i]), key);
            EXPECT_TRUE(control<QWidget>(order[i + 1]).hasFocus()) << order[i];
        }
    }
}

TEST_F(KsForm1Test, captions_and_checks_are_german_in_both_languages) {
    for (const LangId lang : {LangId::German, LangId::English}) {
        open({}, lang);
        QStringList captions;
        for (const QLabel* label : window->findChildren<QLabel*>()) captions << label->text();
        for (
            const char* caption :
            {"Frequenz des Stromkreises :", "Anfangskurzschlußwechselstrom Ik\" :",
             "- bei Kurzschlußende theta_e :", "Leitermaterialquerschnitt:",
             "= Gesamtquerschnitt bei Seilen aus einem Material bzw. Mantelquerschnitt bei Verbundseilen",
             "Die nachfolgenden Daten werden zur Ermittlung der Kurzschlußstromfestigkeit verwendet:"})
            EXPECT_TRUE(captions.contains(caption)) << caption;
        EXPECT_EQ(control<QWidget>("Text3").toolTip().isEmpty(), lang == LangId::German);
    }
    EXPECT_THAT(window->windowTitle().toStdString(),
                HasSubstr("JOL V.3.0 - Short-circuit current - Thermal effect"));
    open({}, LangId::German);
    EXPECT_EQ(window->windowTitle().toStdString(),
              "Unbenannt[*] - QUV V.3.0 - Thermische Kurzschlußstromfestigkeit nach IEC 865-1");
}

TEST_F(KsForm1Test, new_case_is_asked_for_and_empties_all) {
    open(copper_far());
    dialogs.answers = {Answer::No, Answer::Yes};
    trigger("mneu");
    EXPECT_EQ(text_in("Text3"), "50");
    trigger("mneu");
    EXPECT_EQ(content(), C{});
    for (const char* box : {"Text3", "Text25", "Text5", "Text10"}) EXPECT_EQ(text_in(box), "");
    EXPECT_EQ(control<QComboBox>("Combo4").currentIndex(), 0);
    EXPECT_TRUE(is_open("Text15"));
    ASSERT_THAT(dialogs.shown, SizeIs(2));
    EXPECT_EQ(dialogs.shown[0], new_case_question(LangId::English));
}

TEST_F(KsForm1Test, saved_case_is_opened_as_it_was) {
    open(copper_far());
    EXPECT_FALSE(window->isWindowModified());
    type("Text4", "Süd");
    EXPECT_TRUE(window->isWindowModified());
    chooser.paths = {"/home/u/ks.json"};
    trigger("save_case");
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_THAT(window->windowTitle().toStdString(), StartsWith("ks.json[*] - JOL"));
    const FlatObject saved = store.files.at("/home/u/ks.json");
    dialogs.answers = {Answer::Yes};
    trigger("mneu");
    chooser.paths = {"/home/u/ks.json"};
    trigger("open_case");
    EXPECT_EQ(values_of(content()), saved);
    EXPECT_EQ(text_in("Text4"), "Süd");
    EXPECT_EQ(text_in("Text10"), "0.0039");
    EXPECT_FALSE(is_open("Text15"));
    go_to(ks_result_page);
    EXPECT_EQ(shown("verdict"), "Der Leiter ist thermisch kurzschlußfest !");
}

TEST_F(KsForm1Test, refused_numbers_of_a_file_are_told) {
    store.files["a.json"] = {{"Frequenz_ks", 100.0}};
    store.files["b.json"] = {{"Frequenz", 50.0}};
    open();
    chooser.paths = {"a.json", "b.json"};
    trigger("open_case");
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].lines.front(), "Frequenz_ks :");
    trigger("open_case");
    EXPECT_THAT(dialogs.shown.back().lines.back(), HasSubstr("b.json: Frequenz: unknown key"));
}

TEST_F(KsForm1Test, changes_are_not_lost_without_a_question) {
    open(copper_far());
    EXPECT_TRUE(window->may_be_left());
    EXPECT_THAT(dialogs.shown, IsEmpty());
    type("Text3", "60");
    dialogs.answers = {Answer::No, Answer::Yes};
    EXPECT_FALSE(window->may_be_left());
    EXPECT_TRUE(window->may_be_left());
    EXPECT_THAT(dialogs.shown, SizeIs(2));
}

class KsConductorLinkTest : public KsForm1Test {
protected:
    void link() override {
        state->start_conductor_database = [this] { ++started; };
        state->chosen_conductor = [this] { return conductor; };
    }
    int started = 0;
    std::optional<ConductorData> conductor;
};

TEST_F(KsConductorLinkTest, conductor_is_taken_over_from_the_database) {
    open(copper_far());
    go_to(ks_conductor_page);
    control<QPushButton>("Command3").click();
    EXPECT_EQ(started, 1);
    control<QPushButton>("Command4").click();  // nothing was chosen
    EXPECT_EQ(text_in("Text5"), "185");
    conductor.emplace();
    conductor->Bezeichnung1_db = "AL1/ST1A";
    conductor->Mantelquerschnitt_db.value = 263.7;
    conductor->c_leiter20_db.value = 897;
    conductor->DC_Resist_Leiter_db.value = 28.264;
    conductor->T_Koeff_DC_Resist_Leiter_linear_db.value = 4.03;
    conductor->Dichte_Leiterwerkstoff1_db.value = 50;  // refused
    control<QPushButton>("Command4").click();
    EXPECT_EQ(text_in("Text5"), "263.7");
    EXPECT_EQ(text_in("Text8"), "897");
    EXPECT_EQ(text_in("Text9"), "35.38");
    EXPECT_EQ(text_in("Text10"), "0.004");
    EXPECT_EQ(text_in("Text12"), "");
    EXPECT_EQ(shown("werkstoff_ks"), "AL1/ST1A");
    EXPECT_EQ(shown("Mantelquerschnitt_ks"), "263.7 qmm");
    EXPECT_EQ(control<QComboBox>("Combo4").currentIndex(), 0);
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].lines.front(), "Dichte:");
    EXPECT_TRUE(control("Text12").hasFocus());
}

TEST_F(KsForm1Test, without_a_link_the_buttons_are_closed) {
    open();
    EXPECT_FALSE(is_open("Command3"));
    EXPECT_FALSE(is_open("Command4"));
    EXPECT_NE(control<QWidget>("Command4").toolTip(), "");
}

}  // namespace
}  // namespace zel
