#include <QDir>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QPushButton>
#include <QScreen>
#include <QTabWidget>
#include <QTimer>

#include "desktop/desktop_fixture.h"
#include "desktop/frame/widgets.h"
#include "desktop/frm_languageselect.h"
#include "desktop/help.h"
#include "desktop/window_checks.h"
#include "fakes/short_circuit_cases.h"
#include "fakes/transient_cases.h"
#include "persistence/database/case_table.h"
#include "persistence/database/saving.h"
#include "short_circuit/short_circuit_table.h"

// Every window and page in each language and look: no text is cut or faint, no page goes on beyond
// its edge, a screen reader is told of each control, each key has one place. With ZEL_PICTURES
// naming a folder, the pictures of all of them go there.

namespace zel {
namespace {

using testing::IsEmpty;

enum class Ground { Light, Dark, HighContrast, Grey };

struct Look {
    const char* name;
    LangId lang;
    QSize size;
    double font = 1;  // times the usual one
    Ground ground = Ground::Light;
};

constexpr LangId german = LangId::German;
constexpr LangId english = LangId::English;

const Look looks[] = {
    {"de_1024x768", german, {1024, 768}},
    {"en_1024x768", english, {1024, 768}},
    {"de_1280x800", german, {1280, 800}},
    {"en_1280x800_dark", english, {1280, 800}, 1, Ground::Dark},
    {"en_1280x800", english, {1280, 800}},
    {"de_1920x1080", german, {1920, 1080}},
    {"en_1920x1080", english, {1920, 1080}},
    {"de_1920x1080_large", german, {1920, 1080}, 1.5},
    {"en_1920x1080_contrast", english, {1920, 1080}, 1, Ground::HighContrast},
    {"de_1024x768_large", german, {1024, 768}, 1.5},
    {"de_960x540", german, {960, 540}},  // full HD at scale 2
    {"en_3840x2160", english, {3840, 2160}},
    {"de_1280x800_grey", german, {1280, 800}, 1, Ground::Grey},
    {"de_1366x768_dark", german, {1366, 768}, 1, Ground::Dark},
};

/// The grounds of a theme that writes light on dark, and its inks.
struct Colours {
    QColor window, base, text, button_text, closed, chosen, chosen_text;
};
const Colours dark = {{45, 45, 48},    {30, 30, 30},   {220, 220, 220}, {220, 220, 220},
                      {130, 130, 130}, {42, 130, 218}, Qt::white};
const Colours contrast_colours = {Qt::black,     Qt::black, Qt::white, Qt::yellow,
                                  {63, 242, 63}, Qt::cyan,  Qt::black};

QPalette palette_of(const Colours& colours) {
    QPalette palette(colours.window);
    palette.setColor(QPalette::Base, colours.base);
    palette.setColor(QPalette::AlternateBase, colours.window);
    palette.setColor(QPalette::Highlight, colours.chosen);
    palette.setColor(QPalette::HighlightedText, colours.chosen_text);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        const bool on_button = role == QPalette::ButtonText;
        palette.setColor(role, on_button ? colours.button_text : colours.text);
        palette.setColor(QPalette::Disabled, role, colours.closed);
    }
    return palette;
}

/// A control that opens a window, and what the user has done before.
struct Opening {
    const char* control;
    int page = 0;                 // of its form
    const char* path = nullptr;   // the file that is asked for
    const char* shared_key = "";  // two of its captions have it
};

constexpr const char* database = "/d/cases.mdb";

constexpr Opening of_start_window[] = {{"about"},
                                       {"mDruckereinrichtung"},
                                       {"m_St_Temp_Excel", 0, nullptr, "Alt+A"},
                                       {"m_transient_Temp_Excel", 0, nullptr, "Alt+A"},
                                       {"open_frm_prog_config"},
                                       {"mVerzeichnispfad"}};
constexpr Opening of_line[] = {{"mneueDatenbank", 2, "/d/new.mdb"},
                               {"mbestehendeDatenbank", 2, database},
                               {"mOeffnendatenbank", 0, database},
                               {"open_frm_emissivity"},
                               {"Command3", 1},
                               {"draw_diagram", 2},
                               {"print_steady", 2},
                               {"Command_graph", 3},
                               {"print_transient", 3}};
constexpr Opening of_short_circuit[] = {
    {"mOeffnendatenbank", 0, database}, {"Command3", 1}, {"Befehl6", 2}};

class WindowLooks : public DesktopTest, public testing::WithParamInterface<Look> {
protected:
    void SetUp() override {
        for (const char* name : {"conductors.csv", "materials.csv"})
            disk.files[std::string("/shipped/") + name] = shipped_file(name);
        shared_settings.write("Seildatei", "Seildatenbanknamepluspfad", "/usr/bin/zel");
        shared_settings.write("Seildatei", "Einseil1_dat", "/link/einseil1.dat");
        former_font_ = QApplication::font();
        former_palette_ = QApplication::palette();
        QFont font = former_font_;
        font.setPointSizeF(font.pointSizeF() * GetParam().font);
        QApplication::setFont(font);
        QPalette palette = former_palette_;
        if (GetParam().ground == Ground::Dark) palette = palette_of(dark);
        if (GetParam().ground == Ground::HighContrast) palette = palette_of(contrast_colours);
        QApplication::setPalette(with_readable_grey(palette));
    }
    void TearDown() override {
        form_main.reset();
        QApplication::setFont(former_font_);
        QApplication::setPalette(former_palette_);
    }

    /// A line with a table and a transient, a short circuit, and databases of both.
    void open_all() {
        short_circuit = copper_far();
        const Look& look = GetParam();
        CalcCase c = with_masses(sunny_264_34());
        c.rechnung_webs_merker_db = c.rechnung_kirn_merker_db = 1;
        c.Winkel_W_S_db = typed(20);
        c.Wind1_db = typed(0.6);
        c.Temp_min_db = typed(40);
        c.Temp_max_db = typed(80);
        c.Schrittweite_Temp_db = 20;
        c.Z[0] = typed_time_row(1600, 95);
        c.Z[1] = typed_temperature_row(1000, 10, 0);
        open(c, look.lang, look.lang == german ? DecimalSeparator::Comma : DecimalSeparator::Point);
        const auto made = tables.create(database);
        std::vector<CutText> cut;
        save_in_new_table(*made, case_tables(), "North", form1().record().row(cut));
        save_in_new_table(*made, short_circuit_tables(), "Short circuit",
                          form_main->ks_form1().record().row(cut));
    }

    void look_at(QWidget& seen, const std::string& name, const char* shared_key = "") {
        SCOPED_TRACE(name);
        const bool closes = GetParam().ground == Ground::Grey && seen.isEnabled();
        if (closes) seen.setEnabled(false);
        // What is found while the user rests comes any time, and is laid out behind that.
        constexpr int patience = 2000;  // ms
        QElapsedTimer timer;
        timer.start();
        for (int layout = 0; layout < 3 || (!cut_texts(seen).empty() && timer.elapsed() < patience);
             ++layout)
            QApplication::processEvents(QEventLoop::AllEvents, 10);
        EXPECT_THAT(cut_texts(seen), IsEmpty());
        EXPECT_THAT(faint_texts(seen), IsEmpty());
        // Titles of groups do not wrap: the longest of the settings needs more.
        const bool long_titles = GetParam().font > 1 && seen.objectName() == "frm_prog_config";
        if (!long_titles) {
            EXPECT_THAT(scrolled_sideways(seen), IsEmpty());
        }
        EXPECT_THAT(untold_controls(seen), IsEmpty());
        EXPECT_THAT(shared_keys(seen, shared_key), IsEmpty());
        const std::string topic = help_topic(seen);
        EXPECT_NE(guide.find("{#" + topic + "}"), std::string::npos) << topic;
        const QString folder = qEnvironmentVariable("ZEL_PICTURES");
        if (!folder.isEmpty()) {
            EXPECT_TRUE(QDir().mkpath(folder));
            EXPECT_TRUE(seen.grab().save(folder + "/" + GetParam().name + "_" + qt(name) + ".png"));
        }
        if (closes) seen.setEnabled(true);
    }

    void look_at_pages(QWidget& seen, const std::string& name) {
        auto* strip = seen.findChild<QTabWidget*>("SSTab1");
        if (strip == nullptr) return look_at(seen, name);
        for (int page = 0; page < strip->count(); ++page) {
            strip->setCurrentIndex(page);
            if (strip->currentIndex() != page) continue;
            if (auto* button = seen.findChild<QPushButton*>("calculate_transient"))
                if (button->isVisible()) button->click();
            look_at(seen, name + "_" + std::to_string(page));
            walk(seen);
        }
        for (const char* dock : {"comparison_dock", "pictures_dock"})
            look_at_dock(seen, name, dock);
    }

    /// Whoever has the focus is in sight.
    void walk(QWidget& seen) {
        constexpr int steps = 60;
        seen.activateWindow();
        QApplication::processEvents();
        for (int step = 0; step < steps && seen.focusWidget() != nullptr; ++step) {
            press(*seen.focusWidget(), Qt::Key_Tab);
            QApplication::processEvents();
            const QWidget* at = seen.focusWidget();
            ASSERT_NE(at, nullptr);
            EXPECT_TRUE(is_in_sight(*at))
                << at->objectName().toStdString() << " " << at->metaObject()->className();
        }
    }

    /// Beside the page, or in a window of its own.
    void look_at_dock(QWidget& form, const std::string& name, const char* dock_name) {
        auto* dock = form.findChild<QDockWidget*>(dock_name);
        auto* entry = form.findChild<QAction*>(QString("show_") + dock_name);
        if (dock == nullptr || !entry->isEnabled()) return;
        if (!entry->isChecked()) entry->trigger();
        dock->raise();
        look_at(dock->isFloating() ? static_cast<QWidget&>(*dock) : form, name + "_" + dock_name);
        if (dock->isFloating()) dock->close();
    }

    /// A window that a form opens, modal or not, is as large as the screen lets it be.
    void look_at_opened(QWidget& opened, const std::string& name, const char* shared_key = "") {
        SCOPED_TRACE(name);
        const QSize most = GetParam().size - frame;
        // The screen of the test platform is smaller than that of the look: what it bounds would
        // be larger.
        constexpr QSize wanted(1260, 740);
        const bool bounded = opened.width() * 6 > opened.screen()->availableSize().width() * 5;
        const QSize size = (bounded ? wanted : opened.size()).boundedTo(most);
        for (int turn = 0; turn < 2; ++turn) {  // a wider window may be as low as that
            opened.resize(size);
            QApplication::processEvents();
        }
        look_at(opened, name, shared_key);
        EXPECT_LE(opened.width(), most.width());
        EXPECT_LE(opened.height(), most.height());
        opened.close();
    }

    /// Looks at what `opening` brings up. A modal window comes up at some later event, or never.
    void look_behind(QMainWindow& form, const Opening& opening) {
        const std::string name =
            form.objectName().toStdString() + "_" + std::string(opening.control);
        SCOPED_TRACE(name);
        if (auto* strip = form.findChild<QTabWidget*>("SSTab1"))
            strip->setCurrentIndex(opening.page);
        if (opening.path != nullptr) chooser.paths = {opening.path};
        bool seen = false;
        QTimer poll;
        const auto look = [&](QWidget* opened) {
            if (seen || opened == nullptr || opened == &form) return;
            seen = true;
            poll.stop();
            look_at_opened(*opened, name, opening.shared_key);
        };
        QObject::connect(&poll, &QTimer::timeout, [&] { look(QApplication::activeModalWidget()); });
        poll.start(1);
        if (auto* action = form.findChild<QAction*>(opening.control))
            action->trigger();
        else
            form.findChild<QAbstractButton*>(opening.control)->click();
        for (int turn = 0; turn < 20 && !seen; ++turn) {  // a window beside the form
            QApplication::processEvents(QEventLoop::AllEvents, 50);
            look(QApplication::activeWindow());
        }
        EXPECT_TRUE(seen) << "nothing came up";
    }

    const std::string guide = shipped_file("../docs/user-guide.en.md");
    static constexpr QSize frame{16, 48};  // of the window system, around a window

private:
    QFont former_font_;
    QPalette former_palette_;
};

TEST_P(WindowLooks, show_all_texts_and_name_all_controls) {
    open_all();
    std::vector<QWidget*> windows;
    for (QWidget* candidate : QApplication::topLevelWidgets())
        if (!candidate->objectName().isEmpty() && candidate->windowType() == Qt::Window)
            windows.push_back(candidate);
    ASSERT_GE(windows.size(), 6U);
    constexpr QSize usual(1100, 740);
    for (QWidget* seen : windows) {
        seen->show();
        const QSize most = GetParam().size - frame;
        const bool fills = seen->findChild<QTabWidget*>("SSTab1") != nullptr;
        seen->resize(fills ? most : usual.boundedTo(most));
        look_at_pages(*seen, seen->objectName().toStdString());
        seen->hide();
    }
}

TEST_P(WindowLooks, hold_for_what_the_windows_open) {
    open_all();
    state->settings.change(&ProgramSettings::Druckvorschau, 1);
    const auto look = [this](QMainWindow& form, std::span<const Opening> openings) {
        form.show();
        form.resize(GetParam().size - frame);
        for (const Opening& opening : openings) {
            form.activateWindow();
            QApplication::processEvents();
            look_behind(form, opening);
        }
        form.hide();
    };
    look(*form_main, of_start_window);
    form1().show();
    for (const int page : {2, 3}) go_to(page);
    control<QPushButton>("calculate_transient").click();
    look(form1(), of_line);
    look(form_main->ks_form1(), of_short_circuit);
}

TEST_P(WindowLooks, hold_for_the_choice_of_the_language) {
    FrmLanguageselect form({GetParam().lang, true});
    form.show();
    look_at_opened(form, "frm_languageselect");
}

/// Unit and limits of each input, for who cannot see what stands beside it.
TEST_F(DesktopTest, inputs_say_their_units) {
    for (const LangId lang : {german, english}) {
        open(twin_264_34(), lang, DecimalSeparator::Point);
        for (const forms::Section& section : forms::line_sections())
            for (const forms::Row& row : section.rows) {
                if (!section.typed) continue;
                const auto* input = form1().findChild<QWidget*>(row.control);
                ASSERT_NE(input, nullptr) << row.control;
                EXPECT_THAT(input->accessibleDescription().toStdString(),
                            testing::HasSubstr(std::string(row.field->unit_in(lang))))
                    << row.control;
            }
        const auto& wind = control("Text11");
        EXPECT_EQ(wind.accessibleDescription(), lang == german ? "0 bis 80 m/s" : "0 to 80 m/s");
        EXPECT_THAT(
            wind.toolTip().toStdString(),
            testing::EndsWith(lang == german ? "Zulässig: 0 bis 80 m/s" : "Allowed: 0 to 80 m/s"));
        EXPECT_EQ(control("Text2").accessibleDescription(), lang == german ? "0 bis 1" : "0 to 1");
        EXPECT_EQ(control("Text32(1)").accessibleDescription(),
                  lang == german ? "-50 bis 350 °C" : "-50 to 350 °C");
        EXPECT_THAT(control("Text24").toolTip().toStdString(),
                    testing::HasSubstr(lang == german ? "negativ" : "negative"));
    }
}

/// What an empty case needs is marked, and told with its mark.
TEST_F(DesktopTest, readers_are_told_what_an_empty_case_needs) {
    for (const LangId lang : {german, english}) {
        open({}, lang, DecimalSeparator::Point);
        for (AreaFrame* form :
             std::initializer_list<AreaFrame*>{&form1(), &form_main->ks_form1()}) {
            window = form;
            form->show();
            for (const int page : {0, 1}) {
                go_to(page);
                EXPECT_THAT(untold_controls(*form), IsEmpty());
            }
            EXPECT_THAT(control(form == &form1() ? "Text17" : "Text3").accessibleDescription(),
                        testing::AnyOf("Hz; nötig", "at most 99 Hz; needed", "Hz; needed",
                                       "höchstens 99 Hz; nötig"));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, WindowLooks, testing::ValuesIn(looks),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace zel
