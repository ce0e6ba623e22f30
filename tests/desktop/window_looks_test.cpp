#include <QDir>
#include <QPushButton>
#include <QTabWidget>

#include "desktop/desktop_fixture.h"
#include "desktop/window_checks.h"
#include "fakes/short_circuit_cases.h"
#include "fakes/transient_cases.h"

// Every window and page in each language and look: no text is cut, each control has a name, each
// key one place. With ZEL_PICTURES naming a folder, the pictures of all of them go there.

namespace zel {
namespace {

using testing::IsEmpty;

enum class Ground { Light, Dark, HighContrast };

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
    {"de_1920x1080_large", german, {1920, 1080}, 1.5},
    {"en_1920x1080_contrast", english, {1920, 1080}, 1, Ground::HighContrast},
};

QPalette palette_of(Ground ground) {
    const bool contrast = ground == Ground::HighContrast;
    QPalette palette(contrast ? QColor(Qt::white) : QColor(45, 45, 48));
    const QColor ink = contrast ? Qt::black : QColor(220, 220, 220);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, ink);
    palette.setColor(QPalette::Base, contrast ? QColor(Qt::white) : QColor(30, 30, 30));
    return palette;
}

class WindowLooks : public DesktopTest, public testing::WithParamInterface<Look> {
protected:
    void SetUp() override {
        for (const char* name : {"conductors.csv", "materials.csv"})
            disk.files[std::string("/shipped/") + name] = shipped_file(name);
        former_font_ = QApplication::font();
        former_palette_ = QApplication::palette();
        QFont font = former_font_;
        font.setPointSizeF(font.pointSizeF() * GetParam().font);
        QApplication::setFont(font);
        if (GetParam().ground != Ground::Light)
            QApplication::setPalette(palette_of(GetParam().ground));
    }
    void TearDown() override {
        form_main.reset();
        QApplication::setFont(former_font_);
        QApplication::setPalette(former_palette_);
    }

    void look_at(QWidget& seen, const std::string& name) {
        SCOPED_TRACE(name);
        for (int layout = 0; layout < 3; ++layout) QApplication::processEvents();
        EXPECT_THAT(cut_texts(seen), IsEmpty());
        EXPECT_THAT(nameless_controls(seen), IsEmpty());
        EXPECT_THAT(shared_keys(seen), IsEmpty());
        const QString folder = qEnvironmentVariable("ZEL_PICTURES");
        if (folder.isEmpty()) return;
        ASSERT_TRUE(QDir().mkpath(folder));
        EXPECT_TRUE(seen.grab().save(folder + "/" + GetParam().name + "_" + qt(name) + ".png"));
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
        }
    }

private:
    QFont former_font_;
    QPalette former_palette_;
};

TEST_P(WindowLooks, show_all_texts_and_name_all_controls) {
    short_circuit = copper_far();
    const Look& look = GetParam();
    CalcCase c = with_masses(sunny_264_34());
    c.rechnung_webs_merker_db = c.rechnung_kirn_merker_db = 1;
    c.Winkel_W_S_db = typed(20);
    c.Z[0] = typed_time_row(1600, 95);
    c.Z[1] = typed_temperature_row(1000, 10, 0);
    open(c, look.lang, look.lang == german ? DecimalSeparator::Comma : DecimalSeparator::Point);
    std::vector<QWidget*> windows;
    for (QWidget* candidate : QApplication::topLevelWidgets())
        if (!candidate->objectName().isEmpty() && candidate->windowType() == Qt::Window)
            windows.push_back(candidate);
    ASSERT_GE(windows.size(), 6U);
    constexpr QSize frame(16, 48);
    constexpr QSize usual(1100, 740);
    for (QWidget* seen : windows) {
        seen->show();
        const QSize most = look.size - frame;
        const bool fills = seen->findChild<QTabWidget*>("SSTab1") != nullptr;
        seen->resize(fills ? most : usual.boundedTo(most));
        look_at_pages(*seen, seen->objectName().toStdString());
        seen->hide();
    }
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
        EXPECT_THAT(control("Text24").toolTip().toStdString(),
                    testing::HasSubstr(lang == german ? "negativ" : "negative"));
    }
}

INSTANTIATE_TEST_SUITE_P(All, WindowLooks, testing::ValuesIn(looks),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace zel
