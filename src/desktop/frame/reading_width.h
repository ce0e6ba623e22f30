#pragma once

#include <QFontInfo>
#include <QWidget>
#include <algorithm>

namespace zel {

/// How many times the usual size the letters of a page have, at least 1.
[[nodiscard]] inline double letter_scale(const QWidget& page) {
    constexpr double usual_points = 10;
    return std::max(1.0, QFontInfo(page.font()).pointSizeF() / usual_points);
}

/// How wide a page is at most, in pixels: wider ones read badly. Larger letters need more.
[[nodiscard]] inline int reading_width(const QWidget& page) {
    constexpr int usual_width = 1300;
    return static_cast<int>(usual_width * letter_scale(page));
}

}  // namespace zel
