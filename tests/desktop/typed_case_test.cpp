#include <QCheckBox>
#include <regex>

#include "cli/process.h"
#include "desktop/desktop_fixture.h"
#include "forms/given_value.h"
#include "workflow/run/page_change.h"
#include "workflow/run/steady_run.h"

namespace zel {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

struct Typed {
    const char* control;
    const char* text;  // with a decimal point
};

// The case of `twin_264_34`: 264-AL1/34-ST1A by EN 50182.
constexpr Typed surroundings[] = {
    {"Text3", "0"},    {"Text27", "0"},  {"Text11", "0.6"}, {"Text1", "90"},   {"Text19", "35"},
    {"Text14", "900"}, {"Text17", "50"}, {"Text2", "0.6"},  {"Text31", "0.6"},
};
// In the order in which tab leads along them.
constexpr Typed conductor[] = {
    {"Seilquerschnitt_db", "297.7"},   {"Seildurchmesser_db", "22.4"},
    {"DrahtzahlLeiter_db", "24"},      {"DrahtdurchmesserLeiter_db", "3.74"},
    {"DrahtlagenzahlLeiter_db", "2"},  {"Mantelquerschnitt_db", "263.7"},
    {"DC_Resist_Leiter_db", "28.264"}, {"T_Koeff_DC_Resist_Leiter_linear_db", "4.03"},
    {"DCR_20_db", "0.1095"},
};

class TypedCase : public DesktopTest {
protected:
    void type_all(std::span<const Typed> rows) {
        for (const auto& [name, text] : rows) {
            std::string number = text;
            std::replace(number.begin(), number.end(), '.', character(state->session.separator));
            type(name, number);
        }
    }
    void type_case(GivenValue given, const char* box, const char* value) {
        control<QCheckBox>("rechnung_cigre207_merker_db").click();
        type_all(surroundings);
        choose("Combo3", 1);
        choose("Combo1", static_cast<int>(given));
        type(box, value);
        go_to(conductor_page);
        choose("conductor_type_db", steel_cored_conductor);
        choose("conductor_shape_db", 1);
        type_all(conductor);
        go_to(result_page);
    }
    void expect_result_of(CalcCase c) {
        ScriptedDialogs none;
        const SteadyRunResult run = RunSteady(c, {state->session, RunMode::Messages, none});
        ASSERT_TRUE(run.input_valid);
        EXPECT_EQ(shown("head_line"), run.head_line);
        EXPECT_EQ(shown("caption_TB207"), run.methods.at(0).caption);
        EXPECT_EQ(shown("result_TB207"), run.methods.at(0).result);
        EXPECT_EQ(shown("balance_line"), run.balance_lines.at(0));
        EXPECT_EQ(shown("angle"), run.angle_text);
        EXPECT_EQ(shown("perpendicular_wind"), run.perpendicular_wind_text);
        EXPECT_EQ(shown("methods_line"), run.methods_line);
    }
};

TEST_F(TypedCase, gives_the_current_in_german_with_comma) {
    open({}, LangId::German, DecimalSeparator::Comma);
    type_case(GivenValue::Temperature, "Text16", "80");
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(shown("caption_TB207"), "Doppel-Leiter nach Cigre TB 207 :");
    EXPECT_EQ(shown("result_TB207"), "1331 A");
    EXPECT_EQ(shown("angle"), "90,0 °");
    expect_result_of(twin_264_34());
    EXPECT_TRUE(control<QLabel>("caption_TB207").isVisible());
    EXPECT_FALSE(control<QLabel>("caption_TB601").isVisible());
    EXPECT_EQ(shown("result_TB601"), "");
}

TEST_F(TypedCase, gives_the_temperature_in_english_with_point) {
    open();
    type_case(GivenValue::Current, "Text18", "665.524");
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(shown("result_TB207"), "80.0 °C");
    expect_result_of(twin_264_34_at(665.524));
}

TEST_F(TypedCase, bundle_current_shows_its_share_with_two_decimals) {
    open({}, LangId::German, DecimalSeparator::Comma);
    type_case(GivenValue::BundleCurrent, "Text39", "1331,05");
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(typed_in("Text18"), "665,53");
    EXPECT_EQ(shown("result_TB207"), "80,0 °C");
}

TEST_F(TypedCase, share_of_the_bundle_counts_as_shown_once_it_is_the_given_current) {
    open({}, LangId::German, DecimalSeparator::Comma);
    type_case(GivenValue::BundleCurrent, "Text39", "1331,05");
    EXPECT_EQ(calc_case().Stromstaerke_db, (Entry{"665,53", 665.525}));
    go_to(input_page);
    choose("Combo1", static_cast<int>(GivenValue::Current));
    EXPECT_EQ(typed_in("Text18"), "665,53");
    EXPECT_EQ(calc_case().Stromstaerke_db, (Entry{"665,53", 665.53}));
    go_to(result_page);
    EXPECT_EQ(typed_in("Text39"), "1331,06");
    expect_result_of(twin_264_34_at(665.53));
}

// The case of tests/cases/steady/all_overhead_methods by keys alone, from the first field to the
// result page. Where a box is passed over its text is empty; return leads on from a box, tab from a
// list.
constexpr Typed along_the_chain[] = {
    {"Text4", "380"},  {"Text20", ""},   {"Text21", ""},    {"Text22", ""},    {"Text3", "0"},
    {"Text27", "0"},   {"Text25", "51"}, {"Text24", "-10"}, {"Text26", "-15"}, {"Text30", "21"},
    {"Text29", "6"},   {"Text28", "12"}, {"Text15", "20"},  {"Text11", "0.6"}, {"Text1", "90"},
    {"Text19", "35"},  {"Text36", "35"}, {"Text37", "0.2"}, {"Text14", "900"}, {"Text43", "0.7"},
    {"Text44", "350"}, {"Text45", "0"},  {"Text17", "50"},  {"Text2", "0.6"},  {"Text31", "0.6"},
};
constexpr Typed along_the_conductor[] = {
    {"Seilquerschnitt_db", "297.7"},
    {"Seildurchmesser_db", "22.4"},
    {"Dauerstrombelastbarkeit_db", "680"},
    {"Seiltemperatur_max_db", "80"},
    {"DrahtzahlLeiter_db", "24"},
    {"DrahtdurchmesserLeiter_db", "3.74"},
    {"DrahtlagenzahlLeiter_db", "2"},
    {"Mantelquerschnitt_db", "263.7"},
    {"DC_Resist_Leiter_db", "28.264"},
    {"T_Koeff_DC_Resist_Leiter_linear_db", "4.03"},
    {"T_Koeff_DC_Resist_Leiter_quadrat_db", "0"},
    {"DrahtzahlTraeger_db", "7"},
    {"DrahtdurchmesserTraeger_db", "2.49"},
    {"KerndurchmesserTraeger_db", "7.47"},
    {"KernquerschnittTraeger_db", "34.1"},
    {"DCR_20_db", "0.1095"},
};
constexpr Typed along_the_ring[] = {{"Text23", "2"}, {"Text7", "100"}, {"Text40", "2"}};

class KeyedCase : public TypedCase {
protected:
    void press_here(int key, const QString& text = {},
                    Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        press(*QApplication::focusWidget(), key, text, modifiers);
        QApplication::processEvents();
    }
    std::string here() { return QApplication::focusWidget()->objectName().toStdString(); }
    void tab_to(const char* name) {
        for (int i = 0; i < 100 && here() != name; ++i) press_here(Qt::Key_Tab, "\t");
        ASSERT_EQ(here(), name);
    }
    void key_in(const std::string& number) {
        for (char letter : number) {
            if (letter == '.') letter = character(state->session.separator);
            press_here(0, QString(QChar(letter)));
        }
    }
    void choose_below(int steps) {
        for (int i = 0; i < steps; ++i) press_here(Qt::Key_Down);
    }
    void key_in_all(std::span<const Typed> rows) {
        for (const auto& [name, number] : rows) {
            tab_to(name);
            key_in(number);
        }
    }
    void check(Method method) {
        for (const forms::MethodRow& row : forms::method_rows())
            if (row.method == method) tab_to(row.control);
        press_here(Qt::Key_Space, " ");
        QKeyEvent up(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier, " ");
        QApplication::sendEvent(QApplication::focusWidget(), &up);
    }
    /// Each text of the result page stands on the page of the command line too, a value behind its
    /// caption.
    void expect_printed(const ProcessResult& printed) {
        ASSERT_EQ(printed.exit_status, 0) << printed.errors;
        const auto squeezed = [](const std::string& text) {
            return std::regex_replace(text, std::regex(" +"), " ");
        };
        const std::string page = squeezed(printed.output);
        const auto expect_line = [&](const std::string& caption, const std::string& value) {
            EXPECT_THAT(page, HasSubstr("\n " +
                                        squeezed(caption.empty() ? value : caption + " " + value) +
                                        "\n"));
        };
        expect_line("", shown("head_line"));
        expect_line("Berechnungsverfahren :", shown("methods_line"));
        for (const char* name : {"angle", "perpendicular_wind", "result_TB601", "result_TB207",
                                 "result_Webs", "result_Kirn", "T_core", "T_surface", "k_skin"}) {
            const std::string plain = name;
            const std::string caption =
                plain.starts_with("result_") ? "caption_" + plain.substr(7) : "caption_" + plain;
            EXPECT_FALSE(shown(name).empty()) << name;
            expect_line(shown(caption.c_str()), shown(name));
        }
        for (const std::string& line : lines_of(shown("balance_line"))) expect_line("", line);
    }
    void next_page() { press_here(Qt::Key_Tab, {}, Qt::ControlModifier); }
};

TEST_F(KeyedCase, shows_what_the_command_line_prints) {
    open({}, LangId::German, DecimalSeparator::Comma);
    for (const auto& [name, number] : along_the_chain) {
        ASSERT_EQ(here(), name);
        key_in(number);
        press_here(Qt::Key_Return, "\r");
    }
    ASSERT_EQ(here(), "Combo3");
    choose_below(1);
    tab_to("Combo1");
    choose_below(static_cast<int>(GivenValue::Temperature));
    tab_to("Text16");
    key_in("80");
    for (const Method method : {Method::TB601, Method::TB207, Method::Webs, Method::Kirn})
        check(method);
    next_page();
    ASSERT_EQ(pages().currentIndex(), conductor_page);
    tab_to("conductor_type_db");
    choose_below(steel_cored_conductor);
    tab_to("conductor_shape_db");
    choose_below(1);
    key_in_all(along_the_conductor);
    tab_to("ACDC_R_Option_Merker_db");
    choose_below(1);
    key_in_all(along_the_ring);
    next_page();
    ASSERT_EQ(pages().currentIndex(), result_page);
    EXPECT_THAT(dialogs.shown, IsEmpty());
    expect_printed(run_zel({"steady", "case.json", "--lang", "de", "--decimal", "comma"},
                           ZEL_SOURCE_DIR "/tests/cases/steady/all_overhead_methods"));
}

TEST_F(TypedCase, is_the_case_that_was_meant) {
    open();
    type_case(GivenValue::Temperature, "Text16", "80");
    EXPECT_EQ(calc_case(), twin_264_34());
}

}  // namespace
}  // namespace zel
