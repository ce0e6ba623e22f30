#pragma once

#include <optional>
#include <string>
#include <vector>

#include "pictures/shapes.h"

namespace zel {

/// A bar with its name to the left and its value behind it.
struct Bar {
    std::string name;
    std::optional<double> value;  // nothing: only the text is there
    std::string text;
    Colour colour = rgb(70, 120, 180);
};

/// A line across the bars.
struct BarMark {
    double value = 0;
    std::string text;  // below the bars
};

struct BarScale {
    double low = 0;  // where the bars begin; the same as 0, but for values below it
    double high = 1;
};

/// From 0 to the largest value of bars and marks, or below 0 where one is.
[[nodiscard]] BarScale scale_of(const std::vector<Bar>& bars, const std::vector<BarMark>& marks);

/// Draws bars from `top` down to at most `bottom`; a bar begins at 0. Gives the y below them.
double draw_bars(Canvas& canvas, const std::vector<Bar>& bars, const std::vector<BarMark>& marks,
                 double top, double bottom);

}  // namespace zel
