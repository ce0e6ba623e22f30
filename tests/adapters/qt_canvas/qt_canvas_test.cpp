#include "adapters/qt_canvas/qt_canvas.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <limits>

#include "adapters/qt_canvas/drawing_file.h"

namespace zel {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr CanvasBox page = {0, 0, 6000, 3000};
constexpr DrawingKind kinds[] = {DrawingKind::Svg, DrawingKind::Png, DrawingKind::Pdf};
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

struct Written {
    double x, y;
    const char* text;
    Font font;
};
constexpr Written written[] = {{300, 450, "Leitertemperatur/°C", {8}},
                               {300, 1500, "Größe", {14, false, true, true}},
                               {2500, 450, "1234,5", {10, true}}};  // as a reader goes

void write_all(Canvas& canvas) {
    for (const auto& [x, y, text, font] : written) canvas.text(x, y, text, font, black);
}

TEST(QtCanvas, texts_have_the_same_size_on_all_surfaces) {
    for (const auto& [x, y, text, font] : written) {
        std::vector<std::pair<double, double>> sizes;
        for (const DrawingKind kind : kinds)
            (void)drawing_file(kind, page, "", [&, &font = font, &text = text](Canvas& canvas) {
                sizes.emplace_back(canvas.text_width(text, font), canvas.text_height(font));
            });
        EXPECT_THAT(sizes, testing::Each(sizes.front()));
        EXPECT_NEAR(sizes.front().second, font.size * 22.34, 0.1);
    }
}

TEST(QtCanvas, words_of_a_pdf_stand_where_they_were_written) {
    std::vector<double> widths;
    const std::string pdf = drawing_file(DrawingKind::Pdf, page, "Seil", [&](Canvas& canvas) {
        write_all(canvas);
        for (const auto& [x, y, text, font] : written)
            widths.push_back(canvas.text_width(text, font));
    });
    QProcess reader;
    reader.start("pdftotext", {"-bbox", "-", "-"});
    if (!reader.waitForStarted()) GTEST_SKIP() << "pdftotext is not installed";
    reader.write(pdf.data(), static_cast<qint64>(pdf.size()));
    reader.closeWriteChannel();
    ASSERT_TRUE(reader.waitForFinished());
    const QString found = QString::fromUtf8(reader.readAllStandardOutput());
    EXPECT_THAT(found.toStdString(), HasSubstr("<title>Seil</title>"));
    EXPECT_THAT(found.toStdString(),
                HasSubstr("<page width=\"300.000000\" height=\"150.000000\">"));
    const QRegularExpression word(R"re(xMin="(\S+)" yMin="(\S+)" xMax="(\S+)".*>(.+)</word>)re");
    auto next = word.globalMatch(found);
    for (std::size_t i = 0; i < std::size(written); ++i) {
        ASSERT_TRUE(next.hasNext());
        const QRegularExpressionMatch match = next.next();
        const auto& [x, y, text, font] = written[i];
        EXPECT_EQ(match.captured(4).toStdString(), text);
        EXPECT_NEAR(match.captured(1).toDouble(), x / 20, 1);
        EXPECT_NEAR(match.captured(2).toDouble(), y / 20, 1);
        EXPECT_NEAR(match.captured(3).toDouble(), (x + widths[i]) / 20, 1);
    }
    EXPECT_FALSE(next.hasNext());
}

TEST(QtCanvas, the_same_drawing_gives_the_same_svg_and_png) {
    for (const DrawingKind kind : {DrawingKind::Svg, DrawingKind::Png})
        EXPECT_EQ(drawing_file(kind, page, "a", write_all),
                  drawing_file(kind, page, "a", write_all));
}

TEST(QtCanvas, svg_has_texts_as_texts_and_names_what_it_shows) {
    const std::string svg =
        drawing_file(DrawingKind::Svg, {300, 400, 6300, 3400}, "AL1 <264>", [](Canvas& canvas) {
            write_all(canvas);
            canvas.text(300, 400, "a\nb<\x01", {8}, blue);
        });
    for (const char* part : {"<title>AL1 &lt;264&gt;</title>", "viewBox=\"0 0 6000 3000\"",
                             ">Leitertemperatur/°C</text>", "font-weight=\"700\"",
                             ">a b&lt; </text>", "fill=\"#0000ff\""})
        EXPECT_THAT(svg, HasSubstr(part));
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

TEST(QtCanvas, rules_are_whole_pixels_of_their_width) {
    for (const int width : {1, 2, 3})
        for (const int shift : {0, 3, 4, 8, 11}) {
            const QImage image = image_of([&](Canvas& canvas) {
                canvas.box({1500.0 + shift, 600, 4500, 2400}, {black, LineStyle::Solid, width});
            });
            int dark = 0;
            for (int x = 100; x < 300; ++x) {
                const QColor colour = image.pixelColor(x, 200);
                dark += colour == QColor(Qt::black) ? 1 : 0;
                EXPECT_TRUE(colour == QColor(Qt::black) || colour == QColor(Qt::white));
            }
            EXPECT_EQ(dark, 2 * width) << shift;
        }
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
