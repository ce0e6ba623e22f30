#pragma once

#include <functional>
#include <string>

#include "platform/canvas.h"

// A picture shows at a glance what a result page tells in numbers. It is drawn once, on a sheet of
// one size, which windows and files show at any scale.

namespace zel {

/// The sheet of every picture, in twips.
inline constexpr CanvasBox picture_sheet = {0, 0, 7200, 5400};

struct Picture {
    std::string title;
    std::function<void(Canvas&)> draw;  // below the title
};

/// The whole sheet: white ground, title, and the picture itself.
void draw(Canvas& canvas, const Picture& picture);

}  // namespace zel
