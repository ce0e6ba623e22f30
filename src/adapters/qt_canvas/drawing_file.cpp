#include "adapters/qt_canvas/drawing_file.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QHashSeed>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <clocale>
#include <cmath>

#include "adapters/qt_canvas/pdf_language.h"
#include "adapters/qt_canvas/qt_canvas.h"
#include "platform/errors.h"

namespace zel {
namespace {

constexpr int twips_per_inch = 1440;
constexpr double twips_per_point = 20;
constexpr int pixels_per_inch = 192;  // a pen of width n is 2n pixels wide

constexpr Text no_memory_for_it = {"die Zeichnung kann nicht erzeugt werden",
                                   "the drawing cannot be made"};
constexpr Text no_font = {"zum Zeichnen ist keine Schriftart installiert",
                          "there is no font installed to draw with"};

struct Picture {
    const CanvasBox& area;
    QString title;
    DrawSheets draw;
};

void paint(const Picture& picture, QPaintDevice& device, double per_twip,
           const std::function<void()>& next_sheet = {}) {
    QPainter painter;
    if (!painter.begin(&device)) throw OutputError(Reason(no_memory_for_it));
    painter.translate(-picture.area.left * per_twip, -picture.area.top * per_twip);
    QtCanvas canvas(painter, per_twip);
    picture.draw(canvas, next_sheet);
}

QString text_of(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QSize whole(double width, double height) {
    return {static_cast<int>(std::lround(width)), static_cast<int>(std::lround(height))};
}

void write_svg(const Picture& picture, QBuffer& file) {
    QSvgGenerator svg;
    svg.setOutputDevice(&file);
    svg.setTitle(picture.title.toHtmlEscaped());  // which Qt leaves to its caller
    svg.setDescription({});
    svg.setResolution(twips_per_inch);
    svg.setSize(whole(picture.area.width(), picture.area.height()));
    svg.setViewBox(QRect(QPoint(), svg.size()));
    paint(picture, svg, 1);
}

void write_png(const Picture& picture, QBuffer& file) {
    constexpr double per_twip = static_cast<double>(pixels_per_inch) / twips_per_inch;
    constexpr double inches_per_meter = 1 / 0.0254;
    const int per_meter = static_cast<int>(std::lround(pixels_per_inch * inches_per_meter));
    QImage image(whole(picture.area.width() * per_twip, picture.area.height() * per_twip),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    image.setDotsPerMeterX(per_meter);
    image.setDotsPerMeterY(per_meter);
    image.setText("Title", picture.title);
    paint(picture, image, per_twip);
    if (!image.save(&file, "PNG")) throw OutputError(Reason(no_memory_for_it));
}

void write_pdf(const Picture& picture, QBuffer& file) {
    QPdfWriter pdf(&file);
    pdf.setTitle(picture.title);
    pdf.setResolution(twips_per_inch);
    const QSize points =
        whole(picture.area.width() / twips_per_point, picture.area.height() / twips_per_point);
    pdf.setPageSize(QPageSize(points, {}, QPageSize::ExactMatch));
    pdf.setPageMargins({});
    paint(picture, pdf, 1, [&pdf] { pdf.newPage(); });
}

}  // namespace

std::string drawing_file(DrawingKind kind, const CanvasBox& area, std::string_view title,
                         const std::function<void(Canvas&)>& draw) {
    const Picture picture = {
        area, text_of(title),
        [&draw](Canvas& canvas, const std::function<void()>& /*next_sheet*/) { draw(canvas); }};
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    switch (kind) {
        case DrawingKind::Svg:
            write_svg(picture, file);
            // Where there is no Arial, a viewer would take letters with serifs.
            file.buffer().replace("font-family=\"Arial\"",
                                  "font-family=\"Arial, Liberation Sans, sans-serif\"");
            break;
        case DrawingKind::Png: write_png(picture, file); break;
        case DrawingKind::Pdf: write_pdf(picture, file); break;
    }
    return file.data().toStdString();
}

std::string sheets_file(const SheetsDocument& document) {
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    write_pdf({document.sheet, text_of(document.title), document.draw}, file);
    const QByteArray& bytes = file.data();
    std::string pdf =
        with_language({bytes.data(), static_cast<std::size_t>(bytes.size())}, document.language);
    if (pdf.empty()) throw OutputError(Reason(no_memory_for_it));
    return pdf;
}

DrawingSystem::DrawingSystem() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QHashSeed::setDeterministicGlobalSeed();  // for the order of the parts of a PDF
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    application_ = std::make_unique<QGuiApplication>(no_words_, nullptr);
    std::setlocale(LC_NUMERIC, "C");  // the application object has just set the user's
    if (!QFontMetricsF(QFont("Arial")).inFont('0')) throw OutputError(Reason(no_font));
}

DrawingSystem::~DrawingSystem() = default;

}  // namespace zel
