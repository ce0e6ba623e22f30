#include "desktop/frame/window_icon.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace zel {

QIcon window_icon() {
    QSvgRenderer drawing(QStringLiteral(":/zel.svg"));
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        drawing.render(&painter);
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}

}  // namespace zel
