#include "desktop/pictures/picture_view.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "adapters/qt_canvas/qt_canvas.h"
#include "desktop/frame/widgets.h"

namespace zel {

PictureView::PictureView(Picture picture) : picture_(std::move(picture)) {
    setObjectName("picture");
    setAccessibleName(qt(picture_.title));
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

int PictureView::heightForWidth(int width) const {
    return static_cast<int>(std::lround(width * picture_sheet.height() / picture_sheet.width()));
}

QSize PictureView::sizeHint() const { return {480, heightForWidth(480)}; }

void PictureView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    const double scale =
        std::min(width() / picture_sheet.width(), height() / picture_sheet.height());
    painter.translate((width() - scale * picture_sheet.width()) / 2, 0);
    QtCanvas canvas(painter, scale);
    draw(canvas, picture_);
}

}  // namespace zel
