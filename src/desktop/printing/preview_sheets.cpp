#include "desktop/printing/preview_sheets.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "adapters/qt_canvas/qt_canvas.h"
#include "desktop/frame/events.h"
#include "platform/rounding.h"

namespace zel {
namespace {

// Of a step of the scroll bars, in twips.
constexpr double horizontal_step = -50;
constexpr double vertical_steps[] = {-35, -80};  // of the first and the second sheet

// Of the scroll bars, in twips of the window.
constexpr double vertical_less = 1150;    // how much shorter than the window
constexpr double horizontal_less = 1140;  // the same
constexpr double vertical_edge = 520;     // from the right edge of the window
constexpr double horizontal_edge = 370;   // from the lower one

constexpr double paper_width = report_paper.width() / twips_per_pixel;
constexpr double paper_height = report_paper.height() / twips_per_pixel;
constexpr double least_zoom = 0.25;
constexpr double most_zoom = 2;  // of more than that 16 bits do not tell all places
constexpr double wheel_step = 1.1;
constexpr int margin = 12;  // pixels around a sheet
constexpr int line = 40;    // pixels that an arrow key scrolls

int pixels(double twips) { return static_cast<int>(std::lround(twips / twips_per_pixel)); }

/// The least value of a scroll bar of `step` that shows what is `overflow` pixels away.
int values_for(double overflow, double step) {
    return static_cast<int>(std::ceil(std::max(0.0, overflow) * twips_per_pixel / -step));
}

int placed(double twips) {
    const auto place = round_to_int16(twips);
    return place ? *place : std::numeric_limits<std::int16_t>::min();
}

double step_of(std::size_t sheet) { return vertical_steps[std::min<std::size_t>(sheet, 1)]; }

}  // namespace

int sheet_left(int value, const PreviewScale& scale) {
    return placed(value * horizontal_step * scale.Skala_x);
}

int sheet_top(int value, std::size_t sheet, const PreviewScale& scale) {
    return placed(value * step_of(sheet) * scale.Skala_y);
}

SheetPicture::SheetPicture(ReportSheet sheet) : sheet_(std::move(sheet)) {}

void SheetPicture::set_zoom(double zoom) {
    zoom_ = zoom;
    resize(static_cast<int>(std::lround(paper_width * zoom)),
           static_cast<int>(std::lround(paper_height * zoom)));
    update();
}

void SheetPicture::paintEvent(QPaintEvent* /*event*/) {
    guarded(*this, [this] {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        QtCanvas canvas(painter, zoom_ / twips_per_pixel);
        draw(canvas, sheet_);
    });
}

PreviewSheets::PreviewSheets(std::vector<ReportSheet> sheets)
    : view_(new QWidget(this)),
      vertical_(new QScrollBar(Qt::Vertical, this)),
      horizontal_(new QScrollBar(Qt::Horizontal, this)) {
    static constexpr const char* names[] = {"Picture3", "Picture4"};
    vertical_->setObjectName("VScroll1");
    horizontal_->setObjectName("HScroll1");
    view_->setBackgroundRole(QPalette::Dark);
    view_->setAutoFillBackground(true);
    for (ReportSheet& sheet : sheets) {
        auto* picture = new SheetPicture(std::move(sheet));
        picture->setParent(view_);
        picture->setObjectName(names[std::min<std::size_t>(sheets_.size(), 1)]);
        picture->hide();
        sheets_.push_back(picture);
    }
    sheet().show();
    for (QScrollBar* bar : {vertical_, horizontal_})
        on(bar, &QScrollBar::valueChanged, [this] { place_sheet(); });
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(400, 300);
}

void PreviewSheets::set_scale() {
    scale_ = {std::max(1.0, width() / paper_width), std::max(1.0, height() / paper_height)};
    set_ranges();
}

void PreviewSheets::show_sheet(std::size_t sheet) {
    sheets_[shown_]->hide();
    shown_ = sheet;
    sheets_[shown_]->set_zoom(zoom_);
    sheets_[shown_]->show();
    set_ranges();
    vertical_->setValue(0);
    place_sheet();
}

void PreviewSheets::set_zoom(double zoom, const QPointF& around) {
    const QPointF inside = around - QPointF(sheet().pos());
    const double factor = std::clamp(zoom, least_zoom, most_zoom) / zoom_;
    zoom_ *= factor;
    follows_width_ = false;
    sheet().set_zoom(zoom_);
    set_ranges();
    scroll_to(inside.x() * factor - around.x(), inside.y() * factor - around.y());
}

void PreviewSheets::set_zoom(double zoom) { set_zoom(zoom, QRectF(view_->rect()).center()); }

void PreviewSheets::fit_width() {
    set_zoom((view_->width() - 2 * margin) / paper_width, {});
    follows_width_ = true;
}

void PreviewSheets::fit_sheet() {
    set_zoom(std::min((view_->width() - 2 * margin) / paper_width,
                      (view_->height() - 2 * margin) / paper_height));
}

void PreviewSheets::set_panel(QWidget& panel) {
    panel_ = &panel;
    panel.setParent(this);
    place_panel();
}

void PreviewSheets::place_panel() {
    if (panel_ == nullptr) return;
    const int top = horizontal_->geometry().bottom() + 1;
    panel_->setGeometry(margin, top, width() - 2 * margin, height() - top);
}

void PreviewSheets::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const int thickness = vertical_->sizeHint().width();
    const int vertical_left = width() - pixels(vertical_edge) - thickness;
    const int horizontal_top = height() - pixels(horizontal_edge) - thickness;
    vertical_->setGeometry(vertical_left, 0, thickness, height() - pixels(vertical_less));
    horizontal_->setGeometry(0, horizontal_top, width() - pixels(horizontal_less), thickness);
    view_->setGeometry(0, 0, vertical_left, horizontal_top);
    place_panel();
    if (follows_width_) return fit_width();
    set_ranges();
    place_sheet();
}

/// The bars reach as far as the sheet with its margin is larger than the view.
void PreviewSheets::set_ranges() {
    const double wide = sheet().width() + 2 * margin - view_->width();
    const double high = sheet().height() + 2 * margin - view_->height();
    horizontal_->setRange(0, values_for(wide, horizontal_step * scale_.Skala_x));
    vertical_->setRange(0, values_for(high, step_of(shown_) * scale_.Skala_y));
    horizontal_->setPageStep(
        std::max(1, values_for(view_->width(), horizontal_step * scale_.Skala_x)));
    vertical_->setPageStep(
        std::max(1, values_for(view_->height(), step_of(shown_) * scale_.Skala_y)));
}

void PreviewSheets::place_sheet() {
    const int room = std::max(margin, (view_->width() - sheet().width()) / 2);
    sheet().move(room + pixels(sheet_left(horizontal_->value(), scale_)),
                 margin + pixels(sheet_top(vertical_->value(), shown_, scale_)));
}

/// So that the places `left` and `top` of the sheet come to the edges of the view.
void PreviewSheets::scroll_to(double left, double top) {
    horizontal_->setValue(values_for(left + margin, horizontal_step * scale_.Skala_x));
    vertical_->setValue(values_for(top + margin, step_of(shown_) * scale_.Skala_y));
    place_sheet();
}

void PreviewSheets::wheelEvent(QWheelEvent* event) {
    guarded(*this, [this, event] {
        const double notches = event->angleDelta().y() / 120.0;
        if (event->modifiers().testFlag(Qt::ControlModifier))
            set_zoom(zoom_ * std::pow(wheel_step, notches), event->position());
        else
            vertical_->setValue(
                vertical_->value() -
                static_cast<int>(
                    std::lround(notches * values_for(3 * line, step_of(shown_) * scale_.Skala_y))));
        event->accept();
    });
}

void PreviewSheets::keyPressEvent(QKeyEvent* event) {
    guarded(*this, [this, event] {
        const int row = values_for(line, step_of(shown_) * scale_.Skala_y);
        const int column = values_for(line, horizontal_step * scale_.Skala_x);
        const struct {
            int key;
            QScrollBar* bar;
            int by;
        } moves[] = {{Qt::Key_Down, vertical_, row},
                     {Qt::Key_Up, vertical_, -row},
                     {Qt::Key_Right, horizontal_, column},
                     {Qt::Key_Left, horizontal_, -column},
                     {Qt::Key_PageDown, vertical_, vertical_->pageStep()},
                     {Qt::Key_PageUp, vertical_, -vertical_->pageStep()},
                     {Qt::Key_Home, vertical_, -vertical_->maximum()},
                     {Qt::Key_End, vertical_, vertical_->maximum()}};
        for (const auto& [key, bar, by] : moves)
            if (event->key() == key) return bar->setValue(bar->value() + by);
        QWidget::keyPressEvent(event);
    });
}

}  // namespace zel
