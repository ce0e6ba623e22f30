#include "adapters/qt_canvas/qt_canvas.h"

#include <QPainter>
#include <QPen>
#include <QPolygonF>
#include <algorithm>
#include <array>
#include <cmath>

namespace zel {
namespace {

constexpr int twips_per_point = 20;
constexpr double twips_per_width = 15;

// 17 m to each side: far from any surface, and near enough for numbers of 32 bits inside Qt.
constexpr CanvasBox everything = {-1e6, -1e6, 1e6, 1e6};

/// Dashes and gaps in widths of the pen, by style. Qt's own are too short to be told apart in
/// curves that are two or three pixels wide.
QList<double> dashes_of(LineStyle style) {
    switch (style) {
        case LineStyle::Solid: return {};
        case LineStyle::Dashes: return {7, 3.5};
        case LineStyle::Dots: return {1.5, 2.5};
        case LineStyle::DashDot: return {7, 3, 1.5, 3};
        case LineStyle::DashDotDot: return {7, 3, 1.5, 2.5, 1.5, 3};
    }
    return {};
}

/// A line of what every kind of file can hold.
QString letters_of(std::string_view text) {
    QString line = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    for (QChar& letter : line)
        if (letter.category() == QChar::Other_Control || letter.isNonCharacter())
            letter = QChar::Space;
    return line;
}

QPointF point_of(const CanvasPoint& p) { return {p.x, p.y}; }
QRectF rect_of(const CanvasBox& box) { return {box.left, box.top, box.width(), box.height()}; }

CanvasBox common_of(const CanvasBox& a, const CanvasBox& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}
bool empty(const CanvasBox& box) { return !(box.left <= box.right && box.top <= box.bottom); }

struct Piece {
    CanvasPoint from, to;
};

/// The part of a line that is inside of a box, by the method of Liang and Barsky.
std::optional<Piece> cut(const CanvasPoint& from, const CanvasPoint& to, const CanvasBox& box) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    if (!std::isfinite(dx) || !std::isfinite(dy)) return std::nullopt;
    double begin = 0;
    double end = 1;
    for (const auto& [slope, room] : {std::pair{-dx, from.x - box.left},
                                      {dx, box.right - from.x},
                                      {-dy, from.y - box.top},
                                      {dy, box.bottom - from.y}}) {
        if (slope == 0 && room < 0) return std::nullopt;
        if (slope < 0) begin = std::max(begin, room / slope);
        if (slope > 0) end = std::min(end, room / slope);
    }
    if (begin >= end) return std::nullopt;
    const auto at = [&](double part) {
        return CanvasPoint{from.x + part * dx, from.y + part * dy};
    };
    return Piece{begin == 0 ? from : at(begin), end == 1 ? to : at(end)};
}

}  // namespace

QtCanvas::QtCanvas(QPainter& painter, double per_twip, const QColor& of_window_text)
    : painter_(painter), window_text_(of_window_text), inside_(everything) {
    painter_.save();
    painter_.scale(per_twip, per_twip);
    pixels_ = painter_.deviceTransform().m11();
}

QtCanvas::~QtCanvas() { painter_.restore(); }

const QtCanvas::Face& QtCanvas::face(const Font& font) const {
    for (const Face& known : faces_)
        if (known.font == font) return known;
    QFont letters("Arial");
    letters.setPixelSize(font.size * twips_per_point);
    letters.setHintingPreference(QFont::PreferNoHinting);
    letters.setBold(font.bold);
    letters.setItalic(font.italic);
    return faces_.emplace_back(Face{font, letters, QFontMetricsF(letters)});
}

QColor QtCanvas::shown(Colour colour) const {
    if (colour == window_text) return window_text_;
    return {red_of(colour), green_of(colour), blue_of(colour)};
}

double QtCanvas::text_width(std::string_view text, const Font& font) const {
    return face(font).metrics.horizontalAdvance(letters_of(text));
}

double QtCanvas::text_height(const Font& font) const { return face(font).metrics.height(); }

void QtCanvas::text(double x, double y, std::string_view text, const Font& font, Colour colour) {
    const Face& used = face(font);
    const QString line = letters_of(text);
    const double width = used.metrics.horizontalAdvance(line);
    if (empty(common_of(inside_, {x, y, x + width, y + used.metrics.height()}))) return;
    const double base = y + used.metrics.ascent();
    painter_.setPen(shown(colour));
    painter_.setFont(used.letters);
    painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter_.drawText(QPointF(x, base), line);
    if (!font.underline) return;
    // Files in SVG would lose the underline of a font.
    const double top = base + used.metrics.underlinePos();
    fill({x, top, x + width, top + used.metrics.lineWidth()}, colour);
}

void QtCanvas::set_pen(const Pen& pen, Edges edges) {
    const QList<double> dashes = dashes_of(pen.style);
    const bool crisp = edges == Edges::Crisp;
    double width = pen.width * twips_per_width;
    // Otherwise rules of the same width would differ by a pixel.
    if (crisp) width = std::max(1.0, std::round(width * pixels_)) / pixels_;
    QPen used(shown(pen.colour), width);
    used.setJoinStyle(crisp ? Qt::MiterJoin : Qt::RoundJoin);
    used.setCapStyle(!dashes.isEmpty() ? Qt::FlatCap : crisp ? Qt::SquareCap : Qt::RoundCap);
    if (!dashes.isEmpty()) used.setDashPattern(dashes);
    painter_.setPen(used);
    painter_.setRenderHint(QPainter::Antialiasing, !crisp);
}

void QtCanvas::draw(std::span<const CanvasPoint> points, const Pen& pen, Edges edges) {
    set_pen(pen, edges);
    QPolygonF run;
    const auto finish = [&] {
        if (run.size() > 1) painter_.drawPolyline(run);
        run.clear();
    };
    for (std::size_t i = 1; i < points.size(); ++i) {
        const auto piece = cut(points[i - 1], points[i], inside_);
        if (!piece || piece->from != points[i - 1]) finish();
        if (!piece) continue;
        if (run.isEmpty()) run << point_of(piece->from);
        run << point_of(piece->to);
        if (piece->to != points[i]) finish();
    }
    finish();
}

void QtCanvas::line(double x1, double y1, double x2, double y2, const Pen& pen) {
    draw(std::array{CanvasPoint{x1, y1}, CanvasPoint{x2, y2}}, pen,
         x1 == x2 || y1 == y2 ? Edges::Crisp : Edges::Smooth);
}

void QtCanvas::path(std::span<const CanvasPoint> points, const Pen& pen) {
    draw(points, pen, Edges::Smooth);
}

void QtCanvas::box(const CanvasBox& box, const Pen& pen) {
    const auto& [left, top, right, bottom] = box;
    draw(std::array{CanvasPoint{left, top}, CanvasPoint{right, top}, CanvasPoint{right, bottom},
                    CanvasPoint{left, bottom}, CanvasPoint{left, top}},
         pen, Edges::Crisp);
}

void QtCanvas::fill(const CanvasBox& box, Colour colour) {
    const CanvasBox seen = common_of(inside_, box);
    if (empty(seen)) return;
    painter_.setRenderHint(QPainter::Antialiasing, false);
    painter_.fillRect(rect_of(seen), shown(colour));
}

void QtCanvas::area(std::span<const CanvasPoint> outline, Colour colour) {
    QPolygonF shape;
    for (const CanvasPoint& corner : outline) shape << point_of(corner);
    if (inside_ != everything) shape = shape.intersected(QPolygonF(rect_of(inside_)));
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(shown(colour));
    painter_.drawPolygon(shape);
    painter_.setBrush(Qt::NoBrush);
}

void QtCanvas::clip(const std::optional<CanvasBox>& inside) {
    // Files in SVG know no clip, so that what is drawn is cut too.
    inside_ = inside ? common_of(everything, *inside) : everything;
    painter_.setClipping(inside.has_value());
    if (inside) painter_.setClipRect(rect_of(*inside));
}

}  // namespace zel
