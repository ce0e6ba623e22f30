#include "desktop/pictures/diagram_picture.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "adapters/qt_canvas/qt_canvas.h"

namespace zel {
namespace {

constexpr double twips_per_pixel = 15;
constexpr double reach = 12 * twips_per_pixel;  // of the mouse to a curve
constexpr double factor_of_a_notch = 1.25;
constexpr double angle_of_a_notch = 120;  // of a wheel, in eighths of a degree
constexpr double part_of_a_key = 0.1;     // of what is shown, by which an arrow moves it
constexpr double least_part = 1e-4;       // of a range

CanvasBox area_of(const QWidget& widget) {
    return {0, 0, widget.width() * twips_per_pixel, widget.height() * twips_per_pixel};
}

/// `range` moved so that it stays within all, which is 0 to 1.
ValueRange inside(ValueRange range) {
    const double width = std::min(range.width(), 1.0);
    const double low = std::clamp(range.low, 0.0, 1 - width);
    return {low, low + width};
}

ValueRange enlarged(const ValueRange& range, double factor, double around) {
    const double width = std::clamp(range.width() / factor, least_part, 1.0);
    return inside({around - (around - range.low) * width / range.width(),
                   around + (range.high - around) * width / range.width()});
}

}  // namespace

DiagramPicture::DiagramPicture() {
    setObjectName("diagram");
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
}

void DiagramPicture::show_diagram(Diagram diagram, DecimalSeparator separator) {
    diagram_ = std::move(diagram);
    separator_ = separator;
    draw_anew();
}

void DiagramPicture::set_view(const DiagramView& view) {
    view_ = view;
    draw_anew();
}

void DiagramPicture::draw_anew() {
    picture_ = {};
    reading_.reset();
    update();
}

void DiagramPicture::render() {
    picture_ = QPixmap(size() * devicePixelRatioF());
    picture_.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(&picture_);
    QtCanvas canvas(painter, 1 / twips_per_pixel, palette().color(QPalette::WindowText));
    frame_ = frame_of(canvas, area_of(*this), diagram_, view_);
    draw(canvas, area_of(*this), diagram_, view_, separator_);
}

void DiagramPicture::paintEvent(QPaintEvent* /*event*/) {
    const bool anew = picture_.isNull();
    if (anew) render();
    QPainter(this).drawPixmap(0, 0, picture_);
    if (anew) read_values();
    paint_reading();
}

/// A ring around the point that is read.
void DiagramPicture::paint_reading() {
    if (!reading_) return;
    constexpr double radius = 4;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(view_.black_ground ? Qt::white : Qt::black, 1.5));
    painter.drawEllipse(QPointF(reading_->place.x, reading_->place.y) / twips_per_pixel, radius,
                        radius);
}

void DiagramPicture::read_values() {
    reading_.reset();
    if (!mouse_) return read({});
    const CanvasPoint place = {mouse_->x() * twips_per_pixel, mouse_->y() * twips_per_pixel};
    if (!frame_.plot.holds(place)) return read({});
    reading_ = read_at(diagram_, view_, frame_, place, reach);
    read(reading_text(diagram_, frame_, place, reading_, separator_));
}

void DiagramPicture::resizeEvent(QResizeEvent* /*event*/) { draw_anew(); }

std::optional<CanvasPoint> DiagramPicture::share_at(const QPointF& place) const {
    const CanvasPoint at = {place.x() * twips_per_pixel, place.y() * twips_per_pixel};
    if (!frame_.plot.holds(at)) return std::nullopt;
    return CanvasPoint{(at.x - frame_.plot.left) / frame_.plot.width(),
                       (frame_.plot.bottom - at.y) / frame_.plot.height()};
}

void DiagramPicture::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !share_at(event->position())) return;
    dragged_from_ = event->position();
    setCursor(Qt::ClosedHandCursor);
}

void DiagramPicture::mouseReleaseEvent(QMouseEvent* /*event*/) {
    dragged_from_.reset();
    setCursor(Qt::CrossCursor);
}

void DiagramPicture::mouseMoveEvent(QMouseEvent* event) {
    mouse_ = event->position();
    if (dragged_from_) {
        const QPointF by = (*mouse_ - *dragged_from_) * twips_per_pixel;
        dragged_from_ = mouse_;
        return move_by(-by.x() / frame_.plot.width(), by.y() / frame_.plot.height());
    }
    read_values();
    update();
}

void DiagramPicture::leaveEvent(QEvent* /*event*/) {
    mouse_.reset();
    read_values();
    update();
}

void DiagramPicture::mouseDoubleClickEvent(QMouseEvent* /*event*/) { show_all(); }

void DiagramPicture::wheelEvent(QWheelEvent* event) {
    if (const auto share = share_at(event->position()))
        enlarge(std::pow(factor_of_a_notch, event->angleDelta().y() / angle_of_a_notch), *share);
    event->accept();
}

void DiagramPicture::keyPressEvent(QKeyEvent* event) {
    const CanvasPoint middle = {0.5, 0.5};
    switch (event->key()) {
        case Qt::Key_Plus: return enlarge(factor_of_a_notch, middle);
        case Qt::Key_Minus: return enlarge(1 / factor_of_a_notch, middle);
        case Qt::Key_Left: return move_by(-part_of_a_key, 0);
        case Qt::Key_Right: return move_by(part_of_a_key, 0);
        case Qt::Key_Up: return move_by(0, part_of_a_key);
        case Qt::Key_Down: return move_by(0, -part_of_a_key);
        case Qt::Key_Home: return show_all();
        default: QWidget::keyPressEvent(event);
    }
}

void DiagramPicture::enlarge(double factor, const CanvasPoint& around) {
    DiagramZoom& zoom = view_.zoom;
    const auto at = [](const ValueRange& range, double share) {
        return range.low + share * range.width();
    };
    zoom.x = enlarged(zoom.x, factor, at(zoom.x, around.x));
    zoom.y = enlarged(zoom.y, factor, at(zoom.y, around.y));
    draw_anew();
}

void DiagramPicture::move_by(double x_share, double y_share) {
    const auto moved = [](const ValueRange& range, double share) {
        return inside({range.low + share * range.width(), range.high + share * range.width()});
    };
    view_.zoom = {moved(view_.zoom.x, x_share), moved(view_.zoom.y, y_share)};
    draw_anew();
}

void DiagramPicture::show_all() {
    view_.zoom = {};
    draw_anew();
}

}  // namespace zel
