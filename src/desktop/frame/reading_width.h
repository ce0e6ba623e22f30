#pragma once

#include <QFontInfo>
#include <QWidget>
#include <algorithm>

namespace zel {

/// How wide a page is at most, in pixels: wider ones read badly. Larger letters need more.
[[nodiscard]] inline int reading_width(const QWidget& page) {
    constexpr int usual_width = 1300;
    constexpr double usual_points = 10;
    const double points = QFontInfo(page.font()).pointSizeF();
    return static_cast<int>(usual_width * std::max(1.0, points / usual_points));
}

}  // namespace zel
