#include "adapters/qt_canvas/qt_canvas.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <cmath>
#include <limits>

#include "adapters/qt_canvas/drawing_file.h"
#include "adapters/qt_canvas/pdf_words.h"
#include "tables_graphs/diagram.h"

namespace zel {
namespace {

using testing::Contains;
using testing::DoubleNear;
using testing::FieldsAre;
using testing::HasSubstr;
using testing::Not;

constexpr CanvasBox page = {0, 0, 6000, 3000};
constexpr Colour blue = rgb(0, 0, 255);

using Draw = std::function<void(Canvas&)>;

std::string svg_of(const Draw& draw) { return drawing_file(DrawingKind::Svg, page, "", draw); }

QImage image_of(const Draw& draw) {
    const std::string png = drawing_file(DrawingKind::Png, page, "", draw);
    return QImage::fromData(reinterpret_cast<const uchar*>(png.data()),
                            static_cast<int>(png.size()));
}
/// The pixel that has the twip at its top left.
QColor pixel(const QImage& image, int x, int y) {
    return image.pixelColor(x * 192 / 1440, y * 192 / 1440);
}

struct DrawnDiagram {
    std::string file;
    std::vector<Place> texts;
};
DrawnDiagram drawn_diagram(DrawingKind kind) {
    Diagram diagram;
    diagram.title = "Größe";
    diagram.header = {"Leiterbezeichnung: AL1/ST1A", "Winkel Wind/Seil: 90 °", "Webs & Kirn"};
    diagram.x = {"Strom in A", "A", "1 Einheit x-Achse = ", {0, 1000}};
    diagram.y = {"Leitertemperatur in °C", "°C", "1 Einheit y-Achse = ", {0.5, 3}};
    diagram.legend = {{"= Webs", CurveLook{}}};
    std::vector<Place> texts;
    const auto draw_it = [&](Canvas& canvas) {
        Witness witness(canvas);
        draw(witness, diagram_sheet, diagram, {}, DecimalSeparator::Comma);
        for (const auto& [x, y, text, font, colour] : witness.texts) texts.emplace_back(text, x, y);
    };
    const std::string file = drawing_file(kind, diagram_sheet, "AL1 <264>", draw_it);
    return {file, texts};
}

TEST(QtCanvas, texts_of_a_diagram_stand_in_the_same_places_on_all_surfaces) {
    const DrawnDiagram svg = drawn_diagram(DrawingKind::Svg);
    const DrawnDiagram pdf = drawn_diagram(DrawingKind::Pdf);
    EXPECT_EQ(svg.texts, drawn_diagram(DrawingKind::Png).texts);
    EXPECT_EQ(svg.texts, pdf.texts);
    const auto pages = words_of(pdf.file);
    if (pages.empty()) GTEST_SKIP() << "pdftotext is not installed";
    const std::vector<Place>& words = pages.front();
    std::size_t count = 0;
    for (const auto& [text, x, y] : pdf.texts) {
        const QStringList parts = QString::fromStdString(text).split(' ', Qt::SkipEmptyParts);
        count += static_cast<std::size_t>(parts.size());
        EXPECT_THAT(words, Contains(FieldsAre(parts.front().toStdString(), DoubleNear(x, 20),
                                              DoubleNear(y, 20))));
        EXPECT_THAT(svg.file,
                    HasSubstr(">" + QString::fromStdString(text).toHtmlEscaped().toStdString() +
                              "</text>"));
    }
    EXPECT_EQ(words.size(), count);
}

TEST(QtCanvas, the_same_drawing_gives_the_same_svg_and_png) {
    for (const DrawingKind kind : {DrawingKind::Svg, DrawingKind::Png})
        EXPECT_EQ(drawn_diagram(kind).file, drawn_diagram(kind).file);
}

TEST(QtCanvas, a_file_names_what_it_shows_and_takes_any_text) {
    EXPECT_THAT(drawn_diagram(DrawingKind::Svg).file, HasSubstr("<title>AL1 &lt;264&gt;</title>"));
    EXPECT_THAT(svg_of([](Canvas& canvas) { canvas.text(300, 400, "a\nb<\x01", {8}, blue); }),
                HasSubstr(">a b&lt; </text>"));
}

TEST(QtCanvas, nothing_outside_of_the_clip_is_drawn) {
    const auto draw = [](Canvas& canvas) {
        canvas.clip(CanvasBox{1500, 0, 3000, 1500});
        const CanvasPoint curve[] = {{0, 0}, {3000, 1500}, {4500, 0}, {2250, 0}};
        canvas.path(curve, {blue, LineStyle::Solid, 2});
        canvas.fill({2850, 1350, 4500, 3000}, red);
        canvas.text(4000, 2000, "outside", {8}, black);
        canvas.clip({});
        canvas.fill({0, 2850, 150, 3000}, red);
    };
    const std::string svg = svg_of(draw);
    EXPECT_THAT(svg, HasSubstr("points=\"1500,750 3000,1500 \""));
    EXPECT_THAT(svg, HasSubstr("points=\"3000,0 2250,0 \""));
    EXPECT_THAT(svg, HasSubstr("<rect x=\"2850\" y=\"1350\" width=\"150\" height=\"150\"/>"));
    EXPECT_THAT(svg, Not(HasSubstr("outside")));
    const QImage image = image_of(draw);
    EXPECT_EQ(pixel(image, 2250, 1125), QColor(Qt::blue));
    EXPECT_EQ(pixel(image, 2925, 1425), QColor(Qt::red));
    EXPECT_EQ(pixel(image, 750, 375), QColor(Qt::white));
    EXPECT_EQ(pixel(image, 3075, 1575), QColor(Qt::white));
    EXPECT_EQ(pixel(image, 75, 2925), QColor(Qt::red));
}

TEST(QtCanvas, points_without_a_place_are_gaps) {
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    const std::string svg = svg_of([](Canvas& canvas) {
        const CanvasPoint points[] = {{0, 0}, {1, 1}, {none, 2}, {3, 3}, {4, 1e300}};
        canvas.path(points, {});
    });
    EXPECT_THAT(svg, HasSubstr("points=\"0,0 1,1 \""));
    EXPECT_THAT(svg, HasSubstr("points=\"3,3 3,1e+06 \""));
}

/// Dark pixels of a horizontal line through a vertical rule on a window.
int rule_width(double device_pixels, double x, int width) {
    QImage window(200, 20, QImage::Format_RGB32);
    window.fill(Qt::white);
    window.setDevicePixelRatio(device_pixels);
    QPainter painter(&window);
    QtCanvas(painter, 1.0 / 15).line(x, 0, x, 900, {black, LineStyle::Solid, width});
    int dark = 0;
    for (int i = 0; i < window.width(); ++i) {
        const QColor colour = window.pixelColor(i, 10);
        EXPECT_TRUE(colour == QColor(Qt::black) || colour == QColor(Qt::white));
        dark += colour == QColor(Qt::black) ? 1 : 0;
    }
    return dark;
}

TEST(QtCanvas, rules_of_one_width_have_the_same_whole_pixels) {
    for (const double device_pixels : {1.0, 1.25, 1.5, 2.0, 3.0})
        for (const int width : {1, 2, 3})
            for (double x = 450; x < 480; x += 1.3)
                EXPECT_EQ(rule_width(device_pixels, x, width), std::lround(width * device_pixels))
                    << device_pixels << " " << x;
}

TEST(QtCanvas, styles_of_lines_differ) {
    std::vector<int> strokes;
    for (std::int16_t style = 0; style <= 4; ++style) {
        const QImage image = image_of([&](Canvas& canvas) {
            canvas.line(0, 1500, 6000, 1500, {black, static_cast<LineStyle>(style), 2});
        });
        int begun = 0;
        for (int x = 1; x < image.width(); ++x)
            begun += image.pixelColor(x, 200).value() < 128 &&
                             image.pixelColor(x - 1, 200).value() >= 128
                         ? 1
                         : 0;
        strokes.push_back(begun);
    }
    EXPECT_THAT(strokes, testing::ElementsAre(0, 19, 49, 27, 32));
}

TEST(QtCanvas, the_colour_of_window_text_is_the_window_s) {
    QImage window(40, 40, QImage::Format_RGB32);
    window.fill(Qt::black);
    QPainter painter(&window);
    {
        QtCanvas canvas(painter, 1.0 / 15, QColor(1, 2, 3));
        canvas.fill({0, 0, 300, 300}, window_text);
    }
    EXPECT_EQ(window.pixelColor(10, 10), QColor(1, 2, 3));
    EXPECT_EQ(window.pixelColor(25, 10), QColor(Qt::black));
    EXPECT_TRUE(painter.transform().isIdentity()) << "the painter is given back as it was";
    EXPECT_EQ(pixel(image_of([](Canvas& canvas) { canvas.fill(page, window_text); }), 75, 75),
              QColor(Qt::black));
}

}  // namespace
}  // namespace zel

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const zel::DrawingSystem system;
    return RUN_ALL_TESTS();
}
