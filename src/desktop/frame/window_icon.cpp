#include "desktop/frame/window_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace zel {
namespace {

constexpr int size = 64;

void draw_tower(QPainter& painter, int x) {
    painter.drawLine(x, 14, x - 7, 58);
    painter.drawLine(x, 14, x + 7, 58);
    painter.drawLine(x - 9, 24, x + 9, 24);
}

}  // namespace

QIcon window_icon() {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x1f, 0x4e, 0x79));
    painter.drawRoundedRect(0, 0, size, size, 10, 10);
    painter.setBrush(QColor(0xff, 0xc1, 0x07));
    painter.drawEllipse(QPoint(32, 13), 7, 7);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 3, Qt::SolidLine, Qt::RoundCap));
    draw_tower(painter, 13);
    draw_tower(painter, 51);
    QPainterPath line(QPointF(13, 24));
    line.quadTo(32, 52, 51, 24);
    painter.setPen(QPen(QColor(0xff, 0x8a, 0x50), 3));
    painter.drawPath(line);
    return {picture};
}

}  // namespace zel
